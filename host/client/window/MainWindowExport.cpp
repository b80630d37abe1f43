// SPDX-License-Identifier: MIT
// The exports of the window.
#include "export/ExportText.h"
#include "export/IncidentExport.h"
#include "pages/ListPage.h"
#include "pages/Page.h"
#include "window/MainWindow.h"
#include "window/Pages.h"
#include "window/Panels.h"
#include "window/ProgressDialog.h"

#include <Vantor/CListExport>

#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

namespace Client {
namespace {

constexpr int kStatusTimeMs = 15000;

} // namespace

void CMainWindow::ExportTo(const QString &path)
{
    if (IsBusy())
        return;
    export_folder_ = QFileInfo(path).absolutePath();
    export_name_to_retry_ = QFileInfo(path).fileName();
    using Vantor::CListExport;
    if (CListExport::FormatOf(path) == CListExport::Format::BySuffix) {
        ShowError(UnknownFormatText(path));
        return;
    }
    auto *const job = new CListExport(this);
    CPage *const page = pages_->CurrentPage();
    if (page && page->Rows())
        page->SetRows(*job);
    else
        SetIncidents(*job, page_->Rows());
    RunExport(job, [path](CListExport &started) { started.Start(path); });
}

void CMainWindow::SaveAgain(Vantor::CListExport *job, const QString &path)
{
    export_folder_ = QFileInfo(path).absolutePath();
    export_name_to_retry_ = QFileInfo(path).fileName();
    RunExport(job, [path](Vantor::CListExport &built) { built.SaveAgain(path); });
}

void CMainWindow::RunExport(Vantor::CListExport *job,
                            const std::function<void(Vantor::CListExport &job)> &start)
{
    using Vantor::CListExport;
    job->disconnect();
    auto *const progress = new CProgressDialog(tr("Exporting…"), this);
    connect(job, &CListExport::SignalProgress, progress, &CProgressDialog::OnProgress);
    connect(job, &CListExport::SignalFinished, progress, &QObject::deleteLater);
    connect(job, &CListExport::SignalFinished, this,
            [this, job](const Vantor::ListExportResult &result) { OnExportFinished(job, result); });
    connect(progress, &QDialog::rejected, job, [this, job] {
        statusBar()->showMessage(tr("Cancelling the export…"));
        job->Cancel();
    });
    BeginWork([job] { job->Cancel(); });
    start(*job);
}

void CMainWindow::OnExportFinished(Vantor::CListExport *job, const Vantor::ListExportResult &result)
{
    using End = Vantor::ListExportResult::End;
    if (result.end == End::Failed && result.can_save_again)
        AskToSaveAgain(job, result);
    else
        job->deleteLater();
    if (result.end == End::Done) {
        export_name_to_retry_.clear();
        statusBar()->showMessage(ExportText(result), kStatusTimeMs);
        if (const QString losses = LossText(result); !losses.isEmpty())
            ShowError(losses);
    } else if (result.end == End::Cancelled) {
        statusBar()->showMessage(tr("Export cancelled"), kStatusTimeMs);
    } else if (!result.can_save_again) {
        ShowError(ExportText(result));
    }
    EndWork();
}

// The list need not be written once more for another name: its file is there. It goes with the job
// when the user does not want it.
void CMainWindow::AskToSaveAgain(Vantor::CListExport *job, const Vantor::ListExportResult &result)
{
    auto *const box = new QMessageBox(QMessageBox::Warning, tr("Incidents"), ExportText(result),
                                      QMessageBox::Cancel, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton *const save = box->addButton(tr("Save As…"), QMessageBox::AcceptRole);
    box->setDefaultButton(save);
    connect(box, &QDialog::finished, job, [this, box, save, job, path = result.path] {
        if (box->clickedButton() != save) {
            job->deleteLater();
            return;
        }
        QFileDialog *const dialog =
            NewSaveDialog(tr("Save As"), QFileInfo(path).suffix().toLower());
        connect(dialog, &QFileDialog::fileSelected, job,
                [this, job](const QString &chosen) { SaveAgain(job, chosen); });
        connect(dialog, &QDialog::rejected, job, &QObject::deleteLater);
        dialog->open();
    });
    box->open();
}

void CMainWindow::OnExportCsv()
{
    AskWhereToExport(tr("Export as CSV"), QStringLiteral("csv"));
}

void CMainWindow::OnExportXlsx()
{
    AskWhereToExport(tr("Export as XLSX"), QStringLiteral("xlsx"));
}

void CMainWindow::OnExportPanel()
{
    const CPage *const page = pages_->CurrentPage();
    const auto rows = page ? page->Rows() : std::nullopt;
    panels_->ShowExport(rows.value_or(RowTotal{page_->Rows().rows.size()}));
}

void CMainWindow::AskWhereToExport(const QString &title, const QString &ending)
{
    QFileDialog *const dialog = NewSaveDialog(title, ending);
    connect(dialog, &QFileDialog::fileSelected, this, &CMainWindow::ExportTo);
    dialog->open();
}

QFileDialog *CMainWindow::NewSaveDialog(const QString &title, const QString &ending)
{
    auto *const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(ending);
    dialog->setNameFilter(ending == QLatin1String("csv") ? tr("CSV files (*.csv)")
                                                         : tr("XLSX workbooks (*.xlsx)"));
    if (QFileInfo(export_folder_).isDir())
        dialog->setDirectory(export_folder_);
    const QString name = export_name_to_retry_.isEmpty() ? list_name_ : export_name_to_retry_;
    dialog->selectFile(QFileInfo(name).completeBaseName() + QLatin1Char('.') + ending);
    return dialog;
}

} // namespace Client
