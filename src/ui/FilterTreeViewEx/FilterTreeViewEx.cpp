// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/FilterTreeViewEx.h"

#include "ui/FilterTreeViewEx/FilterProxyModelEx.h"
#include "ui/FilterTreeViewEx/PageMath.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QResizeEvent>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QHeaderView>

#include <utility>

namespace Vantor {
namespace {

constexpr int kRowsWorthWaiting = 50'000; // a sort of fewer is over before a cursor is seen

class CWaitCursor
{
public:
    explicit CWaitCursor(bool shown) : b_shown_(shown)
    {
        if (b_shown_)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~CWaitCursor()
    {
        if (b_shown_)
            QGuiApplication::restoreOverrideCursor();
    }
    CWaitCursor(const CWaitCursor &) = delete;
    CWaitCursor &operator=(const CWaitCursor &) = delete;

private:
    const bool b_shown_;
};

} // namespace

struct CFilterTreeViewExDataPtr
{
    QPointer<Ravel::CTreeViewModel> ptr_model_;
    CFilterProxyModelEx *ptr_page_proxy_ = nullptr;
    CFilterProxyModelEx *ptr_keyword_proxy_ = nullptr;
    QStandardItemModel *ptr_measuring_model_ = nullptr;
    QStandardItem *ptr_measuring_item_ = nullptr;
    int row_height_px_ = 0;
    int rows_per_page_ = 1;
    bool b_paging_ = true;
    int total_pages_ = 1;
    bool b_adaptive_ = true;
    QRect last_geometry_;
    int current_page_ = 1;

    bool b_in_pass_ = false;
    bool b_pass_again_ = false;     // asked for from inside the pass
    bool b_in_page_signal_ = false; // a slot of SignalUpdateMaxMinPage may flip on
    std::vector<std::unique_ptr<Ravel::CTreeViewItem>> vec_waiting_; // for rows to stand still
    bool b_clear_first_ = false;                                     // before those are added
};

CFilterTreeViewEx::CFilterTreeViewEx(QWidget *parent)
    : CTableView(parent), d_ptr_(std::make_unique<CFilterTreeViewExDataPtr>())
{
    d_ptr_->ptr_page_proxy_ = new CFilterProxyModelEx(this);
    d_ptr_->ptr_page_proxy_->setFilterRole(Ravel::kPageTagRole);
    d_ptr_->ptr_keyword_proxy_ = new CFilterProxyModelEx(this);
    d_ptr_->ptr_keyword_proxy_->setFilterKeyColumn(-1);
    MeasureRowHeight();

    // Turning sorting on sorts by what the indicator shows, and Qt's own connection would go on
    // sorting the page proxy beside ours.
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    disconnect(header(), &QHeaderView::sortIndicatorChanged, this, nullptr);
    connect(header(), &QHeaderView::sortIndicatorChanged, this,
            &CFilterTreeViewEx::OnSortIndicatorChanged);
}

CFilterTreeViewEx::~CFilterTreeViewEx() = default;

void CFilterTreeViewEx::MeasureRowHeight()
{
    if (!d_ptr_->ptr_measuring_model_) {
        d_ptr_->ptr_measuring_model_ = new QStandardItemModel(this);
        d_ptr_->ptr_measuring_item_ = new QStandardItem(QStringLiteral("test"));
        d_ptr_->ptr_measuring_model_->appendRow(d_ptr_->ptr_measuring_item_);
    }
    setModel(d_ptr_->ptr_measuring_model_);
    const int height_px = sizeHintForRow(0);
    d_ptr_->row_height_px_ = height_px > 0 ? height_px : fontMetrics().height();
    setModel(nullptr);
}

void CFilterTreeViewEx::SetModel(Ravel::CTreeViewModel *model)
{
    d_ptr_->ptr_model_ = model;
    d_ptr_->ptr_keyword_proxy_->setSourceModel(model);
    d_ptr_->ptr_page_proxy_->setSourceModel(d_ptr_->ptr_keyword_proxy_);
    setModel(d_ptr_->ptr_page_proxy_);
    SetFilterEnabled(d_ptr_->b_paging_); // Qt sorts a model that it is given
    if (model && model->rowCount() > 0)
        DoPaging();
}

void CFilterTreeViewEx::AddTopLevelItems(QList<Ravel::CTreeViewItem *> &items)
{
    Ravel::CTreeViewModel *const model = d_ptr_->ptr_model_;
    if (!model || items.isEmpty())
        return;
    if (model->IsChangingRows()) {
        if (d_ptr_->vec_waiting_.empty())
            QMetaObject::invokeMethod(this, &CFilterTreeViewEx::AddWaitingItems,
                                      Qt::QueuedConnection);
        for (Ravel::CTreeViewItem *item : qAsConst(items))
            d_ptr_->vec_waiting_.emplace_back(item);
        return;
    }
    d_ptr_->ptr_keyword_proxy_->SetKeyWordFilter(QString());
    // The pass would give the same pages, but until then all rows would be on every page.
    model->InsertTopLevelItems(d_ptr_->ptr_keyword_proxy_->rowCount(), items,
                               d_ptr_->b_paging_ ? d_ptr_->rows_per_page_ : 0);
    DoPaging();
}

void CFilterTreeViewEx::AddWaitingItems()
{
    if (!d_ptr_->ptr_model_)
        d_ptr_->vec_waiting_.clear();
    QList<Ravel::CTreeViewItem *> items;
    for (auto &item : d_ptr_->vec_waiting_)
        items.append(item.release());
    d_ptr_->vec_waiting_.clear();
    if (std::exchange(d_ptr_->b_clear_first_, false))
        ClearAllItems();
    AddTopLevelItems(items);
}

void CFilterTreeViewEx::ClearAllItems()
{
    Ravel::CTreeViewModel *const model = d_ptr_->ptr_model_;
    if (!model)
        return;
    d_ptr_->vec_waiting_.clear(); // what was added before goes too
    if (model->IsChangingRows()) {
        d_ptr_->b_clear_first_ = true;
        QMetaObject::invokeMethod(this, &CFilterTreeViewEx::AddWaitingItems, Qt::QueuedConnection);
        return;
    }
    model->removeRows(0, model->rowCount());
    DoPaging();
}

int CFilterTreeViewEx::TopLevelItemCount() const
{
    return d_ptr_->ptr_keyword_proxy_->rowCount();
}

CFilterProxyModelEx *CFilterTreeViewEx::GetBackupModel() const
{
    return d_ptr_->ptr_keyword_proxy_;
}

int CFilterTreeViewEx::GetItemsPerPage() const
{
    return d_ptr_->rows_per_page_;
}

void CFilterTreeViewEx::SetFilterEnabled(bool enabled)
{
    d_ptr_->b_paging_ = enabled;
    // Pages are cut from the keyword proxy's order, so the page proxy must not have its own.
    if (enabled && d_ptr_->ptr_page_proxy_->sortColumn() >= 0)
        d_ptr_->ptr_page_proxy_->sort(-1);
}

void CFilterTreeViewEx::SetSortRole(int role)
{
    if (d_ptr_->ptr_model_)
        d_ptr_->ptr_page_proxy_->setSortRole(role);
}

void CFilterTreeViewEx::SetFilterPage(int page)
{
    if (!d_ptr_->b_paging_)
        return;
    d_ptr_->current_page_ = page;
    if (d_ptr_->b_in_page_signal_)
        return; // the call that emits goes on with this page
    d_ptr_->b_in_page_signal_ = true;
    int told_page = 0;
    for (int times = 0; times < 2 && told_page != d_ptr_->current_page_; ++times) {
        told_page = d_ptr_->current_page_;
        const bool is_last = told_page == d_ptr_->total_pages_;
        Q_EMIT SignalUpdateMaxMinPage(told_page != 1, !is_last);
    }
    d_ptr_->b_in_page_signal_ = false;
    d_ptr_->ptr_page_proxy_->SetPageFilter(Ravel::PageTag(d_ptr_->current_page_));
}

void CFilterTreeViewEx::SetFilterKeyWord(const QString &keyword)
{
    d_ptr_->ptr_keyword_proxy_->SetKeyWordFilter(keyword);
    DoPaging();
}

void CFilterTreeViewEx::SetFilterKeyWords(std::vector<QStringList> &lists)
{
    d_ptr_->ptr_keyword_proxy_->SetKeyWordsFilter(lists);
    DoPaging();
}

void CFilterTreeViewEx::SetTreeViewItemPerPage(int count)
{
    d_ptr_->b_adaptive_ = count <= 0;
    if (count > 0)
        d_ptr_->rows_per_page_ = count;
    CaculateAdaptiveHight();
    DoPaging();
}

QModelIndex CFilterTreeViewEx::MapToSourceIndex(const QModelIndex &index) const
{
    return d_ptr_->ptr_model_ ? d_ptr_->ptr_page_proxy_->mapToSource(index) : QModelIndex();
}

QModelIndex CFilterTreeViewEx::MapFromSourceIndex(const QModelIndex &index) const
{
    return d_ptr_->ptr_model_ ? d_ptr_->ptr_page_proxy_->mapFromSource(index) : QModelIndex();
}

void CFilterTreeViewEx::CaculateAdaptiveHight()
{
    if (d_ptr_->b_adaptive_)
        d_ptr_->rows_per_page_ =
            RowsThatFit(height(), header()->sizeHint().height(), d_ptr_->row_height_px_);
}

// Slots may come back in here from every signal on the way.
void CFilterTreeViewEx::DoPaging()
{
    if (!d_ptr_->ptr_model_ || !d_ptr_->b_paging_)
        return;
    if (d_ptr_->b_in_pass_) {
        d_ptr_->b_pass_again_ = true;
        return;
    }
    d_ptr_->b_in_pass_ = true;
    CutPages();
    if (std::exchange(d_ptr_->b_pass_again_, false))
        CutPages();
    d_ptr_->b_in_pass_ = false;
    // A slot that asks for a pass at each pass would hold the caller for ever.
    if (std::exchange(d_ptr_->b_pass_again_, false))
        QMetaObject::invokeMethod(this, &CFilterTreeViewEx::DoPaging, Qt::QueuedConnection);
}

void CFilterTreeViewEx::CutPages()
{
    Ravel::CTreeViewModel *const model = d_ptr_->ptr_model_;
    if (!model)
        return;
    if (model->IsChangingRows()) {
        d_ptr_->b_pass_again_ = true;
        return;
    }
    CFilterProxyModelEx &rows = *d_ptr_->ptr_keyword_proxy_;
    model->SetPages(rows.SourceRows(), rows.rowCount(), d_ptr_->rows_per_page_);
    d_ptr_->total_pages_ = PageCount(rows.rowCount(), d_ptr_->rows_per_page_);
    d_ptr_->current_page_ = 1;
    d_ptr_->ptr_page_proxy_->SetPageFilter(Ravel::PageTag(1));
    Q_EMIT SignalPageReset(rows.rowCount(), d_ptr_->total_pages_);
}

void CFilterTreeViewEx::resizeEvent(QResizeEvent *event)
{
    CTableView::resizeEvent(event);
    // The sizes are the viewport's, which a scroll bar changes too: only the view's own count.
    if (!d_ptr_->ptr_model_ || event->size().height() == event->oldSize().height()
        || geometry() == d_ptr_->last_geometry_)
        return;
    d_ptr_->last_geometry_ = geometry();
    CaculateAdaptiveHight();
    d_ptr_->ptr_keyword_proxy_->DoFilter();
    DoPaging();
    Q_EMIT SignalSizeChanged();
}

void CFilterTreeViewEx::OnSortIndicatorChanged(int column, Qt::SortOrder order)
{
    // The proxies still know rows that are gone: from a slot of the model, that is.
    if (d_ptr_->ptr_model_ && d_ptr_->ptr_model_->IsChangingRows()) {
        QMetaObject::invokeMethod(
            this, [this, column, order] { OnSortIndicatorChanged(column, order); },
            Qt::QueuedConnection);
        return;
    }
    {
        const CWaitCursor cursor(TopLevelItemCount() >= kRowsWorthWaiting);
        if (d_ptr_->b_paging_) {
            d_ptr_->ptr_keyword_proxy_->setSortRole(Qt::DisplayRole);
            d_ptr_->ptr_keyword_proxy_->sort(column, order);
        } else {
            d_ptr_->ptr_page_proxy_->sort(column, order);
        }
    }
    Q_EMIT SignalDataSort();
    DoPaging();
}

} // namespace Vantor
