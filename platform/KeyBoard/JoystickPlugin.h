// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

namespace KeyBoard {

/// \brief What the plug-in with the joysticks offers the default driver.
///
/// It is a plug-in because SDL brings some forty shared libraries with it, which only a process
/// that uses joysticks should load. Plain functions, so that the two modules share no C++ types.
struct JoystickPlugin
{
    /// Receives each code of a joystick and its value, see docs/devices.md.
    using Take = void (*)(quint32 code, quint32 value, void *user_data);

    /// Starts SDL's joysticks. \return their handle; null, after a log line, when SDL refuses.
    void *(*begin)(Take take, void *user_data);
    /// Reads all joysticks and calls Take for what changed. On the thread of begin().
    void (*poll)(void *handle);
    /// Stops a move that runs and lets the joysticks go. On the thread of begin().
    void (*end)(void *handle);
};

/// The plug-in's file without prefix and suffix, beside the platform library, and its one function,
/// which gives a JoystickPlugin.
inline constexpr char kJoystickPluginFile[] = "vantor/vantor_joysticks";
inline constexpr char kJoystickPluginFunction[] = "VantorJoystickPlugin";
using JoystickPluginFunction = const JoystickPlugin *(*)();

} // namespace KeyBoard
