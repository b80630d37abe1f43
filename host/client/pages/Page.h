// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtWidgets/QWidget>

#include <optional>

namespace Vantor {
class CListExport;
}

namespace Client {

/// \brief How many rows a list has.
struct RowTotal
{
    int rows = 0;
    bool is_exact = true; ///< false: there are more
};

/// \brief One page of the client beside the list, built when the user first comes to it.
class CPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// \brief Show what belongs to \a list. Called once the page is built and for each list after.
    virtual void SetList(const IncidentListPtr &list) { Q_UNUSED(list) }
    /// \brief Take over what a style sheet cannot give, such as icons.
    virtual void OnThemeChanged() {}
    /// \brief Items of a long work that would be lost if the program ended now, for the user; empty
    /// while nothing is lost.
    [[nodiscard]] virtual QStringList WorkLeft() const { return {}; }
    /// \brief Whether such a work runs; SignalWork() reports its end.
    [[nodiscard]] virtual bool IsWorking() const { return false; }
    /// \brief Ask that work to end soon; SignalWork() reports when it has.
    virtual void StopWork() {}
    /// \brief Put the page into the state in which a picture shows it best, without waiting.
    virtual void PrepareForPicture() {}
    /// \brief Whether the page still waits for its contents, from a server for example.
    [[nodiscard]] virtual bool IsLoading() const { return false; }

    /// \brief The rows of the list that the page shows, on all its pages, for an export; without a
    /// value it has no list of its own.
    [[nodiscard]] virtual std::optional<RowTotal> Rows() const { return {}; }
    /// \brief Let \a job export these rows, and the columns that the user sees.
    virtual void SetRows(Vantor::CListExport &job) { Q_UNUSED(job) }

Q_SIGNALS:
    /// A short text for the status bar.
    void SignalMessage(const QString &text);
    /// The progress of a long work, as one line; empty when the work has ended.
    void SignalWork(const QString &text);
};

} // namespace Client
