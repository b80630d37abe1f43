// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

#include <memory>
#include <vector>

namespace Client {

/// The most rows a list may have: a table of so many rows still counts its pixels in an int.
constexpr int kMaximumRows = 10000000;

/// \brief One column: each text it holds once, and for each row which one it is.
///
/// If only some rows have a cell in a column, the column keeps the range from the first to the
/// last of these rows, so one long row does not make the whole list wide.
struct IncidentColumn
{
    /// \return the index into \a texts of the cell in \a row.
    [[nodiscard]] int TextIndex(int row) const
    {
        const int at = row - first_row;
        return at >= 0 && at < text_of_row.size() ? text_of_row.at(at) : outside;
    }

    QString title;
    QVector<QString> texts;
    QVector<int> text_of_row; ///< index into \a texts, from \a first_row on
    int first_row = 0;
    int outside = -1; ///< index into \a texts of the rows that \a text_of_row does not hold
};

/// \brief A list of texts in rows and columns that never changes, so that views, sorts and exports
/// can share one.
///
/// Reports repeat the same few airports, aircraft and species. Each text is kept once a column, so
/// a search looks at every text once and not at every cell. A repeated list keeps its texts and row
/// numbers once.
class CIncidentList
{
public:
    /// \param columns the first of them has a cell in each row.
    explicit CIncidentList(QVector<IncidentColumn> columns);

    [[nodiscard]] int RowCount() const { return rows_; }
    [[nodiscard]] int ColumnCount() const { return columns_.size(); }
    [[nodiscard]] const QString &Title(int column) const { return columns_.at(column).title; }
    [[nodiscard]] const QString &Text(int row, int column) const;
    /// \brief Each text that \a column holds, once.
    [[nodiscard]] const QVector<QString> &Texts(int column) const
    {
        return columns_.at(column).texts;
    }
    /// \brief Which of Texts() is the cell.
    [[nodiscard]] int TextIndex(int row, int column) const
    {
        return columns_.at(column).TextIndex(BaseRow(row));
    }
    /// \brief Whether every text of \a column that is not empty is a number.
    [[nodiscard]] bool IsNumeric(int column) const { return are_numbers_.at(column); }

    /// \brief The same list, cut or repeated to \a rows rows; null when there is nothing to repeat.
    [[nodiscard]] std::shared_ptr<const CIncidentList> Resized(int rows) const;

    /// \brief For each row before any repetition whether one of its cells holds \a text, with
    /// regard to case as in the window's list.
    [[nodiscard]] std::vector<char> FindText(const QString &text) const;

    /// \brief The number of rows before any repetition.
    [[nodiscard]] int BaseRowCount() const { return base_rows_; }
    /// \brief The row before any repetition that \a row shows.
    [[nodiscard]] int BaseRow(int row) const { return row % base_rows_; }

private:
    QVector<IncidentColumn> columns_;
    QVector<bool> are_numbers_;
    int base_rows_ = 0;
    int rows_ = 0;
};

using IncidentListPtr = std::shared_ptr<const CIncidentList>;

/// \brief Rows of a list in the order in which a view shows them. Copies are cheap and keep what
/// they show.
struct IncidentRows
{
    IncidentListPtr list;
    QVector<int> rows;
    QString filter = {};       ///< the text they were searched by; empty: they are all rows
    QVector<int> columns = {}; ///< those that are shown, in the user's order; empty: all
};

/// \brief The rows of \a list that hold \a text in some cell, in the list's order; all when it is
/// empty.
[[nodiscard]] IncidentRows FindRows(const IncidentListPtr &list, const QString &text);

} // namespace Client
