// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QMetaType>
#include <QtTest/QTest>

#include <any>
#include <tuple>
#include <vector>

Q_DECLARE_METATYPE(std::any)

/// \brief A row of a test: its name, which is a sentence, and its columns.
template <typename... Columns> using Row = std::tuple<const char *, Columns...>;

/// \brief The rows of a test.
template <typename... Columns> using Rows = std::vector<Row<Columns...>>;

/// \brief Give \a rows to a test as its data.
///
/// \code
/// // typed, is_taken
/// const Rows<int, bool> kJumpRows = {{"past the last page", 9, false}, {"the last", 8, true}};
///
/// void jumps_data() { AddRows(kJumpRows); }
/// void jumps()
/// {
///     const auto &[name, page, is_taken] = FetchRow(kJumpRows);
///     QCOMPARE(bar.SetCurrentPage(page), is_taken);
/// }
/// \endcode
/// The columns need no metatype.
template <typename Type> void AddRows(const std::vector<Type> &rows)
{
    QTest::addColumn<std::any>("row");
    for (const Type &row : rows)
        QTest::newRow(std::get<0>(row)) << std::any(row);
}

/// \brief The row that the current run of the test function has to check.
template <typename Type> const Type &FetchRow(const std::vector<Type> & /*rows*/ = {})
{
    const void *const data = QTest::qData("row", qMetaTypeId<std::any>());
    return std::any_cast<const Type &>(*static_cast<const std::any *>(data));
}
