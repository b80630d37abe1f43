// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QtGlobal>

#include <functional>

namespace KeyBoard {

/// \brief What a key press of a serial keyboard is to the managers: a code and its value.
struct DeviceCode
{
    quint32 code = 0; ///< 0: nothing.
    quint32 value = 0;
};

/// \brief One frame of the Pelco-D protocol without its sync byte and checksum.
struct PelcoFrame
{
    quint8 address;
    quint8 command1;
    quint8 command2;
    quint8 data1;
    quint8 data2;
};

inline constexpr quint32 kSerialStopCode = 3030;

/// \brief Whether \a frame, which has a code, begins something that goes on until a stop.
[[nodiscard]] inline bool IsPelcoMotion(const PelcoFrame &frame)
{
    const bool is_extended = frame.command2 & 0x01;
    return !is_extended && (frame.command1 || frame.command2);
}

/// \brief The code of \a frame by the table in docs/devices.md; code 0 for a frame that has none.
[[nodiscard]] DeviceCode TranslatePelco(const PelcoFrame &frame);

/// \brief Finds the frames in a stream of bytes: sync 0xFF, address, two command bytes, two data
/// bytes, and the sum of these five modulo 256.
///
/// After noise it goes on at the next byte that can begin a frame, so that a broken frame costs no
/// other, unless its bytes make the sum right by chance.
class CPelcoReader
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
