// SPDX-License-Identifier: MIT
// The search field and the table of the page.
#include "list/IncidentModel.h"
#include "pages/ListPage.h"
#include "pages/MatchDelegate.h"
#include "pages/OuterScrollBar.h"
#include "pages/TableColumns.h"

#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>

#include <QtWidgets/QAction>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace Client {
namespace {

constexpr int kSearchWidthPx = 200;
constexpr int kMeasuredRows = 200;

} // namespace

void CListPage::BuildSearch()
{
    search_icon_ = new QAction(Search());
    Search()->setMinimumWidth(kSearchWidthPx);
    Search()->setClearButtonEnabled(true);
    Search()->addAction(search_icon_, QLineEdit::LeadingPosition);
    Search()->installEventFilter(this);
    connect(Search(), &QLineEdit::textChanged, this, &CListPage::OnTyped);
}

void CListPage::BuildTable()
{
    Vantor::CFilterTreeViewEx *const table = Table();
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setItemDelegate(delegate_);
    new COuterScrollBar(*table);
    table->header()->setResizeContentsPrecision(kMeasuredRows);
    connect(table, &Vantor::CFilterTreeViewEx::SignalPageReset, this, &CListPage::OnPageReset);
    connect(table, &QAbstractItemView::clicked, this, &CListPage::SignalRowChosen);
    connect(table, &QAbstractItemView::activated, this, &CListPage::SignalRowChosen);

    columns_ = new CTableColumns(
        QStringLiteral("List"),
        [this](int column) { return model_->List()->Texts(model_->ListColumn(column)); }, *table,
        *this);

    nothing_found_ = new QLabel(table->viewport());
    nothing_found_->setObjectName(QStringLiteral("NothingFound"));
    nothing_found_->setAlignment(Qt::AlignCenter);
    nothing_found_->hide();
    (new QVBoxLayout(table->viewport()))->addWidget(nothing_found_);
}

} // namespace Client
