// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <Vantor/CScreenStateManager>

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

void *Address(MonitorDriveUtil::DeviceChangeCallBack listener)
{
    return reinterpret_cast<void *>(listener);
}

Vantor::CScreenStateManager &Manager()
{
    return Nim::Base::CSingleton<Vantor::CScreenStateManager>::Instance();
}

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
                callback_ = enable ? callback : nullptr;
                user_data_ = user_data;
                ++registrations_;
                return false; // of no consequence
            });
    }
    void TearDown() override { MonitorDriveUtil::SetBackend({}); }

    // The base library's side: displays cannot be plugged in here.
    MonitorDriveUtil::DeviceChangeCallBack callback_ = nullptr;
    void *user_data_ = nullptr;
    int registrations_ = 0;

private Q_SLOTS:
    void firstListenerRegistersEvenWhenSilenced()
    {
        Manager().SetCallBack(false, Address(&Listener<0>), nullptr);

        QCOMPARE(registrations_, 1);
        QCOMPARE(user_data_, static_cast<void *>(&Manager()));
        callback_({{}}, user_data_);
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

        callback_({{"left", {0, 0, 800, 600}, true, 1}, {"right", {800, 0, 800, 600}, false, 2}},
                  user_data_);

        QCOMPARE(registrations_, 1);
        QCOMPARE(calls.size(), size_t(2));
        for (const Call &call : calls) {
            QCOMPARE(call.user_data, call.listener == 1 ? &first : &second);
            QCOMPARE(call.devices.size(), size_t(2));
            QCOMPARE(call.devices.back().name, QString("right"));
        }
        QCOMPARE(calls.front().listener == 1,
                 std::less<>()(Address(&Listener<1>), Address(&Listener<2>)));
    }

    void listenerThatThrowsAndNotificationWithoutTheManagerAreLogged()
    {
        guard_.AnnounceLogLines();
        void *const thrower = Address([](Devices, void *) { throw std::runtime_error("no wall"); });
        Manager().SetCallBack(true, thrower, nullptr);

        Manager().UpdateScreenParam({});
        Manager().SetCallBack(false, thrower, nullptr);
        QCOMPARE(calls.size(), size_t(2)); // the other listeners
        QVERIFY(guard_.LogLines().constLast().contains("Stopped by an exception: no wall"));

        callback_({}, nullptr);
        QCOMPARE(calls.size(), size_t(2));
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
