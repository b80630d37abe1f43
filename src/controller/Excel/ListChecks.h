// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/CellRange.h"

#include <QtCore/QByteArray>

#include <map>
#include <string>
#include <vector>

namespace Vantor {

// A list of items that is offered in a range. Equal lists share one text.
struct ListCheck
{
    CellRange cells;
    const std::string *list = nullptr; // items between commas, as a formula holds them
};

// `checks` with ranges of one list that touch and have a side in common made one. The order stays
// that of the first of each.
std::vector<ListCheck> JoinChecks(std::vector<ListCheck> checks);

// The validations of a file: elements, how many they are, and how many checks are not in them.
struct ListElements
{
    QByteArray xml;
    int count = 0;
    int left_out = 0;
};

// `checks` as at most `most` elements. Ranges of one list share one, as many as it may name.
ListElements ElementsOf(const std::vector<ListCheck> &checks, int most);

// The list validations of a sheet. As many as libxlsxwriter can count stay as they are; when there
// are more, neighbours are joined, as spreadsheets do when they save.
class CListChecks
{
public:
    static constexpr std::size_t kMost = 255; // libxlsxwriter 1.1.4 counts them in 8 bits

    void Add(const CellRange &cells, const std::string &list);
    // The checks to write; their lists are there as long as this object.
    [[nodiscard]] std::vector<ListCheck> Take();

private:
    std::map<std::string, int> lists_; // the texts that checks_ point to
    std::vector<ListCheck> checks_;
    std::size_t join_at_ = 2 * kMost; // grows with what cannot be joined, so joining stays cheap
    std::size_t added_ = 0;
};

} // namespace Vantor
