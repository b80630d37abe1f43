// SPDX-License-Identifier: MIT
// What a serial keyboard would send in an hour and more, as fast as it is read: every frame must
// arrive as a signal, in order, and memory must stay flat. Started by tools/soak.
#include "support/PseudoTerminal.h"

#include <KeyBoard/KeyBoard.h>
#include <Nim/Base/Log.h>
#include <Vantor/CJoystickKeyboardControlManager>

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>

namespace {

constexpr int kFrames = 600000;
constexpr int kWarmUp = 60000; // after which memory has its size
constexpr int kPresets = 200;
constexpr int kRoomKb = 4096;
// Frames on their way. The event queue takes any number, so that a GUI thread that got no time
// would look like a leak.
constexpr int kOnTheWay = 5000;

int ResidentSize_kb()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stoi(line.substr(6));
    }
    return 0;
}

// Calls preset 2 and up, which is a selection that carries its number.
QByteArray Frame(int round)
{
    const auto preset = quint8(round % kPresets + 2);
    const quint8 bytes[] = {0xFF, 1, 0, 0x07, 0, preset, quint8(1 + 7 + preset)};
    return {reinterpret_cast<const char *>(bytes), int(sizeof bytes)};
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    Nim::Base::Log::SetSink([](int, const std::string &, const std::string &) {});
    CPseudoTerminal terminal;
    KeyBoard_SetSerialPorts({terminal.Path()});
    auto *const coordinator = Vantor::CJoystickKeyboardControlManager::CreateInstance();
    if (!coordinator->InitKeyBoard(ResourceManager::SystemConfig::kCom1, nullptr, nullptr,
                                   nullptr)) {
        std::fputs("The serial keyboard could not be opened.\n", stderr);
        return 1;
    }
    std::atomic<int> arrived{0};
    int wrong = 0;
    int size_kb = 0;
    QObject::connect(
        coordinator, &Vantor::CJoystickKeyboardControlManager::SignalJoystickKeyboardControl,
        &application, [&](KeyboradData::KeyOperation::Type, bool, int, int index, bool, bool) {
            wrong += index != arrived % kPresets + 2;
            if (++arrived == kWarmUp)
                size_kb = ResidentSize_kb();
            if (arrived == kFrames)
                QCoreApplication::quit();
        });
    QElapsedTimer timer;
    timer.start();
    std::thread writer([&terminal, &arrived] {
        for (int round = 0; round < kFrames; ++round) {
            while (round - arrived > kOnTheWay)
                std::this_thread::yield();
            terminal.Write(Frame(round));
        }
    });
    QCoreApplication::exec();
    writer.join();
    const int growth_kb = ResidentSize_kb() - size_kb;
    std::printf("%d frames in %.1f s, %d out of order, memory %+d kB\n", int(arrived),
                double(timer.elapsed()) / 1000, wrong, growth_kb);
    Vantor::CJoystickKeyboardControlManager::DeleteInstance();
    return arrived == kFrames && wrong == 0 && growth_kb <= kRoomKb ? 0 : 1;
}
