// SPDX-License-Identifier: MIT
#include "ui/MutiPageWidget/MutiPageWidget.h"

#include "common/DisconnectChildren.h"
#include "common/Translate.h"
#include "ui/FilterTreeViewEx/FilterTreeViewEx.h"
#include "ui/MutiPageWidget/MutiPageWidget_p.h"

#include <Ravel/ComboBox.h>
#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PushButton.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QIntValidator>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace Vantor {
namespace {

constexpr char kContext[] = "SimpleMutiPageWidgetUi";

QString Text(const char *key)
{
    return Translate(QString::fromLatin1(key), kContext);
}

// The validator also lets the digits of the locale's own script through.
QString InLatinDigits(const QString &text)
{
    QString latin;
    for (const QChar letter : text)
        latin += letter.isDigit() ? QChar(ushort('0' + letter.digitValue())) : letter;
    return latin;
}

} // namespace

CMutiPageWidget::CMutiPageWidget(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_shared<CMutiPageWidgetDataPtr>(this))
{
    if (d_ptr_->b_right_to_left_)
        MirrorNames();
    ConnectBar();
    WriteRecords(0);
    WriteTotalPages(1);
    WriteCurrentPage();
    OnCurrentPageChanged();
    d_ptr_->form_.ptr_wig_batch_alarms_->hide();
}

CMutiPageWidget::~CMutiPageWidget()
{
    DisconnectChildren(this);
}

void CMutiPageWidget::MirrorNames()
{
    const CMutiPageForm &form = d_ptr_->form_;
    const struct
    {
        QPushButton *button;
        const char *name;
    } names[] = {
        {form.ptr_home_btn_, "ptr_arbaric_home_btn_"},
        {form.ptr_previous_btn_, "ptr_arbaric_previous_btn_"},
        {form.ptr_next_btn_, "ptr_arbaric_next_btn_"},
        {form.ptr_last_btn_, "ptr_arbaric_last_btn_"},
    };
    for (const auto &[button, name] : names) {
        button->setObjectName(QLatin1String(name));
        style()->polish(button); // the rules for the new name bring mirrored icons
    }
}

void CMutiPageWidget::ConnectBar()
{
    const CMutiPageForm &form = d_ptr_->form_;
    connect(form.ptr_tree_view_, &CFilterTreeViewEx::SignalPageReset, this,
            &CMutiPageWidget::OnPageReset);
    connect(form.ptr_tree_view_, &CFilterTreeViewEx::SignalUpdateMaxMinPage, this,
            &CMutiPageWidget::OnUpdateMaxMinPage);
    connect(form.ptr_page_combox_, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CMutiPageWidget::OnItemPerPageChanged);
    connect(form.ptr_home_btn_, &QPushButton::clicked, this, &CMutiPageWidget::OnHomePageClicked);
    connect(form.ptr_previous_btn_, &QPushButton::clicked, this,
            &CMutiPageWidget::OnPreviousBtnClicked);
    connect(form.ptr_next_btn_, &QPushButton::clicked, this, &CMutiPageWidget::OnNextBtnClicked);
    connect(form.ptr_last_btn_, &QPushButton::clicked, this,
            &CMutiPageWidget::OnLastPageBtnClicked);
    connect(form.ptr_jump_btn_, &QPushButton::clicked, this, &CMutiPageWidget::OnJump);
    connect(form.ptr_cur_page_edit_, &QLineEdit::returnPressed, this, &CMutiPageWidget::OnJump);
    connect(form.ptr_cur_page_edit_, &Ravel::CLineEdit::SignalFousOut, this,
            &CMutiPageWidget::OnCurrentPageEditFousOut);
    connect(form.ptr_btn_batch_confirm_, &QPushButton::clicked, this,
            &CMutiPageWidget::SignalBatchConfirm);
    // A click on a disabled button has no effect.
    const struct
    {
        QKeySequence keys;
        QPushButton *button;
    } shortcuts[] = {
        {Qt::CTRL | Qt::Key_PageUp, form.ptr_previous_btn_},
        {Qt::CTRL | Qt::Key_PageDown, form.ptr_next_btn_},
    };
    for (const auto &[keys, button] : shortcuts) {
        auto *const shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    }
}

QComboBox *CMutiPageWidget::GetItemPerPageComboBox() const
{
    return d_ptr_->form_.ptr_page_combox_;
}

CFilterTreeViewEx *CMutiPageWidget::GetTreeView() const
{
    return d_ptr_->form_.ptr_tree_view_;
}

QPushButton *CMutiPageWidget::GetNextPageBtn()
{
    return d_ptr_->form_.ptr_next_btn_;
}

void CMutiPageWidget::HideTotalPageWidget()
{
    d_ptr_->page_.SetTotalKnown(true);
    SetTotalWidgetsVisible(false);
}

void CMutiPageWidget::SetPageSeen(bool seen)
{
    d_ptr_->page_.SetTotalKnown(seen);
    SetTotalWidgetsVisible(seen);
}

bool CMutiPageWidget::IsPageSeen() const
{
    return d_ptr_->page_.IsTotalKnown() && !d_ptr_->form_.ptr_home_btn_->isHidden();
}

void CMutiPageWidget::SetTotalWidgetsVisible(bool visible)
{
    const CMutiPageForm &form = d_ptr_->form_;
    for (QWidget *const widget : std::initializer_list<QWidget *>{
             form.ptr_total_records_, form.ptr_home_btn_, form.ptr_last_btn_,
             form.ptr_cur_page_edit_, form.ptr_total_page_, form.ptr_jump_btn_,
             form.ptr_page_holder_})
        widget->setVisible(visible);
}

void CMutiPageWidget::SetConfirmBtnVisible(bool visible)
{
    d_ptr_->form_.ptr_wig_batch_alarms_->setVisible(visible);
}

bool CMutiPageWidget::IsConfirmBtnVisible() const
{
    return !d_ptr_->form_.ptr_wig_batch_alarms_->isHidden();
}

void CMutiPageWidget::SetBatchAlarmsConfirmEnable(bool enable)
{
    d_ptr_->form_.ptr_btn_batch_confirm_->setEnabled(enable);
}

void CMutiPageWidget::SetRecordsVisible(bool visible)
{
    d_ptr_->b_records_sentence_ = visible;
}

void CMutiPageWidget::SetTotalAndComboBoxVisible(bool visible)
{
    d_ptr_->form_.ptr_total_records_->setVisible(visible);
    d_ptr_->form_.ptr_page_combox_->setVisible(visible);
}

void CMutiPageWidget::HideBottomPageWidget()
{
    d_ptr_->form_.ptr_bottom_widget_->hide();
    d_ptr_->form_.ptr_bottom_line_->hide();
}

void CMutiPageWidget::SetJumpFuncVisible(bool visible)
{
    d_ptr_->form_.ptr_page_holder_->setVisible(visible);
    d_ptr_->form_.ptr_jump_btn_->setVisible(visible);
    d_ptr_->form_.SetJumpRoom(visible);
}

bool CMutiPageWidget::IsJumpFuncVisible() const
{
    return !d_ptr_->form_.ptr_jump_btn_->isHidden();
}

void CMutiPageWidget::ClearAllItems()
{
    InitTreeView();
    InitPageInfo();
}

void CMutiPageWidget::InitPageInfo()
{
    OnPageReset(0, 1);
}

void CMutiPageWidget::AddTopLevelItems(QList<Ravel::CTreeViewItem *> &items)
{
    const int count = items.size();
    const QPointer<CMutiPageWidget> self(this);
    GetTreeView()->AddTopLevelItems(items);
    if (!self)
        return;
    QPushButton *const next = GetNextPageBtn();
    const bool is_by_total = d_ptr_->b_next_by_total_ && d_ptr_->page_.IsTotalKnown();
    const bool is_full = count >= GetItemsPerPage();
    next->setEnabled(count > 0
                     && (is_by_total ? d_ptr_->page_.CanGo(CPageState::Step::Next) : is_full));
    if (count == 0 && d_ptr_->page_.Current() > 0)
        Q_EMIT SignalErrorInfo(Text("ThereIsNoMatchedResultFound"));
}

void CMutiPageWidget::SetNextByTotal(bool by_total)
{
    d_ptr_->b_next_by_total_ = by_total;
}

int CMutiPageWidget::GetCurrentPage()
{
    return d_ptr_->page_.Current();
}

void CMutiPageWidget::OnUpdatePageInfo(int records, int page)
{
    d_ptr_->page_.Deliver(records, page, GetItemsPerPage());
    if (d_ptr_->page_.IsTotalKnown()) {
        WriteRecords(d_ptr_->page_.TotalRecords());
        WriteTotalPages(d_ptr_->page_.TotalPages());
        d_ptr_->form_.SetMostPages(d_ptr_->page_.TotalPages());
        WriteCurrentPage();
    }
    OnCurrentPageChanged();
}

void CMutiPageWidget::OnPageReset(int records, int pages)
{
    d_ptr_->page_.Reset(records, pages);
    WriteRecords(records);
    // Hosts know the mirrored label from the stored count, which open-ended paging does not touch.
    WriteTotalPages(d_ptr_->b_right_to_left_ ? d_ptr_->page_.TotalPages() : pages);
    d_ptr_->form_.SetMostPages(pages);
    WriteCurrentPage();
    OnCurrentPageChanged();
}

void CMutiPageWidget::OnCurrentPageChanged()
{
    using Step = CPageState::Step;
    const CMutiPageForm &form = d_ptr_->form_;
    const CPageState &page = d_ptr_->page_;
    form.ptr_previous_btn_->setEnabled(page.CanGo(Step::Previous));
    if (!page.IsTotalKnown())
        return;
    form.ptr_home_btn_->setEnabled(page.CanGo(Step::Home));
    form.ptr_next_btn_->setEnabled(page.CanGo(Step::Next));
    form.ptr_last_btn_->setEnabled(page.CanGo(Step::Last));
    WriteTotalPages(page.TotalPages());
    WriteCurrentPage();
    form.ptr_tree_view_->SetFilterPage(page.Current());
}

void CMutiPageWidget::GoTo(int page)
{
    d_ptr_->page_.GoTo(page);
    const QPointer<CMutiPageWidget> self(this);
    Q_EMIT SignalPageChanged();
    if (self) // not the page asked for: a slot may have gone elsewhere
        GetTreeView()->SetFilterPage(d_ptr_->page_.Current());
}

void CMutiPageWidget::OnHomePageClicked()
{
    GoTo(d_ptr_->page_.PageAfter(CPageState::Step::Home));
}

void CMutiPageWidget::OnPreviousBtnClicked()
{
    GoTo(d_ptr_->page_.PageAfter(CPageState::Step::Previous));
}

void CMutiPageWidget::OnNextBtnClicked()
{
    GoTo(d_ptr_->page_.PageAfter(CPageState::Step::Next));
}

void CMutiPageWidget::OnLastPageBtnClicked()
{
    GoTo(d_ptr_->page_.PageAfter(CPageState::Step::Last));
}

void CMutiPageWidget::OnJump()
{
    QString text = d_ptr_->form_.ptr_cur_page_edit_->text().trimmed();
    int position = 0;
    // While it is typed, a validator lets 9 of 3 through as the beginning of a number.
    if (d_ptr_->form_.ptr_page_validator_->validate(text, position) != QValidator::Acceptable) {
        WriteCurrentPage();
        return;
    }
    const int page = InLatinDigits(text).toInt();
    if (page == d_ptr_->page_.Current())
        return;
    d_ptr_->page_.GoTo(page);
    Q_EMIT SignalPageChanged();
}

void CMutiPageWidget::OnCurrentPageEditFousOut()
{
    const QString shown = QString::number(d_ptr_->page_.Current());
    if (d_ptr_->form_.ptr_cur_page_edit_->text() != shown && !IsCursorOverPagingButton())
        WriteCurrentPage();
}

bool CMutiPageWidget::IsCursorOverPagingButton() const
{
    const CMutiPageForm &form = d_ptr_->form_;
    const QPoint cursor = QCursor::pos();
    const auto holds_cursor = [cursor](const QWidget *button) {
        // A hidden button keeps its last rectangle.
        return button->isVisible()
               && QRect(button->mapToGlobal(QPoint()), button->size()).contains(cursor);
    };
    const QWidget *const buttons[] = {form.ptr_home_btn_, form.ptr_previous_btn_,
                                      form.ptr_next_btn_, form.ptr_last_btn_, form.ptr_jump_btn_};
    return std::any_of(std::begin(buttons), std::end(buttons), holds_cursor);
}

void CMutiPageWidget::OnItemPerPageChanged(int index)
{
    const QVariant count = d_ptr_->form_.ptr_page_combox_->itemData(index);
    if (count.isValid())
        GetTreeView()->SetTreeViewItemPerPage(count.toInt());
}

void CMutiPageWidget::OnSetCurrentPageSize(int index)
{
    if (index >= 0 && index < d_ptr_->form_.ptr_page_combox_->count())
        d_ptr_->form_.ptr_page_combox_->setCurrentIndex(index);
}

void CMutiPageWidget::OnUpdateMaxMinPage(bool previousEnabled, bool nextEnabled)
{
    d_ptr_->form_.ptr_previous_btn_->setEnabled(previousEnabled);
    d_ptr_->form_.ptr_next_btn_->setEnabled(nextEnabled);
}

void CMutiPageWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        d_ptr_->form_.Retranslate();
        WriteRecords(d_ptr_->shown_records_);
    }
}

void CMutiPageWidget::WriteRecords(int records)
{
    d_ptr_->shown_records_ = records;
    const QString count = QString::number(records);
    d_ptr_->form_.ptr_total_records_->setText(
        d_ptr_->b_records_sentence_ ? FillArgument(Text("TheTotalNumberOf%ruHYFtyFtVv"), count)
                                    : Text("Total") + QStringLiteral("  ") + count);
}

void CMutiPageWidget::WriteTotalPages(int pages)
{
    const QString count = QString::number(pages);
    d_ptr_->form_.ptr_total_page_->setText(d_ptr_->b_right_to_left_ ? count + QLatin1Char('\\')
                                                                    : QLatin1Char('/') + count);
}

void CMutiPageWidget::WriteCurrentPage()
{
    d_ptr_->form_.ptr_cur_page_edit_->setText(QString::number(d_ptr_->page_.Current()));
}

} // namespace Vantor
