// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <memory>
#include <vector>

/// Lists that are filtered and paged in their plainest form, one step after the other as it is
/// documented: what the tests compare rows with and the benchmarks compare time with.
namespace Letter {

/// How a proxy that has another filter gets to its rows.
enum class Refilter {
    Always,         ///< as documented: setFilterKeyColumn(), setFilterRole() and invalidateFilter()
    WhenRowsChange, ///< the same rows, sorted as a whole, and only when others pass than before
};

/// Heap items with a QVector of texts and the page's tag.
class CRows : public QAbstractTableModel
{
public:
    struct CItem
    {
        QVector<QString> texts;
        QVariant tag;
    };
    using Items = std::vector<std::unique_ptr<CItem>>;

    explicit CRows(QStringList labels) : labels_(std::move(labels)) {}

    [[nodiscard]] static Items Make(const QVector<QStringList> &rows);
    void Append(Items items);
    void Clear();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    const QStringList labels_;
    Items items_;
};

class CFilterProxy : public QSortFilterProxyModel
{
public:
    explicit CFilterProxy(Refilter refilter);

    void SetPageFilter(const QString &tag);
    void SetKeyWordFilter(const QString &keyword);
    void SetKeyWordsFilter(const std::vector<QStringList> &lists);
    void DoFilter();

    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    void SetKey(int column, int role);
    void Apply();
    bool OtherRowsPass() const;

    const Refilter refilter_;
    int mode_ = 0;
    QString keyword_;
    QString page_filter_;
    std::vector<QStringList> lists_;
};

/// The rows under a keyword proxy under a page proxy, and what the view on them does.
class CPagedList
{
public:
    CPagedList(const QStringList &labels, Refilter refilter);

    void Add(CRows::Items items);
    void Clear();
    void SetPage(int page);
    void SetKeyWord(const QString &keyword);
    void SetLists(const std::vector<QStringList> &lists);
    void SetPerPage(int count);
    void SetAdaptive(int view_height_px, int header_height_px, int row_height_px);
    void Resize();
    void Sort(int column, Qt::SortOrder order);
    void DoPaging();

    CRows rows_;
    CFilterProxy keywords_;
    CFilterProxy page_;
    int rows_per_page_ = 1;
    int total_pages_ = 1;
    QStringList signals_; ///< as "Name(argument, argument)"
};

} // namespace Letter
