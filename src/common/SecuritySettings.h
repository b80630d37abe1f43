// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Record.h>
#include <VantorExport.h>

#include <QtCore/QtGlobal>

namespace NimClientFrameWork {

// The server defines the integers. A value without a name is kept unchanged.

/// Whether a rule is in force; every value but 0 counts as enabled.
enum EnableEnum : int {
    kNotEnabled = 0, ///< it is not
    kEnabled = 1     ///< it is
};
/// When a password expires.
enum ExpirtyConfigEnum : int { kExpirtyConfigDefault = 0 /**< after the days of the rule */ };
/// When an idle client is locked.
enum LockConfigEnum : int { kLockConfigDefault = 0 /**< after the duration of the rule */ };
/// How strong a password must be.
enum PasswordStrengthEnum : int { kPasswordStrengthDefault = 0 /**< the server's least */ };

/// \brief The rule that locks an address after failed logins.
struct IPLockStruct
{
    EnableEnum enum_enable = kNotEnabled; ///< whether the rule is in force
    qint32 failed_count = 5;              ///< failures in a row until the lock
    qint32 duration_time = 10;            ///< of the lock; the server chooses the unit
};

/// \brief An IPLockStruct as a record.
class VANTOR_EXPORT CIPLockStruct : public Nim::Base::CRecord<IPLockStruct>
{
    VANTOR_RECORD(CIPLockStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(failed_count)
    VANTOR_RECORD_FIELD(duration_time)
};

/// \brief The rule for the strength of passwords.
struct PasswordStrengthStruct
{
    EnableEnum enum_enable = kNotEnabled; ///< whether the rule is in force
    PasswordStrengthEnum enum_password_strength = kPasswordStrengthDefault; ///< the least strength
};

/// \brief A PasswordStrengthStruct as a record.
class VANTOR_EXPORT CPasswordStrengthStruct : public Nim::Base::CRecord<PasswordStrengthStruct>
{
    VANTOR_RECORD(CPasswordStrengthStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_password_strength)
};

/// \brief The rule after which passwords expire.
struct PasswordExpirtyStruct
{
    EnableEnum enum_enable = kNotEnabled;                  ///< whether the rule is in force
    ExpirtyConfigEnum enum_config = kExpirtyConfigDefault; ///< when they expire
    qint32 days = 0;                                       ///< days that a password is valid
};

/// \brief A PasswordExpirtyStruct as a record.
class VANTOR_EXPORT CPasswordExpirtyStruct : public Nim::Base::CRecord<PasswordExpirtyStruct>
{
    VANTOR_RECORD(CPasswordExpirtyStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_config)
    VANTOR_RECORD_FIELD(days)
};

/// \brief The rule that locks an idle client.
struct ClientLockStruct
{
    EnableEnum enum_enable = kNotEnabled;                 ///< whether the rule is in force
    LockConfigEnum enum_lock_config = kLockConfigDefault; ///< when it is locked
    qint32 duration_time = 10; ///< idle time until the lock; the server chooses the unit
};

/// \brief A ClientLockStruct as a record.
class VANTOR_EXPORT CClientLockStruct : public Nim::Base::CRecord<ClientLockStruct>
{
    VANTOR_RECORD(CClientLockStruct)
    VANTOR_RECORD_FIELD(enum_enable)
    VANTOR_RECORD_FIELD(enum_lock_config)
    VANTOR_RECORD_FIELD(duration_time)
};

/// \brief The security settings of the server.
struct LoginSettingStruct
{
    CIPLockStruct stru_ip_lock;                ///< lock of an address
    CPasswordStrengthStruct stru_pwd_strength; ///< strength of passwords
    CPasswordExpirtyStruct stru_pwd_expirty;   ///< expiry of passwords
    CClientLockStruct stru_client_lock;        ///< lock of an idle client
};

/// \brief A LoginSettingStruct as a record. A number that the server did not send is -1. This
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
