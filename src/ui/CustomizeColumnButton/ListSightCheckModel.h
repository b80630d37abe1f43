// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtGui/QStandardItemModel>

namespace Vantor {

/// \brief The rows of a column chooser: one per column, with a check state that reports its
/// changes.
class VANTOR_EXPORT CListSightCheckModel : public QStandardItemModel
{
    Q_OBJECT

public:
    /// Data of a row beside its text and check state.
    enum Role {
        kColumnIndexRole = Qt::UserRole, ///< int: place in the host's list of columns
        kManualSortRole,                 ///< bool: the row may be moved
    };

    explicit CListSightCheckModel(QObject *parent = nullptr);
    ~CListSightCheckModel() override;

    /// \brief As in the base; a check state that really changes is reported by
    /// SignalCheckStateChanged().
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /// \brief Take the row at \a from out and put it in so that it is the one at \a to.
    /// \return false, and nothing changes, when there is no such row or the two are the same.
    bool MoveRow(int from, int to);

Q_SIGNALS:
    /// Emitted after a check state has changed; the states are of Qt::CheckState.
    void SignalCheckStateChanged(const QModelIndex &index, int old_state, int new_state);
    /// Emitted by MoveRow() when it is done; \a parent is always invalid.
    void SignalRowMoved(const QModelIndex &parent, int from, int to);
};

} // namespace Vantor
