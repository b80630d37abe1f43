// SPDX-License-Identifier: MIT
#include "KeyBoard/Joysticks.h"

#include "Nim/Base/Log.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iterator>
#include <memory>

namespace KeyBoard {
namespace {

constexpr quint32 kFound = 1301;
constexpr quint32 kGone = 1302;
constexpr quint32 kButtonReleased = 1303;
constexpr quint32 kButtonPressed = 1304;
constexpr Uint32 kSubsystems = SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER;
constexpr int kPollsASecond = 100;
constexpr int kEventsKept = 4096;
constexpr Uint32 kFirstEvent = SDL_JOYAXISMOTION;
constexpr Uint32 kLastEvent = SDL_FINGERDOWN - 1; // after those of joysticks and controllers
constexpr int kHatDeflection = 23836;             // half of the full speed
constexpr int kHatDiagonal = 16855;               // the same along both axes

void LogSdl(const char *what)
{
    Nim::Base::Log::WriteFramed("KeyBoard::CJoysticks", __FILE__, __LINE__, 4,
                                "ClientWarningAndMore", "%s: %s", what, SDL_GetError());
}

struct Deflections
{
    int right = 0;
    int down = 0;
    int zoom_in = 0;
};

qint64 Now_ms()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

// One of two opposite keys, or neither.
int Way(bool is_forth, bool is_back)
{
    return int(is_forth) - int(is_back);
}

void Steer(Deflections &deflections, int right, int down)
{
    const int size = right && down ? kHatDiagonal : kHatDeflection;
    if (right || down) {
        deflections.right = right * size;
        deflections.down = down * size;
    }
}

// The first value that is seen is the one at which the axis rests, or not. SDL's own initial state
// may be older: the client may have opened the stick long before.
int ReadAxis(std::map<int, CStickAxis> &axes, int number, CStickAxis::Kind kind, int value)
{
    return axes.try_emplace(number, kind, value).first->second.Deflection(value, Now_ms());
}

// A pad that SDL knows: left stick and direction keys pan and tilt, triggers and right stick zoom.
Deflections ReadPad(SDL_GameController *pad, std::map<int, CStickAxis> &axes)
{
    using Kind = CStickAxis::Kind;
    const auto axis = [&](SDL_GameControllerAxis number, Kind kind) {
        return ReadAxis(axes, number, kind, SDL_GameControllerGetAxis(pad, number));
    };
    const auto is_down = [pad](SDL_GameControllerButton button) {
        return SDL_GameControllerGetButton(pad, button) == SDL_PRESSED;
    };
    Deflections read;
    read.right = axis(SDL_CONTROLLER_AXIS_LEFTX, Kind::kDirection);
    read.down = axis(SDL_CONTROLLER_AXIS_LEFTY, Kind::kDirection);
    Steer(read,
          Way(is_down(SDL_CONTROLLER_BUTTON_DPAD_RIGHT), is_down(SDL_CONTROLLER_BUTTON_DPAD_LEFT)),
          Way(is_down(SDL_CONTROLLER_BUTTON_DPAD_DOWN), is_down(SDL_CONTROLLER_BUTTON_DPAD_UP)));
    const int x = axis(SDL_CONTROLLER_AXIS_RIGHTX, Kind::kDirection);
    const int y = axis(SDL_CONTROLLER_AXIS_RIGHTY, Kind::kDirection);
    read.zoom_in = (std::abs(x) >= std::abs(y) ? x : -y)
                   + axis(SDL_CONTROLLER_AXIS_TRIGGERRIGHT, Kind::kTrigger)
                   - axis(SDL_CONTROLLER_AXIS_TRIGGERLEFT, Kind::kTrigger);
    return read;
}

// Any other stick: the first two axes and the first hat pan and tilt, the third axis zooms.
Deflections ReadStick(SDL_Joystick *device, std::map<int, CStickAxis> &axes)
{
    using Kind = CStickAxis::Kind;
    const bool has_levers = SDL_JoystickGetType(device) == SDL_JOYSTICK_TYPE_THROTTLE;
    const auto axis = [&](int number, Kind kind) {
        Sint16 initial = 0;
        if (number >= SDL_JoystickNumAxes(device)
            || !SDL_JoystickGetAxisInitialState(device, number, &initial))
            return 0; // the device has not reported it yet
        return ReadAxis(axes, number, kind, SDL_JoystickGetAxis(device, number));
    };
    Deflections read;
    read.right = axis(0, has_levers ? Kind::kTwist : Kind::kDirection);
    read.down = axis(1, has_levers ? Kind::kTwist : Kind::kDirection);
    if (SDL_JoystickNumHats(device) > 0) {
        const Uint8 hat = SDL_JoystickGetHat(device, 0);
        Steer(read, Way(hat & SDL_HAT_RIGHT, hat & SDL_HAT_LEFT),
              Way(hat & SDL_HAT_DOWN, hat & SDL_HAT_UP));
    }
    read.zoom_in = axis(2, Kind::kTwist);
    return read;
}

std::set<int> DirectionButtons(SDL_GameController *pad)
{
    std::set<int> buttons;
    for (int key = SDL_CONTROLLER_BUTTON_DPAD_UP; key <= SDL_CONTROLLER_BUTTON_DPAD_RIGHT; ++key) {
        const auto bind = SDL_GameControllerGetBindForButton(pad, SDL_GameControllerButton(key));
        if (bind.bindType == SDL_CONTROLLER_BINDTYPE_BUTTON)
            buttons.insert(bind.value.button);
    }
    return buttons;
}

// Where the client reads no events of joysticks, they would fill SDL's queue. A client that does
// read them never has so many waiting.
//
// Only with SDL's lock, and while a joystick is open: SDL_Quit() ends the joysticks under that lock
// before it deletes the queue and the queue's lock.
void TrimEvents()
{
    int surplus = SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, kFirstEvent, kLastEvent) - kEventsKept;
    SDL_Event events[64];
    while (surplus > 0) {
        const int count = std::min(surplus, int(std::size(events)));
        if (SDL_PeepEvents(events, count, SDL_GETEVENT, kFirstEvent, kLastEvent) <= 0)
            return;
        surplus -= count;
    }
}

} // namespace

CJoysticks::CJoysticks(JoystickPlugin::Take take, void *user_data)
    : take_(take), user_data_(user_data)
{}

CJoysticks::~CJoysticks()
{
    for (const auto &[id, stick] : sticks_)
        Release(stick);
    SendMotion({});
    if (IsSdlRunning()) {
        SDL_LockJoysticks();
        for (const auto &[id, stick] : sticks_)
            Close(id, stick);
        SDL_UnlockJoysticks();
    }
    Deliver();
    End();
    SDL_TLSCleanup(); // of this thread, which SDL did not make
}

bool CJoysticks::Begin()
{
    // As defaults: what the client has set remains. Signals are the client's, and there is no
    // window here that could have the focus.
    SDL_SetHintWithPriority(SDL_HINT_NO_SIGNAL_HANDLERS, "1", SDL_HINT_DEFAULT);
    SDL_SetHintWithPriority(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1", SDL_HINT_DEFAULT);
    if (SDL_InitSubSystem(kSubsystems) != 0) {
        LogSdl("There are no joysticks, because SDL does not start");
        return false;
    }
    begun_ = kSubsystems;
    if (!SDL_WasInit(SDL_INIT_SENSOR) && SDL_InitSubSystem(SDL_INIT_SENSOR) == 0)
        begun_ |= SDL_INIT_SENSOR;
    watched_ = kSubsystems | SDL_WasInit(SDL_INIT_SENSOR);
    ticks_ = SDL_GetTicks64();
    SDL_AddEventWatch(&WatchEvent, this);
    return true;
}

void CJoysticks::End()
{
    SDL_DelEventWatch(&WatchEvent, this);
    SDL_QuitSubSystem(std::exchange(begun_, 0));
}

// SDL_Quit() of the client ends SDL for everybody, and destroys locks: a thread that waits for one
// then hangs or writes to freed memory (SDL 2.26). So this is asked before a lock is taken.
// SDL_Quit() ends the sensors first, then the controllers, then the joysticks. Afterwards SDL's
// time begins anew, which shows that it ended even if the client has started it again.
bool CJoysticks::IsSdlRunning()
{
    const Uint64 ticks_before = ticks_;
    if (begun_ && SDL_WasInit(watched_) == watched_ && (ticks_ = SDL_GetTicks64()) >= ticks_before)
        return true;
    begun_ = 0;
    return false;
}

// On whatever thread pumps SDL's events, with SDL's locks held.
int CJoysticks::WatchEvent(void *joysticks, SDL_Event *event)
{
    if (event->type != SDL_JOYBUTTONDOWN && event->type != SDL_JOYBUTTONUP)
        return 0;
    auto *const self = static_cast<CJoysticks *>(joysticks);
    const std::lock_guard<std::mutex> lock(self->edges_mutex_);
    self->edges_.push_back(
        {event->jbutton.which, event->jbutton.button, event->type == SDL_JOYBUTTONDOWN});
    return 0;
}

void CJoysticks::Poll()
{
    if (!IsSdlRunning()) {
        LoseSticks();
        if (++polls_without_sdl_ >= kPollsASecond) { // SDL_Quit() is over
            polls_without_sdl_ = 0;
            SDL_DelEventWatch(&WatchEvent, this);
            static_cast<void>(Begin()); // a failure is logged and tried again
        }
        Deliver();
        return;
    }
    SDL_LockJoysticks(); // once; the client may open and close on another thread
    SDL_JoystickUpdate();
    FindSticks();
    TakeButtons();
    TakeMotions();
    if (!sticks_.empty()) // all still open, as FindSticks() saw
        TrimEvents();
    SDL_UnlockJoysticks();
    Deliver();
}

void CJoysticks::FindSticks()
{
    for (auto stick = sticks_.begin(); stick != sticks_.end();) {
        if (SDL_JoystickFromInstanceID(stick->first) == stick->second.device
            && SDL_JoystickGetAttached(stick->second.device)) {
            ++stick;
            continue;
        }
        Close(stick->first, stick->second);
        stick = Lose(stick);
    }
    const int count = SDL_NumJoysticks();
    for (int index = 0; index < count; ++index) {
        const Id id = SDL_JoystickGetDeviceInstanceID(index);
        if (id >= 0 && !sticks_.count(id) && !refused_.count(id))
            Open(index, id);
    }
}

void CJoysticks::Open(int index, Id id)
{
    Stick stick;
    if (SDL_IsGameController(index))
        stick.pad = SDL_GameControllerOpen(index);
    stick.device = stick.pad ? SDL_GameControllerGetJoystick(stick.pad) : SDL_JoystickOpen(index);
    if (!stick.device) {
        refused_.insert(id);
        LogSdl("A joystick cannot be opened");
        return;
    }
    if (stick.pad)
        stick.direction_buttons = DirectionButtons(stick.pad);
    sticks_.emplace(id, std::move(stick));
    Send(kFound, 0);
}

// Gives the stick back to SDL, if SDL still has it.
void CJoysticks::Close(Id id, const Stick &stick)
{
    if (SDL_JoystickFromInstanceID(id) != stick.device)
        return;
    if (stick.pad)
        SDL_GameControllerClose(stick.pad);
    else
        SDL_JoystickClose(stick.device);
}

void CJoysticks::Release(const Stick &stick)
{
    for (const int button : stick.held_buttons)
        Send(kButtonReleased, quint32(button));
}

CJoysticks::Sticks::iterator CJoysticks::Lose(Sticks::iterator stick)
{
    Release(stick->second);
    if (steering_ == stick->first)
        SendMotion({}); // a camera must not go on moving because the stick was pulled out
    const auto next = sticks_.erase(stick);
    if (sticks_.empty())
        Send(kGone, 0); // while another is there, joysticks are connected
    return next;
}

void CJoysticks::LoseSticks()
{
    for (auto stick = sticks_.begin(); stick != sticks_.end();)
        stick = Lose(stick);
}

void CJoysticks::TakeButtons()
{
    std::vector<ButtonEdge> edges;
    {
        const std::lock_guard<std::mutex> lock(edges_mutex_);
        edges.swap(edges_);
    }
    for (const ButtonEdge &edge : edges) {
        const auto stick = sticks_.find(edge.stick);
        if (stick != sticks_.end())
            TakeButton(stick->second, edge.button, edge.is_down);
    }
    // A client can turn SDL's events of joysticks off; the state remains.
    for (auto &[id, stick] : sticks_) {
        const int count = SDL_JoystickNumButtons(stick.device);
        for (int button = 0; button < count; ++button)
            TakeButton(stick, button, SDL_JoystickGetButton(stick.device, button) == SDL_PRESSED);
    }
}

void CJoysticks::TakeButton(Stick &stick, int button, bool is_down)
{
    if (stick.direction_buttons.count(button))
        return;
    const bool is_change =
        is_down ? stick.held_buttons.insert(button).second : stick.held_buttons.erase(button) > 0;
    if (is_change)
        Send(is_down ? kButtonPressed : kButtonReleased, quint32(button));
}

void CJoysticks::TakeMotions()
{
    for (auto &[id, stick] : sticks_) {
        const Deflections read =
            stick.pad ? ReadPad(stick.pad, stick.axes) : ReadStick(stick.device, stick.axes);
        stick.wanted = stick.motion.Take(read.right, read.down, read.zoom_in);
    }
    const auto steers = [](const auto &stick) { return stick.second.wanted.code != 0; };
    auto steering = sticks_.find(steering_);
    if (steering == sticks_.end() || !steers(*steering))
        steering = std::find_if(sticks_.begin(), sticks_.end(), steers);
    const bool is_any = steering != sticks_.end();
    steering_ = is_any ? steering->first : -1;
    SendMotion(is_any ? steering->second.wanted : JoystickMotion());
}

void CJoysticks::SendMotion(const JoystickMotion &motion)
{
    if (motion == sent_)
        return;
    if (sent_.code && motion.code != sent_.code)
        Send(kStopCode, 0); // one motion ends before another begins
    sent_ = motion;
    if (motion.code)
        Send(motion.code, motion.speed);
}

// Without SDL's lock, which the client may wait for while it holds one that the callback takes.
void CJoysticks::Deliver()
{
    std::vector<Code> codes;
    codes.swap(codes_);
    for (const Code &code : codes)
        take_(code.code, code.value, user_data_);
}

} // namespace KeyBoard

extern "C" Q_DECL_EXPORT const KeyBoard::JoystickPlugin *VantorJoystickPlugin()
{
    using KeyBoard::CJoysticks;
    static const KeyBoard::JoystickPlugin plugin{
        [](KeyBoard::JoystickPlugin::Take take, void *user_data) -> void * {
            auto joysticks = std::make_unique<CJoysticks>(take, user_data);
            return joysticks->Begin() ? joysticks.release() : nullptr;
        },
        [](void *handle) { static_cast<CJoysticks *>(handle)->Poll(); },
        [](void *handle) { delete static_cast<CJoysticks *>(handle); },
    };
    return &plugin;
}
