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
constexpr int kNoResult = -1; // of a reply without one

Nim::Base::SecretText MakeBody(const CheckPwdRequestParam &request)
{
    ClientComm::CRapidJsonProto document;
    document.SetString("/CheckPasswordRequest/UserName", request.str_name);
    document.SetString("/CheckPasswordRequest/PassWord", request.str_password);
    document.SetString("/CheckPasswordRequest/VerifyCode", request.str_verify_code);
    document.SetString("/CheckPasswordRequest/VerifyMark", request.str_verify_mark);
    return document.ToJson();
}

void CheckOnServer(const std::string & /*plugin*/, const CCheckPwdRequestParam &request,
                   CCheckPwdResultParam &result)
{
    ClientComm::ClientSendInfo message;
    message.URL = kUrl;
    message.Method = "POST";
    message.Request_Data = MakeBody(request.Read());
    const ClientComm::CClientSendInfo send(
        std::make_shared<ClientComm::ClientSendInfo>(std::move(message)));
    ClientComm::CClientRecvInfo recv;
    Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSend(recv, send, 0);
    ClientComm::CRapidJsonProto reply;
    const bool is_document = reply.Load(recv.Read().Receive_Data);
    const int check_result = reply.GetInt("/ResponseStatus/Data/CheckResult", kNoResult);
    constexpr Nim::Base::Error::ErrorCode kNoError;
    Nim::Base::Error::ErrorCode error = recv.Read().Error_code;
    if (error == kNoError) {
        error = {reply.GetInt("/ResponseStatus/ErrorModule", 0),
                 reply.GetInt("/ResponseStatus/ErrorCode", 0), 0};
        if (!is_document || (error == kNoError && check_result == kNoResult))
            error = {BusinessCommon::kModuleNetwork, BusinessCommon::kNetBadReply,
                     BusinessCommon::kNetSubSystem};
    }
    result.SetVal_error_code(error);
    // What comes with an error is no success, whatever else the reply says.
    result.SetVal_check_result(error == kNoError && check_result != kNoResult ? check_result : 0);
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
