// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/ColumnLayout.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <numeric>
#include <tuple>

namespace Vantor {
namespace {

const QLatin1String kItems("CustomizeListItems");
const QLatin1String kId("ColumnID");
const QLatin1String kLocation("ColumnLocation");
const QLatin1String kChecked("ColumnChecked");
const QLatin1String kManualCheck("ColumnManualCheck");
const QLatin1String kManualSort("ColumnManualSort");
const QLatin1String kTrue("true");
const QLatin1String kFalse("false");

// Flags are kept as texts: other clients of the server read them so.
QString FlagText(bool flag)
{
    return flag ? kTrue : kFalse;
}

Qt::CheckState StoredCheckState(int number)
{
    if (number == Qt::Unchecked)
        return Qt::Unchecked;
    return number == Qt::PartiallyChecked ? Qt::PartiallyChecked : Qt::Checked;
}

} // namespace

QString ColumnLayoutKey(const QString &module, const QString &function)
{
    return QLatin1String("CList") + module + function + QLatin1String("CustomizeList");
}

QByteArray ColumnLayoutText(const QVector<CColumnInfo> &columns)
{
    QJsonArray items;
    for (const CColumnInfo &column : columns) {
        const ColumnInfo &info = column.Read();
        items.append(QJsonObject{{kId, info.column_id},
                                 {kLocation, info.column_No},
                                 {kChecked, int(info.column_checked)},
                                 {kManualCheck, FlagText(info.b_manual_check)},
                                 {kManualSort, FlagText(info.b_manual_sort)}});
    }
    return QJsonDocument(QJsonObject{{kItems, items}}).toJson(QJsonDocument::Indented);
}

QVector<CColumnInfo> WithColumnLayout(const QVector<CColumnInfo> &columns, const QString &layout)
{
    QVector<CColumnInfo> restored = columns;
    const QJsonArray items =
        QJsonDocument::fromJson(layout.toUtf8()).object().value(kItems).toArray();
    const int count = std::min(items.size(), restored.size());
    for (int i = 0; i < count; ++i) {
        if (!items.at(i).isObject())
            continue;
        const QJsonObject item = items.at(i).toObject();
        CColumnInfo &column = restored[i];
        column.SetVal_column_No(item.value(kLocation).toInt());
        column.SetVal_column_checked(StoredCheckState(item.value(kChecked).toInt()));
        column.SetVal_b_manual_check(item.value(kManualCheck).toString() == kTrue);
        column.SetVal_b_manual_sort(item.value(kManualSort).toString() == kTrue);
    }
    return restored;
}

bool AreSameColumns(const QVector<CColumnInfo> &a, const QVector<CColumnInfo> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const CColumnInfo &left, const CColumnInfo &right) {
                          const auto fields = [](const ColumnInfo &info) {
                              return std::tie(info.column_No, info.column_id, info.column_name,
                                              info.column_checked, info.b_manual_check,
                                              info.b_manual_sort);
                          };
                          return fields(left.Read()) == fields(right.Read());
                      });
}

QVector<int> ColumnOrder(const QVector<CColumnInfo> &columns)
{
    QVector<int> order(columns.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&columns](int a, int b) {
        return columns.at(a).Read().column_No < columns.at(b).Read().column_No;
    });
    return order;
}

bool CanMoveColumn(const QVector<CColumnInfo> &columns, const QVector<int> &order, int from, int to)
{
    if (from < 0 || from >= order.size() || to < 0 || to >= order.size())
        return false;
    const auto [first, last] = std::minmax(from, to);
    return std::all_of(order.begin() + first, order.begin() + last + 1,
                       [&columns](int index) { return columns.at(index).Read().b_manual_sort; });
}

void NumberColumns(QVector<CColumnInfo> &columns, const QVector<int> &order, int first)
{
    for (int place = 0; place < order.size(); ++place)
        columns[order.at(place)].SetVal_column_No(first + place);
}

int FirstColumnNumber(const QVector<CColumnInfo> &columns)
{
    const auto first = std::min_element(columns.begin(), columns.end(),
                                        [](const CColumnInfo &a, const CColumnInfo &b) {
                                            return a.Read().column_No < b.Read().column_No;
                                        });
    return first == columns.end() ? 0 : first->Read().column_No;
}

Qt::CheckState CommonCheckState(const QVector<CColumnInfo> &columns)
{
    const bool is_any_free = std::any_of(columns.begin(), columns.end(), [](const CColumnInfo &c) {
        return c.Read().b_manual_check;
    });
    int counted = 0;
    int checked = 0;
    int unchecked = 0;
    for (const CColumnInfo &column : columns) {
        if (is_any_free && !column.Read().b_manual_check)
            continue;
        ++counted;
        checked += column.Read().column_checked == Qt::Checked;
        unchecked += column.Read().column_checked == Qt::Unchecked;
    }
    if (counted == unchecked)
        return Qt::Unchecked;
    return counted == checked ? Qt::Checked : Qt::PartiallyChecked;
}

} // namespace Vantor
