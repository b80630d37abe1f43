// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/FilterTreeViewEx.h"

#include "common/DisconnectChildren.h"
#include "common/LogMacro.h"
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

// Pages are cut from the keyword proxy's order, so with paging on the rows of a page have no order
// of their own, and neither have those that a host sorts. Qt sorts the view's model, though, when
// sorting is turned on, when the view gets the model, and when a column is sorted again.
class CPages : public CFilterProxyModelEx
{
public:
    using CFilterProxyModelEx::CFilterProxyModelEx;

    void SetSorted(bool sorted)
    {
        if (!sorted && sortColumn() >= 0)
            CFilterProxyModelEx::sort(-1);
        b_sorted_ = sorted;
    }

    void sort(int column, Qt::SortOrder order) override
    {
        if (b_sorted_)
            CFilterProxyModelEx::sort(column, order);
    }

private:
    bool b_sorted_ = false;
};

// How many lists show the model, because each cuts it into its own pages.
int CountLists(Ravel::CTreeViewModel *model, int change)
{
    static constexpr char kLists[] = "vantor_lists";
    if (!model)
        return 0;
    const int lists = model->property(kLists).toInt() + change;
    model->setProperty(kLists, lists);
    return lists;
}

// Whether a paging pass runs, and whether a slot has asked for another one meanwhile.
enum class Pass { Idle, Running, RunningAnotherFollows };

} // namespace

struct CFilterTreeViewExDataPtr
{
    QPointer<Ravel::CTreeViewModel> ptr_model_;
    CPages *ptr_page_proxy_ = nullptr;
    CFilterProxyModelEx *ptr_keyword_proxy_ = nullptr;
    QStandardItemModel *ptr_measuring_model_ = nullptr;
    QStandardItem *ptr_measuring_item_ = nullptr;
    int row_height_px_ = 0;
    int rows_per_page_ = 1;
    bool b_paging_ = true;
    bool b_sort_by_host_ = false; // counts with paging off only
    int total_pages_ = 1;
    bool b_adaptive_ = true;
    int last_height_px_ = -1; // of the view; below 0: it has not been laid out yet
    int current_page_ = 1;

    Pass pass_ = Pass::Idle;
    int announced_page_ = 0; // by SignalUpdateMaxMinPage, while that is being emitted
    // What has to wait until the model no longer inserts or removes rows.
    std::vector<std::function<void()>> vec_later_;
};

CFilterTreeViewEx::CFilterTreeViewEx(QWidget *parent)
    : CTableView(parent), d_ptr_(std::make_unique<CFilterTreeViewExDataPtr>())
{
    d_ptr_->ptr_page_proxy_ = new CPages(this);
    d_ptr_->ptr_page_proxy_->setFilterRole(Ravel::kPageTagRole);
    d_ptr_->ptr_keyword_proxy_ = new CFilterProxyModelEx(this);
    d_ptr_->ptr_keyword_proxy_->setFilterKeyColumn(-1);
    MeasureRowHeight();

    // Turning sorting on sorts by the column of the indicator, which must be no column.
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    connect(header(), &QHeaderView::sortIndicatorChanged, this,
            &CFilterTreeViewEx::OnSortIndicatorChanged);
}

CFilterTreeViewEx::~CFilterTreeViewEx()
{
    CountLists(d_ptr_->ptr_model_, -1);
    DisconnectChildren(this);
}

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
    const bool had_rows = TopLevelItemCount() > 0;
    CountLists(d_ptr_->ptr_model_, -1);
    if (CountLists(model, 1) > 1)
        VANTOR_LOG("Vantor::CFilterTreeViewEx::SetModel", 4, VANTOR_LOG_WARNING,
                   "The model is shown by another list, too: each spoils the other's pages.");
    d_ptr_->vec_later_.clear();
    d_ptr_->ptr_model_ = model;
    d_ptr_->total_pages_ = 1;
    d_ptr_->current_page_ = 1;
    if (d_ptr_->b_paging_)
        d_ptr_->ptr_page_proxy_->SetPageFilter(Ravel::PageTag(1));
    d_ptr_->ptr_keyword_proxy_->setSourceModel(model);
    d_ptr_->ptr_page_proxy_->setSourceModel(d_ptr_->ptr_keyword_proxy_);
    setModel(d_ptr_->ptr_page_proxy_);
    if (d_ptr_->last_height_px_ >= 0)
        CaculateAdaptiveHight(); // no new height follows
    if (had_rows || TopLevelItemCount() > 0)
        DoPaging();
}

// A model refuses to insert and remove rows from inside the signals about that.
bool CFilterTreeViewEx::WaitForModel(const std::function<void()> &operation)
{
    if (!d_ptr_->ptr_model_->IsChangingRows())
        return false;
    if (d_ptr_->vec_later_.empty())
        QMetaObject::invokeMethod(this, &CFilterTreeViewEx::RunLater, Qt::QueuedConnection);
    d_ptr_->vec_later_.push_back(operation);
    return true;
}

void CFilterTreeViewEx::RunLater()
{
    const QPointer<CFilterTreeViewEx> self(this);
    const auto operations = std::exchange(d_ptr_->vec_later_, {});
    for (const auto &operation : operations) {
        if (self)
            operation();
    }
}

void CFilterTreeViewEx::AddTopLevelItems(QList<Ravel::CTreeViewItem *> &items)
{
    if (!d_ptr_->ptr_model_ || items.isEmpty())
        return;
    if (d_ptr_->ptr_model_->IsChangingRows()) {
        auto waiting = std::make_shared<std::vector<std::unique_ptr<Ravel::CTreeViewItem>>>();
        for (Ravel::CTreeViewItem *item : qAsConst(items))
            waiting->emplace_back(item);
        (void)WaitForModel([this, waiting] {
            QList<Ravel::CTreeViewItem *> ready;
            for (auto &item : *waiting)
                ready.append(item.release());
            AddTopLevelItems(ready);
        });
        return;
    }
    Change([this, &items] {
        const QPointer<CFilterTreeViewEx> self(this);
        d_ptr_->ptr_keyword_proxy_->SetKeyWordFilter(QString());
        if (self && d_ptr_->ptr_model_)
            d_ptr_->ptr_model_->InsertTopLevelItems(d_ptr_->ptr_keyword_proxy_->rowCount(), items);
    });
}

void CFilterTreeViewEx::ClearAllItems()
{
    if (!d_ptr_->ptr_model_)
        return;
    if (d_ptr_->ptr_model_->IsChangingRows())
        d_ptr_->vec_later_.assign(d_ptr_->vec_later_.empty() ? 0 : 1, [] {}); // added before
    if (!WaitForModel([this] { ClearAllItems(); }))
        Change([this] { d_ptr_->ptr_model_->removeRows(0, d_ptr_->ptr_model_->rowCount()); });
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
    d_ptr_->ptr_page_proxy_->SetSorted(!enabled && !d_ptr_->b_sort_by_host_);
}

void CFilterTreeViewEx::SetSortByHost(bool by_host)
{
    d_ptr_->b_sort_by_host_ = by_host;
    d_ptr_->ptr_page_proxy_->SetSorted(!d_ptr_->b_paging_ && !by_host);
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
    const bool is_other = page != d_ptr_->current_page_;
    d_ptr_->current_page_ = page;
    if (d_ptr_->announced_page_ != 0)
        return; // from a slot: the call that emits goes on with this page
    const QPointer<CFilterTreeViewEx> self(this);
    for (int times = 0; times < 2 && d_ptr_->announced_page_ != d_ptr_->current_page_; ++times) {
        d_ptr_->announced_page_ = d_ptr_->current_page_;
        const bool is_last = d_ptr_->current_page_ == d_ptr_->total_pages_;
        Q_EMIT SignalUpdateMaxMinPage(d_ptr_->current_page_ != 1, !is_last);
        if (!self)
            return;
    }
    d_ptr_->announced_page_ = 0;
    d_ptr_->ptr_page_proxy_->SetPageFilter(Ravel::PageTag(d_ptr_->current_page_));
    if (self && is_other)
        scrollToTop();
}

void CFilterTreeViewEx::SetFilterKeyWord(const QString &keyword)
{
    Change([this, &keyword] { d_ptr_->ptr_keyword_proxy_->SetKeyWordFilter(keyword); });
}

void CFilterTreeViewEx::SetFilterKeyWords(std::vector<QStringList> &lists)
{
    Change([this, &lists] { d_ptr_->ptr_keyword_proxy_->SetKeyWordsFilter(lists); });
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

void CFilterTreeViewEx::DoPaging()
{
    Change([] {});
}

// Runs `step`, which changes the list, and then the paging pass. Slots may call this again
// from every signal on the way: their steps run at once, and one more pass follows for all of them.
void CFilterTreeViewEx::Change(const std::function<void()> &step)
{
    constexpr int kMostPasses = 2;
    const QPointer<CFilterTreeViewEx> self(this);
    if (!d_ptr_->ptr_model_ || !d_ptr_->b_paging_) {
        step();
        return;
    }
    if (d_ptr_->pass_ != Pass::Idle) {
        d_ptr_->pass_ = Pass::RunningAnotherFollows;
        step();
        return;
    }
    d_ptr_->pass_ = Pass::Running;
    CutPages(step);
    for (int pass = 1; self && pass < kMostPasses && d_ptr_->pass_ != Pass::Running; ++pass) {
        d_ptr_->pass_ = Pass::Running;
        CutPages([] {});
    }
    // A slot that asks for a pass at each pass would hold the caller for ever.
    if (self && std::exchange(d_ptr_->pass_, Pass::Idle) == Pass::RunningAnotherFollows)
        QMetaObject::invokeMethod(this, &CFilterTreeViewEx::DoPaging, Qt::QueuedConnection);
}

void CFilterTreeViewEx::CutPages(const std::function<void()> &step)
{
    const QPointer<CFilterTreeViewEx> self(this);
    {
        // The view is notified of one change, not of each step.
        const CProxyHold hold(d_ptr_->ptr_page_proxy_);
        step();
        if (!self || !d_ptr_->ptr_model_)
            return;
        const int pages = d_ptr_->ptr_keyword_proxy_->CutPages(d_ptr_->rows_per_page_);
        if (!self)
            return;
        d_ptr_->total_pages_ = pages;
        d_ptr_->current_page_ = 1;
        d_ptr_->ptr_page_proxy_->SetPageFilter(Ravel::PageTag(1));
    }
    if (self)
        Q_EMIT SignalPageReset(TopLevelItemCount(), d_ptr_->total_pages_);
}

void CFilterTreeViewEx::resizeEvent(QResizeEvent *event)
{
    CTableView::resizeEvent(event);
    // The sizes of the event are the viewport's, which a scroll bar changes, too.
    if (height() == d_ptr_->last_height_px_)
        return;
    d_ptr_->last_height_px_ = height();
    if (!d_ptr_->ptr_model_)
        return;
    const QPointer<CFilterTreeViewEx> self(this);
    CaculateAdaptiveHight();
    Change([this] { d_ptr_->ptr_keyword_proxy_->DoFilter(); });
    if (self)
        Q_EMIT SignalSizeChanged();
}

void CFilterTreeViewEx::OnSortIndicatorChanged(int column, Qt::SortOrder order)
{
    Change([this, column, order] {
        const Ravel::CTreeViewModel *const model = d_ptr_->ptr_model_;
        const bool is_quick = !model || model->rowCount() < kRowsWorthWaiting || !d_ptr_->b_paging_
                              || model->HasRanks(column);
        const QPointer<CFilterTreeViewEx> self(this);
        {
            const CWaitCursor cursor(!is_quick);
            if (d_ptr_->b_paging_) {
                d_ptr_->ptr_keyword_proxy_->setSortRole(Qt::DisplayRole);
                d_ptr_->ptr_keyword_proxy_->sort(column, order);
            } else {
                d_ptr_->ptr_page_proxy_->sort(column, order);
            }
        }
        if (self)
            Q_EMIT SignalDataSort();
    });
}

} // namespace Vantor
