// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Error.h>
#include <Nim/Base/Record.h>
#include <Nim/Base/SecretText.h>
#include <VantorExport.h>

#include <QtCore/QtGlobal>

#include <string>
#include <vector>

/// \brief Records that login pages, the client's framework and the management server exchange.
/// Texts are UTF-8. Passwords and sessions are overwritten when a record is deleted or its field is
/// set again; no operator here prints them.
namespace NimClientFrameWork {

// The server defines the integers. A value without a name is kept unchanged.

/// Where the account is kept.
enum AccountType : int { kAccountLocal = 1 /**< of the server itself */ };
/// The program that logs in.
enum ClientType : int {
    kClientDesktop = 1, ///< a desktop client
    kClientCaptcha = 3  ///< what a request for a verification code is sent as
};
/// Which of the server's addresses is used.
enum LoginAddrType : int { kLoginAddrDefault = 0 /**< the server's choice */ };
/// In which form the password is sent.
enum LoginPwdType : int { kLoginPwdDefault = 0 /**< the server's choice */ };
/// The network that the client is in, seen from the server.
enum NetworkType : int { kNetworkDefault = 2 /**< until the server reports another */ };
/// What the attempts that are left are counted for.
enum RemainingLoginType : int { kRemainingByUser = 1 /**< the user name */ };
/// The role of a user on the server.
enum UserType : int { kUserUnknown = -1 /**< until the server reports one */ };

/// \brief The way in which a client logs in.
struct LoginMode
{
    qint32 workstation_id = 0;    ///< 0: no workstation
    bool is_asyn = false;         ///< the caller does not wait for the answer
    bool is_reconnection = false; ///< a lost session is renewed
};

/// \brief A LoginMode as a record.
class VANTOR_EXPORT CLoginMode : public Nim::Base::CRecord<LoginMode>
{
    VANTOR_RECORD(CLoginMode)
    VANTOR_RECORD_FIELD(workstation_id)
    VANTOR_RECORD_FIELD(is_asyn)
    VANTOR_RECORD_FIELD(is_reconnection)
};

/// \brief The input of a login page.
struct LoginDataInfo
{
    std::string user_name;                   ///< as typed
    Nim::Base::SecretText password;          ///< as typed
    std::string server_address;              ///< host name or address, without port
    std::string input_verify_code;           ///< the code as typed; empty if it was not asked for
    std::string show_verify_code;            ///< the mark of the image that was shown
    std::string local_mac_address;           ///< of this machine
    std::string client_version;              ///< of the client program
    ClientType client_type = kClientDesktop; ///< sent as it is
    std::string client_guid;                 ///< identifies the installation
    qint32 port = 80;                        ///< TCP port, 1 to 65535
    LoginPwdType login_pwd_type = kLoginPwdDefault; ///< sent as it is
    bool is_remember_pwd = false;                   ///< the user wants the password to be stored
    bool is_auto_login = false;                     ///< the user wants no login page next time
    bool is_http = true;                            ///< HTTP; false: HTTPS
};

/// \brief A LoginDataInfo as a record.
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

/// \brief The parameters of a login.
struct DaxLoginParam
{
    std::string server_ip;                             ///< address of the server
    std::string server_domain;                         ///< name of the server
    quint32 workstation_id = 0;                        ///< 0: no workstation
    std::string user_name;                             ///< as typed
    Nim::Base::SecretText password;                    ///< as typed
    std::string login_protocol_type = "http";          ///< "http" or "https"
    std::string client_guid;                           ///< identifies the installation
    std::string hardwarecode;                          ///< identifies the machine
    std::string input_verify_code;                     ///< the code as typed
    std::string show_verify_code;                      ///< the mark of its image
    std::string client_version;                        ///< of the client program
    AccountType login_mode = kAccountLocal;            ///< where the account is
    ClientType client_type = kClientDesktop;           ///< sent as it is
    std::string edition_type;                          ///< of the product, as licensed
    std::string product_name;                          ///< of the client program
    LoginAddrType login_addr_type = kLoginAddrDefault; ///< sent as it is
    LoginPwdType pwd_type = kLoginPwdDefault;          ///< sent as it is
    qint32 port = -1;                                  ///< TCP port; -1: not set
    quint32 timeout_connect = 30;                      ///< seconds
    quint32 timeout_waitData = 30;                     ///< seconds
    bool is_remember = false;                          ///< the user wants the password to be stored
    bool is_reconnection = false;                      ///< a lost session is renewed
    bool is_switch_user = false;                       ///< another user takes over a running client
};

/// \brief A DaxLoginParam as a record.
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

/// \brief The key that a password is encrypted with, and its session.
struct ResquestRSAKeyResult
{
    Nim::Base::SecretText str_RSA_key; ///< as the server sends it
    Nim::Base::SecretText str_session; ///< the session that the key belongs to
    std::string case_error_info;       ///< text of the error; empty without one
    qint32 error_subsystem = 0;        ///< ErrorCode::sub_system; 0 without an error
    qint32 error_first_code = 0;       ///< ErrorCode::module_code; 0 without an error
    qint32 error_second_code = 0;      ///< ErrorCode::error_code; 0 without an error
};

/// \brief A ResquestRSAKeyResult as a record.
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

/// \brief The answer of the server to a login that failed.
struct DaxResponse
{
    Nim::Base::Error::ErrorCode stru_error_info;             ///< why it failed
    qint32 remain_count = 5;                                 ///< attempts left before a lock
    RemainingLoginType remain_login_type = kRemainingByUser; ///< what they are counted for
    std::string captcha_info;  ///< the bytes of the next image; empty: no code needed
    std::string verify_mark;   ///< the mark of that image
    std::string str_bill_code; ///< the server's receipt of the attempt
};

/// \brief A DaxResponse as a record.
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

/// \brief The result of a login, for the login page.
struct LoginResult
{
    std::string return_data;       ///< the body of the reply
    std::string verify_code_num;   ///< the number of the verification code
    std::string verify_mark;       ///< the mark of the next image
    std::string input_verify_code; ///< the code as typed
    std::string str_bill_code;     ///< the server's receipt of the attempt
    qint32 remain_count = 0;       ///< attempts left before a lock
    qint32 module_code = 0;        ///< ErrorCode::module_code
    qint32 error_code = 0;         ///< ErrorCode::error_code; 0 without an error
    qint32 sub_system = 1;         ///< ErrorCode::sub_system
    RemainingLoginType enum_remain_login = kRemainingByUser; ///< what remain_count is counted for
};

/// \brief A LoginResult as a record.
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

/// \brief The reply to a request for a verification code.
struct DaxCaptchaResponse
{
    qint32 remain_count = 5;                                 ///< attempts left before a lock
    RemainingLoginType remain_login_type = kRemainingByUser; ///< what they are counted for
    std::string captcha_info;    ///< the bytes of the image, in a format that Qt reads
    std::string verify_code_num; ///< the number of the code
    std::string verify_mark;     ///< to be sent with the typed code
    Nim::Base::Error::ErrorCode stru_error_info; ///< all 0 unless the request failed
};

/// \brief A DaxCaptchaResponse as a record.
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

/// \brief The user and the client that a verification code is requested for.
struct DaxCaptchaInfo
{
    std::string server_ip;                   ///< address of the server
    quint32 server_port = 0;                 ///< TCP port; 0: not set
    ClientType client_type = kClientCaptcha; ///< sent as it is
    AccountType login_mode = kAccountLocal;  ///< where the account is
    std::string user_name;                   ///< as typed
};

/// \brief A DaxCaptchaInfo as a record.
class VANTOR_EXPORT CDaxCaptchaInfo : public Nim::Base::CRecord<DaxCaptchaInfo>
{
    VANTOR_RECORD(CDaxCaptchaInfo)
    VANTOR_RECORD_FIELD(server_ip)
    VANTOR_RECORD_FIELD(server_port)
    VANTOR_RECORD_FIELD(client_type)
    VANTOR_RECORD_FIELD(login_mode)
    VANTOR_RECORD_FIELD(user_name)
};

/// \brief The user who has logged in.
struct DaxLoginResponseData
{
    qint32 user_id = -1;                         ///< the server's number; -1: no user
    UserType user_type = kUserUnknown;           ///< the role
    NetworkType client_domain = kNetworkDefault; ///< the network of the client
    bool is_need_detect_dax = false;  ///< the client must look for the server behind this address
    bool is_configed = false;         ///< the server has been set up
    Nim::Base::SecretText session_id; ///< sent with later requests
    std::string str_dax_real_ip;      ///< address of the server behind this one
    quint32 u_dax_real_port = 0;      ///< its TCP port; 0: not set
    qint32 i_time_zone = -1;          ///< the server's number of a zone; -1: not set
};

/// \brief A DaxLoginResponseData as a record.
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

/// \brief The control permissions of a user.
struct ControlPermission
{
    std::vector<std::string>
        vct_ctrl_permission; ///< the server's names of what the user may control
};

/// \brief A ControlPermission as a record.
class VANTOR_EXPORT CControlPermission : public Nim::Base::CRecord<ControlPermission>
{
    VANTOR_RECORD(CControlPermission)
    VANTOR_RECORD_FIELD(vct_ctrl_permission)
};

/// \brief The reply to a change of the password.
struct DaxPwdResponse
{
    Nim::Base::Error::ErrorCode stru_error_info{
        0, 0, 1};                 ///< why it failed; the subsystem is 1 by default
    bool ret_change_pawd = false; ///< the password was changed
};

/// \brief A DaxPwdResponse as a record.
class VANTOR_EXPORT CDaxPwdResponse : public Nim::Base::CRecord<DaxPwdResponse>
{
    VANTOR_RECORD(CDaxPwdResponse)
    VANTOR_RECORD_FIELD(stru_error_info)
    VANTOR_RECORD_FIELD(ret_change_pawd)
};

/// \brief A change of the password.
struct ChangePwdStruct
{
    std::string str_user_name;              ///< whose password it is
    Nim::Base::SecretText str_old_password; ///< as typed
    Nim::Base::SecretText str_new_password; ///< as typed
};

/// \brief A ChangePwdStruct as a record.
class VANTOR_EXPORT CChangePwdStruct : public Nim::Base::CRecord<ChangePwdStruct>
{
    VANTOR_RECORD(CChangePwdStruct)
    VANTOR_RECORD_FIELD(str_user_name)
    VANTOR_RECORD_SECRET(str_old_password)
    VANTOR_RECORD_SECRET(str_new_password)
};

/// \brief The change of a password and the server that it is sent to.
struct DaxLoginParamForChangePwd
{
    LoginAddrType login_addr_type = kLoginAddrDefault; ///< sent as it is
    ClientType client_type = kClientDesktop;           ///< sent as it is
    std::string remote_server_ip;                      ///< address of the server
    quint32 remote_port = 0;                           ///< TCP port; 0: not set
    CChangePwdStruct change_pwd;                       ///< user and passwords
    Nim::Base::SecretText session_id;                  ///< empty before a login
    bool is_login = false;                             ///< the user is logged in
};

/// \brief A DaxLoginParamForChangePwd as a record.
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

/// \brief The attempts that are left after a check of the password.
struct CheckPwdResult
{
    std::string str_verify_code;   ///< the bytes of the next image
    std::string str_verify_mark;   ///< the mark of that image
    qint32 remain_login_num = -1;  ///< -1: not limited, or not known
    qint32 remain_login_type = -1; ///< a RemainingLoginType; -1: not known
};

/// \brief A CheckPwdResult as a record.
class VANTOR_EXPORT CCheckPwdResult : public Nim::Base::CRecord<CheckPwdResult>
{
    VANTOR_RECORD(CCheckPwdResult)
    VANTOR_RECORD_FIELD(str_verify_code)
    VANTOR_RECORD_FIELD(str_verify_mark)
    VANTOR_RECORD_FIELD(remain_login_num)
    VANTOR_RECORD_FIELD(remain_login_type)
};

} // namespace NimClientFrameWork
