// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentTable.h"

namespace Server {

/// \brief The rows of a CSV file in UTF-8, the titles first. Throws DatabaseError.
[[nodiscard]] IncidentRows ReadIncidentCsv(const QString &path);

/// \brief Row \a number, from 0, of a list that goes on when the \a sample, which has its titles
/// first, is at its end: then every column goes its own way through the sample, and dates by days.
[[nodiscard]] QStringList IncidentSampleRow(const IncidentRows &sample, qint64 number);

/// \brief Fill the list that CreateIncidents() has begun, up to its goal, and make its indexes.
///
/// Each batch is stored when it is added, so an interrupted load continues after the last batch.
/// Nothing happens when the list is ready, or while another process fills it.
/// \param sample may be empty: then only indexes are made, when all rows are there.
void LoadIncidents(CStore &store, const IncidentRows &sample, const IncidentProgress &progress);

} // namespace Server
