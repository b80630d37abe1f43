// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

namespace Ravel {

class CRowFilter;
class CTreeViewItem;
struct CTreeViewModelPtr;

/// \brief The rows of a table or tree, as CTreeViewItem objects that the model owns.
///
/// Made for a million top-level rows: they are filtered, sorted and cut into pages in bulk, without
/// a QVariant a cell. Rows cannot come or go from inside the signals that tell of rows that come or
/// go: such a call is refused. GUI thread only.
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
    /// \param rows_per_page above 0 gives the new rows the pages of their row numbers, as SetPages()
    /// would.
    bool InsertTopLevelItems(int row, const QList<CTreeViewItem *> &items, int rows_per_page = 0);

    /// \return the item behind \a index, or null for an invalid index.
    [[nodiscard]] CTreeViewItem *ItemFromIndex(const QModelIndex &index) const;

    /// \brief Whether rows are coming or going at this moment, so that no others may.
    [[nodiscard]] bool IsChangingRows() const;
    /// \brief Whether a top-level row has, or had, rows below it.
    [[nodiscard]] bool IsTree() const;

    /// \brief Whether the top-level row \a row passes \a filter; its texts count as far as the
    /// model has columns.
    [[nodiscard]] bool Accepts(int row, const CRowFilter &filter) const;
    /// \brief The same for every top-level row.
    [[nodiscard]] std::vector<bool> AcceptedRows(const CRowFilter &filter) const;

    /// \brief The place of every top-level row when they are sorted by the display texts of
    /// \a column without case; equal texts share one. Made once and kept.
    /// \return rowCount() numbers, good until a text in the column changes or rows come or go; null
    /// for a column that does not exist.
    [[nodiscard]] const int *Ranks(int column) const;
    /// \brief Whether the text in \a column of the top-level row \a left comes before that of
    /// \a right, without case.
    [[nodiscard]] bool IsLess(int left, int right, int column) const;

    /// \brief Give the i-th of \a count top-level rows the page i / \a rows_per_page + 1.
    ///
    /// It stands as "Page001" under kPageTagRole of column 0. One dataChanged with that role tells
    /// of all rows whose page is another now.
    /// \param rows the row numbers in the order of the pages; null for 0 to \a count - 1.
    void SetPages(const int *rows, int count, int rows_per_page);
    /// \brief The pages of all top-level rows: a page from 1 up, 0 for a row without one, and below
    /// 0 for a row with something else under kPageTagRole.
    [[nodiscard]] const std::vector<int> &Pages() const;

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
