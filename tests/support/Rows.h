// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QMetaType>
#include <QtTest/QTest>

#include <any>
#include <initializer_list>
#include <tuple>

Q_DECLARE_METATYPE(std::any)

/// \brief A row of a test: its name, which is a sentence, and its columns.
template <typename... Columns> using Row = std::tuple<const char *, Columns...>;

template <typename Type> const char *NameOf(const Type &row)
{
    return row.name;
}

template <typename... Columns> const char *NameOf(const Row<Columns...> &row)
{
    return std::get<0>(row);
}

/// \brief Data rows of a test as values of one type: a Row, or a structure whose first member is
/// `const char *name`.
///
/// \code
/// using Jump = Row<int, bool>;
/// void jumps_data() { AddRows<Jump>({{"past the last page", 9, false}, {"the last", 8, true}}); }
/// void jumps()
/// {
///     const auto &[name, page, is_taken] = FetchRow<Jump>();
///     QCOMPARE(bar.SetCurrentPage(page), is_taken);
/// }
/// \endcode
/// The structure needs no metatype, so it may be in an unnamed namespace. moc refuses a
/// structure among the slots of a class.
template <typename Type> void AddRows(std::initializer_list<Type> rows)
{
    QTest::addColumn<std::any>("row");
    for (const Type &row : rows)
        QTest::newRow(NameOf(row)) << std::any(row);
}

/// \brief The row that the current run of the test function has to check.
template <typename Type> const Type &FetchRow()
{
    const void *const data = QTest::qData("row", qMetaTypeId<std::any>());
    return std::any_cast<const Type &>(*static_cast<const std::any *>(data));
}
