// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QMetaType>
#include <QtTest/QTest>

#include <any>
#include <initializer_list>

Q_DECLARE_METATYPE(std::any)

/// \brief Data rows of a test as values of one structure, whose first member is `const char *name`.
///
/// \code
/// struct Jump { const char *name; int page; bool is_taken; };
/// void jumps_data() { AddRows<Jump>({{"past the last page", 9, false}, {"the last page", 8,
/// true}}); } void jumps()
/// {
///     const auto &row = FetchRow<Jump>();
///     QCOMPARE(bar.SetCurrentPage(row.page), row.is_taken);
/// }
/// \endcode
/// The structure needs no metatype, so it may be in an unnamed namespace. moc accepts none among
/// the slots of a class.
template <typename Row> void AddRows(std::initializer_list<Row> rows)
{
    QTest::addColumn<std::any>("row");
    for (const Row &row : rows)
        QTest::newRow(row.name) << std::any(row);
}

/// \brief The row that the current run of the test function has to check.
template <typename Row> const Row &FetchRow()
{
    const void *const data = QTest::qData("row", qMetaTypeId<std::any>());
    return std::any_cast<const Row &>(*static_cast<const std::any *>(data));
}
