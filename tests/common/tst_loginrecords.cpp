// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <BusinessCommon/NetCommManager.h>
#include <common/LoginRecords.h>
#include <ui/SecondAuthentication/LoginSetting.h>

using namespace NimClientFrameWork;
using BusinessCommon::CNetCommManager;
using Nim::Base::Error::ErrorCode;

namespace {

// The eleven numbers in the order of the records.
QString Text(const CLoginSettingStruct &setting)
{
    const LoginSettingStruct &all = setting.Read();
    const IPLockStruct &ip = all.stru_ip_lock.Read();
    const PasswordStrengthStruct &strength = all.stru_pwd_strength.Read();
    const PasswordExpirtyStruct &expiry = all.stru_pwd_expirty.Read();
    const ClientLockStruct &client = all.stru_client_lock.Read();
    QStringList numbers;
    for (const int number :
         {int(ip.enum_enable), ip.failed_count, ip.duration_time, int(strength.enum_enable),
          int(strength.enum_password_strength), int(expiry.enum_enable), int(expiry.enum_config),
          expiry.days, int(client.enum_enable), int(client.enum_lock_config), client.duration_time})
        numbers << QString::number(number);
    return numbers.join(' ');
}

const char *const kDefaults = "0 5 10 0 0 0 0 0 0 0 10";

using Reply = Row<const char *, const char *>; // setting, numbers

} // namespace

class TestLoginRecords : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void settingsAreRead_data()
    {
        AddRows<Reply>({
            {"all numbers",
             R"({"IPLock":{"Duration":1,"Enable":2,"FailCount":3},"PasswordStrength":)"
             R"({"Enable":4,"Strength":5},"PasswordExpiry":{"Enable":6,"Config":7,)"
             R"("Day":8},"ClientLock":{"Enable":9,"Config":10,"Duration":11}})",
             "2 3 1 4 5 6 7 8 9 10 11"},
            {"what is missing is -1", R"({"IPLock":{"Duration":1,"Enable":1}})",
             "1 -1 1 -1 -1 -1 -1 -1 -1 -1 -1"},
            {"no members", "{}", kDefaults},
            {"not JSON", "{", kDefaults},
        });
    }

    void settingsAreRead()
    {
        const auto &row = FetchRow<Reply>();
        std::string url;
        CNetCommManager::SetTransport([&](auto &recv, const auto &send) {
            url = send.GetVal_URL();
            recv.SetVal_Receive_Data(std::string(R"({"ResponseStatus":{"Data":{"SecuritySetting":)")
                                     + std::get<1>(row) + "}}}");
            return true;
        });
        CDaxPwdResponse response;
        CLoginSettingStruct setting;

        QVERIFY(Vantor::RequestLoginSetting(response, setting));

        QCOMPARE(Text(setting), QString(std::get<2>(row)));
        QCOMPARE(url, std::string("/Quorra/Brisent/Platform/V0/Permission/SecuritySetting"));
    }

    void failuresFillTheError()
    {
        for (const bool is_sent : {false, true}) {
            CNetCommManager::SetTransport([&](auto &recv, auto &) {
                recv.SetVal_Error_code({7, 8, 9});
                return is_sent;
            });
            CDaxPwdResponse response;
            CLoginSettingStruct setting;

            QVERIFY(!Vantor::RequestLoginSetting(response, setting));

            // A refusal of the server fills the first two words only, and 1 is the default.
            QVERIFY(response.GetVal_stru_error_info() == ErrorCode({7, 8, is_sent ? 1 : 9}));
            QCOMPARE(Text(setting), QString(kDefaults));
        }
        QCOMPARE(CDaxCaptchaInfo().GetVal_client_type(), kClientCaptcha); // others: 1
        QCOMPARE(CLoginResult().GetVal_remain_count(), 0);                // others: 5
    }

protected:
    void TearDown() override { CNetCommManager::SetTransport(nullptr); }
};

QTEST_GUILESS_MAIN(TestLoginRecords)
#include "tst_loginrecords.moc"
