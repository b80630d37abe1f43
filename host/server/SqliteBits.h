// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

QT_BEGIN_NAMESPACE
class QSqlDriver;
QT_END_NAMESPACE

namespace Server {

/// \brief Gives SQLite the function has_bit(number, bits): whether the bit of that number is set in
/// a blob, counted like get_bit() of PostgreSQL; beyond its end no bit is. SQLite's own functions
/// take three times as long for it.
void AddHasBit(const QSqlDriver &driver);

} // namespace Server
