// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>

namespace Ravel {

class CTreeViewItem;
struct CTreeViewModelPtr;

/// \brief The rows of a table or tree, as CTreeViewItem objects that the model owns. GUI thread
/// only.
class VANTOR_PLATFORM_EXPORT CTreeViewModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit CTreeViewModel(QObject *parent = nullptr);
    ~CTreeViewModel() override;

    /// \brief Give the model one column a label; rows shorter than that show nothing in the last
    /// ones.
    void SetHorizontalHeaderLabels(const QStringList &labels);

    /// \brief Insert \a items, which the model then owns, before the top-level row \a row.
    /// \return false, and nothing taken, for a row outside 0 to rowCount(), or when an item is null
    /// or has a place already.
    bool InsertTopLevelItems(int row, const QList<CTreeViewItem *> &items);

    /// \return the item behind \a index, or null for an invalid index.
    [[nodiscard]] CTreeViewItem *ItemFromIndex(const QModelIndex &index) const;

    using QObject::parent;
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;

private:
    static bool AreFreeAndDistinct(const QList<CTreeViewItem *> &items);

    const std::unique_ptr<CTreeViewModelPtr> d_ptr_;
};

} // namespace Ravel
