// SPDX-License-Identifier: MIT
#pragma once

#include "StoreAddress.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <vector>

namespace Server {

class CStore;

/// Rows of the incident list: each has as many cells as there are titles, or fewer.
using IncidentRows = std::vector<QStringList>;

/// \brief What the store says about its incident list.
///
/// The list only grows: a row is neither changed nor removed. Rows have the numbers 1 to row_count
/// without gaps, in the order in which they were stored, so a number says how long the list was
/// then.
struct IncidentState
{
    qint64 row_count = 0;
    qint64 goal = 0;       ///< how many rows the load that filled it had to add
    bool is_ready = false; ///< not while the list is being loaded: it has no indexes yet
    QByteArray secret;     ///< signs the texts that clients send back
};

[[nodiscard]] IncidentState ReadIncidentState(CStore &store);
[[nodiscard]] QStringList ReadIncidentTitles(CStore &store);

/// \brief The list's part of the migrations; a list of the first version gets its indexes.
void MigrateIncidents(CStore &store);

/// Called with a number of rows that are done, and of all of them.
using IncidentProgress = std::function<void(const char *what, qint64 done, qint64 total)>;

/// \brief A list of PostgreSQL that was made before it had columns for the keys of its orders gets
/// them.
void MigrateIncidentKeys(CStore &store);

/// \brief Begin a list: tables without indexes, which AddIncidents() fills quickly.
/// \a titles has 1 to kMaximumIncidentColumns texts; \a goal is the number of rows to come; an
/// interrupted load has fewer. It is called in a transaction. Throws DatabaseError.
void CreateIncidents(CStore &store, const QStringList &titles, qint64 goal);
/// \brief Add rows to a list that is not finished, in one transaction.
void AddIncidents(CStore &store, const IncidentRows &rows);
/// \brief Make the indexes; then the list is ready. It can be called again after it was broken off.
void FinishIncidents(CStore &store, const IncidentProgress &progress = {});

/// \brief Append rows to a list that is ready, in one transaction. \return how many it has then.
qint64 AppendIncidents(CStore &store, const IncidentRows &rows);

/// \brief Up to \a count rows behind the one with the number \a after.
[[nodiscard]] IncidentRows ReadIncidentRows(CStore &store, qint64 after, int count);

constexpr int kMaximumIncidentColumns = 100;

/// \brief \a text as the list keeps it: U+0000 and halves of characters become U+FFFD, because
/// PostgreSQL stores neither. Filters are treated likewise, so that they find such texts.
[[nodiscard]] QString StoredCell(QString text);

/// \brief SQL that is the same in tables, indexes and questions.
///
/// Cells are ordered by the number they begin with (0 if they begin with no number), then by their
/// text, without regard to case, by code points. The first 256 characters decide, because
/// PostgreSQL limits the size of an index entry. SQLite reads them from the index of an expression;
/// PostgreSQL would work such an expression out for each row that it steps over, so it has columns
/// for them.
[[nodiscard]] QString IncidentNumber(Engine engine, int column);
[[nodiscard]] QString IncidentText(Engine engine, int column);
/// \brief The cells of a row as one text, in lower case, with U+001F between them.
[[nodiscard]] QString IncidentCells(int columns);

} // namespace Server
