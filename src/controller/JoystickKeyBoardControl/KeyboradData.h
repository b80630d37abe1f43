// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QMetaType>

/// The codes of control keyboards and joysticks. All are plain integers: a value that has no name
/// here passes through unchanged, its meaning is the host's.
namespace KeyboradData {

namespace KeyOperation {

/// \brief What a control signal asks the host to do. The host decides what each does; the
/// library only knows which operations carry a speed and which an index.
enum Type : int {
    kNone = 0, ///< Never emitted.
    // Moves, which carry a speed.
    kMove100 = 100,
    kMove101 = 101,
    kMove102 = 102,
    kMove103 = 103,
    kMove106 = 106,
    kMove107 = 107,
    kMove108 = 108,
    kMove109 = 109,
    // A pair without speed, one key each on every device.
    kPair104 = 104,
    kPair105 = 105,
    // Operations without speed.
    kKey112 = 112,
    kKey113 = 113,
    kKey114 = 114,
    kKey115 = 115,
    kKey116 = 116,
    kKey117 = 117,
    kKey118 = 118,
    kToggleMode = 119, ///< Switches the window-control mode; never emitted.
    // Selections, which carry an index.
    kSelectWindow124 = 124,
    kSelectWindow125 = 125,
    kSelectIndex = 200,
    kToggleWall = 701, ///< Of a translated USB key.
};

/// \brief Kind of an operation, computed by CUSBJoystickControlManager.
enum KeyOperationMode : int {
    kContinuous = 0, ///< 100 to 109 and 112 to 115.
    kSingle = 1,     ///< 116 to 118, 502 to 504 and 601.
    kOther = 2,      ///< All others.
};

} // namespace KeyOperation

/// \brief The kind of device at USB.
enum ModUsb : int {
    kDisconnected = 0,
    kUsbJoystick = 1,
    kUsbKeyboard = 2,     ///< A keyboard in video mode.
    kUsbKeyboardWall = 3, ///< A keyboard in wall mode.
};

namespace USBKeyboardOperation {

/// \brief A key as the device library numbers it; 10 to 14 reach the host's function.
enum KeyType : int {};

} // namespace USBKeyboardOperation

namespace JoystickOperation {

/// \brief A button as the device library numbers it: 7 for the first, 8 for the second and so on.
enum KeyType : int {};

} // namespace JoystickOperation

} // namespace KeyboradData

namespace Vantor {
namespace KeyboradData = ::KeyboradData;
} // namespace Vantor

Q_DECLARE_METATYPE(KeyboradData::KeyOperation::Type)
Q_DECLARE_METATYPE(KeyboradData::ModUsb)
