// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/CellRange.h"

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

// A list that is offered in one or more ranges, which one validation holds.
struct ListAreas
{
    CellRange first;
    const std::string *list = nullptr;
    std::string areas; // all of them as a file has them: "A1 C3:C5"
    int ranges = 1;
};

// `checks` with ranges of one list that touch and have a side in common made one. The order stays
// that of the first of each.
std::vector<ListCheck> JoinChecks(std::vector<ListCheck> checks);

// `checks` with ranges of one list in one validation each, as many as its areas hold.
std::vector<ListAreas> PackChecks(const std::vector<ListCheck> &checks);

// The list validations of a sheet. As many as libxlsxwriter can count stay as they are; when there
// are more, neighbours are joined, as spreadsheets do when they save, and those that are no
// neighbours share validations.
class CListChecks
{
public:
    static constexpr std::size_t kMost = 255;     // libxlsxwriter 1.1.4 counts them in 8 bits
    static constexpr std::size_t kMostAreas = 27; // characters, in its buffer

    void Add(const CellRange &cells, const std::string &list);
    // Those to write, at most kMost.
    [[nodiscard]] std::vector<ListAreas> Take();
    // How many ranges Take() had to leave out.
    [[nodiscard]] int LeftOut() const { return left_out_; }

private:
    std::map<std::string, int> lists_; // the texts that checks_ point to
    std::vector<ListCheck> checks_;
    std::size_t join_at_ = 2 * kMost; // grows with what cannot be joined, so joining stays cheap
    std::size_t added_ = 0;
    int left_out_ = 0;
};

} // namespace Vantor
