// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentTable.h"
#include "Message.h"

#include <QtCore/QString>

namespace Server {

class CIncidentPages;
class CStore;

// What the database keeps for clients. All of it is called on the store's thread.

/// \brief The layout text that \a account has stored, or an empty text.
[[nodiscard]] Reply ReadLayout(CStore &store, qint64 account, const Request &request);
/// \brief Store a layout text for \a account; the last one wins. Each account has a quota.
[[nodiscard]] Reply WriteLayout(CStore &store, qint64 account, const Request &request);

/// \brief One page of the incident list, filtered and sorted.
[[nodiscard]] Reply ReadIncidents(CIncidentPages &pages, CStore &store, const Request &request);
/// \brief Append rows to the incident list.
[[nodiscard]] Reply WriteIncidents(CStore &store, const Request &request);

/// \brief Fill a database that has no account: sample accounts, and a list of \a rows incidents
/// made from the CSV file \a path; 0: as many as the file has. A list that is half filled is
/// completed. Nothing else happens to a database that has accounts. Throws when the file cannot be
/// read.
void Seed(CStore &store, const QString &path, qint64 rows, const IncidentProgress &progress);

} // namespace Server
