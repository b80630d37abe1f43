// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/KeyboradData.h"

#include <QtCore/QtGlobal>

#include <cstddef>

namespace Vantor {

/// \brief What a device event asks for.
struct ControlCommand
{
    KeyboradData::KeyOperation::Type operation = KeyboradData::KeyOperation::kNone;
    bool is_stop = false;
    int speed = 0;
    int select_index = 0;
};

/// \brief What a device sent last, to tell repeats by.
struct ControlRepeat
{
    KeyboradData::KeyOperation::Type last_operation = KeyboradData::KeyOperation::kNone;
    int last_speed = -1;
    /// The move or the one of the pair that no stop was emitted for yet. Only used where stops are
    /// always sent: what is pressed meanwhile then does not take the stop away from it.
    KeyboradData::KeyOperation::Type running = KeyboradData::KeyOperation::kNone;
};

/// \brief In what the three managers differ when they drop repeats.
struct ControlRules
{
    bool drops_repeated_pair; ///< 104 and 105 count as moves.
    bool drops_stops;         ///< A stop is a repeat of the operation it stops.
};

inline constexpr ControlRules kSerialKeyboardRules{true, true};
inline constexpr ControlRules kUsbKeyboardRules{false, false};
inline constexpr ControlRules kUsbJoystickRules{false, false};

enum class ControlOutcome {
    kIgnore,
    kToggleMode,
    kEmit,
};

/// \brief Judge \a command and, when it is to be emitted, note it in \a repeat.
///
/// \param is_window_control the sense of the device's mode: on, a move is a repeat by its operation;
///                          off, by operation and speed.
/// \param always_sends_stops no stop is a repeat.
[[nodiscard]] ControlOutcome JudgeCommand(const ControlCommand &command, const ControlRules &rules,
                                          bool is_window_control, bool always_sends_stops,
                                          ControlRepeat &repeat);

/// \brief After the signal: a stop ends what repeats are told by.
void EndCommand(const ControlCommand &command, ControlRepeat &repeat);

/// \brief The operation that a stop without one of its own stops.
[[nodiscard]] KeyboradData::KeyOperation::Type OperationToStop(const ControlRepeat &repeat,
                                                               bool always_sends_stops);

/// \brief One row of a device's code table.
struct ControlCode
{
    /// Where the operation comes from.
    enum class Source {
        kRow,           ///< `operation`.
        kLast,          ///< What is to be stopped.
        kKey,           ///< The host's function of `key`.
        kKeyPlusSecond, ///< The host's function of `key` and the second parameter added.
    };
    /// What the second parameter is.
    enum class Second {
        kUnused,
        kSpeed,
        kSelectIndex,
    };
    enum class Stop {
        kNever,
        kAlways,
        kWhenSecondIsOne,
    };

    quint32 code;
    Source source;
    KeyboradData::KeyOperation::Type operation;
    quint32 key;
    Second second;
    Stop stop;
};

/// \brief The row of \a code in \a table, null when it has none.
template <std::size_t count>
[[nodiscard]] const ControlCode *FindCode(const ControlCode (&table)[count], quint32 code)
{
    for (const ControlCode &row : table) {
        if (row.code == code)
            return &row;
    }
    return nullptr;
}

/// \brief The command of \a row.
///
/// \param to_stop   see OperationToStop().
/// \param translate the host's function, null when it gave none: the operation is then 0. What it
///                  throws is let through.
template <class KeyType>
[[nodiscard]] ControlCommand MakeCommand(const ControlCode &row, quint32 second,
                                         KeyboradData::KeyOperation::Type to_stop,
                                         KeyboradData::KeyOperation::Type (*translate)(KeyType))
{
    ControlCommand command;
    switch (row.source) {
    case ControlCode::Source::kRow:
        command.operation = row.operation;
        break;
    case ControlCode::Source::kLast:
        command.operation = to_stop;
        break;
    case ControlCode::Source::kKey:
    case ControlCode::Source::kKeyPlusSecond:
        if (translate) {
            const quint32 added = row.source == ControlCode::Source::kKey ? 0 : second;
            command.operation = translate(static_cast<KeyType>(row.key + added));
        }
        break;
    }
    command.is_stop = row.stop == ControlCode::Stop::kAlways
                      || (row.stop == ControlCode::Stop::kWhenSecondIsOne && second == 1);
    if (row.second == ControlCode::Second::kSpeed)
        command.speed = static_cast<int>(second);
    if (row.second == ControlCode::Second::kSelectIndex)
        command.select_index = static_cast<int>(second);
    return command;
}

} // namespace Vantor
