// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CustomizeColumnButton/ColumnInfo.h"

#include <QtCore/QString>
#include <QtCore/QVector>

#include <deque>
#include <utility>
#include <vector>

namespace Vantor {

/// \brief The server's answer to a request for a column list.
struct ColumnAnswer
{
    enum class Kind { Read, Written, Failed };

    Kind kind = Kind::Read;
    bool is_write = false;       ///< of a failure: which request failed
    QString layout;              ///< of a read: the stored text
    std::pair<int, int> error{}; ///< of a failure: module and code
};

/// \brief What the column button has to do next.
struct ColumnAction
{
    enum class Kind {
        Read,    ///< ask the server for the stored text
        Write,   ///< store the columns
        Show,    ///< bring the drop-down up to date with the lists and the phase
        Message, ///< show the error
        Settle,  ///< the table may change its layout
    };

    Kind kind = Kind::Show;
    QVector<CColumnInfo> columns{};
    std::pair<int, int> error{};
};

/// \brief Keeps the columns that a user sees and those that the server keeps in agreement: events
/// come in, actions go out. It has no widget and sends nothing itself.
///
/// Answers come in the order of the requests. While the user holds a row with the mouse they wait,
/// because the rows below it must not change. All lists are in the host's order.
class CColumnSync
{
public:
    enum class Phase {
        Stopped,  ///< not begun, or ended: nothing is asked and nothing can be changed
        Reading,  ///< a read is on its way; a change now would replace an unknown list
        Unread,   ///< the read failed: the same, until another one succeeds
        Ready,    ///< the server holds the confirmed list
        Doubtful, ///< a write failed, perhaps after it was stored: read again when opened next
    };
    using Actions = std::vector<ColumnAction>;

    /// \brief Begin with the host's \a columns and read the user's choice.
    Actions OnStart(const QVector<CColumnInfo> &columns);
    /// \brief Drop outstanding requests. The columns stay as they are.
    Actions OnStop();
    /// \brief The drop-down opens, or the user wants to try again.
    Actions OnOpened();
    /// \brief The user has changed the list to \a columns.
    Actions OnChanged(const QVector<CColumnInfo> &columns);
    Actions OnAnswer(const ColumnAnswer &answer, bool is_dragging);
    /// \brief The user has let go of a row.
    Actions OnDragEnded();

    [[nodiscard]] Phase CurrentPhase() const { return phase_; }
    [[nodiscard]] bool CanBeChanged() const
    {
        return phase_ == Phase::Ready || phase_ == Phase::Doubtful;
    }
    [[nodiscard]] const QVector<CColumnInfo> &Initial() const { return initial_; }
    [[nodiscard]] const QVector<CColumnInfo> &Current() const { return current_; }
    /// \brief The list that the server confirmed last: what a refused change goes back to.
    [[nodiscard]] const QVector<CColumnInfo> &Confirmed() const { return confirmed_; }
    /// \brief Changes with OnStart() and OnStop(): actions from before mean nothing any more.
    [[nodiscard]] int Generation() const { return generation_; }

private:
    struct Request
    {
        bool is_write = false;
        QVector<CColumnInfo> columns;
    };

    void Restart();
    [[nodiscard]] Actions Read();
    void Apply(const ColumnAnswer &answer, Actions &actions);
    void ApplyFailure(const ColumnAnswer &answer, Actions &actions);
    Request TakeRequest(bool is_write);
    [[nodiscard]] bool IsWaiting(bool is_write) const;

    Phase phase_ = Phase::Stopped;
    QVector<CColumnInfo> initial_;
    QVector<CColumnInfo> current_;
    QVector<CColumnInfo> confirmed_;
    std::deque<Request> requests_;       // not answered yet, oldest first
    std::deque<ColumnAnswer> held_back_; // they came while a row was dragged
    int generation_ = 0;
};

} // namespace Vantor
