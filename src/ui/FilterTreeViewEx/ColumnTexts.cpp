// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/ColumnTexts.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QHash>

#include <algorithm>
#include <numeric>
#include <unordered_set>

namespace Vantor {
namespace {

// Gives each text of a column a number, in the order in which they come.
class CTextNumbers
{
public:
    CTextNumbers(const QAbstractItemModel &model, int column) : model_(model), column_(column) {}

    int Number(int row)
    {
        const QString text = model_.index(row, column_).data().toString();
        // Lists that come from a server are often in the order of one of their columns.
        if (last_ >= 0 && text == texts_[size_t(last_)])
            return last_;
        const auto found = numbers_.constFind(text);
        last_ = found != numbers_.constEnd() ? *found : int(texts_.size());
        if (found == numbers_.constEnd()) {
            numbers_.insert(text, last_);
            texts_.push_back(text);
        }
        return last_;
    }

    [[nodiscard]] std::vector<QString> Take() { return std::move(texts_); }

private:
    const QAbstractItemModel &model_;
    const int column_;
    QHash<QString, int> numbers_;
    std::vector<QString> texts_;
    int last_ = -1;
};

bool IsBefore(const QString &a, const QString &b)
{
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

void Sort(ColumnTexts &column)
{
    std::vector<int> order(column.texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&texts = column.texts](int a, int b) {
        return IsBefore(texts[size_t(a)], texts[size_t(b)]);
    });
    std::vector<QString> sorted;
    std::vector<int> place(order.size());
    sorted.reserve(order.size());
    for (const int from : order) {
        place[size_t(from)] = int(sorted.size());
        sorted.push_back(std::move(column.texts[size_t(from)]));
    }
    column.texts = std::move(sorted);
    for (auto &[text, main] : column.related)
        text = place[size_t(text)];
}

} // namespace

ColumnTexts CollectTexts(const QAbstractItemModel &model, int column, int main_column)
{
    ColumnTexts result;
    if (column < 0 || column >= model.columnCount())
        return result;
    const bool has_main = main_column >= 0 && main_column < model.columnCount();
    CTextNumbers texts(model, column);
    CTextNumbers mains(model, main_column);
    std::unordered_set<quint64> seen;
    quint64 last = ~quint64{0};
    for (int row = 0, rows = model.rowCount(); row < rows; ++row) {
        const int text = texts.Number(row);
        if (!has_main)
            continue;
        const int main = mains.Number(row);
        const quint64 pair = quint64(text) << 32 | quint64(main);
        if (pair != last && seen.insert(pair).second)
            result.related.emplace_back(text, main);
        last = pair;
    }
    result.texts = texts.Take();
    result.mains = mains.Take();
    Sort(result);
    return result;
}

} // namespace Vantor
