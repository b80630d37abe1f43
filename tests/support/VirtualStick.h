// SPDX-License-Identifier: MIT
#pragma once

#include <SDL.h>

/// \brief A joystick of SDL's virtual driver: the state set here is read as from a real one. SDL's
/// joysticks must run, in the library or in the test.
class CVirtualStick
{
public:
    CVirtualStick(SDL_JoystickType type, int axes, int buttons, int hats)
        : index_(SDL_JoystickAttachVirtual(type, axes, buttons, hats)),
          id_(SDL_JoystickGetDeviceInstanceID(index_)), device_(SDL_JoystickOpen(index_))
    {}
    ~CVirtualStick()
    {
        if (SDL_JoystickFromInstanceID(id_) == device_)
            SDL_JoystickClose(device_);
        for (int index = SDL_NumJoysticks() - 1; index >= 0; --index) {
            if (SDL_JoystickGetDeviceInstanceID(index) == id_)
                SDL_JoystickDetachVirtual(index);
        }
    }
    CVirtualStick(const CVirtualStick &) = delete;
    CVirtualStick &operator=(const CVirtualStick &) = delete;

    [[nodiscard]] bool IsOpen() const { return device_ != nullptr; }
    void SetAxis(int axis, int value) const
    {
        SDL_JoystickSetVirtualAxis(device_, axis, Sint16(value));
    }
    void SetButton(int button, bool is_down) const
    {
        SDL_JoystickSetVirtualButton(device_, button, is_down ? SDL_PRESSED : SDL_RELEASED);
    }
    void SetHat(Uint8 directions) const { SDL_JoystickSetVirtualHat(device_, 0, directions); }

private:
    const int index_;
    const SDL_JoystickID id_;
    SDL_Joystick *const device_;
};
