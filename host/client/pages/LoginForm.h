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

/// \brief A card with the library's login form, a title above it and a button below. Errors appear
/// over the widget that the constructor gets. Hiding the card clears the password.
class CLoginForm : public QFrame
{
    Q_OBJECT

public:
    /// \param tips_over the widget over which messages appear; it must outlive this.
    explicit CLoginForm(QWidget *tips_over, QWidget *parent = nullptr);

    void SetTexts(const QString &title, const QString &button);
    /// \brief Ask for the password of \a user only; an empty name lets the user enter one.
    void SetUser(const QString &user);
    /// \brief Clear the input but the user name, and focus the first empty entry.
    void Begin();

public Q_SLOTS:
    /// \brief Check the input, as the button does.
    void OnLogIn();

Q_SIGNALS:
    /// Emitted after the password was right and the form has cleared it.
    void SignalLoggedIn(const QString &user, const Nim::Base::SecretText &password);

protected:
    void hideEvent(QHideEvent *event) override;

private:
    Vantor::CAccountPasswordWidget *const form_;
    QLineEdit *const user_; // of the form
    QLabel *const title_;
    QPushButton *const button_;
};

} // namespace Client
