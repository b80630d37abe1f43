// SPDX-License-Identifier: MIT
#pragma once

#include "StoreAddress.h"

#include <QtCore/QString>

namespace Server {

/// \brief \a statement for \a engine: marks like "{id}" become what the table in Dialect.cpp says.
///
/// Statements are written for both engines at once, with "?" for values. Only where the engines
/// have no words in common there is a mark. Values never pass through here.
[[nodiscard]] QString Translated(const QString &statement, Engine engine);

} // namespace Server
