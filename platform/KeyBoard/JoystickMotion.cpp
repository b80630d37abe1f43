// SPDX-License-Identifier: MIT
#include "KeyBoard/JoystickMotion.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace KeyBoard {
namespace {

constexpr int kFullDeflection = 32767;
constexpr int kDeadZone = 8192;
constexpr int kRestMargin = 1638;       // a motion ends this far within the dead zone
constexpr double kAngleMargin = 0.1;    // radians beyond the border to the next direction
constexpr double kSpeedMargin = 2;      // steps of speed
constexpr double kSpeedCurve = 1.5;     // exponent: fine control near rest
constexpr int kStillRange = 328;        // 1 %: more is motion, less is noise
constexpr qint64 kLeverTime_ms = 10000; // a camera has zoomed from end to end long before
constexpr quint32 kZoomIn = 1314;
constexpr quint32 kZoomOut = 1315;
constexpr double kEighth = 3.14159265358979323846 / 4;
constexpr int kNoEighth = -1;

// Eighths of the circle from the right, clockwise because the y axis points down.
constexpr quint32 kDirections[] = {
    1308, // right
    1309, // down right
    1306, // down
    1311, // down left
    1307, // left
    1310, // up left
    1305, // up
    1312, // up right
};

// kNoEighth for rest and zoom.
int EighthOf(quint32 code)
{
    const auto *const found = std::find(std::begin(kDirections), std::end(kDirections), code);
    return found == std::end(kDirections) ? kNoEighth : int(found - std::begin(kDirections));
}

// The dead zone of a motion that runs is smaller than that of one that has to begin.
int DeadZone(bool runs)
{
    return runs ? kDeadZone - kRestMargin : kDeadZone;
}

quint32 SpeedOf(double deflection, const JoystickMotion &before, bool is_same_direction)
{
    const double part =
        std::clamp((deflection - kDeadZone) / (kFullDeflection - kDeadZone), 0., 1.);
    const double exact = std::max(1., std::pow(part, kSpeedCurve) * kFullSpeed);
    if (is_same_direction && part < 1 && std::abs(exact - before.speed) < kSpeedMargin)
        return before.speed;
    return quint32(std::lround(exact));
}

} // namespace

CStickAxis::CStickAxis(Kind kind, int initial) : kind_(kind), still_value_(initial)
{
    if (std::abs(initial) > kDeadZone) {
        state_ = kind == Kind::kTwist ? State::kLever : State::kAwaitsRest;
        if (kind == Kind::kDirection)
            kind_ = Kind::kTwist; // a stick that is held, or a lever
    } else if (kind != Kind::kTrigger) {
        rest_ = initial;
    }
}

int CStickAxis::Deflection(int value, qint64 now_ms)
{
    if (state_ == State::kLever)
        return 0;
    const int way = value - rest_;
    const int room = way > 0 ? kFullDeflection - rest_ : kFullDeflection + rest_;
    const int deflection = int(std::clamp(qint64(way) * kFullDeflection / room,
                                          qint64(-kFullDeflection), qint64(kFullDeflection)));
    if (state_ == State::kAwaitsRest) {
        if (std::abs(deflection) <= DeadZone(true))
            state_ = State::kCounts;
        return 0;
    }
    if (still_since_ < 0 || std::abs(value - still_value_) > kStillRange) {
        still_value_ = value;
        still_since_ = now_ms;
    }
    if (kind_ == Kind::kTwist && std::abs(deflection) > DeadZone(true)
        && now_ms - still_since_ >= kLeverTime_ms) {
        state_ = State::kAwaitsRest;
        return 0;
    }
    return deflection;
}

JoystickMotion CStickMotion::Take(int right, int down, int zoom_in)
{
    const JoystickMotion wanted = Judge(right, down, zoom_in);
    if (wanted.code == 0 || wanted.code == motion_.code || wanted.code == next_code_) {
        motion_ = wanted;
        next_code_ = 0;
    } else {
        next_code_ = wanted.code;
    }
    return motion_;
}

JoystickMotion CStickMotion::Judge(int right, int down, int zoom_in) const
{
    const int before = EighthOf(motion_.code);
    const double deflection = std::hypot(right, down);
    if (deflection > DeadZone(before != kNoEighth)) {
        const double angle = std::atan2(down, right);
        const bool is_same = before != kNoEighth
                             && std::abs(std::remainder(angle - before * kEighth, 8 * kEighth))
                                    <= kEighth / 2 + kAngleMargin;
        const int eighth = is_same ? before : int(std::lround(angle / kEighth)) & 7;
        return {kDirections[eighth], SpeedOf(deflection, motion_, is_same)};
    }
    const quint32 zoom = zoom_in > 0 ? kZoomIn : kZoomOut;
    if (std::abs(zoom_in) > DeadZone(motion_.code == zoom))
        return {zoom, 0};
    return {};
}

} // namespace KeyBoard
