// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/KeyboradData.h"

#include <QtCore/QtGlobal>

#include <bitset>
#include <cstddef>
#include <functional>
#include <vector>

namespace Vantor {

/// \brief A code of a device with its parameters.
struct ControlInput
{
    quint32 code = 0;
    quint32 second = 0;
    quint32 third = 0;
};

/// \brief A translated code.
struct ControlCommand
{
    KeyboradData::KeyOperation::Type operation = KeyboradData::KeyOperation::kNone;
    bool is_stop = false;
    int speed = 0;
    int select_index = 0;
};

/// \brief One row of a device's code table.
struct ControlCode
{
    /// What gives the operation.
    enum class Source {
        kRow,           ///< `operation`.
        kRowOrSecond,   ///< `operation`; when the third parameter is 2, the one after it.
        kLast,          ///< The operation that is stopped.
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
        kRelease, ///< Always; unless the operation is continuous, the last one is forgotten first.
        kWhenSecondIsOne,
    };

    quint32 code;
    Source source;
    KeyboradData::KeyOperation::Type operation;
    quint32 key;
    Second second;
    Stop stop;
};

/// \brief The codes of a device, and which of its commands are repeats.
struct ControlTable
{
    enum class Repeats {
        kMoves,             ///< Moves repeat.
        kMovesPairAndStops, ///< 104 and 105 repeat too, and so does a stop in window control.
    };

    const ControlCode *codes;
    std::size_t count;
    Repeats repeats;
};

/// \brief The kind of an operation.
[[nodiscard]] KeyboradData::KeyOperation::KeyOperationMode
OperationKind(KeyboradData::KeyOperation::Type operation);

/// \brief One device: its table, its mode, and the last command it sent.
class CControlDevice
{
public:
    /// The host's function of a key; may be empty.
    using Translate = std::function<KeyboradData::KeyOperation::Type(quint32 key)>;

    enum class Outcome {
        kIgnore,
        kToggleMode,
        kEmit,
    };

    /// \param table must outlive the device.
    explicit CControlDevice(const ControlTable &table) : table_(table) {}

    /// \brief Translate \a input, and remember it if it must be emitted.
    ///
    /// \param command            filled in for kEmit.
    /// \param always_sends_stops no stop is a repeat, and the stop code means what runs instead of
    ///                           the last operation.
    /// \throws what \a translate throws; nothing has changed then.
    [[nodiscard]] Outcome Take(const ControlInput &input, const Translate &translate,
                               bool always_sends_stops, ControlCommand &command);

    /// \brief After the signal of \a command: what follows a stop is no repeat.
    void End(const ControlCommand &command);

    /// \brief The stops of all that runs, which then runs no longer.
    [[nodiscard]] std::vector<ControlCommand> StopAll();

    /// \brief Forget the last command.
    /// \param last_speed that the next command is compared with.
    void Reset(int last_speed);

    [[nodiscard]] bool IsWindowControl() const { return is_window_control_; }
    void SetWindowControl(bool is_on) { is_window_control_ = is_on; }

private:
    using Type = KeyboradData::KeyOperation::Type;

    [[nodiscard]] ControlCommand CommandOf(const ControlCode &row, const ControlInput &input,
                                           const Translate &translate,
                                           bool always_sends_stops) const;
    /// What runs, a move first; where nothing does, the last operation.
    [[nodiscard]] Type Running() const;
    [[nodiscard]] bool IsRepeat(const ControlCommand &command, bool always_sends_stops) const;
    void Note(const ControlCommand &command);

    const ControlTable &table_;
    bool is_window_control_ = false;
    // A command equal to these two is a repeat.
    Type last_operation_ = KeyboradData::KeyOperation::kNone;
    int last_speed_ = -1;
    // What no stop was emitted for yet: the move or zoom that was emitted last …
    Type running_move_ = KeyboradData::KeyOperation::kNone;
    std::bitset<4> running_keys_; // … and those of the keys 112 to 115
};

} // namespace Vantor
