// SPDX-License-Identifier: MIT
#pragma once

namespace Client {

class CIncidentList;

/// \brief Which columns of a list the user filters by; -1 each when it has too few.
struct TypeColumns
{
    int range = -1; ///< from the earliest to the latest
    int main = -1;
    int sub = -1;
};

/// \brief Find a column of types and one of sub types in any list.
///
/// Best is a pair where each sub type has one main type, as each airport is in one state;
/// otherwise the two columns with the fewest different texts are taken.
[[nodiscard]] TypeColumns FindTypeColumns(const CIncidentList &list);

} // namespace Client
