// SPDX-License-Identifier: MIT
#include "ui/SecondAuthentication/LoginSetting.h"

#include "common/Guard.h"

#include <BusinessCommon/NetCommManager.h>
#include <ClientComm/RapidJsonProto.h>

namespace Vantor {
namespace {

using namespace NimClientFrameWork;

constexpr char kUrl[] = "/Quorra/Brisent/Platform/V0/Permission/SecuritySetting";
constexpr char kSetting[] = "/ResponseStatus/Data/SecuritySetting";

bool Exchange(CDaxPwdResponse &response, CLoginSettingStruct &setting)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kUrl);
    send.SetVal_Method("GET");
    ClientComm::CClientRecvInfo recv;
    auto &manager = Nim::Base::CSingleton<BusinessCommon::CNetCommManager>::Instance();
    const bool is_sent = manager.ClientSynSend(recv, send, 0);
    const Nim::Base::Error::ErrorCode error = recv.GetVal_Error_code();
    if (!is_sent) {
        response.SetVal_stru_error_info(error);
        return false;
    }
    if (error.error_code != 0) {
        // The server's own words; the subsystem is not its to give.
        Nim::Base::Error::ErrorCode answered = response.GetVal_stru_error_info();
        answered.module_code = error.module_code;
        answered.error_code = error.error_code;
        response.SetVal_stru_error_info(answered);
        return false;
    }
    ParseLoginSetting(recv.Read().Receive_Data, setting);
    return true;
}

void ReadSetting(const ClientComm::CRapidJsonProto &document, CLoginSettingStruct &setting)
{
    const auto number = [&document](const char *path) {
        return document.GetInt(std::string(kSetting) + path, -1);
    };
    CIPLockStruct ip_lock;
    ip_lock.SetVal_duration_time(number("/IPLock/Duration"));
    ip_lock.SetVal_enum_enable(EnableEnum(number("/IPLock/Enable")));
    ip_lock.SetVal_failed_count(number("/IPLock/FailCount"));
    setting.SetVal_stru_ip_lock(ip_lock);
    CPasswordStrengthStruct strength;
    strength.SetVal_enum_enable(EnableEnum(number("/PasswordStrength/Enable")));
    strength.SetVal_enum_password_strength(
        PasswordStrengthEnum(number("/PasswordStrength/Strength")));
    setting.SetVal_stru_pwd_strength(strength);
    CPasswordExpirtyStruct expiry;
    expiry.SetVal_enum_enable(EnableEnum(number("/PasswordExpiry/Enable")));
    expiry.SetVal_enum_config(ExpirtyConfigEnum(number("/PasswordExpiry/Config")));
    expiry.SetVal_days(number("/PasswordExpiry/Day"));
    setting.SetVal_stru_pwd_expirty(expiry);
    CClientLockStruct client_lock;
    client_lock.SetVal_enum_enable(EnableEnum(number("/ClientLock/Enable")));
    client_lock.SetVal_enum_lock_config(LockConfigEnum(number("/ClientLock/Config")));
    client_lock.SetVal_duration_time(number("/ClientLock/Duration"));
    setting.SetVal_stru_client_lock(client_lock);
}

} // namespace

bool RequestLoginSetting(CDaxPwdResponse &response, CLoginSettingStruct &setting)
{
    bool is_answered = false;
    RunGuarded("Vantor::CSecondAuthentication::GetLoginSetting",
               [&] { is_answered = Exchange(response, setting); });
    return is_answered;
}

bool ParseLoginSetting(const std::string &reply, CLoginSettingStruct &setting)
{
    return RunGuarded("Vantor::ParseLoginSetting", [&] {
        ClientComm::CRapidJsonProto document;
        document.Load(reply);
        // The element holds one set of values however many members it counts, so one reading does
        // for all.
        if (document.GetCount(kSetting) > 0)
            ReadSetting(document, setting);
    });
}

} // namespace Vantor
