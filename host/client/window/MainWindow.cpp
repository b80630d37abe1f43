// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "export/ExportFormat.h"
#include "export/ListExport.h"
#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "pages/ListPage.h"
#include "window/Pages.h"
#include "window/Panels.h"
#include "window/ProgressDialog.h"
#include "window/WindowActions.h"

#include <Ravel/ChaseDialog.h>
#include <Ravel/WaitWatcher.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>

#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 200ms; // a small file is read before a dialog would be seen
constexpr int kStatusTime_ms = 15000;

} // namespace

CMainWindow::CMainWindow(CThemeSwitch &theme, CLanguageSwitch &language, QWidget *parent)
    : QMainWindow(parent), page_(new CListPage(this)), pages_(new CPages(page_, this)),
      actions_(new CWindowActions(*this, theme, language)), panels_(new CPanels(this))
{
    setCentralWidget(pages_);
    actions_->AddPages(pages_->Actions());
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addPermanentWidget(page_->Totals());
    connect(actions_->Open(), &QAction::triggered, this, &CMainWindow::OnOpen);
    connect(actions_->ExportCsv(), &QAction::triggered, this, &CMainWindow::OnExportCsv);
    connect(actions_->ExportXlsx(), &QAction::triggered, this, &CMainWindow::OnExportXlsx);
    connect(actions_->ExportPanel(), &QAction::triggered, this,
            [this] { panels_->ShowExport(page_->Rows().rows.size()); });
    connect(panels_, &CPanels::SignalExportCsv, this, &CMainWindow::OnExportCsv);
    connect(panels_, &CPanels::SignalExportXlsx, this, &CMainWindow::OnExportXlsx);
    connect(panels_, &CPanels::SignalMessage, this, &CMainWindow::OnMessage);
    connect(page_, &CListPage::SignalRowChosen, panels_, &CPanels::ShowDetails);
    connect(actions_->Copy(), &QAction::triggered, page_, &CListPage::Copy);
    connect(actions_->SelectAll(), &QAction::triggered, page_, &CListPage::SelectAll);
    connect(actions_, &CWindowActions::SignalEditMenuOpens, this, &CMainWindow::OnEditMenuOpens);
    connect(actions_->Find(), &QAction::triggered, this, &CMainWindow::OnFind);
    connect(actions_->FileOrder(), &QAction::triggered, page_, &CListPage::RestoreOrder);
    connect(actions_->About(), &QAction::triggered, this, &CMainWindow::OnAbout);
    connect(actions_->Quit(), &QAction::triggered, this, &CMainWindow::close);
    connect(&theme, &CThemeSwitch::SignalThemeChanged, page_, &CListPage::OnThemeChanged);
    connect(&theme, &CThemeSwitch::SignalThemeChanged, pages_, &CPages::OnThemeChanged);
    connect(pages_, &CPages::SignalMessage, this, &CMainWindow::OnMessage);
    connect(&reading_, &QFutureWatcher<ReadResult>::finished, this, &CMainWindow::OnFileRead);
    Retranslate();
    page_->FocusSearch();
}

CMainWindow::~CMainWindow()
{
    if (is_reading_cancelled_)
        *is_reading_cancelled_ = true;
}

void CMainWindow::SetList(IncidentListPtr list, const QString &name)
{
    list_name_ = name;
    export_name_to_retry_.clear();
    statusBar()->clearMessage(); // it speaks of the list before
    pages_->SetList(list);
    page_->SetList(std::move(list));
    Retranslate();
}

void CMainWindow::SetFilter(const QString &text)
{
    page_->SetFilter(text);
}

IncidentRows CMainWindow::Rows() const
{
    return page_->Rows();
}

void CMainWindow::SetServerLink(CServerLink &link)
{
    actions_->AddUsers(link);
    connect(&link, &CServerLink::SignalFailed, this,
            [this](const QString &text) { statusBar()->showMessage(text, kStatusTime_ms); });
    connect(&link, &CServerLink::SignalUserChanged, page_, &CListPage::OnUserChanged);
    connect(&link, &CServerLink::SignalUserChanged, this, [this](const QString &user) {
        statusBar()->showMessage(tr("Logged in as %1").arg(user), kStatusTime_ms);
    });
}

void CMainWindow::OpenFile(const QString &path)
{
    if (IsBusy())
        return;
    const auto is_cancelled = std::make_shared<std::atomic<bool>>(false);
    is_reading_cancelled_ = is_cancelled;
    list_to_come_ = QFileInfo(path).fileName();
    reading_dialog_ = NewReadingDialog(list_to_come_);
    connect(reading_dialog_.data(), &QDialog::rejected, this,
            [is_cancelled = is_cancelled.get()] { *is_cancelled = true; });
    QTimer::singleShot(kPatience, reading_dialog_.data(), &QDialog::open);
    reading_.setFuture(QtConcurrent::run([path, is_cancelled] {
        return ReadCsvFile(path, [&](qint64, qint64) { return !*is_cancelled; });
    }));
    UpdateActions();
}

QDialog *CMainWindow::NewReadingDialog(const QString &name)
{
    const QString movie = QStringLiteral(":/Express/Public/Gif/Images/Public/Gif/Waiting_M_4.gif");
    return new Ravel::CChaseDialog(this, movie, tr("Reading %1…").arg(name), true);
}

void CMainWindow::OnFileRead()
{
    const ReadResult result = reading_.result();
    is_reading_cancelled_.reset();
    delete reading_dialog_.data();
    UpdateActions();
    if (result.list) {
        page_->SetFilter({});
        SetList(result.list, list_to_come_);
        if (!result.warning.isEmpty())
            ShowError(result.warning);
    } else if (!result.error.isEmpty()) {
        ShowError(result.error);
    }
    Q_EMIT SignalIdle();
}

void CMainWindow::ExportTo(const QString &path)
{
    if (IsBusy())
        return;
    export_folder_ = QFileInfo(path).absolutePath();
    export_name_to_retry_ = QFileInfo(path).fileName();
    if (!FindExportFormat(path)) {
        ShowError(UnknownFormatText(path));
        return;
    }
    export_ = new CListExport(page_->Rows(), this, this);
    auto *const progress = new CProgressDialog(tr("Exporting…"), this);
    connect(export_.data(), &CListExport::SignalProgress, progress, &CProgressDialog::OnProgress);
    connect(export_.data(), &CListExport::SignalFinished, progress, &QObject::deleteLater);
    connect(export_.data(), &CListExport::SignalFinished, this, &CMainWindow::OnExportFinished);
    connect(progress, &QDialog::rejected, this, &CMainWindow::OnExportCancelled);
    UpdateActions();
    export_->Start(path);
}

void CMainWindow::OnExportCancelled()
{
    statusBar()->showMessage(tr("Cancelling the export…"));
    if (export_)
        export_->Cancel();
}

void CMainWindow::OnExportFinished(const ExportResult &result)
{
    export_->deleteLater();
    export_.clear();
    UpdateActions();
    if (result.is_done)
        export_name_to_retry_.clear();
    if (!result.error.isEmpty())
        ShowError(result.error);
    else if (result.is_done)
        statusBar()->showMessage(ExportedText(result), kStatusTime_ms);
    else
        statusBar()->showMessage(tr("Export cancelled"), kStatusTime_ms);
    Q_EMIT SignalIdle();
}

void CMainWindow::Stop(int status)
{
    if (!IsBusy()) {
        Q_EMIT SignalStopped(status);
        return;
    }
    connect(this, &CMainWindow::SignalIdle, this, [this, status] { Q_EMIT SignalStopped(status); });
    if (export_)
        export_->Cancel();
    if (is_reading_cancelled_)
        *is_reading_cancelled_ = true;
}

void CMainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CMainWindow::closeEvent(QCloseEvent *event)
{
    if (!IsBusy()) {
        QMainWindow::closeEvent(event);
        return;
    }
    statusBar()->showMessage(tr("Please wait until the work is done"), kStatusTime_ms);
    event->ignore();
}

void CMainWindow::OnOpen()
{
    auto *const dialog = new QFileDialog(this, tr("Open a list"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("CSV files (*.csv *.txt *.tsv)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, &CMainWindow::OpenFile);
    dialog->open();
}

void CMainWindow::OnExportCsv()
{
    AskWhereToExport(tr("Export as CSV"), tr("CSV files (*.csv)"), QStringLiteral("csv"));
}

void CMainWindow::OnExportXlsx()
{
    AskWhereToExport(tr("Export as XLSX"), tr("XLSX workbooks (*.xlsx)"), QStringLiteral("xlsx"));
}

void CMainWindow::AskWhereToExport(const QString &title, const QString &filter,
                                   const QString &ending)
{
    auto *const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilter(filter);
    dialog->setDefaultSuffix(ending);
    if (QFileInfo(export_folder_).isDir())
        dialog->setDirectory(export_folder_);
    const QString name = export_name_to_retry_.isEmpty() ? list_name_ : export_name_to_retry_;
    dialog->selectFile(QFileInfo(name).completeBaseName() + QLatin1Char('.') + ending);
    connect(dialog, &QFileDialog::fileSelected, this, &CMainWindow::ExportTo);
    dialog->open();
}

void CMainWindow::OnEditMenuOpens()
{
    actions_->Copy()->setEnabled(page_->CanCopy());
    actions_->SelectAll()->setEnabled(page_->CanSelectAll());
}

void CMainWindow::OnMessage(const QString &text)
{
    statusBar()->showMessage(text, kStatusTime_ms);
}

void CMainWindow::OnFind()
{
    pages_->Show(CPages::Names().constFirst());
    page_->FocusSearch();
}

void CMainWindow::OnAbout()
{
    auto *const box = new QMessageBox(
        QMessageBox::NoIcon, tr("About"),
        tr("<h3>Incidents %1</h3><p>Shows, searches and exports incident reports.</p>"
           "<p>The list included holds real wildlife strikes on aircraft, from the public wildlife "
           "strike database of the United States.</p>")
            .arg(QCoreApplication::applicationVersion()),
        QMessageBox::Close, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void CMainWindow::Retranslate()
{
    setWindowTitle(list_name_.isEmpty() ? tr("Incidents") : tr("%1 – Incidents").arg(list_name_));
    actions_->Retranslate();
}

void CMainWindow::UpdateActions()
{
    actions_->Open()->setEnabled(!IsBusy());
    actions_->ExportCsv()->setEnabled(!IsBusy());
    actions_->ExportXlsx()->setEnabled(!IsBusy());
    actions_->ExportPanel()->setEnabled(!IsBusy());
}

bool CMainWindow::IsBusy() const
{
    return export_ || is_reading_cancelled_
           || Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance().IsWaiting();
}

void CMainWindow::ShowError(const QString &text)
{
    auto *const box =
        new QMessageBox(QMessageBox::Warning, tr("Incidents"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace Client
