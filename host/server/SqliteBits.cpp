// SPDX-License-Identifier: MIT
#include "SqliteBits.h"

#include <sqlite3.h>

#include <QtCore/QVariant>
#include <QtSql/QSqlDriver>

namespace Server {
namespace {

constexpr int kBitsPerByte = 8;

void HasBit(sqlite3_context *context, int /*count*/, sqlite3_value **values)
{
    const sqlite3_int64 number = sqlite3_value_int64(values[0]);
    const auto *const bytes = static_cast<const unsigned char *>(sqlite3_value_blob(values[1]));
    const bool is_inside = number >= 0 && number / kBitsPerByte < sqlite3_value_bytes(values[1]);
    sqlite3_result_int(context,
                       is_inside ? bytes[number / kBitsPerByte] >> number % kBitsPerByte & 1 : 0);
}

} // namespace

void AddHasBit(const QSqlDriver &driver)
{
    const QVariant handle = driver.handle();
    sqlite3_create_function(*static_cast<sqlite3 *const *>(handle.constData()), "has_bit", 2,
                            SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr, &HasBit,
                            nullptr, nullptr);
}

} // namespace Server
