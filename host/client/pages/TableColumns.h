// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QQueue>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <functional>

QT_BEGIN_NAMESPACE
class QPushButton;
class QTreeView;
QT_END_NAMESPACE

namespace Vantor {

class CAdaptiveColumnWidthController;
class CAdaptiveColumnWidthWidget;
class CCustomizeColumnButton;

} // namespace Vantor

namespace Client {

/// \brief The visible columns of \a table in the user's order: those that an export of it writes.
[[nodiscard]] QVector<int> VisibleColumns(const QTreeView &table);

/// \brief The buttons at the end of a table's header with which a user chooses the columns and how
/// wide they are. It lays the table out.
///
/// The choices are kept on the server for each user and each set of titles. Without a server the
/// table is as the list has it, and the buttons are disabled.
class CTableColumns : public QWidget
{
    Q_OBJECT

public:
    using TextsOf = std::function<QVector<QString>(int column)>;

    /// \param list  names the kind of list on the server.
    /// \param texts gives the texts of a column, for the width that shows whole texts.
    /// \param table shows the model; owns this.
    /// \param room  where the width choice drops down.
    CTableColumns(const QString &list, TextsOf texts, QTreeView &table, QWidget &room);
    ~CTableColumns() override;

    /// \brief The model has another list: show its columns in \a order, and ask for what the user
    /// chose.
    void OnListChanged(const QVector<int> &order);
    /// \brief Another user is logged in.
    void OnUserChanged();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildWidthChoice(QWidget &room);
    void Choose();
    void OnColumnsSettled();
    void OnWidthButton();
    void OnWidthChosen(int state);
    void OnWidthRead(const QString &text);
    void OnWidthFailed(int first, int second, int get_or_post);
    void SendWidth(const QString &text);
    void ShowColumns(const QList<int> &columns);
    void FitColumns();
    [[nodiscard]] int WidestTextPx(int column) const;
    void KeepToEnd();
    void Retranslate();

    [[nodiscard]] QString TitleOf(int column) const;

    const QString list_;
    const TextsOf texts_;
    QTreeView &table_;
    Vantor::CCustomizeColumnButton *const columns_button_;
    QPushButton *const width_button_;
    QPointer<Vantor::CAdaptiveColumnWidthWidget> width_choice_;
    Vantor::CAdaptiveColumnWidthController *width_exchange_ = nullptr;
    QString function_;   // names the set of titles on the server
    QVector<int> order_; // the columns as the list has them
    int width_ = 0;      // 0: no wider than a glance needs, 1: whole texts
    int stored_width_ = 0;
    QQueue<int> sent_widths_; // not answered yet
};

} // namespace Client
