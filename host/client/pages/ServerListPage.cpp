// SPDX-License-Identifier: MIT
#include "pages/ServerListPage.h"

#include "export/ServerExport.h"
#include "link/ServerLink.h"
#include "pages/TableColumns.h"

#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CListExport>
#include <Vantor/CMutiPageWidget>

#include <QtCore/QLocale>
#include <QtWidgets/QAction>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <numeric>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 12;
constexpr auto kSettleTime = 150ms;
constexpr auto kLookTime = 15s;
constexpr auto kRetryTime = 3s;

// Without being asked to: the cause may be gone soon.
bool IsWorthAnotherTry(PageError error)
{
    return error == PageError::NoReply || error == PageError::Busy || error == PageError::Other;
}

bool MayUserTryAgain(PageError error)
{
    return IsWorthAnotherTry(error) || error == PageError::Unfinished;
}

// For a button or a menu, where a single ampersand underlines the next letter.
QString Plain(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

CServerListPage::CServerListPage(QWidget *parent)
    : CPage(parent), model_(new Ravel::CTreeViewModel(this)), source_(new CPageSource(this)),
      search_(new QLineEdit(this)), search_icon_(new QAction(search_)),
      order_(new QPushButton(this)), orders_(new QMenu(order_)), total_known_(new QCheckBox(this)),
      state_(new QLabel(this)), retry_(new QPushButton(this)), new_rows_(new QPushButton(this))
{
    auto *const page = new QVBoxLayout(this);
    page->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, 0);
    page->setSpacing(kSpacingPx);
    BuildHead();
    BuildState();
    settle_.setSingleShot(true);
    settle_.setInterval(kSettleTime);
    look_.setSingleShot(true);
    connect(&settle_, &QTimer::timeout, this, &CServerListPage::OnSettled);
    connect(&look_, &QTimer::timeout, this, &CServerListPage::OnLook);
    connect(source_, &CPageSource::SignalAnswered, this, &CServerListPage::OnAnswered);
    if (const CServerLink *const link = CServerLink::Current()) {
        connect(link, &CServerLink::SignalUserChanged, this, &CServerListPage::OnUserChanged);
        connect(link, &CServerLink::SignalFailed, this, &CServerListPage::ShowState);
    }
    auto *const escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, search_, &QLineEdit::clear);
    Build();
    Ask(1);
}

Vantor::CFilterTreeViewEx *CServerListPage::Table() const
{
    return list_->GetTreeView();
}

void CServerListPage::Ask(int page)
{
    const CServerLink *const link = CServerLink::Current();
    if (link && !link->User().isEmpty()) // else asked when somebody has been let in
        Do(fetch_.Show(query_, page, list_->GetItemsPerPage()));
    else
        Do(fetch_.Forget());
}

void CServerListPage::Do(const FetchStep &step)
{
    if (step.is_breaking_off)
        source_->BreakOff();
    if (step.sends)
        source_->Send(step.ticket, *step.sends);
    if (step.shows && step.shows->error == PageError::None)
        ShowPage(*step.shows);
    else if (step.shows)
        ShowFailure();
    look_.start(fetch_.Now() == CPageFetch::Phase::Failed ? kRetryTime : kLookTime);
    ShowState();
}

void CServerListPage::OnAnswered(int ticket, const ServerPage &page)
{
    Do(fetch_.Answer(ticket, page));
}

void CServerListPage::OnTyped()
{
    Do(fetch_.Outdate());
    settle_.start();
}

void CServerListPage::OnSettled()
{
    settle_.stop();
    const QString text = search_->text().trimmed();
    const bool is_other = text != query_.filter;
    query_.filter = text;
    Ask(is_other ? 1 : PageOfFirstRow());
}

// The page that shows, with as many rows as fit now, the row that was on top.
int CServerListPage::PageOfFirstRow() const
{
    const PageRequest &shown = fetch_.Request();
    return (shown.page - 1) * shown.rows_per_page / list_->GetItemsPerPage() + 1;
}

void CServerListPage::OnPageChosen()
{
    if (settle_.isActive())
        OnSettled(); // a page of the earlier search would not match the typed text
    else
        Ask(list_->GetCurrentPage());
}

void CServerListPage::OnRowsPerPage()
{
    if (list_->GetItemsPerPage() != fetch_.Wanted().rows_per_page)
        settle_.start();
}

void CServerListPage::OnHeaderSorted()
{
    const QHeaderView &header = *Table()->header();
    SetOrder(header.sortIndicatorSection(), header.sortIndicatorOrder() == Qt::DescendingOrder);
}

void CServerListPage::SetOrder(int column, bool is_descending)
{
    const ListQuery last = query_;
    query_.sort_column = column;
    query_.is_descending = is_descending;
    if (query_ == last)
        return; // the header reports our own change
    Table()->header()->setSortIndicator(column,
                                        is_descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    settle_.stop();
    query_.filter = search_->text().trimmed();
    Ask(1);
}

void CServerListPage::OnNewRows()
{
    query_ = fetch_.Request().query;
    query_.sort_column = -1;
    query_.is_descending = true;
    Table()->header()->setSortIndicator(-1, Qt::DescendingOrder);
    Do(fetch_.ShowNow(query_, 1, list_->GetItemsPerPage()));
}

void CServerListPage::OnRetry()
{
    Do(fetch_.Retry());
}

void CServerListPage::OnLook()
{
    const bool is_failed = fetch_.Now() == CPageFetch::Phase::Failed;
    if (isVisible())
        Do(is_failed && IsWorthAnotherTry(fetch_.Error().error) ? fetch_.Retry()
                                                                : fetch_.LookForNew());
}

void CServerListPage::OnTotalKnown()
{
    list_->SetPageSeen(total_known_->isChecked() && fetch_.Page().is_total_exact);
    ShowBar();
    ShowState();
}

void CServerListPage::OnUserChanged()
{
    columns_->OnUserChanged();
    Do(fetch_.Forget());
    Ask(1);
}

void CServerListPage::ShowPage(const ServerPage &page)
{
    Vantor::CFilterTreeViewEx *const table = Table();
    const int column = table->currentIndex().column();
    list_->SetPageSeen(total_known_->isChecked() && page.is_total_exact);
    list_->InitTreeView();
    const bool is_other_list = page.titles != titles_;
    if (is_other_list)
        model_->SetHorizontalHeaderLabels(page.titles);
    titles_ = page.titles;
    QList<Ravel::CTreeViewItem *> items;
    for (const QStringList &row : page.rows)
        items.append(new Ravel::CTreeViewItem(row));
    list_->OnUpdatePageInfo(page.total, fetch_.Request().page);
    list_->AddTopLevelItems(items);
    ShowBar();
    if (is_other_list) {
        columns_->OnListChanged(AllColumns());
        // The header is higher with titles, so fewer rows may fit.
        list_->OnItemPerPageChanged(list_->GetItemPerPageComboBox()->currentIndex());
        OnRowsPerPage();
    }
    // With the keyboard, a user goes on from the first row.
    if (column >= 0 && table->hasFocus())
        table->setCurrentIndex(table->model()->index(0, column));
}

void CServerListPage::ShowFailure()
{
    if (IsSameSearch()) {
        ShowBar(); // the page that was there stays
        return;
    }
    list_->ClearAllItems(); // rows of another search would mislead
    list_->OnUpdateMaxMinPage(false, false);
}

// Whether the rows that are shown are those that the user asks for.
bool CServerListPage::IsSameSearch() const
{
    return fetch_.Wanted().query == fetch_.Request().query;
}

void CServerListPage::ShowBar()
{
    const ServerPage &page = fetch_.Page();
    const int number = fetch_.Request().page;
    list_->OnUpdatePageInfo(page.total, number);
    const bool is_total_known = total_known_->isChecked() && page.is_total_exact;
    if (!is_total_known && !page.moment.isEmpty()) // else a full page suggests another one
        list_->OnUpdateMaxMinPage(number > 1, !page.next.isEmpty());
}

void CServerListPage::ShowState()
{
    const bool is_failed = fetch_.Now() == CPageFetch::Phase::Failed;
    const ServerPage &page = fetch_.Page();
    state_->setText(StateText());
    state_->setToolTip(state_->text()); // in a narrow window its end cannot be seen
    retry_->setVisible(is_failed && MayUserTryAgain(fetch_.Error().error));
    new_rows_->setVisible(page.new_rows > 0 && IsSameSearch());
    new_rows_->setText(page.are_new_rows_exact ? tr("%Ln new", nullptr, page.new_rows)
                                               : tr("More than %Ln new", nullptr, page.new_rows));
    order_->setText(tr("Order: %1").arg(Plain(OrderText())));
}

QString CServerListPage::StateText() const
{
    const CServerLink *const link = CServerLink::Current();
    switch (fetch_.Now()) {
    case CPageFetch::Phase::Idle:
        return link && link->IsConnecting() ? tr("Loading…") : tr("There is no server.");
    case CPageFetch::Phase::Loading:
        return tr("Loading…");
    case CPageFetch::Phase::Failed:
        return PageErrorText(fetch_.Error());
    case CPageFetch::Phase::Shown:
        break;
    }
    const int rows = model_->rowCount();
    if (rows == 0)
        return tr("Nothing found");
    const PageRequest &shown = fetch_.Request();
    const int first = (shown.page - 1) * shown.rows_per_page + 1;
    const QLocale locale;
    const QString range =
        tr("Rows %1 to %2").arg(locale.toString(first), locale.toString(first + rows - 1));
    if (!fetch_.Page().is_total_exact)
        return tr("%1 of more than %2").arg(range, locale.toString(fetch_.Page().total));
    return total_known_->isChecked()
               ? tr("%1 of %2").arg(range, locale.toString(fetch_.Page().total))
               : range;
}

QString CServerListPage::OrderText() const
{
    return query_.sort_column < 0 ? query_.is_descending ? tr("Newest first") : tr("Oldest first")
                                  : titles_.value(query_.sort_column);
}

void CServerListPage::OnOrdersOpen()
{
    orders_->clear();
    const auto add = [this](const QString &name, const ListQuery &order) {
        QAction *const action = orders_->addAction(Plain(name));
        action->setCheckable(true);
        action->setChecked(name == OrderText());
        connect(action, &QAction::triggered, this,
                [this, order] { SetOrder(order.sort_column, order.is_descending); });
    };
    add(tr("Newest first"), {{}, -1, true});
    add(tr("Oldest first"), {{}, -1, false});
    orders_->addSeparator();
    for (int column = 0; column < titles_.size(); ++column) // again: the other way round
        add(titles_.at(column),
            {{}, column, column == query_.sort_column && !query_.is_descending});
}

bool CServerListPage::IsLoading() const
{
    const CServerLink *const link = CServerLink::Current();
    const auto phase = fetch_.Now();
    return settle_.isActive() || phase == CPageFetch::Phase::Loading
           || (phase == CPageFetch::Phase::Idle && link && link->IsConnecting());
}

std::optional<RowTotal> CServerListPage::Rows() const
{
    return RowTotal{fetch_.Page().total, fetch_.Page().is_total_exact};
}

void CServerListPage::SetRows(Vantor::CListExport &job)
{
    if (settle_.isActive())
        OnSettled();
    if (fetch_.Now() == CPageFetch::Phase::Shown) {
        SetServerRows(job, fetch_.Request(), fetch_.Page());
    } else { // not how many, but what
        ServerPage unknown;
        unknown.titles = titles_;
        unknown.is_total_exact = false;
        SetServerRows(job, fetch_.Wanted(), unknown);
    }
    job.SetColumns(VisibleColumns(*Table()));
}

QVector<int> CServerListPage::AllColumns() const
{
    QVector<int> columns(titles_.size());
    std::iota(columns.begin(), columns.end(), 0);
    return columns;
}

QVector<QString> CServerListPage::TextsOf(int column) const
{
    QVector<QString> texts;
    for (int row = 0; row < model_->rowCount(); ++row)
        texts.append(model_->index(row, column).data().toString());
    return texts;
}

void CServerListPage::showEvent(QShowEvent *event)
{
    CPage::showEvent(event);
    OnThemeChanged(); // the style sheet has been applied to the children just before
    if (!look_.isActive())
        OnLook();
}

} // namespace Client
