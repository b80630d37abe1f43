// SPDX-License-Identifier: MIT
#include "ClientFramework/FrameworkManagerInterface.h"

#include "BusinessCommon/NetCommManager.h"
#include "ClientComm/RapidJsonProto.h"
#include "Nim/Base/Replaceable.h"

template class Nim::Base::CSingleton<ClientFramework::CFrameworkManagerInterface>;

namespace ClientFramework {

VANTOR_RECORD_DEFINE(CCheckPwdRequestParam);
VANTOR_RECORD_DEFINE(CCheckPwdResultParam);

namespace {

using BusinessCommon::CNetCommManager;

constexpr char kUrl[] = "/Quorra/Brisent/Platform/V0/Permission/CheckPassword";
constexpr int kUnreadable = -1; // no server sends it

Nim::Base::SecretText MakeBody(const CheckPwdRequestParam &request)
{
    ClientComm::CRapidJsonProto document;
    document.SetString("/CheckPasswordRequest/UserName", request.str_name);
    document.SetString("/CheckPasswordRequest/PassWord", request.str_password);
    document.SetString("/CheckPasswordRequest/VerifyCode", request.str_verify_code);
    document.SetString("/CheckPasswordRequest/VerifyMark", request.str_verify_mark);
    return Nim::Base::SecretText(document.ToJson());
}

// The error that a reply reports; what cannot be read is an error too.
Nim::Base::Error::ErrorCode ErrorIn(const ClientComm::CRapidJsonProto &reply)
{
    const std::string module_path = "/ResponseStatus/ErrorModule";
    const int code = reply.GetInt("/ResponseStatus/ErrorCode", kUnreadable);
    const bool has_module =
        reply.GetCount(module_path) != 0 || !reply.GetString(module_path).empty();
    const int module = reply.GetInt(module_path, has_module ? kUnreadable : 0);
    const int check_result = reply.GetInt("/ResponseStatus/Data/CheckResult", kUnreadable);
    if (code == kUnreadable || module == kUnreadable
        || (code == 0 && module == 0 && check_result == kUnreadable))
        return {BusinessCommon::kModuleNetwork, BusinessCommon::kNetBadReply,
                BusinessCommon::kNetSubSystem};
    return {module, code, 0};
}

void CheckOnServer(const std::string & /*plugin*/, const CCheckPwdRequestParam &request,
                   CCheckPwdResultParam &result)
{
    constexpr Nim::Base::Error::ErrorCode kNoError;
    ClientComm::ClientSendInfo message;
    message.URL = kUrl;
    message.Method = "POST";
    message.Request_Data = MakeBody(request.Read()).Text();
    const ClientComm::CClientSendInfo send(
        std::make_shared<ClientComm::ClientSendInfo>(std::move(message)));
    ClientComm::CClientRecvInfo recv;
    const bool is_answered =
        Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSend(recv, send, 0);
    ClientComm::CRapidJsonProto reply;
    reply.Load(recv.Read().Receive_Data);
    Nim::Base::Error::ErrorCode error = recv.Read().Error_code;
    if (error == kNoError && is_answered)
        error = ErrorIn(reply);
    else if (error == kNoError)
        error = {BusinessCommon::kModuleNetwork, BusinessCommon::kNetFailed,
                 BusinessCommon::kNetSubSystem};
    result.SetVal_error_code(error);
    // A reply with an error is no success, even if its body says otherwise.
    result.SetVal_check_result(
        error == kNoError ? reply.GetInt("/ResponseStatus/Data/CheckResult", 0) : 0);
    result.SetVal_remain_count(reply.GetInt("/ResponseStatus/Data/RemainCount", -1));
    result.SetVal_lock_remain_time(reply.GetInt("/ResponseStatus/Data/LockRemainTime", 0));
}

using CBackend = Nim::Base::CReplaceable<void(const std::string &, const CCheckPwdRequestParam &,
                                              CCheckPwdResultParam &)>;

CBackend &CurrentBackend()
{
    static auto *const backend = new CBackend(&CheckOnServer);
    return *backend;
}

} // namespace

// The thread that makes this one makes the other too: those that check come and go.
CFrameworkManagerInterface::CFrameworkManagerInterface()
{
    Nim::Base::CSingleton<CNetCommManager>::Instance();
}

void CFrameworkManagerInterface::CheckPassword(const std::string &plugin,
                                               const CCheckPwdRequestParam &request,
                                               CCheckPwdResultParam &result)
{
    try {
        (*CurrentBackend().Get())(plugin, request, result);
    } catch (...) { // a host's back end may throw: whatever it had filled in by then is no answer
        result = CCheckPwdResultParam();
        result.SetVal_error_code({BusinessCommon::kModuleNetwork, BusinessCommon::kNetFailed,
                                  BusinessCommon::kNetSubSystem});
    }
}

void CFrameworkManagerInterface::SetBackend(Backend backend)
{
    CurrentBackend().Set(std::move(backend));
}

} // namespace ClientFramework
