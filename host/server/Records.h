// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"

#include <QtCore/QString>

namespace Server {

class CStore;

// What the database keeps for clients. All of it is called on the store's thread.

/// \brief The layout text that \a account has stored, empty when there is none.
[[nodiscard]] Reply ReadLayout(CStore &store, qint64 account, const Request &request);
/// \brief Store a layout text for \a account; the last one wins. Each account has a quota.
[[nodiscard]] Reply WriteLayout(CStore &store, qint64 account, const Request &request);

/// \brief One page of the incident list, filtered and sorted.
[[nodiscard]] Reply ReadIncidents(CStore &store, const Request &request);

/// \brief Fill a database that has no account: sample accounts, and the incidents of the CSV file
/// \a path. Nothing happens to one that has. Throws when the file cannot be read.
void Seed(CStore &store, const QString &path);

} // namespace Server
