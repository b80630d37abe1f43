// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>
#include <Ravel/TextReader.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

namespace Ravel {

class CRowFilter;
class CRowOrder;
class CRowSet;
class CTextRanks;
class CTreeViewItem;
struct CTreeViewModelPtr;

/// \brief The rows of a table or tree, as CTreeViewItem objects that the model owns.
///
/// Made for a million top-level rows: they are filtered, sorted and cut into pages in bulk, without
/// a QVariant a cell. While the model emits a signal about rows that are inserted or removed, it
/// refuses to insert or remove others. GUI thread only.
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
    /// \return false, and nothing taken, for a row outside 0 to rowCount(), when an item is null or
    /// has a place already, or from inside a change of rows.
    bool InsertTopLevelItems(int row, const QList<CTreeViewItem *> &items);

    /// \return the item behind \a index, or null for an invalid index.
    [[nodiscard]] CTreeViewItem *ItemFromIndex(const QModelIndex &index) const;

    /// \brief Whether rows are being inserted or removed at this moment, so that no others may be.
    [[nodiscard]] bool IsChangingRows() const;
    /// \brief Whether a top-level row has, or had, rows below it.
    [[nodiscard]] bool IsTree() const;

    /// \brief Whether the top-level row \a row passes \a filter; its texts count as far as the
    /// model has columns.
    [[nodiscard]] bool Accepts(int row, const CRowFilter &filter) const;
    /// \brief The top-level rows that pass \a filter.
    /// \param within  the only rows to look at; null: all.
    [[nodiscard]] CRowSet AcceptedRows(const CRowFilter &filter,
                                       const CRowSet *within = nullptr) const;

    /// \brief The ranks of the top-level rows when they are sorted by the display texts of
    /// \a column without case. Worked out once, unless PrepareRanks() has done so, and kept until
    /// rows or texts change.
    /// \return null for a column that does not exist.
    [[nodiscard]] std::shared_ptr<const CTextRanks> Ranks(int column) const;
    /// \brief Work out the ranks of all columns on another thread, now and after each change of
    /// rows or texts, once no other change follows.
    void PrepareRanks();
    /// \brief Whether Ranks() of \a column needs no work.
    [[nodiscard]] bool HasRanks(int column) const;

    /// \brief For reading all texts on another thread.
    [[nodiscard]] CTextReader TextReader() const;
    /// \brief A number that changes with rows, texts and columns.
    [[nodiscard]] quint64 TextsVersion() const;

    /// \brief Give the row at place i of \a order the page i / \a rows_per_page + 1, from the place
    /// \a first_place on.
    ///
    /// It can be read as "Page001" under kPageTagRole of column 0. \return whether a row has
    /// another page now: call NotifyPages() then.
    [[nodiscard]] bool SetPages(const CRowOrder &order, int first_place, int rows_per_page);
    /// \brief Emit dataChanged for the pages of all rows: views repaint only the visible ones.
    void NotifyPages();
    /// \brief The pages of all top-level rows: a page from 1 up, 0 for a row without one, and below
    /// 0 for a row with something else under kPageTagRole.
    [[nodiscard]] const std::vector<int> &Pages() const;
    /// \brief A number that changes with rows and with whatever is written under kPageTagRole.
    [[nodiscard]] quint64 PagesVersion() const;

    using QObject::parent;
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// Cells with something under Qt::CheckStateRole can be checked.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;

private:
    const std::unique_ptr<CTreeViewModelPtr> d_ptr_;
};

} // namespace Ravel
