// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "pages/ListPage.h"
#include "pages/Page.h"
#include "window/FileReading.h"
#include "window/Pages.h"
#include "window/Panels.h"
#include "window/WindowActions.h"

#include <Ravel/ChaseDialog.h>
#include <Ravel/WaitWatcher.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

#include <algorithm>

namespace Client {
namespace {

constexpr int kStatusTimeMs = 15000;

} // namespace

CMainWindow::CMainWindow(CThemeSwitch &theme, CLanguageSwitch &language, QWidget *parent)
    : QMainWindow(parent), page_(new CListPage(this)), pages_(new CPages(page_, this)),
      actions_(new CWindowActions(*this, theme, language)), panels_(new CPanels(this)),
      work_(new QLabel(this))
{
    setCentralWidget(pages_);
    actions_->AddPages(pages_->Actions());
    statusBar()->setSizeGripEnabled(false);
    work_->setObjectName(QStringLiteral("WorkElsewhere"));
    statusBar()->addPermanentWidget(work_);
    statusBar()->addPermanentWidget(page_->Totals());
    connect(pages_, &CPages::SignalWorkElsewhere, work_, &QLabel::setText);
    connect(pages_, &CPages::SignalWorkEnded, this, &CMainWindow::OnWorkEnded);
    const auto on = [this](CWindowActions::Id id, auto *receiver, auto slot) {
        connect(actions_->Action(id), &QAction::triggered, receiver, slot);
    };
    on(CWindowActions::kOpen, this, &CMainWindow::OnOpen);
    on(CWindowActions::kExportCsv, this, &CMainWindow::OnExportCsv);
    on(CWindowActions::kExportXlsx, this, &CMainWindow::OnExportXlsx);
    on(CWindowActions::kExportPanel, this, &CMainWindow::OnExportPanel);
    connect(panels_, &CPanels::SignalExportCsv, this, &CMainWindow::OnExportCsv);
    connect(panels_, &CPanels::SignalExportXlsx, this, &CMainWindow::OnExportXlsx);
    connect(panels_, &CPanels::SignalMessage, this, &CMainWindow::OnMessage);
    connect(page_, &CListPage::SignalRowChosen, panels_, &CPanels::ShowDetails);
    on(CWindowActions::kCopy, page_, &CListPage::Copy);
    on(CWindowActions::kSelectAll, page_, &CListPage::SelectAll);
    connect(actions_, &CWindowActions::SignalEditMenuOpens, this, &CMainWindow::OnEditMenuOpens);
    on(CWindowActions::kFind, this, &CMainWindow::OnFind);
    on(CWindowActions::kFileOrder, page_, &CListPage::RestoreOrder);
    on(CWindowActions::kAbout, this, &CMainWindow::OnAbout);
    on(CWindowActions::kQuit, this, &CMainWindow::close);
    connect(&theme, &CThemeSwitch::SignalThemeChanged, page_, &CListPage::OnThemeChanged);
    connect(&theme, &CThemeSwitch::SignalThemeChanged, pages_, &CPages::OnThemeChanged);
    connect(pages_, &CPages::SignalMessage, this, &CMainWindow::OnMessage);
    Retranslate();
    page_->FocusSearch();
}

CMainWindow::~CMainWindow() = default;

void CMainWindow::SetList(IncidentListPtr list, const QString &name)
{
    list_name_ = name;
    export_name_to_retry_.clear();
    statusBar()->clearMessage(); // it was about the earlier list
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
            [this](const QString &text) { statusBar()->showMessage(text, kStatusTimeMs); });
    connect(&link, &CServerLink::SignalUserChanged, page_, &CListPage::OnUserChanged);
    connect(&link, &CServerLink::SignalUserChanged, this, [this](const QString &user) {
        statusBar()->showMessage(tr("Logged in as %1").arg(user), kStatusTimeMs);
    });
}

void CMainWindow::OpenFile(const QString &path, char separator)
{
    if (IsBusy())
        return;
    const QString name = QFileInfo(path).fileName();
    auto *const reading = new CFileReading(path, separator, NewReadingDialog(name), this);
    connect(reading, &CFileReading::SignalFinished, this,
            [this, reading, name](const ReadResult &result) {
                reading->deleteLater();
                OnFileRead(result, name);
            });
    BeginWork([reading] { reading->Cancel(); });
}

QDialog *CMainWindow::NewReadingDialog(const QString &name)
{
    const QString movie = QStringLiteral(":/Express/Public/Gif/Images/Public/Gif/Waiting_M_4.gif");
    return new Ravel::CChaseDialog(this, movie, tr("Reading %1…").arg(name), true);
}

void CMainWindow::OnFileRead(const ReadResult &result, const QString &name)
{
    if (result.list) {
        page_->SetFilter({});
        SetList(result.list, name);
        if (!result.warning.isEmpty())
            ShowError(result.warning);
    } else if (!result.error.isEmpty()) {
        ShowError(result.error);
    }
    EndWork();
}

void CMainWindow::BeginWork(std::function<void()> cancel)
{
    cancel_work_ = std::move(cancel);
    actions_->SetWorkAllowed(!IsBusy());
}

void CMainWindow::EndWork()
{
    cancel_work_ = nullptr;
    actions_->SetWorkAllowed(!IsBusy());
    Q_EMIT SignalIdle();
}

void CMainWindow::Stop(int status)
{
    if (!IsBusy() && !pages_->WorkingPage()) {
        Q_EMIT SignalStopped(status);
        return;
    }
    connect(this, &CMainWindow::SignalIdle, this, [this, status] {
        if (!IsBusy() && !pages_->WorkingPage())
            Q_EMIT SignalStopped(status);
    });
    if (cancel_work_)
        cancel_work_();
    if (CPage *const page = pages_->WorkingPage())
        page->StopWork();
}

void CMainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        statusBar()->clearMessage(); // it is in the earlier language
        Retranslate();
    }
    // A window manager may activate a window that a dialog blocks, for instance when the lock is
    // gone.
    QWidget *const dialog = QApplication::activeModalWidget();
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && dialog && dialog != this)
        dialog->activateWindow();
}

void CMainWindow::closeEvent(QCloseEvent *event)
{
    CPage *const page = pages_->WorkingPage();
    if (!IsBusy() && !page) {
        QMainWindow::closeEvent(event);
        return;
    }
    if (page) {
        event->ignore();
        AskToStop(*page);
        return;
    }
    statusBar()->showMessage(tr("Please wait until the work is done"), kStatusTimeMs);
    event->ignore();
}

void CMainWindow::AskToStop(CPage &page)
{
    if (stop_question_ || closes_after_work_)
        return;
    constexpr int kNames = 5;
    QStringList left = page.WorkLeft();
    std::transform(left.begin(), left.end(), left.begin(), Isolated);
    QString text = tr("The current file will be finished.");
    if (!left.isEmpty()) {
        text +=
            QLatin1Char('\n') + tr("Not copied then: %1").arg(left.mid(0, kNames).join(tr(", ")));
        if (left.size() > kNames)
            text += tr(", and %Ln more", nullptr, left.size() - kNames);
    }
    stop_question_ = new QMessageBox(QMessageBox::NoIcon, tr("Incidents"), tr("Stop copying?"),
                                     QMessageBox::NoButton, this);
    stop_question_->setInformativeText(text);
    stop_question_->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton *const stop =
        stop_question_->addButton(tr("&Stop and quit"), QMessageBox::DestructiveRole);
    stop_question_->setDefaultButton(
        stop_question_->addButton(tr("&Go on copying"), QMessageBox::RejectRole));
    connect(stop, &QPushButton::clicked, this, &CMainWindow::StopAndClose);
    stop_question_->open();
}

void CMainWindow::StopAndClose()
{
    closes_after_work_ = true;
    if (CPage *const page = pages_->WorkingPage())
        page->StopWork();
    else
        OnWorkEnded();
}

// The question has lost its point, but a report of failures has to be read.
void CMainWindow::OnWorkEnded()
{
    delete stop_question_;
    Q_EMIT SignalIdle();
    if (std::exchange(closes_after_work_, false))
        close();
}

void CMainWindow::OnOpen()
{
    auto *const dialog = new QFileDialog(this, tr("Open a list"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    // The choice of a filter is the one choice that each system's own dialog offers.
    const QVector<QPair<QString, char>> filters{
        {tr("CSV files (*.csv *.txt *.tsv)"), '\0'},
        {tr("All files (*)"), '\0'},
        {tr("Files with commas between the cells (*)"), ','},
        {tr("Files with semicolons between the cells (*)"), ';'},
        {tr("Files with tabs between the cells (*)"), '\t'},
        {tr("Files with vertical bars between the cells (*)"), '|'}};
    QStringList names;
    for (const auto &[name, separator] : filters)
        names.append(name);
    dialog->setNameFilters(names);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, dialog, filters, names](const QString &path) {
                const int chosen = std::max(0, names.indexOf(dialog->selectedNameFilter()));
                OpenFile(path, filters.at(chosen).second);
            });
    dialog->open();
}

void CMainWindow::OnEditMenuOpens()
{
    actions_->Action(CWindowActions::kCopy)->setEnabled(page_->CanCopy());
    actions_->Action(CWindowActions::kSelectAll)->setEnabled(page_->CanSelectAll());
}

void CMainWindow::OnMessage(const QString &text)
{
    statusBar()->showMessage(text, kStatusTimeMs);
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

bool CMainWindow::IsBusy() const
{
    return cancel_work_ || Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance().IsWaiting();
}

void CMainWindow::ShowError(const QString &text)
{
    auto *const box =
        new QMessageBox(QMessageBox::Warning, tr("Incidents"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace Client
