// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Error.h>
#include <Nim/Base/Record.h>
#include <Nim/Base/SecretText.h>
#include <VantorExport.h>

#include <QtCore/QtGlobal>

#include <string>
#include <vector>

/// Records that login pages, the client's framework and the management server exchange. Texts are
/// UTF-8. Passwords and sessions are overwritten when a record is deleted or its field is set
/// again; no operator here prints them.
namespace NimClientFrameWork {

// The server defines the integers. A value without a name is kept unchanged.
enum AccountType : int { kAccountLocal = 1 };
enum ClientType : int { kClientDesktop = 1, kClientCaptcha = 3 };
enum LoginAddrType : int { kLoginAddrDefault = 0 };
enum LoginPwdType : int { kLoginPwdDefault = 0 };
enum NetworkType : int { kNetworkDefault = 2 };
enum RemainingLoginType : int { kRemainingByUser = 1 };
enum UserType : int { kUserUnknown = -1 };

struct LoginMode
{
    qint32 workstation_id = 0;
    bool is_asyn = false;
    bool is_reconnection = false;
};

/// \brief The way in which a client logs in.
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
    ClientType client_type = kClientDesktop;
    std::string client_guid;
    qint32 port = 80;
    LoginPwdType login_pwd_type = kLoginPwdDefault;
    bool is_remember_pwd = false;
    bool is_auto_login = false;
    bool is_http = true;
};

/// \brief The input of a login page.
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
    AccountType login_mode = kAccountLocal;
    ClientType client_type = kClientDesktop;
    std::string edition_type;
    std::string product_name;
    LoginAddrType login_addr_type = kLoginAddrDefault;
    LoginPwdType pwd_type = kLoginPwdDefault;
    qint32 port = -1;
    quint32 timeout_connect = 30;
    quint32 timeout_waitData = 30;
    bool is_remember = false;
    bool is_reconnection = false;
    bool is_switch_user = false;
};

/// \brief The parameters of a login. Times are in seconds.
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
    RemainingLoginType remain_login_type = kRemainingByUser;
    std::string captcha_info;
    std::string verify_mark;
    std::string str_bill_code;
};

/// \brief The answer of the server to a login that failed.
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
    RemainingLoginType enum_remain_login = kRemainingByUser;
};

/// \brief The result of a login, for the login page.
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
    RemainingLoginType remain_login_type = kRemainingByUser;
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
    ClientType client_type = kClientCaptcha;
    AccountType login_mode = kAccountLocal;
    std::string user_name;
};

/// \brief The user and the client that a verification code is requested for.
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
    UserType user_type = kUserUnknown;
    NetworkType client_domain = kNetworkDefault;
    bool is_need_detect_dax = false;
    bool is_configed = false;
    Nim::Base::SecretText session_id;
    std::string str_dax_real_ip;
    quint32 u_dax_real_port = 0;
    qint32 i_time_zone = -1;
};

/// \brief The user who has logged in. i_time_zone is a number of the server.
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

/// \brief The control permissions of a user.
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

/// \brief The reply to a change of the password. The subsystem of its error is 1 by default.
class VANTOR_EXPORT CDaxPwdResponse : public Nim::Base::CRecord<DaxPwdResponse>
{
    VANTOR_RECORD(CDaxPwdResponse)
    VANTOR_RECORD_FIELD(stru_error_info)
    VANTOR_RECORD_FIELD(ret_change_pawd)
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
    LoginAddrType login_addr_type = kLoginAddrDefault;
    ClientType client_type = kClientDesktop;
    std::string remote_server_ip;
    quint32 remote_port = 0;
    CChangePwdStruct change_pwd;
    Nim::Base::SecretText session_id;
    bool is_login = false;
};

/// \brief The change of a password and the server that it is sent to.
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

/// \brief The attempts that are left after a check of the password.
class VANTOR_EXPORT CCheckPwdResult : public Nim::Base::CRecord<CheckPwdResult>
{
    VANTOR_RECORD(CCheckPwdResult)
    VANTOR_RECORD_FIELD(str_verify_code)
    VANTOR_RECORD_FIELD(str_verify_mark)
    VANTOR_RECORD_FIELD(remain_login_num)
    VANTOR_RECORD_FIELD(remain_login_type)
};

} // namespace NimClientFrameWork
