// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Vantor/CScreenStateManager>

#include <QtTest/QTest>

using Nim::Base::MonitorDriveUtil::DeviceInfoStru;
namespace MonitorDriveUtil = Nim::Base::MonitorDriveUtil;

namespace {

using Devices = std::vector<DeviceInfoStru>;

struct Call
{
    const char *listener;
    void *user_data;
    Devices devices;
};

std::vector<Call> calls;

void FirstListener(Devices devices, void *user_data)
{
    calls.push_back({"first", user_data, std::move(devices)});
}

void SecondListener(Devices devices, void *user_data)
{
    calls.push_back({"second", user_data, std::move(devices)});
}

void SilencedListener(Devices devices, void *user_data)
{
    calls.push_back({"silenced", user_data, std::move(devices)});
}

void ThrowingListener(Devices /*devices*/, void * /*user_data*/)
{
    throw std::runtime_error("no wall");
}

void *Address(MonitorDriveUtil::DeviceChangeCallBack listener)
{
    return reinterpret_cast<void *>(listener);
}

Vantor::CScreenStateManager &Manager()
{
    return Nim::Base::CSingleton<Vantor::CScreenStateManager>::Instance();
}

// Stands in for the base library: displays cannot be plugged in here.
struct Base
{
    MonitorDriveUtil::DeviceChangeCallBack callback = nullptr;
    void *user_data = nullptr;
    int registrations = 0;
};

} // namespace

// The manager registers once in a process, so the order of these functions matters.
class tst_screenstate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        calls.clear();
        MonitorDriveUtil::SetBackend(
            [this](bool enable, MonitorDriveUtil::DeviceChangeCallBack callback, void *user_data) {
                base_.callback = enable ? callback : nullptr;
                base_.user_data = user_data;
                ++base_.registrations;
                return false; // of no consequence
            });
    }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void firstListenerRegistersEvenWhenSilenced()
    {
        Manager().SetCallBack(false, Address(&SilencedListener), nullptr);

        QCOMPARE(base_.registrations, 1);
        QVERIFY(base_.callback);
        QCOMPARE(base_.user_data, static_cast<void *>(&Manager()));
        base_.callback({DeviceInfoStru()}, base_.user_data);
        QVERIFY(calls.empty());
    }

    void everyEnabledListenerGetsItsOwnListAndItsLastUserData()
    {
        int first = 0;
        int second = 0;
        Manager().SetCallBack(true, Address(&FirstListener), &second);
        Manager().SetCallBack(true, Address(&FirstListener), &first);
        Manager().SetCallBack(true, Address(&SecondListener), &second);
        Manager().SetCallBack(true, nullptr, nullptr);

        base_.callback(
            {{"left", {0, 0, 800, 600}, true, 1}, {"right", {800, 0, 800, 600}, false, 2}},
            base_.user_data);

        QCOMPARE(base_.registrations, 1);
        QCOMPARE(calls.size(), size_t(2));
        for (const Call &call : calls) {
            QCOMPARE(call.user_data, call.listener == QByteArray("first") ? &first : &second);
            QCOMPARE(call.devices.size(), size_t(2));
            QCOMPARE(call.devices.back().name, QString("right"));
            QCOMPARE(call.devices.back().geometry, QRect(800, 0, 800, 600));
        }
        QCOMPARE(calls.front().listener == QByteArray("first"),
                 std::less<>()(Address(&FirstListener), Address(&SecondListener)));
    }

    void listenerThatThrowsKeepsNothingFromTheOthers()
    {
        guard_.AnnounceLogLines();
        Manager().SetCallBack(true, Address(&ThrowingListener), nullptr);

        Manager().UpdateScreenParam({});

        QCOMPARE(calls.size(), size_t(2));
        QVERIFY(guard_.LogLines().constLast().contains("Stopped by an exception: no wall"));
        Manager().SetCallBack(false, Address(&ThrowingListener), nullptr);
    }

    void notificationWithoutTheManagerIsLogged()
    {
        guard_.AnnounceLogLines();

        base_.callback({}, nullptr);

        QVERIFY(calls.empty());
        const QString line = guard_.LogLines().constLast();
        QVERIFY2(line.startsWith("4 ClientWarningAndMore [Vantor::`anonymous-namespace'::"
                                 "DeviceCallBack]Get display manager ptr failed["
                                 "ScreenStateManager.cpp("),
                 qPrintable(line));
    }

private:
    CTestGuard guard_;
    Base base_;
};

QTEST_MAIN(tst_screenstate)
#include "tst_screenstate.moc"
