// SPDX-License-Identifier: MIT
#include "pages/LoginForm.h"

#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CPasswordFrame>

#include <QtGui/QHideEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace Client {
namespace {

constexpr int kWidthPx = 380;
constexpr int kMarginPx = 28;
constexpr int kSpacingPx = 18;
constexpr int kWaitTimeMs = 5000;

} // namespace

CLoginForm::CLoginForm(QWidget *tips_over, QWidget *parent)
    : QFrame(parent), form_(new Vantor::CAccountPasswordWidget(this)),
      user_(form_->findChild<QLineEdit *>(QStringLiteral("ptr_user_name_edit"))),
      title_(new QLabel(this)), button_(new QPushButton(this))
{
    setObjectName(QStringLiteral("LoginCard"));
    title_->setObjectName(QStringLiteral("LoginTitle"));
    title_->setTextFormat(Qt::PlainText);
    title_->setWordWrap(true);
    button_->setObjectName(QStringLiteral("LoginButton"));
    button_->setDefault(true);
    setFixedWidth(kWidthPx);
    form_->SetMainWidget(tips_over);
    form_->SetWaitOutTime(kWaitTimeMs);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->setSpacing(kSpacingPx);
    layout->addWidget(title_);
    layout->addWidget(form_);
    layout->addWidget(button_);
    form_->SetLoginButton(button_);
    connect(form_, &Vantor::CAccountPasswordWidget::SignalReturnPressed, this,
            &CLoginForm::OnLogIn);
}

void CLoginForm::SetTexts(const QString &title, const QString &button)
{
    title_->setText(title);
    button_->setText(button);
}

void CLoginForm::SetUser(const QString &user)
{
    user_->setText(user);
    user_->setReadOnly(!user.isEmpty());
}

void CLoginForm::Begin()
{
    form_->RestoreUI();
    if (user_->text().isEmpty())
        user_->setFocus();
    else
        form_->GetPasswordEditWidget()->SetFocus();
}

void CLoginForm::OnLogIn()
{
    // Nothing is painted while the form waits for the server, so the button is shown disabled
    // first.
    button_->setEnabled(false);
    button_->repaint();
    const Nim::Base::SecretText password = form_->GetPasswordEditWidget()->GetSecretText();
    std::string result;
    const auto state = form_->LoginIn(result, "vantor-client");
    button_->setEnabled(true);
    if (state != Vantor::CAccountPasswordWidget::kLoginSucceeded)
        return;
    const QString user = user_->text();
    Begin();
    Q_EMIT SignalLoggedIn(user, password);
}

// Another page is shown, or the client is locked, so the password must not stay in the field.
void CLoginForm::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    if (!event->spontaneous()) // as it is when the window is minimised
        form_->GetPasswordEditWidget()->ClearLineEdit();
}

} // namespace Client
