// SPDX-License-Identifier: MIT
#include "Main.h"
#include "Pairs.h"

#include <KeyBoard/KeyBoard.h>
#include <Nim/Base/Log.h>
#include <Vantor/CJoystickKeyboardControlManager>

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QSemaphore>

#include <atomic>
#include <thread>

namespace {

constexpr int kRounds = 20000;
constexpr quint32 kJoystick = 1002;

// A device that speaks once whenever it is asked to, from a thread of its own.
class CDriver : public KeyBoardDriver
{
public:
    bool Init(KeyBoardCallBack callback, void *user_data) override
    {
        callback_ = callback;
        user_data_ = user_data;
        return true;
    }
    void Uninit() override {}
    bool OpenSerialKeyBoard(quint32 /*id*/, const KeyBoardSerialParam & /*param*/) override
    {
        return true;
    }
    bool CloseSerialKeyBoard(quint32 /*id*/) override { return true; }

    void Send(int round) const
    {
        // Two moves in turn, so that no move is a repeat.
        callback_(kJoystick, round % 2 ? 1305 : 1306, 10, 0, nullptr, nullptr, user_data_);
    }

private:
    KeyBoardCallBack callback_ = nullptr;
    void *user_data_ = nullptr;
};

// From a call on another thread to its arrival here, kRounds times, one at a time.
class CRoundTrips : public QObject
{
public:
    template <class Call> bool Run(Call call)
    {
        arrived_ = 0;
        std::thread caller([this, call] {
            for (int round = 0; round < kRounds; ++round) {
                turn_.acquire();
                call(round);
            }
        });
        turn_.release();
        loop_.exec();
        caller.join();
        return arrived_ == kRounds;
    }

    void OnArrival()
    {
        if (++arrived_ == kRounds)
            loop_.quit();
        else
            turn_.release();
    }

private:
    QEventLoop loop_;
    QSemaphore turn_;
    int arrived_ = 0;
};

void CallbackToSignal(benchmark::State &state)
{
    // Where the lines go is the host's cost; making them is ours and is measured.
    Nim::Base::Log::SetSink([](int, const std::string &, const std::string &) {});
    CDriver driver;
    KeyBoard_SetDriver(&driver);
    auto *const coordinator = Vantor::CJoystickKeyboardControlManager::CreateInstance();
    coordinator->InitKeyBoard(ResourceManager::SystemConfig::kCom1, nullptr, nullptr, nullptr);
    CRoundTrips trips;
    QObject::connect(coordinator,
                     &Vantor::CJoystickKeyboardControlManager::SignalJoystickKeyboardControl,
                     &trips, &CRoundTrips::OnArrival);
    bool are_whole = true;

    Pairs::Compare(
        state, "callback_to_signal", 0.8,
        [&] {
            are_whole &= trips.Run([&trips](int) {
                QMetaObject::invokeMethod(
                    &trips, [&trips] { trips.OnArrival(); }, Qt::QueuedConnection);
            });
        },
        [&] { are_whole &= trips.Run([&driver](int round) { driver.Send(round); }); });

    if (!are_whole)
        state.SkipWithError("a call was lost");
    Vantor::CJoystickKeyboardControlManager::DeleteInstance();
    KeyBoard_SetDriver(nullptr);
    Nim::Base::Log::SetSink(nullptr);
}
BENCHMARK(CallbackToSignal)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QCoreApplication>(argc, argv);
}
