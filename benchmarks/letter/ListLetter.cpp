// SPDX-License-Identifier: MIT
#include "letter/ListLetter.h"

#include <algorithm>
#include <iterator>

namespace Letter {
namespace {

constexpr int kTagRole = Qt::UserRole + 100;

QString TagOf(int page)
{
    return QStringLiteral("Page%1").arg(page, 3, 10, QLatin1Char('0'));
}

QString Text(bool flag)
{
    return flag ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

CRows::Items CRows::Make(const QVector<QStringList> &rows)
{
    Items items;
    items.reserve(static_cast<size_t>(rows.size()));
    for (const QStringList &texts : rows)
        items.push_back(std::make_unique<CItem>(CItem{texts.toVector(), {}}));
    return items;
}

void CRows::Append(Items items)
{
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(items.size()) - 1);
    std::move(items.begin(), items.end(), std::back_inserter(items_));
    endInsertRows();
}

void CRows::Clear()
{
    if (items_.empty())
        return;
    beginRemoveRows({}, 0, rowCount() - 1);
    items_.clear();
    endRemoveRows();
}

int CRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

int CRows::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : labels_.size();
}

QVariant CRows::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const CItem &item = *items_[static_cast<size_t>(index.row())];
    if (role == kTagRole && index.column() == 0)
        return item.tag;
    return role == Qt::DisplayRole && index.column() < item.texts.size()
               ? QVariant(item.texts.at(index.column()))
               : QVariant();
}

bool CRows::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != 0 || role != kTagRole)
        return false;
    items_[static_cast<size_t>(index.row())]->tag = value;
    Q_EMIT dataChanged(index, index, {role});
    return true;
}

CFilterProxy::CFilterProxy(Refilter refilter) : QSortFilterProxyModel(nullptr), refilter_(refilter)
{
    setDynamicSortFilter(false);
    setSortCaseSensitivity(Qt::CaseInsensitive);
}

void CFilterProxy::SetKey(int column, int role)
{
    if (refilter_ == Refilter::Always || filterKeyColumn() != column)
        setFilterKeyColumn(column);
    if (refilter_ == Refilter::Always || filterRole() != role)
        setFilterRole(role);
}

void CFilterProxy::SetPageFilter(const QString &tag)
{
    page_filter_ = tag;
    SetKey(0, kTagRole);
    invalidateFilter();
}

void CFilterProxy::SetKeyWordFilter(const QString &keyword)
{
    keyword_ = keyword;
    mode_ = 1;
    Apply();
}

void CFilterProxy::SetKeyWordsFilter(const std::vector<QStringList> &lists)
{
    lists_ = lists;
    mode_ = 0;
    Apply();
}

void CFilterProxy::DoFilter()
{
    Apply();
}

void CFilterProxy::Apply()
{
    SetKey(-1, Qt::DisplayRole);
    if (refilter_ == Refilter::Always)
        invalidateFilter();
    else if (OtherRowsPass())
        invalidate();
}

bool CFilterProxy::OtherRowsPass() const
{
    for (int row = 0; row < sourceModel()->rowCount(); ++row) {
        if (filterAcceptsRow(row, {}) != mapFromSource(sourceModel()->index(row, 0)).isValid())
            return true;
    }
    return false;
}

bool CFilterProxy::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const auto text_of = [&](int column) {
        return sourceModel()->index(row, column, parent).data().toString();
    };
    if (filterKeyColumn() != -1) {
        const QVariant tag = sourceModel()->index(row, 0, parent).data(kTagRole);
        return !tag.isValid() || tag.toString() == page_filter_;
    }
    if (mode_ == 1) {
        if (keyword_.isEmpty())
            return true;
        for (int column = 0; column < sourceModel()->columnCount(parent); ++column) {
            if (text_of(column).contains(keyword_))
                return true;
        }
        return false;
    }
    for (size_t i = 0; i < lists_.size(); ++i) {
        const QString text = text_of(static_cast<int>(i));
        const QStringList &list = lists_[i];
        if (i == 0 ? text < list.first() || text > list.last() : !list.contains(text))
            return false;
    }
    return true;
}

CPagedList::CPagedList(const QStringList &labels, Refilter refilter)
    : rows_(labels), keywords_(refilter), page_(refilter)
{
    keywords_.setFilterKeyColumn(-1);
    page_.setFilterRole(kTagRole);
    keywords_.setSourceModel(&rows_);
    page_.setSourceModel(&keywords_);
}

void CPagedList::Add(CRows::Items items)
{
    keywords_.SetKeyWordFilter(QString());
    rows_.Append(std::move(items));
    DoPaging();
}

void CPagedList::Clear()
{
    rows_.Clear();
    DoPaging();
}

void CPagedList::SetPage(int page)
{
    const bool has_next = page != total_pages_;
    signals_.append(
        QStringLiteral("SignalUpdateMaxMinPage(%1, %2)").arg(Text(page != 1), Text(has_next)));
    page_.SetPageFilter(TagOf(page));
}

void CPagedList::SetKeyWord(const QString &keyword)
{
    keywords_.SetKeyWordFilter(keyword);
    DoPaging();
}

void CPagedList::SetLists(const std::vector<QStringList> &lists)
{
    keywords_.SetKeyWordsFilter(lists);
    DoPaging();
}

void CPagedList::SetPerPage(int count)
{
    rows_per_page_ = count;
    DoPaging();
}

void CPagedList::SetAdaptive(int view_height_px, int header_height_px, int row_height_px)
{
    const int available_px = view_height_px - header_height_px;
    const int rows = available_px / row_height_px;
    const bool is_touching = static_cast<double>(available_px) / row_height_px - rows < 0.001;
    rows_per_page_ = qMax(1, is_touching ? rows - 1 : rows);
}

void CPagedList::Resize()
{
    keywords_.DoFilter();
    DoPaging();
    signals_.append(QStringLiteral("SignalSizeChanged()"));
}

void CPagedList::Sort(int column, Qt::SortOrder order)
{
    keywords_.setSortRole(Qt::DisplayRole);
    keywords_.sort(column, order);
    signals_.append(QStringLiteral("SignalDataSort()"));
    DoPaging();
}

void CPagedList::DoPaging()
{
    const int rows = keywords_.rowCount();
    int page = 1;
    for (int row = 0; row < rows; ++row) {
        page = row / rows_per_page_ + 1;
        keywords_.setData(keywords_.index(row, 0), TagOf(page), kTagRole);
    }
    total_pages_ = page;
    page_.SetPageFilter(TagOf(1));
    signals_.append(QStringLiteral("SignalPageReset(%1, %2)").arg(rows).arg(page));
}

} // namespace Letter
