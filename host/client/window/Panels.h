// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QModelIndex;
class QWidget;
QT_END_NAMESPACE

namespace Client {

class CDetailPanel;
class CExportPanel;
struct RowTotal;

/// \brief The panels that slide in at the edge of the window: an incident in full, and the export.
class CPanels : public QObject
{
    Q_OBJECT

public:
    /// \param window owns this; the panels slide in at its edge.
    explicit CPanels(QWidget *window);
    ~CPanels() override;

    /// \brief Ask how to export \a rows rows.
    void ShowExport(const RowTotal &rows);

public Q_SLOTS:
    /// \brief Show the row of \a index in full.
    void ShowDetails(const QModelIndex &index);

Q_SIGNALS:
    void SignalExportCsv();
    void SignalExportXlsx();
    /// Emitted with a short text for the status bar.
    void SignalMessage(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Panel { None, Details, Export };

    void OpenExport();
    void Reopen();

    // Children of the window or of the dock; without a parent if the window is destroyed while the
    // panel is open.
    const QPointer<CDetailPanel> details_;
    const QPointer<CExportPanel> export_;
    QPersistentModelIndex shown_; // the row in the panel
    Panel hidden_ = Panel::None;  // opens again with the window, or after the dialog
};

} // namespace Client
