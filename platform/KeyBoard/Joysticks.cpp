// SPDX-License-Identifier: MIT
#include "KeyBoard/Joysticks.h"

#include "Nim/Base/Log.h"

#include <SDL.h>

#include <chrono>

namespace KeyBoard {
namespace {

using namespace std::chrono_literals;

constexpr auto kPollTime = 10ms;
constexpr quint32 kFound = 1301;
constexpr quint32 kGone = 1302;
constexpr quint32 kButtonReleased = 1303;
constexpr quint32 kButtonPressed = 1304;

} // namespace

CJoysticks::CJoysticks(Take take, QObject *parent)
    : QObject(parent), take_(std::move(take)), timer_(this)
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");               // signals are the client's
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1"); // SDL has no window here
    is_running_ = SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0;
    if (!is_running_) {
        Nim::Base::Log::WriteFramed("KeyBoard::CJoysticks", __FILE__, __LINE__, 4,
                                    "ClientWarningAndMore", "No joysticks: %s", SDL_GetError());
        return;
    }
    connect(&timer_, &QTimer::timeout, this, &CJoysticks::Poll);
    timer_.start(kPollTime);
    Poll();
}

CJoysticks::~CJoysticks()
{
    if (!is_running_)
        return;
    for (const auto &[id, stick] : sticks_)
        SDL_JoystickClose(stick.device);
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    SDL_TLSCleanup(); // of this thread, which SDL did not make
}

void CJoysticks::Poll()
{
    SDL_JoystickUpdate();
    // Only what is ours: the client may use SDL too.
    SDL_Event events[64];
    while (true) {
        const int count = SDL_PeepEvents(events, int(std::size(events)), SDL_GETEVENT,
                                         SDL_JOYAXISMOTION, SDL_JOYDEVICEREMOVED);
        for (int i = 0; i < count; ++i)
            Handle(events[i]);
        if (count < int(std::size(events)))
            return;
    }
}

void CJoysticks::Handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_JOYDEVICEADDED:
        Open(event.jdevice.which);
        return;
    case SDL_JOYDEVICEREMOVED:
        Remove(event.jdevice.which);
        return;
    default:
        break;
    }
    if (event.type == SDL_JOYAXISMOTION) {
        const auto stick = sticks_.find(event.jaxis.which);
        if (stick == sticks_.end() || event.jaxis.axis >= std::size(stick->second.axes))
            return;
        stick->second.axes[event.jaxis.axis] = event.jaxis.value;
        TellMotion(stick->second);
    } else if (event.type == SDL_JOYBUTTONDOWN || event.type == SDL_JOYBUTTONUP) {
        if (sticks_.count(event.jbutton.which))
            take_(event.type == SDL_JOYBUTTONDOWN ? kButtonPressed : kButtonReleased,
                  event.jbutton.button);
    }
}

void CJoysticks::Open(int index)
{
    SDL_Joystick *const device = SDL_JoystickOpen(index);
    if (!device)
        return; // unplugged again
    const qint32 id = SDL_JoystickInstanceID(device);
    Stick &stick = sticks_[id];
    if (stick.device) { // told twice
        SDL_JoystickClose(device);
        return;
    }
    stick.device = device;
    take_(kFound, 0);
}

void CJoysticks::Remove(qint32 id)
{
    const auto stick = sticks_.find(id);
    if (stick == sticks_.end())
        return;
    // A camera must not go on moving because the stick was pulled out.
    if (stick->second.motion.code)
        take_(kStopCode, 0);
    SDL_JoystickClose(stick->second.device);
    sticks_.erase(stick);
    take_(kGone, 0);
}

void CJoysticks::TellMotion(Stick &stick)
{
    const JoystickMotion motion = MotionOf(stick.axes[0], stick.axes[1], stick.axes[2]);
    if (motion == stick.motion)
        return;
    if (stick.motion.code && motion.code != stick.motion.code)
        take_(kStopCode, 0); // one motion ends before another begins
    stick.motion = motion;
    if (motion.code)
        take_(motion.code, motion.speed);
}

} // namespace KeyBoard
