// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/TextTable.h>

#include <QtCore/QString>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Ravel {

class CTextBlock;

} // namespace Ravel

namespace Vantor {

/// \brief The texts that a column holds, each once, and the texts of another column in their rows.
struct ColumnTexts
{
    std::vector<QString> texts;               ///< in alphabetical order, without regard to case
    std::vector<QString> mains;               ///< of the other column, in no order
    std::vector<std::pair<int, int>> related; ///< indexes of a text and a main of a row, each once
};

/// \brief Counts the texts of a column while rows are added and removed.
class CColumnCounter
{
public:
    /// \param column       whose texts are counted.
    /// \param main_column  the other column; -1 counts no mains.
    explicit CColumnCounter(int column = -1, int main_column = -1);

    [[nodiscard]] int Column() const { return column_; }
    [[nodiscard]] int MainColumn() const { return main_column_; }

    void Add(const Ravel::CTextBlock &row) { Count(row, 1); }
    /// \brief Take away a row that was added, with the texts that it had then.
    void Remove(const Ravel::CTextBlock &row) { Count(row, -1); }

    /// \brief What the rows hold now. Takes time by the number of different texts.
    [[nodiscard]] ColumnTexts Texts() const;

private:
    // Texts of one column by number, and how many rows have each.
    struct CCounted
    {
        int Number(const Ravel::CTextBlock &row, int column);
        [[nodiscard]] QString Text(int number) const;

        Ravel::CTextTable latin; // even numbers
        Ravel::CTextTable wide;  // odd ones: texts with a character beyond Latin-1
        std::string buffer;
    };

    void Count(const Ravel::CTextBlock &row, int by);

    int column_;
    int main_column_;
    CCounted own_;
    CCounted mains_;
    std::unordered_map<quint64, int> rows_of_pair_; // of the numbers of a text and its main
};

} // namespace Vantor
