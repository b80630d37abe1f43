// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/JoystickMotion.h"
#include "KeyBoard/JoystickPlugin.h"

#include <map>
#include <mutex>
#include <set>
#include <vector>

// NOLINTBEGIN(bugprone-reserved-identifier): SDL's own names
struct _SDL_GameController;
struct _SDL_Joystick;
// NOLINTEND(bugprone-reserved-identifier)
union SDL_Event;

namespace KeyBoard {

/// \brief All joysticks of the machine, through SDL, which the client may use at the same time.
///
/// SDL's events are left to the client: a poll reads the state of each joystick, and an event watch
/// sees the buttons, no matter which code pumps the events. So no press is lost between two polls.
///
/// Several joysticks share one stream of codes. The one that moves first steers until it rests.
class CJoysticks
{
public:
    CJoysticks(JoystickPlugin::Take take, void *user_data);
    ~CJoysticks();
    CJoysticks(const CJoysticks &) = delete;
    CJoysticks &operator=(const CJoysticks &) = delete;

    /// \brief Start SDL's joysticks. \return false, after a log line, when SDL refuses.
    [[nodiscard]] bool Begin();
    /// \brief Read all joysticks and send what changed.
    void Poll();

private:
    using Id = qint32; // SDL's number of a joystick from plugging in to pulling out

    struct Stick
    {
        _SDL_Joystick *device = nullptr;
        _SDL_GameController *pad = nullptr; // null unless SDL knows what its axes and buttons are
        std::map<int, CStickAxis> axes;     // by SDL's number, once the axis has a value
        std::set<int> held_buttons;
        std::set<int> direction_buttons; // a pad's direction keys, which steer
        CStickMotion motion;
        JoystickMotion wanted; // what the last poll asked for
    };
    struct ButtonEdge
    {
        Id stick;
        int button;
        bool is_down;
    };
    struct Code
    {
        quint32 code;
        quint32 value;
    };

    using Sticks = std::map<Id, Stick>;

    static int WatchEvent(void *joysticks, SDL_Event *event);
    bool IsSdlRunning();
    void End();
    void FindSticks();
    void Open(int index, Id id);
    static void Close(Id id, const Stick &stick);
    void Release(const Stick &stick);
    Sticks::iterator Lose(Sticks::iterator stick);
    void LoseSticks();
    void TakeButtons();
    void TakeButton(Stick &stick, int button, bool is_down);
    void TakeMotions();
    void SendMotion(const JoystickMotion &motion);
    void Send(quint32 code, quint32 value) { codes_.push_back({code, value}); }
    void Deliver();

    const JoystickPlugin::Take take_;
    void *const user_data_;
    Sticks sticks_;
    std::set<Id> refused_; // could not be opened; each is reported once
    quint32 begun_ = 0;    // the subsystems of SDL that this object has started; 0 once SDL ended
    quint32 watched_ = 0;  // those that run until SDL ends
    quint64 ticks_ = 0;    // SDL's time at the last poll
    int polls_without_sdl_ = 0; // since the client ended SDL as a whole
    Id steering_ = -1;          // the stick that moves, or -1
    JoystickMotion sent_;       // the motion that was sent last
    std::vector<Code> codes_;   // of this poll; delivered when SDL is unlocked again
    std::mutex edges_mutex_;
    std::vector<ButtonEdge>
        edges_; // under the mutex; written by the thread that pumps SDL's events
};

} // namespace KeyBoard
