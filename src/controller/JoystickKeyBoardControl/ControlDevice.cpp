// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ControlDevice.h"

#include <algorithm>

namespace Vantor {
namespace {

using namespace KeyboradData::KeyOperation;

constexpr quint32 kSecondWindow = 2; // the third parameter of a selection
constexpr int kNoSpeed = -1;

// Operations in no range are of the kind kOther.
constexpr struct
{
    int first;
    int last;
    KeyOperationMode kind;
} kKinds[] = {
    {100, 109, kContinuous}, {112, 115, kContinuous}, {116, 118, kSingle},
    {502, 504, kSingle},     {601, 601, kSingle},
};

bool IsMove(Type operation, bool with_pair)
{
    if (operation == kPair104 || operation == kPair105)
        return with_pair;
    return operation >= kMove100 && operation <= kMove109;
}

bool IsHeldKey(Type operation)
{
    return operation >= kKey112 && operation <= kKey115;
}

std::size_t KeyIndex(Type operation)
{
    return std::size_t(operation - kKey112);
}

bool IsStop(ControlCode::Stop stop, quint32 second)
{
    switch (stop) {
    case ControlCode::Stop::kNever:
        return false;
    case ControlCode::Stop::kAlways:
    case ControlCode::Stop::kRelease:
        return true;
    case ControlCode::Stop::kWhenSecondIsOne:
        return second == 1;
    }
    return false;
}

} // namespace

KeyOperationMode OperationKind(Type operation)
{
    for (const auto &range : kKinds) {
        if (operation >= range.first && operation <= range.last)
            return range.kind;
    }
    return kOther;
}

CControlDevice::Outcome CControlDevice::Take(const ControlInput &input, const Translate &translate,
                                             bool always_sends_stops, ControlCommand &command)
{
    const auto *const end = table_.codes + table_.count;
    const auto *const row = std::find_if(
        table_.codes, end, [&](const ControlCode &each) { return each.code == input.code; });
    if (row == end)
        return Outcome::kIgnore;
    command = CommandOf(*row, input, translate, always_sends_stops);
    // Before anything else: a button that does nothing ends a move too.
    if (row->stop == ControlCode::Stop::kRelease && OperationKind(command.operation) != kContinuous)
        last_operation_ = kNone;
    if (command.operation == kNone)
        return Outcome::kIgnore;
    if (command.operation == kToggleMode)
        return command.is_stop ? Outcome::kIgnore : Outcome::kToggleMode;
    if (IsRepeat(command, always_sends_stops))
        return Outcome::kIgnore;
    Note(command);
    return Outcome::kEmit;
}

ControlCommand CControlDevice::CommandOf(const ControlCode &row, const ControlInput &input,
                                         const Translate &translate, bool always_sends_stops) const
{
    ControlCommand command;
    switch (row.source) {
    case ControlCode::Source::kRow:
        command.operation = row.operation;
        break;
    case ControlCode::Source::kRowOrSecond:
        command.operation = Type(row.operation + (input.third == kSecondWindow ? 1 : 0));
        break;
    case ControlCode::Source::kLast:
        command.operation = always_sends_stops ? Running() : last_operation_;
        break;
    case ControlCode::Source::kKey:
    case ControlCode::Source::kKeyPlusSecond:
        if (translate)
            command.operation =
                translate(row.key + (row.source == ControlCode::Source::kKey ? 0 : input.second));
        break;
    }
    command.is_stop = IsStop(row.stop, input.second);
    if (row.second == ControlCode::Second::kSpeed)
        command.speed = int(input.second);
    if (row.second == ControlCode::Second::kSelectIndex)
        command.select_index = int(input.second);
    return command;
}

Type CControlDevice::Running() const
{
    if (running_move_ != kNone)
        return running_move_;
    const auto runs = [this](std::size_t key) { return running_keys_[key]; };
    if (running_keys_.none() || (IsHeldKey(last_operation_) && runs(KeyIndex(last_operation_))))
        return last_operation_;
    std::size_t key = 0;
    while (!runs(key))
        ++key;
    return Type(kKey112 + int(key));
}

bool CControlDevice::IsRepeat(const ControlCommand &command, bool always_sends_stops) const
{
    const bool is_strict = table_.repeats == ControlTable::Repeats::kMovesPairAndStops;
    if (command.is_stop && always_sends_stops)
        return false;
    if (command.operation != last_operation_ || !IsMove(command.operation, is_strict))
        return false;
    if (is_window_control_)
        return is_strict || !command.is_stop;
    return command.speed == last_speed_;
}

void CControlDevice::Note(const ControlCommand &command)
{
    last_operation_ = command.operation;
    last_speed_ = command.speed;
    if (IsHeldKey(command.operation))
        running_keys_.set(KeyIndex(command.operation), !command.is_stop);
    if (IsMove(command.operation, true) && !command.is_stop)
        running_move_ = command.operation;
}

void CControlDevice::End(const ControlCommand &command)
{
    if (!command.is_stop)
        return;
    last_operation_ = kNone;
    last_speed_ = kNoSpeed;
    if (running_move_ == command.operation)
        running_move_ = kNone;
}

std::vector<ControlCommand> CControlDevice::StopAll()
{
    std::vector<ControlCommand> stops;
    if (running_move_ != kNone)
        stops.push_back({running_move_, true});
    for (std::size_t key = 0; key < running_keys_.size(); ++key) {
        if (running_keys_[key])
            stops.push_back({Type(kKey112 + int(key)), true});
    }
    running_move_ = kNone;
    running_keys_.reset();
    return stops;
}

void CControlDevice::Reset(int last_speed)
{
    last_operation_ = kNone;
    last_speed_ = last_speed;
    running_move_ = kNone;
    running_keys_.reset();
}

} // namespace Vantor
