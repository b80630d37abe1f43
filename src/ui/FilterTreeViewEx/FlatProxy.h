// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/RowOrder.h>
#include <VantorExport.h>

#include <QtCore/QPointer>
#include <QtCore/QSortFilterProxyModel>

#include <memory>
#include <vector>

namespace Vantor {

struct CFlatProxyPtr;

/// \brief A QSortFilterProxyModel whose rows are a CRowOrder as long as the source has no child
/// rows.
///
/// Qt's own engine takes seconds to filter or sort a million rows. It is used only over a source
/// with child rows; the change from one engine to the other is a model reset. A derived class says
/// which rows are shown. GUI thread only.
class VANTOR_EXPORT CFlatProxy : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit CFlatProxy(QObject *parent = nullptr);
    ~CFlatProxy() override;

    /// \brief Whether the rows are in Order(); otherwise Qt's engine has them.
    [[nodiscard]] bool IsFlat() const;
    /// \brief The source rows shown, in their order; of use only while IsFlat().
    [[nodiscard]] const Ravel::CRowOrder &Order() const;

    /// \brief Keep the list as it is, whatever happens to the source, until EndHold(). Calls may be
    /// nested.
    void BeginHold();
    /// \brief Undo one BeginHold(). After the last, views are notified of one change of layout.
    void EndHold();

    void setSourceModel(QAbstractItemModel *source) override;
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    QModelIndex sibling(int row, int column, const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QModelIndex mapToSource(const QModelIndex &index) const override;
    QModelIndex mapFromSource(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    bool insertRows(int row, int count, const QModelIndex &parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;
    bool insertColumns(int column, int count, const QModelIndex &parent = {}) override;
    bool removeColumns(int column, int count, const QModelIndex &parent = {}) override;

protected:
    /// \brief The rows to show, filtered and sorted, out of all rows of the source.
    [[nodiscard]] virtual Ravel::CRowOrder MakeOrder() = 0;
    /// \brief Those of the rows \a first to \a last, which have just been inserted, that are shown,
    /// in their order.
    [[nodiscard]] virtual std::vector<int> ShownOf(int first, int last) = 0;
    /// \brief Sort what MakeOrder() starts from.
    virtual void SortAll(int column, Qt::SortOrder order) = 0;
    /// \brief All rows of the source may be others now.
    virtual void OnSourceReset() = 0;
    /// \brief The source has \a count more rows from \a first on, or fewer when it is negative.
    virtual void OnSourceRows(int first, int count) = 0;

    /// \brief Show what MakeOrder() returns. With Qt's engine, filter and sort by that.
    void Rebuild();

private:
    void Attach(QAbstractItemModel *source);
    void SetEngine(bool is_flat, QAbstractItemModel *source);
    void ForgetSource();
    void ConnectRows(QAbstractItemModel *source);
    void ConnectLayout(QAbstractItemModel *source);
    void ConnectColumns(QAbstractItemModel *source);
    void OnRowsInserted(const QModelIndex &parent, int first, int last);
    void OnRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void OnRowsRemoved(const QModelIndex &parent, int first, int last);
    void OnSourceDataChanged(const QModelIndex &top_left, const QModelIndex &bottom_right,
                             const QVector<int> &roles);
    void OnOwnLayoutChanged();
    void ShowOrder(Ravel::CRowOrder order);
    [[nodiscard]] bool IsInStep(int change) const;

    const std::unique_ptr<CFlatProxyPtr> d_ptr_;
};

/// \brief Holds a proxy for as long as it lives, if the proxy lives as long.
class CProxyHold
{
public:
    /// \brief BeginHold() of \a proxy, which may be deleted meanwhile; null is ignored.
    explicit CProxyHold(CFlatProxy *proxy);
    /// \brief EndHold(), if the proxy still exists.
    ~CProxyHold();
    CProxyHold(const CProxyHold &) = delete;
    CProxyHold &operator=(const CProxyHold &) = delete;

private:
    const QPointer<CFlatProxy> proxy_;
};

} // namespace Vantor
