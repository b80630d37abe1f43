// SPDX-License-Identifier: MIT
#include "list/IncidentList.h"

#include <QtCore/QLocale>

#include <algorithm>
#include <cmath>

namespace Client {
namespace {

bool ReadNumber(const QString &text, double &number)
{
    bool is_number = false;
    number = QLocale::c().toDouble(text, &is_number);
    return is_number && std::isfinite(number); // "nan" has no place among numbers
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

} // namespace

CIncidentList::CIncidentList(QVector<IncidentColumn> columns) : columns_(std::move(columns))
{
    if (!columns_.isEmpty())
        base_rows_ = columns_.constFirst().text_of_row.size();
    rows_ = base_rows_;
    for (const IncidentColumn &column : qAsConst(columns_)) {
        Q_ASSERT(column.outside >= 0 || column.text_of_row.size() == base_rows_);
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
            const auto text_index = static_cast<size_t>(column.TextIndex(int(row)));
            found[row] = std::max(found[row], is_match[text_index]);
        }
    }
    return found;
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
