// SPDX-License-Identifier: MIT
#include "list/IncidentModel.h"

#include <Ravel/TreeViewItem.h>

#include <algorithm>

namespace Client {
namespace {

// How many digits the longest number of `column` has; 0 unless all are whole and not negative.
int DigitCount(const CIncidentList &list, int column)
{
    int most = 0;
    for (const QString &text : list.Texts(column)) {
        if (!std::all_of(text.cbegin(), text.cend(), [](QChar letter) { return letter.isDigit(); }))
            return 0;
        most = std::max(most, text.size());
    }
    return most;
}

} // namespace

void CIncidentModel::SetList(IncidentListPtr list)
{
    removeRows(0, rowCount());
    list_ = std::move(list);
    const TypeColumns types = FindTypeColumns(*list_);
    has_types_ = types.sub >= 0;
    columns_.clear();
    if (has_types_)
        columns_ = {types.range, types.main, types.sub};
    for (int column = 0; column < list_->ColumnCount(); ++column) {
        if (!columns_.contains(column))
            columns_.append(column);
    }
    view_order_.resize(columns_.size());
    digits_.clear();
    QStringList titles;
    for (int column = 0; column < columns_.size(); ++column) {
        view_order_[columns_.at(column)] = column;
        digits_.append(DigitCount(*list_, columns_.at(column)));
        titles.append(list_->Title(columns_.at(column)));
    }
    SetHorizontalHeaderLabels(titles);
}

QList<Ravel::CTreeViewItem *> CIncidentModel::NewItems(int begin, int end) const
{
    QList<Ravel::CTreeViewItem *> items;
    items.reserve(end - begin);
    QStringList texts;
    texts.reserve(columns_.size());
    for (int row = begin; row < end; ++row) {
        texts.erase(texts.begin(), texts.end());
        for (int column = 0; column < columns_.size(); ++column) {
            const QString &text = list_->Text(row, columns_.at(column));
            // Lists are sorted as texts: blanks in front put 9 before 10.
            texts.append(text.size() < digits_.at(column) && !text.isEmpty()
                             ? text.rightJustified(digits_.at(column))
                             : text);
        }
        items.append(new Ravel::CTreeViewItem(texts));
    }
    return items;
}

QStringList CIncidentModel::Range() const
{
    const QVector<QString> &texts = list_->Texts(columns_.constFirst());
    const auto [least, greatest] = std::minmax_element(texts.cbegin(), texts.cend());
    return {*least, *greatest};
}

QVariant CIncidentModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::TextAlignmentRole && index.isValid()
        && list_->IsNumeric(columns_.at(index.column())))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return CTreeViewModel::data(index, role == Qt::ToolTipRole ? int(Qt::DisplayRole) : role);
}

QVariant CIncidentModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole && section >= 0
        && section < columns_.size()) {
        const bool is_number = list_->IsNumeric(columns_.at(section));
        return int((is_number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    return CTreeViewModel::headerData(section, orientation,
                                      role == Qt::ToolTipRole ? int(Qt::DisplayRole) : role);
}

} // namespace Client
