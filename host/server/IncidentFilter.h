// SPDX-License-Identifier: MIT
#pragma once

#include "StoreAddress.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace Server {

/// \brief Selects the rows of which one cell contains a text, without regard to the case of the
/// letters A to Z.
struct IncidentFilter
{
    QString text;        ///< empty: every row passes
    QString condition;   ///< SQL on the columns of "incident", with "AND" before it; may be empty
    QVariantList values; ///< of the condition
    QString trigrams;    ///< for SQLite's text index, which then names candidates; empty: no use
    bool is_indexed = true; ///< there is an index that helps
};

[[nodiscard]] IncidentFilter MakeIncidentFilter(Engine engine, int columns, const QString &text);

} // namespace Server
