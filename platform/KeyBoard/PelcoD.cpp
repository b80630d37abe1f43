// SPDX-License-Identifier: MIT
#include "KeyBoard/PelcoD.h"

#include <algorithm>

namespace KeyBoard {
namespace {

constexpr quint8 kSync = 0xFF;
constexpr int kFrameLength = 7;

// Commands with this bit are whole numbers, the others are sets of bits.
constexpr quint8 kExtended = 0x01;

enum class Value {
    kNone,
    kPanSpeed,  // data 1
    kTiltSpeed, // data 2
};

// Bits of command 1 << 8 | command 2. The first that is set counts; of a diagonal move the faster
// axis does, as these keyboards' codes know four directions.
constexpr struct
{
    quint16 bit;
    quint32 code;
    Value value;
} kBits[] = {
    {0x0008, 3021, Value::kTiltSpeed}, // up
    {0x0010, 3022, Value::kTiltSpeed}, // down
    {0x0004, 3023, Value::kPanSpeed},  // left
    {0x0002, 3024, Value::kPanSpeed},  // right
    {0x0020, 3011, Value::kNone},      // zoom in
    {0x0040, 3012, Value::kNone},      // zoom out
    {0x0100, 3013, Value::kNone},      // focus near
    {0x0080, 3014, Value::kNone},      // focus far
    {0x0200, 3015, Value::kNone},      // iris open
    {0x0400, 3016, Value::kNone},      // iris close
};
// The bits of command 1 << 8 | command 2 that begin an operation of the managers' signals.
constexpr struct
{
    int operation;
    quint16 bits;
} kOperations[] = {
    {100, 0x0008}, {101, 0x0010}, {102, 0x0004}, {103, 0x0002}, {106, 0x000C},
    {107, 0x000A}, {108, 0x0014}, {109, 0x0012}, {104, 0x0020}, {105, 0x0040},
    {112, 0x0100}, {113, 0x0080}, {114, 0x0200}, {115, 0x0400},
};
constexpr int kCallPresetOperation = 200;
constexpr quint8 kCallPreset = 0x07;
constexpr int kFullSpeed = 63;
constexpr int kLastPreset = 255;

constexpr quint16 kTiltBits = 0x0018;
constexpr quint16 kPanBits = 0x0006;

// Extended commands whose data 2 becomes the value.
constexpr struct
{
    quint8 command2;
    quint32 code;
} kNumbered[] = {
    {0x03, 2001}, // set preset: select in the first window
    {0x05, 2002}, // clear preset: select in the second window
    {0x07, 3050}, // call preset: select by index
};

constexpr quint8 kSetAuxiliary = 0x09;
// Auxiliary keys, by data 2.
constexpr struct
{
    quint8 number;
    quint32 code;
} kAuxiliaries[] = {{1, 3052}, {2, 3002}, {3, 3003}, {4, 3029}};

DeviceCode TranslateExtended(const PelcoFrame &frame)
{
    for (const auto &row : kNumbered) {
        if (frame.command2 == row.command2)
            return {row.code, frame.data2};
    }
    for (const auto &row : kAuxiliaries) {
        if (frame.command2 == kSetAuxiliary && frame.data2 == row.number)
            return {row.code, 0};
    }
    return {};
}

} // namespace

QByteArray EncodePelco(const PelcoFrame &frame)
{
    const auto sum =
        quint8(frame.address + frame.command1 + frame.command2 + frame.data1 + frame.data2);
    const quint8 bytes[kFrameLength] = {
        kSync, frame.address, frame.command1, frame.command2, frame.data1, frame.data2, sum};
    return {reinterpret_cast<const char *>(bytes), kFrameLength};
}

std::optional<PelcoFrame> PelcoCommand(quint8 address, int operation, int speed, int index)
{
    if (operation == kCallPresetOperation && index > 0 && index <= kLastPreset)
        return PelcoFrame{address, 0, kCallPreset, 0, quint8(index)};
    for (const auto &row : kOperations) {
        if (row.operation != operation)
            continue;
        const auto limited = quint8(std::clamp(speed, 0, kFullSpeed));
        return PelcoFrame{address, quint8(row.bits >> 8), quint8(row.bits & 0xFF),
                          row.bits & kPanBits ? limited : quint8(0),
                          row.bits & kTiltBits ? limited : quint8(0)};
    }
    return {};
}

PelcoFrame PelcoStop(quint8 address)
{
    return {address, 0, 0, 0, 0};
}

DeviceCode TranslatePelco(const PelcoFrame &frame)
{
    if (frame.command2 & kExtended)
        return TranslateExtended(frame);
    auto bits = quint16(frame.command1 << 8 | frame.command2);
    if (!bits)
        return {kSerialStopCode, 0};
    if ((bits & kTiltBits) && (bits & kPanBits))
        bits = quint16(bits & ~(frame.data1 >= frame.data2 ? kTiltBits : kPanBits));
    for (const auto &row : kBits) {
        if (!(bits & row.bit))
            continue;
        const quint8 speed = row.value == Value::kPanSpeed ? frame.data1 : frame.data2;
        return {row.code, row.value == Value::kNone ? 0U : speed};
    }
    return {};
}

void CPelcoReader::Read(const QByteArray &bytes,
                        const std::function<void(const PelcoFrame &)> &take)
{
    pending_ += bytes;
    int at = 0;
    while (pending_.size() - at >= kFrameLength) {
        const auto *const frame = reinterpret_cast<const quint8 *>(pending_.constData()) + at;
        const auto sum = quint8(frame[1] + frame[2] + frame[3] + frame[4] + frame[5]);
        if (frame[0] != kSync || sum != frame[6]) {
            ++at;
            continue;
        }
        take({frame[1], frame[2], frame[3], frame[4], frame[5]});
        at += kFrameLength;
    }
    pending_.remove(0, at);
}

} // namespace KeyBoard
