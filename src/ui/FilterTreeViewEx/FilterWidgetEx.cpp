// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/FilterWidgetEx.h"

#include "common/DisconnectChildren.h"
#include "common/Translate.h"
#include "ui/FilterTreeViewEx/ComboBoxEx.h"

#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PushButton.h>
#include <Ravel/TreeViewModel.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>

namespace Vantor {
namespace {

constexpr int kMargin_px = 8;
constexpr int kSpacing_px = 8;
constexpr int kShortestType = 8;   // letters
constexpr int kKeyWordStretch = 2; // beside a list of types

QString Text(const char *key)
{
    return Translate(QString::fromLatin1(key), "SimpleMutiPageWidgetUi");
}

// The field inside is a control of its own for screen readers.
void Name(QComboBox &combo, const QString &name)
{
    combo.setAccessibleName(name);
    combo.lineEdit()->setAccessibleName(name);
}

} // namespace

struct CFilterWidgetExDataPtr
{
    explicit CFilterWidgetExDataPtr(QWidget *bar)
        : ptr_keyword_check_(new QCheckBox(bar)), ptr_keyword_edit_(new Ravel::CLineEdit(bar)),
          ptr_main_label_(new Ravel::CLabel(bar)), ptr_main_combo_(new CComboBoxEx(bar)),
          ptr_sub_label_(new Ravel::CLabel(bar)), ptr_sub_combo_(new CComboBoxEx(bar)),
          ptr_filter_btn_(new Ravel::CPushButton(bar)), ptr_clear_btn_(new Ravel::CPushButton(bar)),
          ptr_more_btn_(new Ravel::CPushButton(bar))
    {
        ptr_keyword_check_->setObjectName(QStringLiteral("pKeyWordCheckBtn"));
        ptr_keyword_edit_->setObjectName(QStringLiteral("pKeyWordEdit"));
        ptr_main_label_->setObjectName(QStringLiteral("pMainTypeLabel"));
        ptr_main_combo_->setObjectName(QStringLiteral("pMainTypeComboBox"));
        ptr_sub_label_->setObjectName(QStringLiteral("pSubTypeLabel"));
        ptr_sub_combo_->setObjectName(QStringLiteral("pSubTypeComboBox"));
        ptr_filter_btn_->setObjectName(QStringLiteral("pFilterBtn"));
        ptr_clear_btn_->setObjectName(QStringLiteral("pClearBtn"));
        ptr_more_btn_->setObjectName(QStringLiteral("pMoreBtn"));
    }

    int main_column_ = 1;
    int sub_column_ = 1;

    QPointer<Ravel::CTreeViewModel> ptr_model_;
    QCheckBox *const ptr_keyword_check_;
    Ravel::CLineEdit *const ptr_keyword_edit_;
    Ravel::CLabel *const ptr_main_label_;
    CComboBoxEx *const ptr_main_combo_;
    Ravel::CLabel *const ptr_sub_label_;
    CComboBoxEx *const ptr_sub_combo_;
    Ravel::CPushButton *const ptr_filter_btn_;
    Ravel::CPushButton *const ptr_clear_btn_;
    Ravel::CPushButton *const ptr_more_btn_;
};

CFilterWidgetEx::CFilterWidgetEx(QWidget *parent)
    : QFrame(parent), d_ptr_(std::make_unique<CFilterWidgetExDataPtr>(this))
{
    Arrange();
    d_ptr_->ptr_keyword_edit_->setEnabled(false);
    connect(d_ptr_->ptr_keyword_check_, &QCheckBox::toggled, this,
            &CFilterWidgetEx::OnKeyWordToggled);
    connect(d_ptr_->ptr_keyword_edit_, &QLineEdit::returnPressed, this,
            &CFilterWidgetEx::OnFilterBtnClicked);
    connect(d_ptr_->ptr_filter_btn_, &QPushButton::clicked, this,
            &CFilterWidgetEx::OnFilterBtnClicked);
    connect(d_ptr_->ptr_clear_btn_, &QPushButton::clicked, this,
            &CFilterWidgetEx::OnClearBtnClicked);
    connect(d_ptr_->ptr_more_btn_, &QPushButton::clicked, this,
            &CFilterWidgetEx::SignalMoreBtnClicked);
    connect(d_ptr_->ptr_main_combo_, &QComboBox::editTextChanged, d_ptr_->ptr_sub_combo_,
            &CComboBoxEx::OnFilterByMainType);
    Retranslate();
}

CFilterWidgetEx::~CFilterWidgetEx()
{
    DisconnectChildren(this);
}

void CFilterWidgetEx::Arrange()
{
    for (CComboBoxEx *const combo : {d_ptr_->ptr_main_combo_, d_ptr_->ptr_sub_combo_}) {
        // The longest type must not widen the window.
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(kShortestType);
    }
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin_px, kMargin_px, kMargin_px, kMargin_px);
    layout->setSpacing(kSpacing_px);
    layout->addWidget(d_ptr_->ptr_keyword_check_);
    layout->addWidget(d_ptr_->ptr_keyword_edit_, kKeyWordStretch);
    layout->addWidget(d_ptr_->ptr_main_label_);
    layout->addWidget(d_ptr_->ptr_main_combo_, 1);
    layout->addWidget(d_ptr_->ptr_sub_label_);
    layout->addWidget(d_ptr_->ptr_sub_combo_, 1);
    layout->addWidget(d_ptr_->ptr_filter_btn_);
    layout->addWidget(d_ptr_->ptr_clear_btn_);
    layout->addWidget(d_ptr_->ptr_more_btn_);
}

void CFilterWidgetEx::SetModel(Ravel::CTreeViewModel *model)
{
    if (d_ptr_->ptr_model_)
        disconnect(d_ptr_->ptr_model_, nullptr, this, nullptr);
    d_ptr_->ptr_model_ = model;
    if (model) {
        connect(model, &QAbstractItemModel::headerDataChanged, this,
                &CFilterWidgetEx::OnHeaderChanged);
        connect(model, &QAbstractItemModel::modelReset, this, &CFilterWidgetEx::OnHeaderChanged);
    }
    d_ptr_->ptr_main_combo_->SetModel(model);
    d_ptr_->ptr_sub_combo_->SetModel(model);
    OnHeaderChanged();
}

void CFilterWidgetEx::OnHeaderChanged()
{
    if (!d_ptr_->ptr_model_)
        return;
    const auto title = [this](int column) {
        return d_ptr_->ptr_model_->headerData(column, Qt::Horizontal).toString();
    };
    const QString main = title(d_ptr_->main_column_);
    const QString sub = title(d_ptr_->sub_column_);
    d_ptr_->ptr_main_label_->setText(main + QLatin1Char(':'));
    d_ptr_->ptr_sub_label_->setText(sub + QLatin1Char(':'));
    Name(*d_ptr_->ptr_main_combo_, main);
    Name(*d_ptr_->ptr_sub_combo_, sub);
}

void CFilterWidgetEx::AddTopLevelItems()
{
    d_ptr_->ptr_main_combo_->UpdateData(d_ptr_->main_column_);
    d_ptr_->ptr_sub_combo_->SetMainColumn(d_ptr_->main_column_);
    d_ptr_->ptr_sub_combo_->UpdateData(d_ptr_->sub_column_);
}

void CFilterWidgetEx::ClearAllItems()
{
    d_ptr_->ptr_main_combo_->ClearAllItems();
    d_ptr_->ptr_sub_combo_->ClearAllItems();
}

void CFilterWidgetEx::SetRelatedIndex(int mainColumn, int subColumn)
{
    d_ptr_->main_column_ = mainColumn;
    d_ptr_->sub_column_ = subColumn;
}

bool CFilterWidgetEx::IsKeyWord() const
{
    return d_ptr_->ptr_keyword_check_->isChecked();
}

void CFilterWidgetEx::SetByKeyWord(bool by_keyword)
{
    d_ptr_->ptr_keyword_check_->setChecked(by_keyword);
}

QString CFilterWidgetEx::GetKeyWord() const
{
    return d_ptr_->ptr_keyword_edit_->text();
}

void CFilterWidgetEx::SetKeyWord(const QString &keyword)
{
    SetByKeyWord(true);
    d_ptr_->ptr_keyword_edit_->setText(keyword);
}

QStringList CFilterWidgetEx::GetSelectedMainType() const
{
    return d_ptr_->ptr_main_combo_->GetSelectedStringItems();
}

void CFilterWidgetEx::SetSelectedMainType(const QStringList &types)
{
    d_ptr_->ptr_main_combo_->SetSelectedStringItems(types);
}

QStringList CFilterWidgetEx::GetSelectedSubType() const
{
    return d_ptr_->ptr_sub_combo_->GetSelectedStringItems();
}

void CFilterWidgetEx::SetSelectedSubType(const QStringList &types)
{
    d_ptr_->ptr_sub_combo_->SetSelectedStringItems(types);
}

QLineEdit *CFilterWidgetEx::GetKeyWordEdit() const
{
    return d_ptr_->ptr_keyword_edit_;
}

QPushButton *CFilterWidgetEx::GetMoreBtn() const
{
    return d_ptr_->ptr_more_btn_;
}

CComboBoxEx *CFilterWidgetEx::GetMainTypeComboBox() const
{
    return d_ptr_->ptr_main_combo_;
}

CComboBoxEx *CFilterWidgetEx::GetSubTypeComboBox() const
{
    return d_ptr_->ptr_sub_combo_;
}

void CFilterWidgetEx::FocusKeyWord()
{
    SetByKeyWord(true);
    d_ptr_->ptr_keyword_edit_->setFocus(Qt::ShortcutFocusReason);
    d_ptr_->ptr_keyword_edit_->selectAll();
}

void CFilterWidgetEx::OnFilterBtnClicked()
{
    if (IsKeyWord())
        Q_EMIT SignalFilterWithKeyWord(GetKeyWord().trimmed());
    else
        Q_EMIT SignalFilterWithKeyWords();
}

void CFilterWidgetEx::OnClearFilter()
{
    d_ptr_->ptr_keyword_edit_->clear();
    for (CComboBoxEx *const combo : {d_ptr_->ptr_main_combo_, d_ptr_->ptr_sub_combo_})
        combo->TickAll();
    AddTopLevelItems();
}

void CFilterWidgetEx::OnClearBtnClicked()
{
    OnClearFilter();
    Q_EMIT SignalClearFilter();
}

void CFilterWidgetEx::OnKeyWordToggled(bool checked)
{
    d_ptr_->ptr_keyword_edit_->setEnabled(checked);
    d_ptr_->ptr_main_combo_->setEnabled(!checked);
    d_ptr_->ptr_sub_combo_->setEnabled(!checked);
    if (checked && d_ptr_->ptr_keyword_check_->hasFocus())
        d_ptr_->ptr_keyword_edit_->setFocus(Qt::OtherFocusReason);
}

void CFilterWidgetEx::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CFilterWidgetEx::Retranslate()
{
    d_ptr_->ptr_keyword_check_->setText(Text("KeyWord"));
    d_ptr_->ptr_keyword_edit_->setAccessibleName(Text("KeyWord"));
    d_ptr_->ptr_filter_btn_->setText(Text("Filter"));
    d_ptr_->ptr_clear_btn_->setText(Text("ClearFilter"));
    d_ptr_->ptr_more_btn_->setText(Text("MoreFilter"));
}

} // namespace Vantor
