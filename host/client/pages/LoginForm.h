// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/SecretText.h>

#include <QtWidgets/QFrame>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QPushButton;
QT_END_NAMESPACE

namespace Vantor {

class CAccountPasswordWidget;

} // namespace Vantor

namespace Client {

/// \brief A card with the library's login form, a title above it and a button below. What goes
/// wrong is told over the widget that it was given.
class CLoginForm : public QFrame
{
    Q_OBJECT

public:
    /// \param tips_over where messages appear; outlives this.
    explicit CLoginForm(QWidget *tips_over, QWidget *parent = nullptr);

    void SetTexts(const QString &title, const QString &button);
    /// \brief Ask for the password of \a user only; empty: for anybody's.
    void SetUser(const QString &user);
    /// \brief Forget what was typed and begin at the first empty entry.
    void Begin();

public Q_SLOTS:
    /// \brief What the button does.
    void OnLogIn();

Q_SIGNALS:
    /// The password is right; the form has forgotten it.
    void SignalLoggedIn(const QString &user, const Nim::Base::SecretText &password);

private:
    Vantor::CAccountPasswordWidget *const form_;
    QLineEdit *const user_; // of the form
    QLabel *const title_;
    QPushButton *const button_;
};

} // namespace Client
