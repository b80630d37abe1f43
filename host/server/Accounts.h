// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"
#include "Sessions.h"

#include <QtCore/QString>

#include <functional>
#include <string>

namespace Server {

class CAudit;
class CStore;
class CStoreThread;

/// Code words of a password check, with module kModuleServer.
enum LoginCode : int {
    kWrongPassword = 40850,        ///< user name or password; no verification code is asked for yet
    kWrongPasswordUnlimited = 502, ///< the same where tries are not limited
    kWrongPasswordCodeNext = 310,  ///< the same; the next try needs a verification code
    kWrongVerifyCode = 311,        ///< the password was not looked at
    kVerifyCodeNeeded = 214,       ///< there was no code, or it has expired or was used before
    kUserLocked = 41050,           ///< this user name, from this address or from all
    kAddressLocked = 262,          ///< every user name, from this address
};

/// "CheckResult" of a password check that succeeded.
constexpr int kCheckPassed = 9;

/// \brief Checks passwords with locks and verification codes, and begins and ends sessions.
///
/// Called on any thread; passwords are hashed there, everything else happens on the
/// store's thread.
class CAccounts
{
public:
    /// \param clock seconds since 1970; empty: the store's.
    CAccounts(CStoreThread &store, CAudit &audit, std::function<qint64()> clock,
              std::function<QString()> code_source);

    [[nodiscard]] Reply MakeVerifyCode(const Request &request);
    [[nodiscard]] Reply CheckPassword(const Request &request);
    [[nodiscard]] Reply LogIn(const Request &request);
    [[nodiscard]] Reply LogOut(const Request &request);

    /// \brief The account that \a session belongs to, called on the store's thread. Throws Refused
    /// for an unknown session.
    [[nodiscard]] qint64 AccountOf(CStore &store, const std::string &session) const;

private:
    struct Attempt;

    [[nodiscard]] Reply Check(const Request &request, bool is_login);
    [[nodiscard]] bool Begin(CStore &store, Attempt &attempt);
    void Finish(CStore &store, Attempt &attempt, bool is_right, bool is_login);
    [[nodiscard]] qint64 Now(CStore &store) const;
    void DropExpiredAtTimes(CStore &store);
    void WriteAudit(const Attempt &attempt, const Request &request, bool is_login);

    CStoreThread &store_;
    CAudit &audit_;
    const std::function<qint64()> clock_;        // may be empty
    const std::function<QString()> code_source_; // may be empty
    CSessions sessions_;                         // of the store's thread, as is the next one
    qint64 next_drop_s_ = 0;
};

} // namespace Server
