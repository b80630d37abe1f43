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

/// \brief One axis: where it rests, and how far it is from there.
///
/// An axis counts only once it was seen at rest. So a stick that is held while it is plugged in, a
/// trigger that rests at an end, and a lever that stays wherever it was left move nothing.
class CStickAxis
{
public:
    enum class Kind {
        kDirection, ///< Springs back to its centre: pan and tilt. Off it at first: as kTwist later.
        kTwist,     ///< Springs back too, unless it is a lever: begins off its centre, or stays off
                    ///< it without the least motion for ten seconds.
        kTrigger,   ///< Rests at 0 and is pulled towards 32767.
    };

    /// \param initial the first value that was seen, -32768 to 32767.
    explicit CStickAxis(Kind kind, int initial);

    /// \brief The deflection, -32767 to 32767, of an axis at \a value; 0 while it does not count.
    /// \param now_ms any clock that never goes back.
    [[nodiscard]] int Deflection(int value, qint64 now_ms);

private:
    enum class State {
        kCounts,
        kAwaitsRest, ///< Must be seen at rest before it counts.
        kLever,      ///< Never counts.
    };

    Kind kind_;
    State state_ = State::kCounts;
    int rest_ = 0;
    int still_value_;         ///< The value that the axis has kept, but for noise, …
    qint64 still_since_ = -1; ///< … since this time.
};

/// \brief What one stick asks for, judged once a poll over all its axes.
///
/// The zone of rest is a circle of a quarter of the full deflection. Beyond it the stick moves in
/// the nearest of eight directions, at a speed that grows with the deflection to the power of 1.5;
/// a stick that moves does not zoom. Each border has a margin wider than the noise of a worn stick,
/// and a new direction must be seen in two polls: a diagonal that is let go on one axis a moment
/// before the other ends without a move along that other axis.
class CStickMotion
{
public:
    /// \param right, down, zoom_in deflections of -32767 to 32767.
    JoystickMotion Take(int right, int down, int zoom_in);

private:
    [[nodiscard]] JoystickMotion Judge(int right, int down, int zoom_in) const;

    JoystickMotion motion_;
    quint32 next_code_ = 0; ///< The direction that the last poll saw for the first time.
};

} // namespace KeyBoard
