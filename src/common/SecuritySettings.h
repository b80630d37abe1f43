// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Record.h>
#include <VantorExport.h>

#include <QtCore/QtGlobal>

namespace NimClientFrameWork {

// The server defines the integers. A value without a name is kept unchanged.
enum EnableEnum : int { kNotEnabled = 0, kEnabled = 1 };
enum ExpirtyConfigEnum : int { kExpirtyConfigDefault = 0 };
enum LockConfigEnum : int { kLockConfigDefault = 0 };
enum PasswordStrengthEnum : int { kPasswordStrengthDefault = 0 };

struct IPLockStruct
{
    EnableEnum enum_enable = kNotEnabled;
    qint32 failed_count = 5;
    qint32 duration_time = 10;
};

/// \brief The rule that locks an address after failed logins. The server chooses the unit of the
/// duration.
class VANTOR_EXPORT CIPLockStruct : public Nim::Base::CRecord<IPLockStruct>
{
    VANTOR_RECORD(CIPLockStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(failed_count)
    VANTOR_RECORD_FIELD(duration_time)
};

struct PasswordStrengthStruct
{
    EnableEnum enum_enable = kNotEnabled;
    PasswordStrengthEnum enum_password_strength = kPasswordStrengthDefault;
};

/// \brief The rule for the strength of passwords.
class VANTOR_EXPORT CPasswordStrengthStruct : public Nim::Base::CRecord<PasswordStrengthStruct>
{
    VANTOR_RECORD(CPasswordStrengthStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_password_strength)
};

struct PasswordExpirtyStruct
{
    EnableEnum enum_enable = kNotEnabled;
    ExpirtyConfigEnum enum_config = kExpirtyConfigDefault;
    qint32 days = 0;
};

/// \brief The rule after which passwords expire.
class VANTOR_EXPORT CPasswordExpirtyStruct : public Nim::Base::CRecord<PasswordExpirtyStruct>
{
    VANTOR_RECORD(CPasswordExpirtyStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_config)
    VANTOR_RECORD_FIELD(days)
};

struct ClientLockStruct
{
    EnableEnum enum_enable = kNotEnabled;
    LockConfigEnum enum_lock_config = kLockConfigDefault;
    qint32 duration_time = 10;
};

/// \brief The rule that locks an idle client. The server chooses the unit of the duration.
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

/// \brief The security settings of the server. A number that the server did not send is -1. This
/// counts as enabled in the EnableEnum fields, because it is not 0.
class VANTOR_EXPORT CLoginSettingStruct : public Nim::Base::CRecord<LoginSettingStruct>
{
    VANTOR_RECORD(CLoginSettingStruct)
    VANTOR_RECORD_FIELD(stru_ip_lock)
    VANTOR_RECORD_FIELD(stru_pwd_strength)
    VANTOR_RECORD_FIELD(stru_pwd_expirty)
    VANTOR_RECORD_FIELD(stru_client_lock)
};

} // namespace NimClientFrameWork
