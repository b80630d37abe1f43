// SPDX-License-Identifier: MIT
#include "pages/LockWindow.h"

#include "pages/LoginForm.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QCloseEvent>
#include <QtGui/QIcon>
#include <QtWidgets/QGridLayout>

namespace Client {

CLockWindow::CLockWindow(QWidget *locked, const QString &user) : locked_(locked)
{
    setObjectName(QStringLiteral("LockWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal); // what else is open is locked too
    setWindowTitle(locked->windowTitle());
    setWindowIcon(locked->windowIcon());
    auto *const form = new CLoginForm(this, this);
    form->SetTexts(tr("Locked by %1").arg(user), tr("Unlock"));
    form->SetUser(user);
    auto *const layout = new QGridLayout(this);
    layout->addWidget(form, 0, 0, Qt::AlignCenter);
    form->Begin();
    connect(form, &CLoginForm::SignalLoggedIn, this, &CLockWindow::OnUnlocked);
}

void CLockWindow::Lock()
{
    setGeometry(locked_->geometry());
    setWindowState(locked_->windowState());
    show();
    locked_->hide();
}

void CLockWindow::OnUnlocked()
{
    if (locked_)
        locked_->show();
    deleteLater();
    hide();
}

void CLockWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    // The window decides: it may have work under way, and asks then.
    if (locked_ && !locked_->close())
        event->ignore();
    else
        QCoreApplication::quit();
}

} // namespace Client
