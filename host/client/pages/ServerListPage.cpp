// SPDX-License-Identifier: MIT
#include "pages/ServerListPage.h"

#include "link/ServerLink.h"
#include "pages/OuterScrollBar.h"

#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CMutiPageWidget>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace Client {
namespace {

constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 12;
constexpr int kSearchWidthPx = 320;
constexpr int kWidestColumnPx = 240;

} // namespace

CServerListPage::CServerListPage(QWidget *parent)
    : CPage(parent), model_(new Ravel::CTreeViewModel(this)), source_(new CPageSource(this)),
      search_(new QLineEdit(this)), total_known_(new QCheckBox(this)), state_(new QLabel(this))
{
    search_->setObjectName(QStringLiteral("ServerSearch"));
    search_->setFixedWidth(kSearchWidthPx);
    total_known_->setObjectName(QStringLiteral("TotalKnown"));
    total_known_->setChecked(true);
    state_->setObjectName(QStringLiteral("ServerState"));
    auto *const head = new QHBoxLayout;
    head->setSpacing(kSpacingPx);
    head->addWidget(search_);
    head->addWidget(total_known_);
    head->addStretch(1);
    head->addWidget(state_);
    auto *const page = new QVBoxLayout(this);
    page->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, 0);
    page->setSpacing(kSpacingPx);
    page->addLayout(head);
    connect(search_, &QLineEdit::returnPressed, this, &CServerListPage::OnAskFirst);
    connect(total_known_, &QCheckBox::toggled, this, &CServerListPage::OnTotalKnown);
    connect(source_, &CPageSource::SignalPage, this, &CServerListPage::OnPage);
    if (CServerLink *const link = CServerLink::Current()) {
        connect(link, &CServerLink::SignalUserChanged, this, &CServerListPage::OnAskFirst);
        connect(link, &CServerLink::SignalFailed, this, &CServerListPage::OnNoServer);
    }
    Build();
    Ask(1);
}

void CServerListPage::Build()
{
    built_for_ = QGuiApplication::layoutDirection();
    list_ = new Vantor::CMutiPageWidget(this);
    layout()->addWidget(list_);
    list_->SetFilterEnabled(false); // the server cuts the pages
    list_->SetPageSeen(total_known_->isChecked());
    list_->SetNextByTotal(true);
    list_->SetRecordsVisible(true);
    list_->SetModel(model_);
    Vantor::CFilterTreeViewEx *const table = list_->GetTreeView();
    table->setAlternatingRowColors(true);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    new COuterScrollBar(*table);
    table->header()->setSectionsClickable(false); // a page sorted by itself would mislead
    table->header()->setSortIndicatorShown(false);
    connect(list_, &Vantor::CMutiPageWidget::SignalPageChanged, this,
            &CServerListPage::OnAskCurrent);
    connect(list_, &Vantor::CMutiPageWidget::SignalErrorInfo, this,
            &CServerListPage::SignalMessage);
    connect(list_->GetItemPerPageComboBox(), qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CServerListPage::OnAskFirst);
    connect(table, &Vantor::CFilterTreeViewEx::SignalSizeChanged, this,
            &CServerListPage::OnSizeChanged);
    Retranslate();
}

void CServerListPage::Ask(int page)
{
    asked_rows_ = list_->GetItemsPerPage();
    const CServerLink *const link = CServerLink::Current();
    is_waiting_ = link;
    state_->setText(link ? tr("Loading…") : tr("There is no server."));
    if (link && !link->User().isEmpty()) // else asked when somebody has been let in
        source_->Ask({page, asked_rows_, search_->text().trimmed()});
}

void CServerListPage::OnAskCurrent()
{
    Ask(list_->GetCurrentPage());
}

void CServerListPage::OnAskFirst()
{
    Ask(1);
}

void CServerListPage::OnSizeChanged()
{
    if (list_->GetItemsPerPage() != asked_rows_)
        Ask(1);
}

void CServerListPage::OnNoServer()
{
    if (CServerLink::Current()->User().isEmpty()) {
        is_waiting_ = false;
        state_->setText(tr("There is no server."));
    }
}

void CServerListPage::OnTotalKnown(bool known)
{
    list_->SetPageSeen(known);
    OnAskCurrent();
}

void CServerListPage::OnPage(const ServerPage &page)
{
    is_waiting_ = false;
    state_->setText(page.error);
    if (!page.error.isEmpty())
        return; // what was there stays
    list_->InitTreeView();
    const bool is_other_list = page.titles != titles_;
    if (is_other_list)
        model_->SetHorizontalHeaderLabels(page.titles);
    titles_ = page.titles;
    QList<Ravel::CTreeViewItem *> items;
    for (const QStringList &row : page.rows)
        items.append(new Ravel::CTreeViewItem(row));
    list_->OnUpdatePageInfo(page.total, page.page);
    list_->AddTopLevelItems(items);
    if (is_other_list)
        FitColumns();
}

void CServerListPage::FitColumns()
{
    Vantor::CFilterTreeViewEx *const table = list_->GetTreeView();
    for (int column = 0; column < titles_.size(); ++column) {
        table->resizeColumnToContents(column);
        table->setColumnWidth(column, std::min(table->columnWidth(column), kWidestColumnPx));
    }
}

void CServerListPage::changeEvent(QEvent *event)
{
    CPage::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    // The bar was made for one direction; Qt is still turning it when it tells.
    if (event->type() == QEvent::LayoutDirectionChange)
        QMetaObject::invokeMethod(this, &CServerListPage::OnRebuild, Qt::QueuedConnection);
}

void CServerListPage::OnRebuild()
{
    if (QGuiApplication::layoutDirection() == built_for_)
        return;
    const int choice = list_->GetItemPerPageComboBox()->currentIndex();
    const QByteArray columns = list_->GetTreeView()->header()->saveState();
    delete list_;
    Build();
    list_->GetTreeView()->header()->restoreState(columns);
    list_->GetItemPerPageComboBox()->setCurrentIndex(choice);
    Ask(1);
}

void CServerListPage::Retranslate()
{
    search_->setPlaceholderText(tr("Search on the server"));
    search_->setAccessibleName(tr("Search on the server"));
    total_known_->setText(tr("Count the pages"));
    total_known_->setToolTip(tr("Off: turn page by page, as with a server that cannot count"));
    list_->GetTreeView()->setAccessibleName(tr("Incidents"));
    if (is_waiting_)
        state_->setText(tr("Loading…"));
}

} // namespace Client
