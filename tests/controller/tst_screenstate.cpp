// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <Vantor/CScreenStateManager>

#include <QtGui/QGuiApplication>

namespace MonitorDriveUtil = Nim::Base::MonitorDriveUtil;

namespace {

using Devices = std::vector<MonitorDriveUtil::DeviceInfoStru>;

struct Call
{
    int listener;
    void *user_data;
    Devices devices;
};

std::vector<Call> calls;

template <int number> void Listener(Devices devices, void *user_data)
{
    calls.push_back({number, user_data, std::move(devices)});
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

// The base library's side: displays cannot be plugged in here.
struct Base
{
    MonitorDriveUtil::DeviceChangeCallBack callback = nullptr;
    void *user_data = nullptr;
    int registrations = 0;
};

} // namespace

// The manager registers once in a process, so the order of these functions matters.
class tst_screenstate : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        calls.clear();
        MonitorDriveUtil::SetBackend(
            [this](bool enable, MonitorDriveUtil::DeviceChangeCallBack callback, void *user_data) {
                base_.callback = enable ? callback : nullptr;
                base_.user_data = user_data;
                ++base_.registrations;
                return false; // of no consequence
            });
    }
    void TearDown() override { MonitorDriveUtil::SetBackend({}); }

    Base base_;

private Q_SLOTS:
    void firstListenerRegistersEvenWhenSilenced()
    {
        Manager().SetCallBack(false, Address(&Listener<0>), nullptr);

        QCOMPARE(base_.registrations, 1);
        QCOMPARE(base_.user_data, static_cast<void *>(&Manager()));
        base_.callback({{}}, base_.user_data);
        QVERIFY(calls.empty());
    }

    void everyEnabledListenerGetsItsOwnListAndItsLastUserData()
    {
        int first = 0;
        int second = 0;
        Manager().SetCallBack(true, Address(&Listener<1>), &second);
        Manager().SetCallBack(true, Address(&Listener<1>), &first);
        Manager().SetCallBack(true, Address(&Listener<2>), &second);
        Manager().SetCallBack(true, nullptr, nullptr);

        base_.callback(
            {{"left", {0, 0, 800, 600}, true, 1}, {"right", {800, 0, 800, 600}, false, 2}},
            base_.user_data);

        QCOMPARE(base_.registrations, 1);
        QCOMPARE(calls.size(), size_t(2));
        for (const Call &call : calls) {
            QCOMPARE(call.user_data, call.listener == 1 ? &first : &second);
            QCOMPARE(call.devices.size(), size_t(2));
            QCOMPARE(call.devices.back().name, QString("right"));
        }
        QCOMPARE(calls.front().listener == 1,
                 std::less<>()(Address(&Listener<1>), Address(&Listener<2>)));
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
        QVERIFY(guard_.LogLines().constLast().startsWith(
            "4 ClientWarningAndMore [Vantor::`anonymous-namespace'::DeviceCallBack]Get display "
            "manager ptr failed[ScreenStateManager.cpp("));
    }

    // A primary display that goes gives up its rank first, while Qt still lists it.
    void changesThatComeTogetherAreReportedOnceComplete()
    {
        MonitorDriveUtil::SetBackend({});
        QVERIFY(MonitorDriveUtil::SetDeviceChangeCallBack(true, &Listener<3>, this));
        Q_EMIT qGuiApp->primaryScreenChanged(QGuiApplication::primaryScreen());
        Q_EMIT qGuiApp->primaryScreenChanged(QGuiApplication::primaryScreen());
        QVERIFY(calls.empty());
        QTRY_COMPARE(calls.size(), size_t(1));
        QCOMPARE(calls.front().devices.size(), size_t(1));

        Q_EMIT qGuiApp->primaryScreenChanged(QGuiApplication::primaryScreen());
        QVERIFY(MonitorDriveUtil::SetDeviceChangeCallBack(false, nullptr, nullptr));
        QCoreApplication::sendPostedEvents();
        QCOMPARE(calls.size(), size_t(1));
    }
};

QTEST_MAIN(tst_screenstate)
#include "tst_screenstate.moc"
