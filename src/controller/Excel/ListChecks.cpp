// SPDX-License-Identifier: MIT
#include "controller/Excel/ListChecks.h"

#include <xlsxwriter.h>

#include <QtCore/QXmlStreamWriter>

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>
#include <utility>

namespace Vantor {
namespace {

// Makes one range of two that follow each other in rows and have the same columns.
bool JoinRows(ListCheck &above, const ListCheck &below)
{
    const CellRange &a = above.cells;
    const CellRange &b = below.cells;
    const bool is_same =
        above.list == below.list && a.first_col == b.first_col && a.last_col == b.last_col;
    if (!is_same || b.first_row > a.last_row + 1)
        return false;
    above.cells.last_row = std::max(a.last_row, b.last_row);
    return true;
}

bool JoinColumns(ListCheck &left, const ListCheck &right)
{
    const CellRange &a = left.cells;
    const CellRange &b = right.cells;
    const bool is_same =
        left.list == right.list && a.first_row == b.first_row && a.last_row == b.last_row;
    if (!is_same || b.first_col > a.last_col + 1)
        return false;
    left.cells.last_col = std::max(a.last_col, b.last_col);
    return true;
}

// A range and the place of its first part among those given.
using Placed = std::pair<ListCheck, std::size_t>;

template <class KeyOf, class Join>
void JoinSorted(std::vector<Placed> &checks, KeyOf key_of, Join join)
{
    std::sort(checks.begin(), checks.end(), [&key_of](const Placed &a, const Placed &b) {
        return key_of(a.first) < key_of(b.first);
    });
    std::size_t kept = 0;
    for (std::size_t i = 1; i < checks.size(); ++i) {
        if (join(checks[kept].first, checks[i].first))
            checks[kept].second = std::min(checks[kept].second, checks[i].second);
        else
            checks[++kept] = checks[i];
    }
    checks.resize(std::min(checks.size(), kept + 1));
}

QString NameOf(const CellRange &cells)
{
    std::array<char, LXW_MAX_CELL_RANGE_LENGTH> name{};
    const auto row = [](int of) { return static_cast<lxw_row_t>(of); };
    const auto column = [](int of) { return static_cast<lxw_col_t>(of); };
    if (cells.IsOneCell())
        lxw_rowcol_to_cell(name.data(), row(cells.first_row), column(cells.first_col));
    else
        lxw_rowcol_to_range(name.data(), row(cells.first_row), column(cells.first_col),
                            row(cells.last_row), column(cells.last_col));
    return QString::fromLatin1(name.data());
}

} // namespace

std::vector<ListCheck> JoinChecks(std::vector<ListCheck> checks)
{
    std::vector<Placed> placed;
    placed.reserve(checks.size());
    for (std::size_t i = 0; i < checks.size(); ++i)
        placed.emplace_back(checks[i], i);
    JoinSorted(
        placed,
        [](const ListCheck &check) {
            return std::tuple(check.list, check.cells.first_col, check.cells.last_col,
                              check.cells.first_row);
        },
        JoinRows);
    JoinSorted(
        placed,
        [](const ListCheck &check) {
            return std::tuple(check.list, check.cells.first_row, check.cells.last_row,
                              check.cells.first_col);
        },
        JoinColumns);
    std::sort(placed.begin(), placed.end(),
              [](const Placed &a, const Placed &b) { return a.second < b.second; });
    checks.clear();
    std::transform(placed.begin(), placed.end(), std::back_inserter(checks),
                   [](const Placed &check) { return check.first; });
    return checks;
}

ListElements ElementsOf(const std::vector<ListCheck> &checks, int most)
{
    constexpr int kMostAreas = 8000; // characters, as a formula may have
    struct Areas
    {
        const std::string *list = nullptr;
        QString areas; // as a file has them: "A1 C3:C5"
    };
    ListElements elements;
    std::vector<Areas> all;
    std::map<const std::string *, std::size_t> open; // the element of a list that may have room
    for (const ListCheck &check : checks) {
        const QString name = NameOf(check.cells);
        const auto [known, is_new] = open.try_emplace(check.list, all.size());
        if (!is_new && all[known->second].areas.size() + 1 + name.size() <= kMostAreas) {
            all[known->second].areas += QLatin1Char(' ') + name;
        } else if (all.size() < static_cast<std::size_t>(most)) {
            known->second = all.size();
            all.push_back({check.list, name});
        } else {
            ++elements.left_out;
            if (is_new)
                open.erase(known);
        }
    }
    QXmlStreamWriter writer(&elements.xml); // what libxlsxwriter writes for one
    for (const Areas &areas : all) {
        writer.writeStartElement(QStringLiteral("dataValidation"));
        writer.writeAttribute(QStringLiteral("type"), QStringLiteral("list"));
        for (const char *const flag : {"allowBlank", "showInputMessage", "showErrorMessage"})
            writer.writeAttribute(QLatin1String(flag), QStringLiteral("1"));
        writer.writeAttribute(QStringLiteral("sqref"), areas.areas);
        const QString list = QString::fromStdString(*areas.list);
        writer.writeTextElement(QStringLiteral("formula1"),
                                QLatin1Char('"') + list + QLatin1Char('"'));
        writer.writeEndElement();
    }
    elements.count = static_cast<int>(all.size());
    return elements;
}

void CListChecks::Add(const CellRange &cells, const std::string &list)
{
    const std::string &shared = lists_.try_emplace(list, 0).first->first;
    checks_.push_back({cells, &shared});
    ++added_;
    if (checks_.size() < join_at_)
        return;
    checks_ = JoinChecks(std::move(checks_));
    join_at_ = 2 * std::max(checks_.size(), kMost);
}

std::vector<ListCheck> CListChecks::Take()
{
    if (added_ > kMost)
        checks_ = JoinChecks(std::move(checks_));
    return std::exchange(checks_, {});
}

} // namespace Vantor
