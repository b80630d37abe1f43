// SPDX-License-Identifier: MIT
#include "list/TypeColumns.h"

#include "list/IncidentList.h"

#include <QtCore/QDate>

#include <algorithm>

namespace Client {
namespace {

constexpr int kLeastColumns = 3;
constexpr int kMostTypes = 500; // more are no types

bool IsType(const CIncidentList &list, int column)
{
    const int texts = list.Texts(column).size();
    return texts > 1 && texts <= kMostTypes && !list.IsNumeric(column);
}

bool IsDate(const CIncidentList &list, int column)
{
    const QVector<QString> &texts = list.Texts(column);
    return !texts.isEmpty() && std::all_of(texts.cbegin(), texts.cend(), [](const QString &text) {
        return text.isEmpty() || QDate::fromString(text, Qt::ISODate).isValid();
    });
}

bool HasOneMainEach(const CIncidentList &list, int main, int sub)
{
    std::vector<int> main_of(size_t(list.Texts(sub).size()), -1);
    for (int row = 0; row < list.BaseRowCount(); ++row) {
        int &known = main_of[size_t(list.TextIndex(row, sub))];
        const int here = list.TextIndex(row, main);
        if (known >= 0 && known != here)
            return false;
        known = here;
    }
    return true;
}

int TextCount(const CIncidentList &list, int column)
{
    return list.Texts(column).size();
}

void FindPair(const CIncidentList &list, const std::vector<int> &types, TypeColumns &found)
{
    for (const int main : types) {
        for (const int sub : types) {
            if (TextCount(list, main) < TextCount(list, sub)
                && (found.sub < 0 || TextCount(list, sub) > TextCount(list, found.sub))
                && HasOneMainEach(list, main, sub)) {
                found.main = main;
                found.sub = sub;
            }
        }
    }
    if (found.sub < 0) {
        found.main = types[0];
        found.sub = types[1];
    }
}

} // namespace

TypeColumns FindTypeColumns(const CIncidentList &list)
{
    TypeColumns found;
    std::vector<int> types;
    for (int column = 0; column < list.ColumnCount(); ++column) {
        if (IsType(list, column))
            types.push_back(column);
    }
    std::stable_sort(types.begin(), types.end(),
                     [&list](int a, int b) { return TextCount(list, a) < TextCount(list, b); });
    if (list.ColumnCount() < kLeastColumns || types.size() < 2)
        return found;
    FindPair(list, types, found);
    for (int column = list.ColumnCount(); column-- > 0;) {
        const bool is_free = column != found.main && column != found.sub;
        if (is_free && (found.range < 0 || IsDate(list, column) || !IsDate(list, found.range)))
            found.range = column;
    }
    return found;
}

} // namespace Client
