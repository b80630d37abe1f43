// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"
#include "VerifyCodes.h"

#include <QtCore/QString>

#include <functional>
#include <string>

namespace Server {

class CDatabase;
class CDatabaseThread;

/// Code words of a password check, with module kModuleServer.
enum LoginCode : int {
    kWrongPassword = 40850,        ///< user name or password; no verification code is asked for yet
    kWrongPasswordUnlimited = 502, ///< the same where tries are not limited
    kWrongPasswordCodeNext = 310,  ///< the same; the next try needs a verification code
    kWrongVerifyCode = 311,        ///< the password was not looked at
    kVerifyCodeNeeded = 214,       ///< none was given, or it has expired or was used before
    kUserLocked = 41050,           ///< this user name, from this address
    kAddressLocked = 262,          ///< every user name, from this address
};

/// "CheckResult" of a password check that succeeded.
constexpr int kCheckPassed = 9;

/// \brief Argon2id hash of \a password, as text with its parameters and salt. Throws
/// std::bad_alloc.
[[nodiscard]] QString HashPassword(const std::string &password);

/// \brief Accounts with their passwords, locks, verification codes and sessions.
///
/// Called on any thread; passwords are hashed there, everything else happens on the database
/// thread.
class CAccounts
{
public:
    CAccounts(CDatabaseThread &database, std::function<qint64()> clock,
              std::function<QString()> code_source);

    [[nodiscard]] Reply MakeVerifyCode(const Request &request);
    [[nodiscard]] Reply CheckPassword(const Request &request);
    [[nodiscard]] Reply LogIn(const Request &request);
    [[nodiscard]] Reply LogOut(const Request &request);

    /// \brief The account that \a session belongs to, called on the database thread. Throws Refused
    /// when there is none.
    [[nodiscard]] qint64 AccountOf(CDatabase &database, const std::string &session) const;

private:
    struct Attempt;

    [[nodiscard]] Reply Check(const Request &request, bool is_login);
    [[nodiscard]] bool Begin(CDatabase &database, Attempt &attempt);
    void Finish(CDatabase &database, Attempt &attempt, bool is_right, bool is_login);
    [[nodiscard]] bool IsLocked(CDatabase &database, Attempt &attempt) const;
    void CountFailure(CDatabase &database, Attempt &attempt) const;
    [[nodiscard]] QString NewSession(CDatabase &database, const QString &user) const;

    CDatabaseThread &database_;
    const std::function<qint64()> clock_;
    const std::function<QString()> code_source_; // may be empty
    CVerifyCodes codes_;                         // of the database thread
};

} // namespace Server
