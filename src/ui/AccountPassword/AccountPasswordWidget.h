// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <string>

QT_BEGIN_NAMESPACE
class QAbstractButton;
QT_END_NAMESPACE

namespace Vantor {

class CPasswordFrame;
enum class LoginEntry;
enum class LoginFault;
struct CAccountPasswordWidgetDataPtr;
struct LoginAttempt;
struct LoginRelay;

/// \brief A form of user name, password and, once the server asks for one, verification code. It
/// checks the input against the server.
///
/// GUI thread. docs/styling.md lists the object names of the children. A host may delete the
/// children: a form without password frame has an empty password, one without code widget no code.
class VANTOR_EXPORT CAccountPasswordWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int waitOutTime READ GetWaitOutTime WRITE SetWaitOutTime) // only the host changes it

public:
    /// What LoginIn() came to.
    enum LoginState {
        kLoginSucceeded = 0, ///< The password is right.
        kLoginFailed = 1,    ///< The check answered without success, or could not be started.
        kLoginTimeout = 2,   ///< No answer within the wait time.
        kInputError = 3,     ///< The password is empty, or a verification code that is asked for.
    };

    explicit CAccountPasswordWidget(QWidget *parent = nullptr);
    ~CAccountPasswordWidget() override;

    /// \brief Check the input and wait for the answer, at most for the wait time.
    ///
    /// The GUI thread is blocked meanwhile. The check runs on its own thread, see
    /// ClientFramework::CFrameworkManagerInterface. It goes on after a timeout, and its late answer
    /// is ignored. An empty user name is sent, because the server decides about it. Without success
    /// the focus moves to the entry that is wrong.
    ///
    /// A call while a check runs, from a tip's presenter for example, starts no second check and
    /// returns kInputError. Return keys and clicks on the login button that the user made while the
    /// GUI thread was blocked are dropped, so that impatience costs no attempts.
    ///
    /// \param result     becomes a JSON document whose "/ErrorInfo" is the text for the user, UTF-8;
    ///                   empty after a success unless the error-text library has a text for it.
    /// \param pluginName the name of the caller, for the back end.
    LoginState LoginIn(std::string &result, std::string pluginName);

    /// \brief Empty the whole form and hide the verification code. An answer that is still on its
    /// way no longer shows it.
    void Clear();
    /// \brief Empty the form for the next attempt of the same user and hide the verification code.
    /// The user name stays. If an answer that is still on its way asks for a code, the code
    /// appears.
    void RestoreUI();

    /// \brief The password frame, which the form owns; null when the host has deleted it.
    [[nodiscard]] QPointer<CPasswordFrame> GetPasswordEditWidget();

    /// \param milliseconds the longest time that LoginIn() waits; 10000 by default. Less than 0
    ///                     counts as 0.
    void SetWaitOutTime(int milliseconds);
    [[nodiscard]] int GetWaitOutTime() const; ///< See SetWaitOutTime().
    /// \brief Set the widget over which LoginIn() shows why it failed; null shows it nowhere.
    void SetMainWidget(QPointer<QWidget> widget);
    /// \brief Let clicks on \a button emit SignalReturnPressed(), unless they were made while a
    /// check ran. The host keeps the button. It replaces an earlier one; null is no button.
    void SetLoginButton(QAbstractButton *button);

Q_SIGNALS:
    /// The user pressed Return in the form, or clicked the login button. The host calls LoginIn().
    /// A slot may delete the form.
    void SignalReturnPressed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnUpdataLoginResult(int result, QString info, bool needVerifyCode, QString guid);
    void OnRefreshVerifyCode();
    void OnUserNameChanged();
    void OnUserNameFinished();
    void OnLoginButton();
    void OnSettling();

private:
    static bool AsyncCheckPassword(std::string &errorText, const std::string &request,
                                   LoginAttempt &attempt, LoginRelay &relay);
    void InitUi();
    void Connect();
    void RetranslateUi();
    void SetVerifyWidgetVisiable(bool is_visible);
    void Submit(QObject *edit, QEvent *key);
    [[nodiscard]] bool AsksForCode() const;
    [[nodiscard]] LoginFault FindInputFault();
    [[nodiscard]] QString FaultText() const;
    void ShowFault(LoginFault fault);
    void FocusEntry(LoginEntry entry);
    LoginState Attempt(std::string &result, const std::string &pluginName);
    [[nodiscard]] std::shared_ptr<LoginAttempt> Prepare(const std::string &pluginName);
    [[nodiscard]] bool Start(const std::shared_ptr<LoginAttempt> &attempt);
    LoginState Await(LoginAttempt &attempt, std::string &result);
    LoginState Fail(LoginState state, std::string &result, std::function<QString()> text);
    void ShowTip(const QString &text);
    void ShowTipAgain();
    void TakeTipAway();
    void Settle();

    const std::shared_ptr<CAccountPasswordWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
