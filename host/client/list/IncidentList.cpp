// SPDX-License-Identifier: MIT
#include "list/IncidentList.h"

#include <QtCore/QCollator>
#include <QtCore/QLocale>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace Client {
namespace {

bool ReadNumber(const QString &text, double &number)
{
    bool is_number = false;
    number = QLocale::c().toDouble(text, &is_number);
    return is_number && std::isfinite(number); // "nan" has no place in an order
}

bool AreNumbers(const QVector<QString> &texts)
{
    double number = 0;
    bool has_number = false;
    for (const QString &text : texts) {
        if (text.isEmpty())
            continue;
        if (!ReadNumber(text, number))
            return false;
        has_number = true;
    }
    return has_number;
}

// The rank of each key in ascending order; equal keys share one.
template <class Key> std::vector<int> RankKeys(const std::vector<Key> &keys)
{
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&keys](int a, int b) {
        return keys[static_cast<size_t>(a)] < keys[static_cast<size_t>(b)];
    });
    std::vector<int> ranks(keys.size());
    int rank = 0;
    for (size_t i = 0; i < order.size(); ++i) {
        const auto current = static_cast<size_t>(order[i]);
        if (i > 0 && keys[static_cast<size_t>(order[i - 1])] < keys[current])
            ++rank;
        ranks[current] = rank;
    }
    return ranks;
}

std::vector<int> RankNumbers(const QVector<QString> &texts)
{
    std::vector<double> keys;
    keys.reserve(static_cast<size_t>(texts.size()));
    for (const QString &text : texts) {
        double number = 0;
        keys.push_back(ReadNumber(text, number) ? number
                                                : -std::numeric_limits<double>::infinity());
    }
    return RankKeys(keys);
}

std::vector<int> RankTexts(const QVector<QString> &texts)
{
    QCollator collator{QLocale()};
    collator.setNumericMode(true); // "B-52" before "B-727"
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<size_t>(texts.size()));
    for (const QString &text : texts)
        keys.push_back(collator.sortKey(text));
    return RankKeys(keys);
}

} // namespace

CIncidentList::CIncidentList(QVector<IncidentColumn> columns) : columns_(std::move(columns))
{
    if (!columns_.isEmpty())
        base_rows_ = columns_.constFirst().text_of_row.size();
    rows_ = base_rows_;
    for (const IncidentColumn &column : qAsConst(columns_)) {
        Q_ASSERT(column.text_of_row.size() == base_rows_);
        are_numbers_.append(AreNumbers(column.texts));
    }
}

const QString &CIncidentList::Text(int row, int column) const
{
    return Texts(column).at(TextIndex(row, column));
}

IncidentListPtr CIncidentList::Resized(int rows) const
{
    if (base_rows_ == 0)
        return nullptr;
    auto list = std::make_shared<CIncidentList>(*this);
    list->rows_ = rows;
    return list;
}

std::vector<char> CIncidentList::FindText(const QString &text) const
{
    std::vector<char> found(static_cast<size_t>(base_rows_), 0);
    std::vector<char> is_match;
    for (const IncidentColumn &column : columns_) {
        is_match.clear();
        for (const QString &candidate : column.texts)
            is_match.push_back(candidate.contains(text) ? 1 : 0);
        if (std::find(is_match.begin(), is_match.end(), 1) == is_match.end())
            continue;
        for (size_t row = 0; row < found.size(); ++row) {
            const auto text_index = static_cast<size_t>(column.text_of_row.at(int(row)));
            found[row] = std::max(found[row], is_match[text_index]);
        }
    }
    return found;
}

std::vector<int> CIncidentList::Ranks(int column) const
{
    const IncidentColumn &data = columns_.at(column);
    const std::vector<int> ranks =
        IsNumeric(column) ? RankNumbers(data.texts) : RankTexts(data.texts);
    std::vector<int> rank_of_row;
    rank_of_row.reserve(static_cast<size_t>(base_rows_));
    for (const int text : data.text_of_row)
        rank_of_row.push_back(ranks[static_cast<size_t>(text)]);
    return rank_of_row;
}

IncidentRows FindRows(const IncidentListPtr &list, const QString &text)
{
    IncidentRows found{list, {}, text};
    const std::vector<char> is_match = text.isEmpty() ? std::vector<char>() : list->FindText(text);
    for (int row = 0; row < list->RowCount(); ++row) {
        if (text.isEmpty() || is_match[static_cast<size_t>(list->BaseRow(row))])
            found.rows.append(row);
    }
    return found;
}

} // namespace Client
