// SPDX-License-Identifier: MIT
#include "pages/LockWindow.h"

#include "pages/HiddenWindows.h"
#include "pages/LoginForm.h"

#include <Faceplate/GUIMessageTipManager.h>

#include <QtGui/QCloseEvent>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>

#include <utility>

namespace Client {
namespace {

constexpr int kInformation = 0; // kind of a message tip
constexpr int kAtTheTop = 1;
constexpr int kTipTimeS = 15;

} // namespace

CLockWindow::CLockWindow(QWidget *locked, const QString &user)
    : locked_(locked), user_(user), form_(new CLoginForm(this, this))
{
    setObjectName(QStringLiteral("LockWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    setWindowIcon(locked->windowIcon());
    form_->SetUser(user);
    auto *const layout = new QGridLayout(this);
    layout->addWidget(form_, 0, 0, Qt::AlignCenter);
    form_->Begin();
    connect(form_, &CLoginForm::SignalLoggedIn, this, &CLockWindow::OnUnlocked);
    Retranslate();
}

CLockWindow::~CLockWindow() = default;

void CLockWindow::Lock()
{
    if (windows_)
        return;
    setGeometry(locked_->geometry());
    setWindowState(locked_->windowState());
    show();
    windows_ = std::make_unique<CHiddenWindows>(this, locked_);
    clipboard_ = std::make_unique<CHeldClipboard>();
    activateWindow();
}

void CLockWindow::OnUnlocked()
{
    if (auto windows = std::exchange(windows_, nullptr))
        windows->ShowAgain();
    if (auto clipboard = std::exchange(clipboard_, nullptr))
        clipboard->GiveBack();
    deleteLater();
    hide();
    // A dialog that blocks the window gets the keys.
    QWidget *const dialog = QApplication::activeModalWidget();
    if (QWidget *const next = dialog ? dialog : locked_.data())
        next->activateWindow();
}

void CLockWindow::closeEvent(QCloseEvent *event)
{
    // The window may have work under way, and refuses to close then.
    if (locked_ && !locked_->close()) {
        Faceplate::CGUIMessageTipManager::ShowMessage(
            this, tr("Please wait until the work is done"), kInformation, kAtTheTop, kTipTimeS);
        event->ignore();
        return;
    }
    event->accept();
    QApplication::quit();
}

void CLockWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

// The title names no list, because the task bar shows it.
void CLockWindow::Retranslate()
{
    setWindowTitle(tr("Locked"));
    form_->SetTexts(tr("Locked by %1").arg(user_), tr("Unlock"));
}

} // namespace Client
