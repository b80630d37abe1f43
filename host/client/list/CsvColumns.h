// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>

#include <vector>

namespace Client {

/// \brief Takes the fields of a CSV file one by one and makes an incident list of them.
///
/// Texts stay bytes until the end: only then is it known whether the whole file is UTF-8.
class CCsvColumns
{
public:
    // Neither throws: the CSV library that calls them is C.
    void AppendField(const char *bytes, size_t length) noexcept;
    void EndRow() noexcept;

    [[nodiscard]] bool IsEmpty() const { return !has_titles_; }
    [[nodiscard]] bool HasFailed() const { return failure_ != Failure::None; }
    /// \brief Why the file is refused; "%1" is replaced with its name.
    [[nodiscard]] QString Error() const;

    /// \brief The list; its first row has become the titles. \a guessed_encoding becomes the name
    /// of the encoding when the texts are not UTF-8.
    [[nodiscard]] IncidentListPtr TakeList(QString &guessed_encoding);

private:
    enum class Failure { None, TooManyColumns, TooManyRows, OutOfMemory };

    struct Column
    {
        // The index of `text` in `texts`, where it is added if need be.
        int IndexOf(const QByteArray &text);
        void Append(int row, const QByteArray &text);

        QByteArray title;
        QHash<QByteArray, int> index_of_text;
        QVector<QByteArray> texts;
        QVector<int> text_of_row; // from first_row to the last row that has a cell here
        int first_row = 0;
    };

    [[nodiscard]] Column &NextColumn();

    std::vector<Column> columns_;
    size_t next_column_ = 0;
    bool has_titles_ = false;
    int rows_ = 0;
    Failure failure_ = Failure::None;
};

} // namespace Client
