// SPDX-License-Identifier: MIT
// How the page is built, and how it follows themes, languages and directions.
#include "look/Theme.h"
#include "pages/OuterScrollBar.h"
#include "pages/ServerListPage.h"
#include "pages/TableColumns.h"

#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CStyleManager>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

namespace Client {
namespace {

constexpr int kSpacingPx = 12;
constexpr int kSearchWidthPx = 320;
constexpr int kLongestSearch = 1000; // the server takes no longer text

} // namespace

void CServerListPage::BuildHead()
{
    search_->setObjectName(QStringLiteral("ServerSearch"));
    search_->setMaximumWidth(kSearchWidthPx);
    search_->setMaxLength(kLongestSearch);
    search_->setClearButtonEnabled(true);
    search_->addAction(search_icon_, QLineEdit::LeadingPosition);
    search_->installEventFilter(this);
    order_->setObjectName(QStringLiteral("ServerOrder"));
    order_->setAutoDefault(false);
    order_->setMenu(orders_);
    total_known_->setObjectName(QStringLiteral("TotalKnown"));
    total_known_->setChecked(true);
    auto *const head = new QHBoxLayout;
    head->setSpacing(kSpacingPx);
    head->addWidget(search_, 1);
    head->addWidget(order_);
    head->addWidget(total_known_);
    head->addStretch(0);
    static_cast<QVBoxLayout *>(layout())->addLayout(head);
    connect(search_, &QLineEdit::textChanged, this, &CServerListPage::OnTyped);
    connect(search_, &QLineEdit::returnPressed, this, &CServerListPage::OnSettled);
    connect(orders_, &QMenu::aboutToShow, this, &CServerListPage::OnOrdersOpen);
    connect(total_known_, &QCheckBox::toggled, this, &CServerListPage::OnTotalKnown);
}

// The line keeps its height, so that the rows that fit below do not change with its buttons: the
// one that is shown more often keeps its place when it is hidden.
void CServerListPage::BuildState()
{
    state_->setObjectName(QStringLiteral("ServerState"));
    state_->setMinimumWidth(1); // a long text must not widen the window
    retry_->setObjectName(QStringLiteral("ServerRetry"));
    new_rows_->setObjectName(QStringLiteral("NewRows"));
    auto *const line = new QHBoxLayout;
    line->setSpacing(kSpacingPx);
    line->addWidget(state_, 1);
    QSizePolicy policy = new_rows_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    new_rows_->setSizePolicy(policy);
    for (QPushButton *const button : {new_rows_, retry_}) {
        button->setAutoDefault(false);
        button->hide();
        line->addWidget(button);
    }
    static_cast<QVBoxLayout *>(layout())->addLayout(line);
    connect(retry_, &QPushButton::clicked, this, &CServerListPage::OnRetry);
    connect(new_rows_, &QPushButton::clicked, this, &CServerListPage::OnNewRows);
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
    Vantor::CFilterTreeViewEx *const table = Table();
    table->SetSortByHost(true); // a page sorted by itself would mislead
    table->setAlternatingRowColors(true);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    new COuterScrollBar(*table);
    columns_ = new CTableColumns(
        QStringLiteral("Server"), [this](int column) { return TextsOf(column); }, *table, *this);
    connect(list_, &Vantor::CMutiPageWidget::SignalPageChanged, this,
            &CServerListPage::OnPageChosen);
    connect(list_, &Vantor::CMutiPageWidget::SignalErrorInfo, this,
            &CServerListPage::SignalMessage);
    connect(list_->GetItemPerPageComboBox(), qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CServerListPage::OnRowsPerPage);
    connect(table, &Vantor::CFilterTreeViewEx::SignalSizeChanged, this,
            &CServerListPage::OnRowsPerPage);
    connect(table, &Vantor::CFilterTreeViewEx::SignalDataSort, this,
            &CServerListPage::OnHeaderSorted);
    Retranslate();
}

void CServerListPage::OnThemeChanged()
{
    search_icon_->setIcon(CThemeSwitch::Icon(QStringLiteral("search")));
    // The text colour of a style sheet is the placeholder's too (Qt 5.15).
    QPalette palette = search_->palette();
    palette.setColor(QPalette::PlaceholderText,
                     Nim::Base::CSingleton<Vantor::CStyleManager>::Instance().TextNeuColorT2());
    search_->setPalette(palette);
}

void CServerListPage::changeEvent(QEvent *event)
{
    CPage::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    // The bar is built for one direction. Rebuild later, because Qt sends this event while it is
    // still turning it.
    if (event->type() == QEvent::LayoutDirectionChange)
        QMetaObject::invokeMethod(this, &CServerListPage::OnRebuild, Qt::QueuedConnection);
}

bool CServerListPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == search_ && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down) {
        Table()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    // On X11 a line edit would take Ctrl+E for the end of the line, and the menu never hear of it.
    if (watched == search_ && event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_E) {
        event->ignore();
        return true;
    }
    // A line edit turns itself round after the text that is typed, its icons too, and stays so.
    if (watched == search_ && event->type() == QEvent::LayoutDirectionChange
        && search_->testAttribute(Qt::WA_SetLayoutDirection))
        search_->unsetLayoutDirection();
    return CPage::eventFilter(watched, event);
}

void CServerListPage::OnRebuild()
{
    if (QGuiApplication::layoutDirection() == built_for_)
        return;
    const int choice = list_->GetItemPerPageComboBox()->currentIndex();
    delete list_;
    Build();
    Table()->header()->setSortIndicator(
        query_.sort_column, query_.is_descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    if (!titles_.isEmpty())
        columns_->OnListChanged(AllColumns());
    list_->GetItemPerPageComboBox()->setCurrentIndex(choice);
    ShowBar();
    settle_.start();
}

void CServerListPage::Retranslate()
{
    search_->setPlaceholderText(tr("Search on the server"));
    search_->setAccessibleName(tr("Search on the server"));
    total_known_->setText(tr("Count the pages"));
    total_known_->setToolTip(tr("Off: turn page by page, as with a server that cannot count"));
    Table()->setAccessibleName(tr("Incidents"));
    retry_->setText(tr("Try again"));
    new_rows_->setToolTip(tr("Show the newest rows first"));
    ShowState();
}

} // namespace Client
