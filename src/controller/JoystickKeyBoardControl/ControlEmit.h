// SPDX-License-Identifier: MIT
#pragma once

#include "common/Guard.h"
#include "controller/JoystickKeyBoardControl/ControlStep.h"
#include "controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardControlManager.h"

#include <QtCore/QPointer>

namespace Vantor {

/// \brief Whether the coordinator, if there is one, wants every stop sent.
[[nodiscard]] inline bool AlwaysSendsStops()
{
    const auto *const coordinator = CJoystickKeyboardControlManager::Instance();
    return coordinator && coordinator->GetStopsAlwaysSent();
}

/// \brief The steps that all devices share once a code is translated.
///
/// \param manager whose command it is; a slot may delete it.
/// \param toggle  called for a command that switches the mode.
/// \param send    called for one that is no repeat: logs it and emits the manager's signal.
template <class Toggle, class Send>
void EmitCommand(QObject *manager, const char *function, const ControlCommand &command,
                 const ControlRules &rules, bool is_window_control, ControlRepeat &repeat,
                 Toggle toggle, Send send)
{
    const ControlOutcome outcome =
        JudgeCommand(command, rules, is_window_control, AlwaysSendsStops(), repeat);
    if (outcome == ControlOutcome::kToggleMode)
        toggle();
    if (outcome != ControlOutcome::kEmit)
        return;
    auto *const coordinator = CJoystickKeyboardControlManager::Instance();
    if (!command.is_stop && coordinator)
        coordinator->SetEventStatus(true);
    const QPointer<QObject> alive(manager);
    RunGuarded(function, send);
    if (alive)
        EndCommand(command, repeat);
}

} // namespace Vantor
