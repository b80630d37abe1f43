// SPDX-License-Identifier: MIT
#include "ui/MutiPageWidget/MutiPageWidgetEx.h"

#include "common/DisconnectChildren.h"
#include "common/Translate.h"
#include "ui/FilterTreeViewEx/FilterWidgetEx.h"
#include "ui/MutiPageWidget/MutiPageWidget.h"

#include <Ravel/PushButton.h>

#include <QtCore/QEvent>
#include <QtWidgets/QVBoxLayout>

namespace Vantor {
namespace {

constexpr QSize kShowHideSize_px(64, 10); // as large as its picture

} // namespace

struct CMutiPageWidgetExDataPtr
{
    explicit CMutiPageWidgetExDataPtr(QWidget *page)
        : ptr_filter_widget_(new CFilterWidgetEx(page)),
          ptr_show_hide_btn_(new Ravel::CPushButton(page)),
          ptr_muti_page_widget_(new CMutiPageWidget(page))
    {}

    CFilterWidgetEx *const ptr_filter_widget_;
    Ravel::CPushButton *const ptr_show_hide_btn_;
    CMutiPageWidget *const ptr_muti_page_widget_;
};

CMutiPageWidgetEx::CMutiPageWidgetEx(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_unique<CMutiPageWidgetExDataPtr>(this))
{
    d_ptr_->ptr_filter_widget_->setObjectName(QStringLiteral("pFilterWidget"));
    d_ptr_->ptr_show_hide_btn_->setObjectName(QStringLiteral("pShowHideBtn"));
    d_ptr_->ptr_muti_page_widget_->setObjectName(QStringLiteral("pMutiPageWidget"));
    d_ptr_->ptr_filter_widget_->hide();
    d_ptr_->ptr_show_hide_btn_->setFixedSize(kShowHideSize_px);
    UpdateShowHideBtn();
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(d_ptr_->ptr_filter_widget_);
    layout->addWidget(d_ptr_->ptr_show_hide_btn_, 0, Qt::AlignHCenter);
    layout->addWidget(d_ptr_->ptr_muti_page_widget_, 1);

    const CFilterWidgetEx *const filter = d_ptr_->ptr_filter_widget_;
    connect(d_ptr_->ptr_show_hide_btn_, &QPushButton::clicked, this,
            &CMutiPageWidgetEx::OnShowHideBtnClicked);
    connect(filter, &CFilterWidgetEx::SignalFilterWithKeyWord, this,
            &CMutiPageWidgetEx::OnFilterWithKeyWord);
    connect(filter, &CFilterWidgetEx::SignalMoreBtnClicked, this,
            &CMutiPageWidgetEx::SignalMoreBtnClicked);
    connect(filter, &CFilterWidgetEx::SignalFilterWithKeyWords, this,
            &CMutiPageWidgetEx::SignalFilterWithKeyWords);
    connect(filter, &CFilterWidgetEx::SignalClearFilter, this,
            &CMutiPageWidgetEx::SignalClearFilter);
    connect(d_ptr_->ptr_muti_page_widget_, &CMutiPageWidget::SignalPageChanged, this,
            &CMutiPageWidgetEx::SignalPageChanged);
    Retranslate();
}

CMutiPageWidgetEx::~CMutiPageWidgetEx()
{
    DisconnectChildren(this);
}

CMutiPageWidget *CMutiPageWidgetEx::GetMutiPageWidget() const
{
    return d_ptr_->ptr_muti_page_widget_;
}

CFilterWidgetEx *CMutiPageWidgetEx::GetFilterWidget() const
{
    return d_ptr_->ptr_filter_widget_;
}

void CMutiPageWidgetEx::OnShowHideBtnClicked()
{
    // isVisible() is false for all before the window shows.
    d_ptr_->ptr_filter_widget_->setVisible(d_ptr_->ptr_filter_widget_->isHidden());
    UpdateShowHideBtn();
}

void CMutiPageWidgetEx::OnFilterWithKeyWord(const QString &keyword)
{
    d_ptr_->ptr_muti_page_widget_->SetFilterKeyWord(keyword);
}

void CMutiPageWidgetEx::OnFilterWithKeyWords(std::vector<QStringList> &lists)
{
    d_ptr_->ptr_muti_page_widget_->SetFilterKeyWords(lists);
}

void CMutiPageWidgetEx::SetFilterWidgetShow(bool show)
{
    d_ptr_->ptr_filter_widget_->setVisible(show);
    d_ptr_->ptr_show_hide_btn_->setVisible(show); // hosts know its picture: only a click changes it
}

bool CMutiPageWidgetEx::IsFilterWidgetShow() const
{
    return !d_ptr_->ptr_show_hide_btn_->isHidden();
}

void CMutiPageWidgetEx::UpdateShowHideBtn()
{
    const QString picture = d_ptr_->ptr_filter_widget_->isHidden() ? QStringLiteral("SepShow.png")
                                                                   : QStringLiteral("SepHide.png");
    d_ptr_->ptr_show_hide_btn_->setStyleSheet(
        QStringLiteral("QPushButton#pShowHideBtn{border-image: "
                       "url(:/Ovrin/Icon/Images/Public/Icon/%1);border: none;}")
            .arg(picture));
}

void CMutiPageWidgetEx::SetModel(Ravel::CTreeViewModel *model)
{
    d_ptr_->ptr_filter_widget_->SetModel(model);
}

void CMutiPageWidgetEx::AddTopLevelItems()
{
    d_ptr_->ptr_filter_widget_->AddTopLevelItems();
}

void CMutiPageWidgetEx::ClearAllItems()
{
    d_ptr_->ptr_filter_widget_->ClearAllItems();
}

void CMutiPageWidgetEx::SetRelatedIndex(int mainColumn, int subColumn)
{
    d_ptr_->ptr_filter_widget_->SetRelatedIndex(mainColumn, subColumn);
}

bool CMutiPageWidgetEx::IsKeyWord() const
{
    return d_ptr_->ptr_filter_widget_->IsKeyWord();
}

QString CMutiPageWidgetEx::GetKeyWord() const
{
    return d_ptr_->ptr_filter_widget_->GetKeyWord();
}

void CMutiPageWidgetEx::SetKeyWord(const QString &keyword)
{
    d_ptr_->ptr_filter_widget_->SetKeyWord(keyword);
}

QStringList CMutiPageWidgetEx::GetSelectedMainType() const
{
    return d_ptr_->ptr_filter_widget_->GetSelectedMainType();
}

void CMutiPageWidgetEx::SetSelectedMainType(const QStringList &types)
{
    d_ptr_->ptr_filter_widget_->SetSelectedMainType(types);
}

QStringList CMutiPageWidgetEx::GetSelectedSubType() const
{
    return d_ptr_->ptr_filter_widget_->GetSelectedSubType();
}

void CMutiPageWidgetEx::SetSelectedSubType(const QStringList &types)
{
    d_ptr_->ptr_filter_widget_->SetSelectedSubType(types);
}

QAbstractItemModel *CMutiPageWidgetEx::GetBackupModel()
{
    return d_ptr_->ptr_muti_page_widget_->GetBackupModel();
}

int CMutiPageWidgetEx::TopLevelItemCount()
{
    return d_ptr_->ptr_muti_page_widget_->TopLevelItemCount();
}

void CMutiPageWidgetEx::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CMutiPageWidgetEx::Retranslate()
{
    const QString text = Translate(QStringLiteral("ShowFilter"), "SimpleMutiPageWidgetUi");
    d_ptr_->ptr_show_hide_btn_->setToolTip(text);
    d_ptr_->ptr_show_hide_btn_->setAccessibleName(text);
}

} // namespace Vantor
