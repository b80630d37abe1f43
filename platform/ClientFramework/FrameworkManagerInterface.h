// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Error.h>
#include <Nim/Base/Record.h>
#include <Nim/Base/SecretText.h>
#include <Nim/Base/Singleton.h>

#include <functional>
#include <string>

namespace ClientFramework {

class CFrameworkManagerInterface;

/// \brief A user and the password to check. Texts are UTF-8; the password is overwritten when
/// the structure is destroyed.
struct CheckPwdRequestParam
{
    std::string str_name;               ///< the user name
    Nim::Base::SecretText str_password; ///< as typed
    std::string str_verify_code;        ///< typed by the user; empty if it was not asked for
    std::string str_verify_mark;        ///< of the image that was shown
};

/// \brief The result of the check.
struct CheckPwdResultParam
{
    int check_result = 0;                   ///< 9: the password is right
    int remain_count = -1;                  ///< tries left; -1: not limited, or not known
    int lock_remain_time = 0;               ///< seconds until a lock ends
    Nim::Base::Error::ErrorCode error_code; ///< all 0 unless the check failed
};

/// \brief A CheckPwdRequestParam as a record.
class VANTOR_BASE_EXPORT CCheckPwdRequestParam : public Nim::Base::CRecord<CheckPwdRequestParam>
{
    VANTOR_RECORD(CCheckPwdRequestParam)
    VANTOR_RECORD_FIELD(str_name)
    VANTOR_RECORD_SECRET(str_password)
    VANTOR_RECORD_FIELD(str_verify_code)
    VANTOR_RECORD_FIELD(str_verify_mark)
};

/// \brief A CheckPwdResultParam as a record.
class VANTOR_BASE_EXPORT CCheckPwdResultParam : public Nim::Base::CRecord<CheckPwdResultParam>
{
    VANTOR_RECORD(CCheckPwdResultParam)
    VANTOR_RECORD_FIELD(check_result)
    VANTOR_RECORD_FIELD(remain_count)
    VANTOR_RECORD_FIELD(lock_remain_time)
    VANTOR_RECORD_FIELD(error_code)
};

} // namespace ClientFramework

// Threads may still ask it when the process ends.
template <>
struct Nim::Base::IsKeptAtUnload<ClientFramework::CFrameworkManagerInterface> : std::true_type
{
};

extern template class VANTOR_BASE_EXPORT
    Nim::Base::CSingleton<ClientFramework::CFrameworkManagerInterface>;

namespace ClientFramework {

/// \brief The back end of the client's framework, reached through
/// Nim::Base::CSingleton<CFrameworkManagerInterface>::Instance(). Any thread.
class VANTOR_BASE_EXPORT CFrameworkManagerInterface
    : public Nim::Base::CSingleton<CFrameworkManagerInterface>
{
    friend class Nim::Base::CSingleton<CFrameworkManagerInterface>;
    CFrameworkManagerInterface();

public:
    /// \brief Carries one check out and fills in the result, as CheckPassword() does.
    using Backend = std::function<void(const std::string &plugin, const CCheckPwdRequestParam &,
                                       CCheckPwdResultParam &)>;

    /// \brief Check a password and wait for the answer.
    ///
    /// By default it is sent to the server, see BusinessCommon::CNetCommManager, as JSON:
    /// POST "/Quorra/Brisent/Platform/V0/Permission/CheckPassword".
    /// \param plugin who asks; the default does not look at it.
    /// \param result its error code says why a password is not right, or why no answer came.
    void CheckPassword(const std::string &plugin, const CCheckPwdRequestParam &request,
                       CCheckPwdResultParam &result);

    /// \brief Check passwords some other way; an empty function restores the default. Called on the
    /// threads that check; it must not wait for the GUI thread, which may be waiting for it. When
    /// it throws, the check has failed.
    static void SetBackend(Backend backend);
};

} // namespace ClientFramework
