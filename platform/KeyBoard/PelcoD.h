// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QByteArray>
#include <QtCore/QtGlobal>

#include <functional>
#include <optional>

namespace KeyBoard {

/// \brief A key press of a serial keyboard as the managers know it: a code and its value.
struct DeviceCode
{
    quint32 code = 0;  ///< 0: nothing.
    quint32 value = 0; ///< Speed, number or state; depends on the code, see docs/devices.md.
};

/// \brief One frame of the Pelco-D protocol without its sync byte and checksum.
struct PelcoFrame
{
    quint8 address;  ///< Of the camera, 1 to 255.
    quint8 command1; ///< Bits for camera, iris and focus near.
    quint8 command2; ///< Bits for focus far, zoom, tilt and pan; bit 0 marks an extended command.
    quint8 data1;    ///< Pan speed, 0 to 63; 0 in extended commands.
    quint8 data2;    ///< Tilt speed, 0 to 63, or the number of a preset.
};

/// \brief The code of a frame that stops what runs.
inline constexpr quint32 kSerialStopCode = 3030;

/// \brief Whether \a frame, which has a code, begins something that goes on until a stop.
[[nodiscard]] inline bool IsPelcoMotion(const PelcoFrame &frame)
{
    const bool is_extended = frame.command2 & 0x01;
    return !is_extended && (frame.command1 || frame.command2);
}

/// \brief The seven bytes of \a frame: sync 0xFF, address, commands, data, and the sum of the
/// middle five modulo 256.
[[nodiscard]] VANTOR_PLATFORM_EXPORT QByteArray EncodePelco(const PelcoFrame &frame);

/// \brief What makes a camera do an operation of the managers' signals: the frame that begins it.
///
/// \param address   of the camera, 1 to 255.
/// \param operation see docs/devices.md: moves 100 to 103 and 106 to 109, zoom 104 and 105, focus
///                  112 and 113, iris 114 and 115, and 200, which calls a preset.
/// \param speed     of a move; limited to 0 to 63, the range of the protocol.
/// \param index     of the preset, 1 to 255.
/// \return nothing for an operation or an index that the protocol has no command for.
[[nodiscard]] VANTOR_PLATFORM_EXPORT std::optional<PelcoFrame>
PelcoCommand(quint8 address, int operation, int speed, int index);

/// \brief The frame that ends everything that moves in the camera at \a address.
[[nodiscard]] VANTOR_PLATFORM_EXPORT PelcoFrame PelcoStop(quint8 address);

/// \brief The code of \a frame by the table in docs/devices.md; code 0 for a frame without one.
[[nodiscard]] VANTOR_PLATFORM_EXPORT DeviceCode TranslatePelco(const PelcoFrame &frame);

/// \brief Finds the frames in a stream of bytes: sync 0xFF, address, two command bytes, two data
/// bytes, and the sum of these five modulo 256.
///
/// After noise it goes on at the next byte that can begin a frame, so that a broken frame costs no
/// other, unless its bytes make the sum right by chance.
class VANTOR_PLATFORM_EXPORT CPelcoReader
{
public:
    /// \brief Take \a bytes and call \a take with each frame that is whole now.
    void Read(const QByteArray &bytes, const std::function<void(const PelcoFrame &)> &take);
    /// \brief Forget half a frame.
    void Reset() { pending_.clear(); }

private:
    QByteArray pending_; // less than a frame
};

} // namespace KeyBoard
