// SPDX-License-Identifier: MIT
#pragma once

#include "list/CsvFile.h"
#include "list/IncidentList.h"

#include <QtCore/QFutureWatcher>
#include <QtCore/QPointer>
#include <QtWidgets/QMainWindow>

#include <atomic>
#include <memory>

QT_BEGIN_NAMESPACE
class QDialog;
QT_END_NAMESPACE

namespace Client {

class CLanguageSwitch;
class CListExport;
class CListPage;
class CPages;
class CPanels;
class CServerLink;
class CThemeSwitch;
class CWindowActions;
struct ExportResult;

/// \brief The window: menus around the list and the other pages.
///
/// Files are read and workbooks written on other threads, CSV files exported in slices, so the
/// window stays alive; it refuses to close until that is done.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    CMainWindow(CThemeSwitch &theme, CLanguageSwitch &language, QWidget *parent = nullptr);
    ~CMainWindow() override;

    /// \param name of the list, for the title.
    void SetList(IncidentListPtr list, const QString &name);
    void SetFilter(const QString &text);
    [[nodiscard]] IncidentRows Rows() const;
    [[nodiscard]] CPages &Pages() const { return *pages_; }

    /// \brief Offer the users of \a link, which outlives the window, and tell what goes wrong
    /// there.
    void SetServerLink(CServerLink &link);

    /// \brief Show the CSV file \a path, or a message when it cannot be read.
    void OpenFile(const QString &path);
    /// \brief Export what is shown to \a path, or show a message when that fails.
    void ExportTo(const QString &path);

    /// \brief The dialog that stands in front of the window while the list \a name is read; the
    /// caller deletes it.
    [[nodiscard]] QDialog *NewReadingDialog(const QString &name);

public Q_SLOTS:
    /// \brief Cancel the work at hand, if any, then emit SignalStopped().
    void Stop(int status);

Q_SIGNALS:
    /// Emitted after OpenFile() and ExportTo() have ended, well or not.
    void SignalIdle();
    /// Emitted when the program can end with \a status.
    void SignalStopped(int status);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private Q_SLOTS:
    void OnOpen();
    void OnExportCsv();
    void OnExportXlsx();
    void OnExportCancelled();
    void OnEditMenuOpens();
    void OnFind();
    void OnMessage(const QString &text);
    void OnAbout();
    void OnFileRead();
    void OnExportFinished(const Client::ExportResult &result);

private:
    void Retranslate();
    void UpdateActions();
    [[nodiscard]] bool IsBusy() const;
    void AskWhereToExport(const QString &title, const QString &filter, const QString &ending);
    void ShowError(const QString &text);

    CListPage *const page_;
    CPages *const pages_;
    CWindowActions *const actions_;
    CPanels *const panels_;
    QString list_name_;
    QString list_to_come_; // the one being read
    QFutureWatcher<ReadResult> reading_;
    QPointer<QDialog> reading_dialog_;
    // Set by the GUI thread, read by the reading one.
    std::shared_ptr<std::atomic<bool>> is_reading_cancelled_;
    QPointer<CListExport> export_;
    QString export_folder_;        // where the last export was to go; empty: Qt's choice
    QString export_name_to_retry_; // under this name, unless the file is there now
};

} // namespace Client
