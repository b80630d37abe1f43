// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/JoystickMotion.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>
#include <map>

struct _SDL_Joystick; // NOLINT(bugprone-reserved-identifier): SDL's own name
union SDL_Event;

namespace KeyBoard {

/// \brief The joysticks of the default driver, through SDL. Lives on the driver's thread, where SDL
/// is asked for news a hundred times a second.
class CJoysticks : public QObject
{
public:
    using Take = std::function<void(quint32 code, quint32 value)>;

    explicit CJoysticks(Take take, QObject *parent = nullptr);
    ~CJoysticks() override;

private:
    struct Stick
    {
        _SDL_Joystick *device = nullptr;
        int axes[3] = {0, 0, 0}; // right, down, turned clockwise
        JoystickMotion motion;   // told last
    };

    void Poll();
    void Handle(const SDL_Event &event);
    void Open(int index);
    void Remove(qint32 id);
    void TellMotion(Stick &stick);

    const Take take_;
    QTimer timer_;
    std::map<qint32, Stick> sticks_; // by SDL's number of the instance
    bool is_running_ = false;
};

} // namespace KeyBoard
