// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ControlStep.h"

namespace Vantor {
namespace {

bool IsMove(KeyboradData::KeyOperation::Type operation, bool with_pair)
{
    using namespace KeyboradData::KeyOperation;
    if (operation == kPair104 || operation == kPair105)
        return with_pair;
    return operation >= kMove100 && operation <= kMove109;
}

bool IsRepeat(const ControlCommand &command, const ControlRules &rules, bool is_window_control,
              bool always_sends_stops, const ControlRepeat &repeat)
{
    if (command.is_stop && always_sends_stops)
        return false;
    if (command.operation != repeat.last_operation
        || !IsMove(command.operation, rules.drops_repeated_pair))
        return false;
    if (is_window_control)
        return rules.drops_stops || !command.is_stop;
    return command.speed == repeat.last_speed;
}

} // namespace

ControlOutcome JudgeCommand(const ControlCommand &command, const ControlRules &rules,
                            bool is_window_control, bool always_sends_stops, ControlRepeat &repeat)
{
    if (command.operation == KeyboradData::KeyOperation::kNone)
        return ControlOutcome::kIgnore;
    if (command.operation == KeyboradData::KeyOperation::kToggleMode)
        return command.is_stop ? ControlOutcome::kIgnore : ControlOutcome::kToggleMode;
    if (IsRepeat(command, rules, is_window_control, always_sends_stops, repeat))
        return ControlOutcome::kIgnore;
    repeat.last_operation = command.operation;
    repeat.last_speed = command.speed;
    if (!command.is_stop && IsMove(command.operation, true))
        repeat.running = command.operation;
    return ControlOutcome::kEmit;
}

void EndCommand(const ControlCommand &command, ControlRepeat &repeat)
{
    if (!command.is_stop)
        return;
    const ControlRepeat fresh;
    repeat.last_operation = fresh.last_operation;
    repeat.last_speed = fresh.last_speed;
    if (repeat.running == command.operation)
        repeat.running = fresh.running;
}

KeyboradData::KeyOperation::Type OperationToStop(const ControlRepeat &repeat,
                                                 bool always_sends_stops)
{
    if (always_sends_stops && repeat.running != KeyboradData::KeyOperation::kNone)
        return repeat.running;
    return repeat.last_operation;
}

} // namespace Vantor
