// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Error.h>
#include <Nim/Base/Record.h>
#include <Nim/Base/SecretText.h>
#include <VantorExport.h>

#include <QtCore/QtGlobal>

#include <string>
#include <vector>

/// The records that login pages, the client's framework and the management server exchange. Texts
/// are UTF-8. Passwords and sessions are overwritten when a record goes or gets another; nothing
/// here prints them.
namespace NimClientFrameWork {

// The integers are the server's: a value without a name passes through unchanged.
enum AccountType : int { kAccountLocal = 1 };
enum ClientType : int { kClientDesktop = 1, kClientCaptcha = 3 };
enum EnableEnum : int { kNotEnabled = 0, kEnabled = 1 };
enum ExpirtyConfigEnum : int {};
enum LockConfigEnum : int {};
enum LoginAddrType : int {};
enum LoginPwdType : int {};
enum NetworkType : int { kNetworkDefault = 2 };
enum PasswordStrengthEnum : int {};
enum RemainingLoginType : int { kRemainingByUser = 1 };
enum UserType : int { kUserUnknown = -1 };

struct LoginMode
{
    qint32 workstation_id = 0;
    bool is_asyn = false;
    bool is_reconnection = false;
};

/// \brief How a login is done.
class VANTOR_EXPORT CLoginMode : public Nim::Base::CRecord<LoginMode>
{
    VANTOR_RECORD(CLoginMode)
    VANTOR_RECORD_FIELD(workstation_id)
    VANTOR_RECORD_FIELD(is_asyn)
    VANTOR_RECORD_FIELD(is_reconnection)
};

struct LoginDataInfo
{
    std::string user_name;
    Nim::Base::SecretText password;
    std::string server_address;
    std::string input_verify_code;
    std::string show_verify_code;
    std::string local_mac_address;
    std::string client_version;
    ClientType client_type = ClientType(1);
    std::string client_guid;
    qint32 port = 80;
    LoginPwdType login_pwd_type = LoginPwdType(0);
    bool is_remember_pwd = false;
    bool is_auto_login = false;
    bool is_http = true;
};

/// \brief What a login page collects.
class VANTOR_EXPORT CLoginDataInfo : public Nim::Base::CRecord<LoginDataInfo>
{
    VANTOR_RECORD(CLoginDataInfo)
    VANTOR_RECORD_FIELD(user_name)
    VANTOR_RECORD_SECRET(password)
    VANTOR_RECORD_FIELD(server_address)
    VANTOR_RECORD_FIELD(input_verify_code)
    VANTOR_RECORD_FIELD(show_verify_code)
    VANTOR_RECORD_FIELD(local_mac_address)
    VANTOR_RECORD_FIELD(client_version)
    VANTOR_RECORD_FIELD(client_type)
    VANTOR_RECORD_FIELD(client_guid)
    VANTOR_RECORD_FIELD(port)
    VANTOR_RECORD_FIELD(login_pwd_type)
    VANTOR_RECORD_FIELD(is_remember_pwd)
    VANTOR_RECORD_FIELD(is_auto_login)
    VANTOR_RECORD_FIELD(is_http)
};

struct DaxLoginParam
{
    std::string server_ip;
    std::string server_domain;
    quint32 workstation_id = 0;
    std::string user_name;
    Nim::Base::SecretText password;
    std::string login_protocol_type = "http";
    std::string client_guid;
    std::string hardwarecode;
    std::string input_verify_code;
    std::string show_verify_code;
    std::string client_version;
    AccountType login_mode = AccountType(1);
    ClientType client_type = ClientType(1);
    std::string edition_type;
    std::string product_name;
    LoginAddrType login_addr_type = LoginAddrType(0);
    LoginPwdType pwd_type = LoginPwdType(0);
    qint32 port = -1;
    quint32 timeout_connect = 30;
    quint32 timeout_waitData = 30;
    bool is_remember = false;
    bool is_reconnection = false;
    bool is_switch_user = false;
};

/// \brief What is sent to log in. Times in seconds.
class VANTOR_EXPORT CDaxLoginParam : public Nim::Base::CRecord<DaxLoginParam>
{
    VANTOR_RECORD(CDaxLoginParam)
    VANTOR_RECORD_FIELD(server_ip)
    VANTOR_RECORD_FIELD(server_domain)
    VANTOR_RECORD_FIELD(workstation_id)
    VANTOR_RECORD_FIELD(user_name)
    VANTOR_RECORD_SECRET(password)
    VANTOR_RECORD_FIELD(login_protocol_type)
    VANTOR_RECORD_FIELD(client_guid)
    VANTOR_RECORD_FIELD(hardwarecode)
    VANTOR_RECORD_FIELD(input_verify_code)
    VANTOR_RECORD_FIELD(show_verify_code)
    VANTOR_RECORD_FIELD(client_version)
    VANTOR_RECORD_FIELD(login_mode)
    VANTOR_RECORD_FIELD(client_type)
    VANTOR_RECORD_FIELD(edition_type)
    VANTOR_RECORD_FIELD(product_name)
    VANTOR_RECORD_FIELD(login_addr_type)
    VANTOR_RECORD_FIELD(pwd_type)
    VANTOR_RECORD_FIELD(port)
    VANTOR_RECORD_FIELD(timeout_connect)
    VANTOR_RECORD_FIELD(timeout_waitData)
    VANTOR_RECORD_FIELD(is_remember)
    VANTOR_RECORD_FIELD(is_reconnection)
    VANTOR_RECORD_FIELD(is_switch_user)
};

struct ResquestRSAKeyResult
{
    Nim::Base::SecretText str_RSA_key;
    Nim::Base::SecretText str_session;
    std::string case_error_info;
    qint32 error_subsystem = 0;
    qint32 error_first_code = 0;
    qint32 error_second_code = 0;
};

/// \brief The key that a password is encrypted with, and its session.
class VANTOR_EXPORT CResquestRSAKeyResult : public Nim::Base::CRecord<ResquestRSAKeyResult>
{
    VANTOR_RECORD(CResquestRSAKeyResult)
    VANTOR_RECORD_SECRET(str_RSA_key)
    VANTOR_RECORD_SECRET(str_session)
    VANTOR_RECORD_FIELD(case_error_info)
    VANTOR_RECORD_FIELD(error_subsystem)
    VANTOR_RECORD_FIELD(error_first_code)
    VANTOR_RECORD_FIELD(error_second_code)
};

struct DaxResponse
{
    Nim::Base::Error::ErrorCode stru_error_info;
    qint32 remain_count = 5;
    RemainingLoginType remain_login_type = RemainingLoginType(1);
    std::string captcha_info;
    std::string verify_mark;
    std::string str_bill_code;
};

/// \brief What the server answered to a login that failed.
class VANTOR_EXPORT CDaxResponse : public Nim::Base::CRecord<DaxResponse>
{
    VANTOR_RECORD(CDaxResponse)
    VANTOR_RECORD_FIELD(stru_error_info)
    VANTOR_RECORD_FIELD(remain_count)
    VANTOR_RECORD_FIELD(remain_login_type)
    VANTOR_RECORD_FIELD(captcha_info)
    VANTOR_RECORD_FIELD(verify_mark)
    VANTOR_RECORD_FIELD(str_bill_code)
};

struct LoginResult
{
    std::string return_data;
    std::string verify_code_num;
    std::string verify_mark;
    std::string input_verify_code;
    std::string str_bill_code;
    qint32 remain_count = 0;
    qint32 module_code = 0;
    qint32 error_code = 0;
    qint32 sub_system = 1;
    RemainingLoginType enum_remain_login = RemainingLoginType(1);
};

/// \brief What a login page is told.
class VANTOR_EXPORT CLoginResult : public Nim::Base::CRecord<LoginResult>
{
    VANTOR_RECORD(CLoginResult)
    VANTOR_RECORD_FIELD(return_data)
    VANTOR_RECORD_FIELD(verify_code_num)
    VANTOR_RECORD_FIELD(verify_mark)
    VANTOR_RECORD_FIELD(input_verify_code)
    VANTOR_RECORD_FIELD(str_bill_code)
    VANTOR_RECORD_FIELD(remain_count)
    VANTOR_RECORD_FIELD(module_code)
    VANTOR_RECORD_FIELD(error_code)
    VANTOR_RECORD_FIELD(sub_system)
    VANTOR_RECORD_FIELD(enum_remain_login)
};

struct DaxCaptchaResponse
{
    qint32 remain_count = 5;
    RemainingLoginType remain_login_type = RemainingLoginType(1);
    std::string captcha_info;
    std::string verify_code_num;
    std::string verify_mark;
    Nim::Base::Error::ErrorCode stru_error_info;
};

/// \brief The reply to a request for a verification code; captcha_info holds the bytes of the
/// image.
class VANTOR_EXPORT CDaxCaptchaResponse : public Nim::Base::CRecord<DaxCaptchaResponse>
{
    VANTOR_RECORD(CDaxCaptchaResponse)
    VANTOR_RECORD_FIELD(remain_count)
    VANTOR_RECORD_FIELD(remain_login_type)
    VANTOR_RECORD_FIELD(captcha_info)
    VANTOR_RECORD_FIELD(verify_code_num)
    VANTOR_RECORD_FIELD(verify_mark)
    VANTOR_RECORD_FIELD(stru_error_info)
};

struct DaxCaptchaInfo
{
    std::string server_ip;
    quint32 server_port = 0;
    ClientType client_type = ClientType(3);
    AccountType login_mode = AccountType(1);
    std::string user_name;
};

/// \brief For whom a verification code is requested.
class VANTOR_EXPORT CDaxCaptchaInfo : public Nim::Base::CRecord<DaxCaptchaInfo>
{
    VANTOR_RECORD(CDaxCaptchaInfo)
    VANTOR_RECORD_FIELD(server_ip)
    VANTOR_RECORD_FIELD(server_port)
    VANTOR_RECORD_FIELD(client_type)
    VANTOR_RECORD_FIELD(login_mode)
    VANTOR_RECORD_FIELD(user_name)
};

struct DaxLoginResponseData
{
    qint32 user_id = -1;
    UserType user_type = UserType(-1);
    NetworkType client_domain = NetworkType(2);
    bool is_need_detect_dax = false;
    bool is_configed = false;
    Nim::Base::SecretText session_id;
    std::string str_dax_real_ip;
    quint32 u_dax_real_port = 0;
    qint32 i_time_zone = -1;
};

/// \brief Who is logged in. i_time_zone as the server counts.
class VANTOR_EXPORT CDaxLoginResponseData : public Nim::Base::CRecord<DaxLoginResponseData>
{
    VANTOR_RECORD(CDaxLoginResponseData)
    VANTOR_RECORD_FIELD(user_id)
    VANTOR_RECORD_FIELD(user_type)
    VANTOR_RECORD_FIELD(client_domain)
    VANTOR_RECORD_FIELD(is_need_detect_dax)
    VANTOR_RECORD_FIELD(is_configed)
    VANTOR_RECORD_SECRET(session_id)
    VANTOR_RECORD_FIELD(str_dax_real_ip)
    VANTOR_RECORD_FIELD(u_dax_real_port)
    VANTOR_RECORD_FIELD(i_time_zone)
};

struct ControlPermission
{
    std::vector<std::string> vct_ctrl_permission;
};

/// \brief What a user may control.
class VANTOR_EXPORT CControlPermission : public Nim::Base::CRecord<ControlPermission>
{
    VANTOR_RECORD(CControlPermission)
    VANTOR_RECORD_FIELD(vct_ctrl_permission)
};

struct DaxPwdResponse
{
    Nim::Base::Error::ErrorCode stru_error_info{0, 0, 1};
    bool ret_change_pawd = false;
};

/// \brief The reply to a change of the password; the subsystem of its error is 1 at first.
class VANTOR_EXPORT CDaxPwdResponse : public Nim::Base::CRecord<DaxPwdResponse>
{
    VANTOR_RECORD(CDaxPwdResponse)
    VANTOR_RECORD_FIELD(stru_error_info)
    VANTOR_RECORD_FIELD(ret_change_pawd)
};

struct IPLockStruct
{
    EnableEnum enum_enable = EnableEnum(0);
    qint32 failed_count = 5;
    qint32 duration_time = 10;
};

/// \brief When an address is locked. The unit of the duration is the server's.
class VANTOR_EXPORT CIPLockStruct : public Nim::Base::CRecord<IPLockStruct>
{
    VANTOR_RECORD(CIPLockStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(failed_count)
    VANTOR_RECORD_FIELD(duration_time)
};

struct PasswordStrengthStruct
{
    EnableEnum enum_enable = EnableEnum(0);
    PasswordStrengthEnum enum_password_strength = PasswordStrengthEnum(0);
};

/// \brief How strong a password must be.
class VANTOR_EXPORT CPasswordStrengthStruct : public Nim::Base::CRecord<PasswordStrengthStruct>
{
    VANTOR_RECORD(CPasswordStrengthStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_password_strength)
};

struct PasswordExpirtyStruct
{
    EnableEnum enum_enable = EnableEnum(0);
    ExpirtyConfigEnum enum_config = ExpirtyConfigEnum(0);
    qint32 days = 0;
};

/// \brief When a password expires.
class VANTOR_EXPORT CPasswordExpirtyStruct : public Nim::Base::CRecord<PasswordExpirtyStruct>
{
    VANTOR_RECORD(CPasswordExpirtyStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_config)
    VANTOR_RECORD_FIELD(days)
};

struct ClientLockStruct
{
    EnableEnum enum_enable = EnableEnum(0);
    LockConfigEnum enum_lock_config = LockConfigEnum(0);
    qint32 duration_time = 10;
};

/// \brief When the client locks itself. The unit of the duration is the server's.
class VANTOR_EXPORT CClientLockStruct : public Nim::Base::CRecord<ClientLockStruct>
{
    VANTOR_RECORD(CClientLockStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_lock_config)
    VANTOR_RECORD_FIELD(duration_time)
};

struct LoginSettingStruct
{
    CIPLockStruct stru_ip_lock;
    CPasswordStrengthStruct stru_pwd_strength;
    CPasswordExpirtyStruct stru_pwd_expirty;
    CClientLockStruct stru_client_lock;
};

/// \brief The server's security settings. A number that it did not send is -1, also where that is
/// not 0 and so counts as enabled.
class VANTOR_EXPORT CLoginSettingStruct : public Nim::Base::CRecord<LoginSettingStruct>
{
    VANTOR_RECORD(CLoginSettingStruct)
    VANTOR_RECORD_FIELD(stru_ip_lock)
    VANTOR_RECORD_FIELD(stru_pwd_strength)
    VANTOR_RECORD_FIELD(stru_pwd_expirty)
    VANTOR_RECORD_FIELD(stru_client_lock)
};

struct ChangePwdStruct
{
    std::string str_user_name;
    Nim::Base::SecretText str_old_password;
    Nim::Base::SecretText str_new_password;
};

/// \brief A change of the password.
class VANTOR_EXPORT CChangePwdStruct : public Nim::Base::CRecord<ChangePwdStruct>
{
    VANTOR_RECORD(CChangePwdStruct)
    VANTOR_RECORD_FIELD(str_user_name)
    VANTOR_RECORD_SECRET(str_old_password)
    VANTOR_RECORD_SECRET(str_new_password)
};

struct DaxLoginParamForChangePwd
{
    LoginAddrType login_addr_type = LoginAddrType(0);
    ClientType client_type = ClientType(1);
    std::string remote_server_ip;
    quint32 remote_port = 0;
    CChangePwdStruct change_pwd;
    Nim::Base::SecretText session_id;
    bool is_login = false;
};

/// \brief Where the change of a password is sent.
class VANTOR_EXPORT CDaxLoginParamForChangePwd
    : public Nim::Base::CRecord<DaxLoginParamForChangePwd>
{
    VANTOR_RECORD(CDaxLoginParamForChangePwd)
    VANTOR_RECORD_FIELD(login_addr_type)
    VANTOR_RECORD_FIELD(client_type)
    VANTOR_RECORD_FIELD(remote_server_ip)
    VANTOR_RECORD_FIELD(remote_port)
    VANTOR_RECORD_FIELD(change_pwd)
    VANTOR_RECORD_SECRET(session_id)
    VANTOR_RECORD_FIELD(is_login)
};

struct CheckPwdResult
{
    std::string str_verify_code;
    std::string str_verify_mark;
    qint32 remain_login_num = -1;
    qint32 remain_login_type = -1;
};

/// \brief What a check of the password left to try.
class VANTOR_EXPORT CCheckPwdResult : public Nim::Base::CRecord<CheckPwdResult>
{
    VANTOR_RECORD(CCheckPwdResult)
    VANTOR_RECORD_FIELD(str_verify_code)
    VANTOR_RECORD_FIELD(str_verify_mark)
    VANTOR_RECORD_FIELD(remain_login_num)
    VANTOR_RECORD_FIELD(remain_login_type)
};

} // namespace NimClientFrameWork
