// SPDX-License-Identifier: MIT
#include "KeyBoard/JoystickMotion.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace KeyBoard {
namespace {

constexpr int kFullDeflection = 32767;
constexpr int kDeadZone = 8192;
constexpr quint32 kZoomIn = 1314;
constexpr quint32 kZoomOut = 1315;
constexpr double kEighth = 3.14159265358979323846 / 4;

// Eighths of the circle from the right, clockwise as the y axis points down.
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

} // namespace

JoystickMotion MotionOf(int x, int y, int zoom)
{
    const double deflection = std::min(std::hypot(x, y), double(kFullDeflection));
    if (deflection > kDeadZone) {
        const int eighth = int(std::lround(std::atan2(y, x) / kEighth)) & 7;
        const double part = (deflection - kDeadZone) / (kFullDeflection - kDeadZone);
        return {kDirections[eighth], quint32(std::max(1L, std::lround(part * kFullSpeed)))};
    }
    if (std::abs(zoom) > kDeadZone)
        return {zoom > 0 ? kZoomIn : kZoomOut, 0};
    return {};
}

} // namespace KeyBoard
