// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <BusinessCommon/NetCommManager.h>
#include <Vantor/CLoginSettingStruct>
#include <ui/SecondAuthentication/LoginSetting.h>

#include <QtTest/QTest>

using namespace NimClientFrameWork;
using BusinessCommon::CNetCommManager;
using Nim::Base::Error::ErrorCode;

namespace {

QString Text(const ErrorCode &error)
{
    return QString("%1 %2 %3").arg(error.module_code).arg(error.error_code).arg(error.sub_system);
}

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
         {int(ip.enum_enable), int(ip.failed_count), int(ip.duration_time),
          int(strength.enum_enable), int(strength.enum_password_strength), int(expiry.enum_enable),
          int(expiry.enum_config), int(expiry.days), int(client.enum_enable),
          int(client.enum_lock_config), int(client.duration_time)})
        numbers << QString::number(number);
    return numbers.join(' ');
}

const char *const kDefaults = "0 5 10 0 0 0 0 0 0 0 10";

} // namespace

class tst_loginrecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        CNetCommManager::SetTransport(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void defaultsDifferByRecord()
    {
        QCOMPARE(int(CLoginDataInfo().GetVal_client_type()), 1);
        QCOMPARE(int(CDaxLoginParam().GetVal_client_type()), 1);
        QCOMPARE(int(CDaxCaptchaInfo().GetVal_client_type()), 3);
        QCOMPARE(int(CDaxLoginParamForChangePwd().GetVal_client_type()), 1);
        QCOMPARE(CDaxResponse().GetVal_remain_count(), 5);
        QCOMPARE(CLoginResult().GetVal_remain_count(), 0);
        QCOMPARE(CDaxCaptchaResponse().GetVal_remain_count(), 5);
        QCOMPARE(CLoginDataInfo().GetVal_port(), 80);
        QCOMPARE(CDaxLoginParam().GetVal_port(), -1);
        QCOMPARE(CDaxLoginParamForChangePwd().GetVal_remote_port(), 0U);
        QCOMPARE(CLoginResult().GetVal_sub_system(), 1);
        QCOMPARE(Text(CDaxResponse().GetVal_stru_error_info()), QString("0 0 0"));
        QCOMPARE(Text(CDaxPwdResponse().GetVal_stru_error_info()), QString("0 0 1"));
        QCOMPARE(CDaxLoginParam().GetVal_login_protocol_type(), std::string("http"));
        QCOMPARE(int(CDaxLoginResponseData().GetVal_user_type()), -1);
        QCOMPARE(int(CDaxLoginResponseData().GetVal_client_domain()), 2);
        QVERIFY(CLoginDataInfo().GetVal_is_http());
        QCOMPARE(Text(CLoginSettingStruct()), QString(kDefaults));
    }

    void secretsAreCopiedAndOverwritten()
    {
        CLoginDataInfo info;
        info.SetVal_password("a password longer than any short text");
        const CLoginDataInfo copy(info);
        const char *const bytes = info.Read().password.data();
        const Nim::Base::SecretText kept = info.Read().password;
        info.SetVal_password("b");

        QCOMPARE(*bytes, 'b'); // the memory is still the record's
        QCOMPARE(bytes[5], '\0');
        QCOMPARE(copy.GetVal_password(), std::string("a password longer than any short text"));
        QCOMPARE(static_cast<const std::string &>(kept), copy.GetVal_password());
    }

    void settingsAreRead_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QString>("expected");
        QTest::newRow("all numbers")
            << QByteArray(R"({"IPLock":{"Duration":1,"Enable":2,"FailCount":3},"PasswordStrength":)"
                          R"({"Enable":4,"Strength":5},"PasswordExpiry":{"Enable":6,"Config":7,)"
                          R"("Day":8},"ClientLock":{"Enable":9,"Config":10,"Duration":11}})")
            << "2 3 1 4 5 6 7 8 9 10 11";
        QTest::newRow("what is missing is -1")
            << QByteArray(R"({"IPLock":{"Duration":1,"Enable":1}})")
            << "1 -1 1 -1 -1 -1 -1 -1 -1 -1 -1";
        QTest::newRow("no members") << QByteArray("{}") << kDefaults;
        QTest::newRow("null") << QByteArray("null") << kDefaults;
        QTest::newRow("not JSON") << QByteArray("{") << kDefaults;
    }

    void settingsAreRead()
    {
        QFETCH(const QByteArray, data);
        ClientComm::CClientSendInfo sent;
        CNetCommManager::SetTransport([&](ClientComm::CClientRecvInfo &recv,
                                          const ClientComm::CClientSendInfo &send) {
            sent = send;
            recv.SetVal_Receive_Data(
                "{\"ResponseStatus\":{\"Data\":{\"SecuritySetting\":" + data.toStdString() + "}}}");
            return true;
        });
        CDaxPwdResponse response;
        CLoginSettingStruct setting;

        QVERIFY(Vantor::RequestLoginSetting(response, setting));

        QTEST(Text(setting), "expected");
        QCOMPARE(sent.GetVal_URL(),
                 std::string("/Quorra/Brisent/Platform/V0/Permission/SecuritySetting"));
        QCOMPARE(sent.GetVal_Method(), std::string("GET"));
    }

    void failuresFillTheError_data()
    {
        QTest::addColumn<bool>("is_sent");
        QTest::addColumn<QString>("expected");
        QTest::newRow("no exchange: all words") << false << "7 8 9";
        QTest::newRow("refused: the first two words") << true << "7 8 1";
    }

    void failuresFillTheError()
    {
        QFETCH(const bool, is_sent);
        CNetCommManager::SetTransport(
            [&](ClientComm::CClientRecvInfo &recv, const ClientComm::CClientSendInfo &) {
                recv.SetVal_Error_code({7, 8, 9});
                return is_sent;
            });
        CDaxPwdResponse response;
        CLoginSettingStruct setting;

        QVERIFY(!Vantor::RequestLoginSetting(response, setting));

        QTEST(Text(response.GetVal_stru_error_info()), "expected");
        QCOMPARE(Text(setting), QString(kDefaults));
    }

private:
    CTestGuard guard_;
};

QTEST_GUILESS_MAIN(tst_loginrecords)
#include "tst_loginrecords.moc"
