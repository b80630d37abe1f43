// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>
#include <string>

namespace Vantor {

class CPasswordFrame;
struct CAccountPasswordWidgetDataPtr;
struct LoginAttempt;
struct LoginRelay;

/// \brief A form of user name, password and, once the server asks for one, verification code, and
/// the check of what was typed.
///
/// GUI thread. The object names of its children are listed in docs/styling.md.
class VANTOR_EXPORT CAccountPasswordWidget : public QWidget
{
    Q_OBJECT

public:
    enum LoginState {
        kLoginSucceeded = 0,
        kLoginFailed = 1,  ///< The check answered, and not with success.
        kLoginTimeout = 2, ///< No answer within the wait time.
        kInputError = 3,   ///< The password is empty, or a verification code that is asked for.
    };

    explicit CAccountPasswordWidget(QWidget *parent = nullptr);
    ~CAccountPasswordWidget() override;

    /// \brief Check what was typed, and wait for the answer at most the wait time.
    ///
    /// Nothing is painted meanwhile and no event is handled. The check runs on a thread of its own,
    /// see ClientFramework::CFrameworkManagerInterface; it goes on after a timeout, and what it
    /// then finds changes nothing here. An empty user name is the server's to refuse.
    ///
    /// \param result     becomes a JSON document with what the user is told at "/ErrorInfo", UTF-8.
    /// \param pluginName who asks, for the back end.
    LoginState LoginIn(std::string &result, std::string pluginName);

    /// \brief Empty the whole form and hide the verification code.
    void Clear();
    /// \brief The same for the next attempt of the same user, whose name stays.
    void RestoreUI();

    [[nodiscard]] QPointer<CPasswordFrame> GetPasswordEditWidget();

    /// \param milliseconds that LoginIn() waits at most, 10000 at first; less than 0 counts as 0.
    void SetWaitOutTime(int milliseconds);
    /// \brief The widget over which LoginIn() shows why it failed; null: nowhere.
    void SetMainWidget(QPointer<QWidget> widget);

Q_SIGNALS:
    /// Return was pressed in the form: the host may call LoginIn().
    void SignalReturnPressed();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnUpdataLoginResult(int result, QString info, bool needVerifyCode, QString guid);
    void OnRefreshVerifyCode();

private:
    static bool AsyncCheckPassword(std::string &errorText, const std::string &request,
                                   LoginRelay &relay);
    void SetVerifyWidgetVisiable(bool is_visible);
    void InitUi();
    void RetranslateUi();
    [[nodiscard]] bool CheckInput(std::string &result);
    LoginState RunAttempt(std::string &result, const std::string &pluginName);
    void MarkPassword(bool is_empty);
    void ShowTip(const QString &text);

    const std::shared_ptr<CAccountPasswordWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
