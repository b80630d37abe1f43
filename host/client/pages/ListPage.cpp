// SPDX-License-Identifier: MIT
#include "pages/ListPage.h"

#include "list/IncidentModel.h"
#include "look/Theme.h"
#include "pages/MatchDelegate.h"
#include "pages/PaintedAccess.h"
#include "pages/ShareBar.h"
#include "pages/TableColumns.h"

#include <Vantor/CComboBoxEx>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CMutiPageWidgetEx>
#include <Vantor/CStyleManager>

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace Client {
namespace {

constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 12;
constexpr int kMainColumn = 1;
constexpr int kSubColumn = 2;
constexpr int kRowsWorthWaiting = 50000;

bool IsKey(const QEvent &event, QEvent::Type type, Qt::Key key)
{
    return event.type() == type && static_cast<const QKeyEvent &>(event).key() == key;
}

} // namespace

CListPage::CListPage(QWidget *parent)
    : QWidget(parent), model_(new CIncidentModel(this)), delegate_(new CMatchDelegate(this)),
      totals_(new QWidget(this)), share_(new CShareBar(totals_)), total_(new QLabel(totals_))
{
    InstallPaintedAccess(); // this page is made before the other ones
    total_->setObjectName(QStringLiteral("TotalLabel"));
    totals_->hide();
    auto *const totals = new QHBoxLayout(totals_);
    totals->setContentsMargins(kMarginPx, 0, kMarginPx, 0);
    totals->setSpacing(kSpacingPx);
    totals->addWidget(share_);
    totals->addWidget(total_);
    auto *const page = new QVBoxLayout(this);
    page->setContentsMargins(kMarginPx, kMarginPx / 2, kMarginPx, 0);
    model_->SetList(std::make_shared<CIncidentList>(QVector<IncidentColumn>()));
    model_->PrepareRanks();
    typed_.setSingleShot(true);
    typed_.setInterval(0); // after the keys that wait already
    connect(&typed_, &QTimer::timeout, this, &CListPage::OnSearch);
    auto *const escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] { Search()->clear(); });
    Build({});
}

QLineEdit *CListPage::Search() const
{
    return list_->GetFilterWidget()->GetKeyWordEdit();
}

Vantor::CMutiPageWidget *CListPage::Paging() const
{
    return list_->GetMutiPageWidget();
}

Vantor::CFilterTreeViewEx *CListPage::Table() const
{
    return Paging()->GetTreeView();
}

void CListPage::Build(const QString &keyword)
{
    built_for_ = QGuiApplication::layoutDirection();
    list_ = new Vantor::CMutiPageWidgetEx(this);
    layout()->addWidget(list_);
    list_->SetRelatedIndex(kMainColumn, kSubColumn);
    list_->SetModel(model_);
    list_->OnShowHideBtnClicked(); // unfold
    list_->SetKeyWord(keyword);    // before its clear button is there, which would fade in
    Vantor::CFilterWidgetEx &filter = *list_->GetFilterWidget();
    filter.GetMainTypeComboBox()->SetInBackground(true);
    filter.GetSubTypeComboBox()->SetInBackground(true);
    filter.GetSubTypeComboBox()->SetMainTypes(filter.GetMainTypeComboBox());
    filter.GetMoreBtn()->hide(); // there is no more to filter by
    Paging()->SetPageSeen(true);
    Paging()->SetNextByTotal(true);
    Paging()->SetFilterEnabled(true);
    BuildSearch();
    BuildTable();
    connect(list_, &Vantor::CMutiPageWidgetEx::SignalFilterWithKeyWords, this,
            &CListPage::OnFilterByTypes);
    connect(list_, &Vantor::CMutiPageWidgetEx::SignalClearFilter, this, &CListPage::OnClearFilter);
    connect(list_->GetFilterWidget(), &Vantor::CFilterWidgetEx::SignalFilterWithKeyWord, this,
            &CListPage::ShowKeyWord);
    Paging()->SetModel(model_);
    Retranslate();
    OnThemeChanged();
}

void CListPage::SetList(IncidentListPtr list)
{
    const bool is_long = list->RowCount() >= kRowsWorthWaiting;
    if (is_long)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    RestoreOrder();
    Paging()->ClearAllItems();
    list_->ClearAllItems();
    model_->SetList(std::move(list));
    QList<Ravel::CTreeViewItem *> items = model_->NewItems(0, model_->List()->RowCount());
    Paging()->AddTopLevelItems(items); // which also ends an earlier search
    FillTypes();
    columns_->OnListChanged(model_->ViewOrder());
    OnSearch();
    if (is_long)
        QGuiApplication::restoreOverrideCursor();
}

void CListPage::FillTypes()
{
    list_->GetFilterWidget()->GetMainTypeComboBox()->setEnabled(model_->HasTypes());
    list_->GetFilterWidget()->GetSubTypeComboBox()->setEnabled(model_->HasTypes());
    if (model_->HasTypes())
        list_->AddTopLevelItems();
}

void CListPage::SetFilter(const QString &text)
{
    list_->SetKeyWord(text);
    OnSearch();
}

IncidentRows CListPage::Rows()
{
    if (typed_.isActive())
        OnSearch();
    const std::vector<int> shown = Table()->GetBackupModel()->SourceRows();
    const QVector<int> rows(shown.cbegin(), shown.cend());
    QVector<int> columns = VisibleColumns(*Table());
    for (int &column : columns)
        column = model_->ListColumn(column);
    return {model_->List(), rows, filter_, columns};
}

void CListPage::FocusSearch()
{
    if (list_->GetFilterWidget()->isHidden())
        list_->OnShowHideBtnClicked();
    list_->GetFilterWidget()->FocusKeyWord();
}

bool CListPage::CanCopy() const
{
    return Search()->hasFocus() ? Search()->hasSelectedText() : Table()->currentIndex().isValid();
}

void CListPage::Copy()
{
    if (Search()->hasFocus())
        Search()->copy();
    else if (CanCopy())
        QGuiApplication::clipboard()->setText(Table()->currentIndex().data().toString().trimmed());
}

bool CListPage::CanSelectAll() const
{
    return Search()->hasFocus() && !Search()->text().isEmpty();
}

void CListPage::SelectAll()
{
    if (CanSelectAll())
        Search()->selectAll();
}

void CListPage::RestoreOrder()
{
    Table()->header()->setSortIndicator(-1, Qt::AscendingOrder);
}

void CListPage::OnUserChanged()
{
    columns_->OnUserChanged();
}

void CListPage::OnThemeChanged()
{
    search_icon_->setIcon(CThemeSwitch::Icon(QStringLiteral("search")));
    // The text colour of a style sheet is the placeholder's too (Qt 5.15).
    QPalette palette = Search()->palette();
    palette.setColor(QPalette::PlaceholderText,
                     Nim::Base::CSingleton<Vantor::CStyleManager>::Instance().TextNeuColorT2());
    Search()->setPalette(palette);
    delegate_->ForgetStyle();
}

void CListPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    OnThemeChanged(); // the style sheet has been applied to the children just before
    totals_->show();
}

// In the window's status bar, the totals would be taken for those of another page.
void CListPage::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    totals_->hide();
}

void CListPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    // The widgets are built for one direction. Rebuild later, because Qt sends this event while it
    // is still turning them.
    if (event->type() == QEvent::LayoutDirectionChange)
        QMetaObject::invokeMethod(this, &CListPage::OnRebuild, Qt::QueuedConnection);
}

void CListPage::OnRebuild()
{
    if (QGuiApplication::layoutDirection() == built_for_)
        return;
    const bool is_keyword = list_->IsKeyWord();
    const QString keyword = list_->GetKeyWord();
    const bool was_focused = Search()->hasFocus();
    const int choice = Paging()->GetItemPerPageComboBox()->currentIndex();
    const QStringList main_types = list_->GetSelectedMainType();
    const QStringList sub_types = list_->GetSelectedSubType();
    const bool is_by_types = !is_keyword && !filter_.isEmpty();
    Search()->removeEventFilter(this); // it hears of its end
    delete list_;
    Build(keyword);
    FillTypes();
    columns_->OnListChanged(model_->ViewOrder());
    Paging()->GetItemPerPageComboBox()->setCurrentIndex(choice);
    if (is_keyword) {
        SetFilter(keyword);
    } else {
        list_->GetFilterWidget()->SetByKeyWord(false);
        list_->SetSelectedMainType(main_types);
        list_->SetSelectedSubType(sub_types);
        if (is_by_types)
            OnFilterByTypes();
    }
    if (was_focused)
        FocusSearch();
}

bool CListPage::eventFilter(QObject *watched, QEvent *event)
{
    QLineEdit *const search = Search();
    if (watched != search)
        return QWidget::eventFilter(watched, event);
    if (IsKey(*event, QEvent::KeyPress, Qt::Key_Down)) {
        Table()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    // On X11 a line edit would take Ctrl+E for the end of the line, and the menu never hear of it.
    if (IsKey(*event, QEvent::ShortcutOverride, Qt::Key_E)) {
        event->ignore();
        return true;
    }
    // A line edit turns itself round after the text that is typed, its icons too, and stays so. The
    // text finds its own side without that.
    if (event->type() == QEvent::LayoutDirectionChange
        && search->testAttribute(Qt::WA_SetLayoutDirection))
        search->unsetLayoutDirection();
    return QWidget::eventFilter(watched, event);
}

void CListPage::OnTyped()
{
    if (model_->rowCount() >= kRowsWorthWaiting)
        typed_.start();
    else
        OnSearch();
}

void CListPage::OnSearch()
{
    typed_.stop();
    if (!list_->IsKeyWord())
        return;
    const QString keyword = Search()->text().trimmed();
    ShowKeyWord(keyword);
    list_->OnFilterWithKeyWord(keyword);
}

// What the list holds is filtered by the widget itself when the user presses the button.
void CListPage::ShowKeyWord(const QString &keyword)
{
    filter_ = keyword;
    delegate_->SetSearchText(keyword);
    Table()->viewport()->update(); // rows that stay have other matches to mark
}

void CListPage::OnFilterByTypes()
{
    typed_.stop();
    ShowKeyWord({});
    std::vector<QStringList> lists = TypeLists();
    if (!lists.empty()) {
        const Vantor::CFilterWidgetEx &filter = *list_->GetFilterWidget();
        filter_ = filter.GetMainTypeComboBox()->currentText() + QStringLiteral(" / ")
                  + filter.GetSubTypeComboBox()->currentText();
    }
    list_->OnFilterWithKeyWords(lists);
}

// Empty when everything is asked for.
std::vector<QStringList> CListPage::TypeLists() const
{
    if (!model_->HasTypes() || model_->List()->RowCount() == 0)
        return {};
    const auto count = [this](int column) {
        return model_->List()->Texts(model_->ListColumn(column)).size();
    };
    const QStringList main_types = list_->GetSelectedMainType();
    const QStringList sub_types = list_->GetSelectedSubType();
    if (main_types.size() == count(kMainColumn) && sub_types.size() == count(kSubColumn))
        return {};
    return {model_->Range(), main_types, sub_types};
}

void CListPage::OnClearFilter()
{
    typed_.stop();
    ShowKeyWord({});
    list_->OnFilterWithKeyWord({});
}

void CListPage::OnPageReset(int records)
{
    const int total = model_->rowCount();
    total_->setText(tr("%1 of %2").arg(QLocale().toString(records), QLocale().toString(total)));
    share_->SetShare(total > 0 ? double(records) / total : 0);
    nothing_found_->setVisible(records == 0 && total > 0);
}

void CListPage::Retranslate()
{
    Search()->setPlaceholderText(tr("Search all columns"));
    Search()->setToolTip(tr("Shows the incidents that hold this text. Escape clears it."));
    Table()->setAccessibleName(tr("Incidents"));
    total_->setAccessibleName(tr("Shown incidents"));
    share_->setAccessibleName(total_->accessibleName());
    nothing_found_->setText(tr("No incident matches"));
    OnPageReset(Paging()->TopLevelItemCount());
}

} // namespace Client
