// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentWalk.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <string>

namespace Server {

/// \brief Where the next page begins: behind a row, at a moment.
struct IncidentPlace
{
    qint64 moment = 0;
    qint64 id = 0;
};

// The texts that clients send back, signed, so that the server takes only its own. All servers of
// one database take each other's.

[[nodiscard]] QString MomentToken(const QByteArray &secret, qint64 moment);
[[nodiscard]] std::optional<qint64> ReadMomentToken(const QByteArray &secret,
                                                    const std::string &token);

/// A place belongs to the filter and the order that it was given for.
[[nodiscard]] QString PlaceToken(const QByteArray &secret, IncidentPlace place, IncidentOrder order,
                                 const QString &filter);
[[nodiscard]] std::optional<IncidentPlace> ReadPlaceToken(const QByteArray &secret,
                                                          const std::string &token,
                                                          IncidentOrder order,
                                                          const QString &filter);

} // namespace Server
