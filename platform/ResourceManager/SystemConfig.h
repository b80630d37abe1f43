// SPDX-License-Identifier: MIT
#pragma once

namespace ResourceManager::SystemConfig {

/// \brief The port that the user configured for the serial control keyboard.
enum COMJoystick : int {
    kNoPort = 0, ///< Every value except 1 to 4 means this.
    kCom1 = 1,
    kCom2 = 2,
    kCom3 = 3,
    kCom4 = 4,
};

} // namespace ResourceManager::SystemConfig

namespace Vantor {
namespace ResourceManager = ::ResourceManager;
} // namespace Vantor
