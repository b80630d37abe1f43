// SPDX-License-Identifier: MIT
#include "ListPage.h"

#include "ListModel.h"
#include "MatchDelegate.h"
#include "ShareBar.h"
#include "Theme.h"

#include <Vantor/CStyleManager>

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace Client {
namespace {

constexpr int kRowHeightPx = 32;
constexpr int kWidestColumnPx = 240;
constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 12;
constexpr int kSearchWidthPx = 420;
constexpr int kMeasuredRows = 200;

bool IsKey(const QEvent &event, QEvent::Type type, Qt::Key key)
{
    return event.type() == type && static_cast<const QKeyEvent &>(event).key() == key;
}

} // namespace

CListPage::CListPage(QWidget *parent)
    : QWidget(parent), model_(new CListModel(this)), delegate_(new CMatchDelegate(this)),
      search_(new QLineEdit(this)), search_icon_(new QAction(this)), share_(new CShareBar(this)),
      total_(new QLabel(this)), table_(new QTableView(this)),
      nothing_found_(new QLabel(table_->viewport()))
{
    search_->setObjectName(QStringLiteral("SearchField"));
    search_->setClearButtonEnabled(true);
    search_->setMaximumWidth(kSearchWidthPx);
    search_->addAction(search_icon_, QLineEdit::LeadingPosition);
    search_->installEventFilter(this);
    connect(search_, &QLineEdit::textChanged, this, &CListPage::OnSearch);
    auto *const escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, search_, &QLineEdit::clear);
    total_->setObjectName(QStringLiteral("TotalLabel"));
    BuildTable();

    auto *const head = new QHBoxLayout;
    head->setSpacing(kSpacingPx);
    head->addWidget(search_, 1);
    head->addStretch(0);
    head->addWidget(share_);
    head->addWidget(total_);
    auto *const page = new QVBoxLayout(this);
    page->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    page->setSpacing(kSpacingPx);
    page->addLayout(head);
    page->addWidget(table_, 1);
    setTabOrder(search_, table_);
    Retranslate();
}

void CListPage::BuildTable()
{
    table_->setObjectName(QStringLiteral("IncidentTable"));
    table_->setModel(model_);
    table_->setItemDelegate(delegate_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setTabKeyNavigation(false); // Tab leaves the table, the arrow keys move in it
    table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(kRowHeightPx);
    QHeaderView *const header = table_->horizontalHeader();
    header->setHighlightSections(false);
    header->setResizeContentsPrecision(kMeasuredRows);
    header->setSortIndicator(-1, Qt::AscendingOrder); // the order of the file
    table_->setSortingEnabled(true);

    nothing_found_->setObjectName(QStringLiteral("NothingFound"));
    nothing_found_->setAlignment(Qt::AlignCenter);
    nothing_found_->hide();
    auto *const middle = new QVBoxLayout(table_->viewport());
    middle->addWidget(nothing_found_);
}

void CListPage::SetList(IncidentListPtr list)
{
    RestoreOrder();
    model_->SetList(std::move(list));
    table_->scrollToTop();
    FitColumns();
    UpdateTotal();
}

void CListPage::SetFilter(const QString &text)
{
    search_->setText(text);
}

IncidentRows CListPage::Rows() const
{
    return model_->Rows();
}

void CListPage::FocusSearch()
{
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
}

bool CListPage::CanCopy() const
{
    return search_->hasFocus() ? search_->hasSelectedText() : table_->currentIndex().isValid();
}

void CListPage::Copy()
{
    if (search_->hasFocus())
        search_->copy();
    else if (CanCopy())
        QGuiApplication::clipboard()->setText(table_->currentIndex().data().toString());
}

bool CListPage::CanSelectAll() const
{
    return search_->hasFocus() && !search_->text().isEmpty();
}

void CListPage::SelectAll()
{
    if (CanSelectAll())
        search_->selectAll();
}

void CListPage::RestoreOrder()
{
    table_->sortByColumn(-1, Qt::AscendingOrder);
}

void CListPage::OnThemeChanged()
{
    search_icon_->setIcon(CThemeSwitch::Icon(QStringLiteral("search")));
    // The text colour of a style sheet is the placeholder's too (Qt 5.15).
    QPalette palette = search_->palette();
    palette.setColor(QPalette::PlaceholderText,
                     Nim::Base::CSingleton<Vantor::CStyleManager>::Instance().TextNeuColorT2());
    search_->setPalette(palette);
}

void CListPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    OnThemeChanged(); // the style sheet has been applied to the children just before
}

void CListPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

bool CListPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == search_ && IsKey(*event, QEvent::KeyPress, Qt::Key_Down)) {
        table_->setFocus(Qt::OtherFocusReason);
        return true;
    }
    // On X11 a line edit would take Ctrl+E for the end of the line, and the menu never hear of it.
    if (watched == search_ && IsKey(*event, QEvent::ShortcutOverride, Qt::Key_E)) {
        event->ignore();
        return true;
    }
    // A line edit turns itself round after the text that is typed, its icons too, and stays so. The
    // text finds its own side without that.
    if (watched == search_ && event->type() == QEvent::LayoutDirectionChange
        && search_->testAttribute(Qt::WA_SetLayoutDirection))
        search_->unsetLayoutDirection();
    return QWidget::eventFilter(watched, event);
}

void CListPage::OnSearch(const QString &text)
{
    const QModelIndex current = table_->currentIndex();
    const int list_row = current.isValid() ? model_->ListRow(current.row()) : -1;
    delegate_->SetSearchText(text.trimmed());
    model_->SetFilter(text.trimmed());
    const int row = list_row < 0 ? -1 : model_->RowOf(list_row);
    if (row >= 0)
        table_->setCurrentIndex(model_->index(row, current.column()));
    table_->viewport()->update();
    UpdateTotal();
}

void CListPage::Retranslate()
{
    search_->setPlaceholderText(tr("Search all columns"));
    search_->setAccessibleName(tr("Search"));
    search_->setToolTip(tr("Shows the incidents that hold this text. Escape clears it."));
    table_->setAccessibleName(tr("Incidents"));
    total_->setAccessibleName(tr("Shown incidents"));
    nothing_found_->setText(tr("No incident holds this text"));
    UpdateTotal();
}

void CListPage::UpdateTotal()
{
    const int shown = model_->rowCount();
    const int total = model_->TotalCount();
    total_->setText(tr("%1 of %2").arg(QLocale().toString(shown), QLocale().toString(total)));
    share_->SetShare(total > 0 ? double(shown) / total : 0);
    nothing_found_->setVisible(shown == 0 && total > 0);
}

void CListPage::FitColumns()
{
    table_->resizeColumnsToContents();
    for (int column = 0; column < model_->columnCount(); ++column)
        table_->setColumnWidth(column, std::min(table_->columnWidth(column), kWidestColumnPx));
}

} // namespace Client
