// SPDX-License-Identifier: MIT
#pragma once

#include "list/CsvFile.h"
#include "list/IncidentList.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMainWindow>

#include <functional>

QT_BEGIN_NAMESPACE
class QDialog;
class QFileDialog;
class QLabel;
class QMessageBox;
QT_END_NAMESPACE

namespace Vantor {
class CListExport;
struct ListExportResult;
} // namespace Vantor

namespace Client {

class CLanguageSwitch;
class CListPage;
class CPage;
class CPages;
class CPanels;
class CServerLink;
class CThemeSwitch;
class CWindowActions;

/// \brief The window: menus around the list and the other pages.
///
/// Files are read and workbooks are written on other threads, and CSV files are written in slices,
/// so the window stays responsive. It refuses to close until that is done. If a page is copying
/// files, it asks whether to stop, and closes when the current file is done.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    CMainWindow(CThemeSwitch &theme, CLanguageSwitch &language, QWidget *parent = nullptr);
    ~CMainWindow() override;

    /// \param name of the list, shown in the title.
    void SetList(IncidentListPtr list, const QString &name);
    void SetFilter(const QString &text);
    [[nodiscard]] IncidentRows Rows() const;
    [[nodiscard]] CPages &Pages() const { return *pages_; }

    /// \brief Offer the users of \a link, which outlives the window, and show its errors.
    void SetServerLink(CServerLink &link);

    /// \brief Show the CSV file \a path, or a message if it cannot be read.
    void OpenFile(const QString &path, char separator = '\0');
    /// \brief Show \a text in a box in front of the window.
    void ShowError(const QString &text);
    /// \brief Export the rows that are shown to \a path, or show a message if that fails.
    void ExportTo(const QString &path);

    /// \brief A dialog for the time in which the list \a name is read; the caller deletes it.
    [[nodiscard]] QDialog *NewReadingDialog(const QString &name);

public Q_SLOTS:
    /// \brief Cancel a running reading or export, wait for its end, then emit SignalStopped().
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
    void OnExportPanel();
    void OnEditMenuOpens();
    void OnFind();
    void OnMessage(const QString &text);
    void OnAbout();
    void OnWorkEnded();

private:
    void AskToStop(CPage &page);
    void StopAndClose();
    void Retranslate();
    void OnFileRead(const ReadResult &result, const QString &name);
    void SaveAgain(Vantor::CListExport *job, const QString &path);
    void RunExport(Vantor::CListExport *job,
                   const std::function<void(Vantor::CListExport &job)> &start);
    void OnExportFinished(Vantor::CListExport *job, const Vantor::ListExportResult &result);
    void AskToSaveAgain(Vantor::CListExport *job, const Vantor::ListExportResult &result);
    void BeginWork(std::function<void()> cancel);
    void EndWork();
    [[nodiscard]] bool IsBusy() const;
    void AskWhereToExport(const QString &title, const QString &ending);
    [[nodiscard]] QFileDialog *NewSaveDialog(const QString &title, const QString &ending);

    CListPage *const page_;
    CPages *const pages_;
    CWindowActions *const actions_;
    CPanels *const panels_;
    QString list_name_;
    // The reading or the export that is running, as a function that cancels it; empty: neither.
    std::function<void()> cancel_work_;
    QLabel *const work_; // progress of a page that is not in front
    QPointer<QMessageBox> stop_question_;
    bool closes_after_work_ = false; // the user has answered that question with "stop"
    QString export_folder_;          // the target of the last export; empty: Qt's choice
    QString export_name_to_retry_;   // name of the last export if it failed
};

} // namespace Client
