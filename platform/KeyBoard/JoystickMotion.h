// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

namespace KeyBoard {

/// \brief What a joystick asks for as a whole: one code and its speed.
struct JoystickMotion
{
    quint32 code = 0;  ///< 0: at rest.
    quint32 speed = 0; ///< 1 to kFullSpeed of a move; 0 of a zoom.

    friend bool operator==(const JoystickMotion &a, const JoystickMotion &b)
    {
        return a.code == b.code && a.speed == b.speed;
    }
};

inline constexpr quint32 kFullSpeed = 63;
inline constexpr quint32 kStopCode = 1313;

/// \brief The motion of a stick at \a x (right), \a y (down) and turned by \a zoom (clockwise),
/// each -32768 to 32767.
///
/// The inner quarter of each axis is rest. Beyond it the stick moves in the one of eight directions
/// that is nearest, at a speed that grows with the deflection; a stick that moves does not zoom.
[[nodiscard]] JoystickMotion MotionOf(int x, int y, int zoom);

} // namespace KeyBoard
