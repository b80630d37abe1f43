// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/ListSightCheckModel.h"

namespace Vantor {

CListSightCheckModel::CListSightCheckModel(QObject *parent) : QStandardItemModel(parent) {}

CListSightCheckModel::~CListSightCheckModel() = default;

bool CListSightCheckModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole)
        return QStandardItemModel::setData(index, value, role);
    const int old_state = index.data(Qt::CheckStateRole).toInt();
    if (!QStandardItemModel::setData(index, value, role))
        return false;
    const int new_state = index.data(Qt::CheckStateRole).toInt();
    if (new_state != old_state)
        Q_EMIT SignalCheckStateChanged(index, old_state, new_state);
    return true;
}

bool CListSightCheckModel::MoveRow(int from, int to)
{
    if (from == to || from < 0 || from >= rowCount() || to < 0 || to >= rowCount())
        return false;
    insertRow(to, takeRow(from));
    Q_EMIT SignalRowMoved({}, from, to);
    return true;
}

} // namespace Vantor
