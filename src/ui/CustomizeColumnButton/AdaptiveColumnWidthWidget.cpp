// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/AdaptiveColumnWidthWidget.h"

#include "common/DisconnectChildren.h"
#include "common/Translate.h"
#include "ui/CustomizeColumnButton/DropDown.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

namespace Vantor {
namespace {

constexpr int kMarginPx = 6;
constexpr int kHolderMarginPx = 8;

// A radio button in its holder. The holder's name says whether it is checked.
struct WidthChoice
{
    QWidget *ptr_holder_ = nullptr;
    QRadioButton *ptr_radio_ = nullptr;
};

WidthChoice NewChoice(const char *radio_name, QButtonGroup &group, QWidget *parent)
{
    WidthChoice choice;
    choice.ptr_holder_ = new QWidget(parent);
    choice.ptr_holder_->setAttribute(Qt::WA_StyledBackground);
    choice.ptr_radio_ = new QRadioButton(choice.ptr_holder_);
    choice.ptr_radio_->setObjectName(QLatin1String(radio_name));
    group.addButton(choice.ptr_radio_);
    auto *const layout = new QVBoxLayout(choice.ptr_holder_);
    layout->setContentsMargins(kHolderMarginPx, kHolderMarginPx, kHolderMarginPx, kHolderMarginPx);
    layout->addWidget(choice.ptr_radio_);
    parent->layout()->addWidget(choice.ptr_holder_);
    return choice;
}

void Rename(const WidthChoice &choice, const QString &name)
{
    choice.ptr_holder_->setObjectName(name);
    // A theme's rules for names are read when a widget is polished.
    for (QWidget *const widget : {choice.ptr_holder_, static_cast<QWidget *>(choice.ptr_radio_)}) {
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
    }
}

bool IsInside(const QWidget *widget, const QPoint &global)
{
    return widget && widget->isVisible() && widget->rect().contains(widget->mapFromGlobal(global));
}

} // namespace

struct CAdaptiveColumnWidthWidgetDataPtr
{
    WidthChoice mini_;
    WidthChoice maxi_;
    QPointer<QWidget> ptr_relate_widget_;
};

CAdaptiveColumnWidthWidget::CAdaptiveColumnWidthWidget(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_unique<CAdaptiveColumnWidthWidgetDataPtr>())
{
    setObjectName(QStringLiteral("AdaptiveColumnWidthWidget"));
    setAttribute(Qt::WA_StyledBackground);
    setAutoFillBackground(true); // without a theme too, the table does not shine through
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->setSpacing(0);
    // Each radio button has a holder of its own, so Qt would not see the two as one choice.
    auto *const group = new QButtonGroup(this);
    d_ptr_->mini_ = NewChoice("ptr_min_width_radio_", *group, this);
    d_ptr_->maxi_ = NewChoice("ptr_max_width_radio_", *group, this);
    UpdateRaddioButtonState(0);
    connect(d_ptr_->mini_.ptr_radio_, &QRadioButton::toggled, this,
            &CAdaptiveColumnWidthWidget::OnMiniAdaptiveToggle);
    connect(d_ptr_->maxi_.ptr_radio_, &QRadioButton::toggled, this,
            &CAdaptiveColumnWidthWidget::OnMaxiAdaptiveToggle);
    Retranslate();
    hide();
}

CAdaptiveColumnWidthWidget::~CAdaptiveColumnWidthWidget()
{
    DisconnectChildren(this);
}

void CAdaptiveColumnWidthWidget::UpdateRaddioButtonState(const int &state)
{
    const bool is_maximum = state != 0;
    const QSignalBlocker mini_blocker(d_ptr_->mini_.ptr_radio_);
    const QSignalBlocker maxi_blocker(d_ptr_->maxi_.ptr_radio_);
    // A group refuses to uncheck its checked button; checking the other one does.
    (is_maximum ? d_ptr_->maxi_ : d_ptr_->mini_).ptr_radio_->setChecked(true);
    Rename(d_ptr_->mini_, is_maximum ? QStringLiteral("ptr_min_width_widget_")
                                     : QStringLiteral("ptr_min_width_checked_widget_"));
    Rename(d_ptr_->maxi_, is_maximum ? QStringLiteral("ptr_max_width_checked_widget_")
                                     : QStringLiteral("ptr_max_width_widget_"));
}

int CAdaptiveColumnWidthWidget::GetColumnWidthState() const
{
    return d_ptr_->maxi_.ptr_radio_->isChecked() ? 1 : 0;
}

void CAdaptiveColumnWidthWidget::SetRelateWidget(QWidget *widget)
{
    d_ptr_->ptr_relate_widget_ = widget;
}

void CAdaptiveColumnWidthWidget::ShowAtRelateWidget()
{
    const auto &checked = d_ptr_->maxi_.ptr_radio_->isChecked() ? d_ptr_->maxi_ : d_ptr_->mini_;
    if (d_ptr_->ptr_relate_widget_ && (isWindow() || parentWidget())) {
        ShowDropDown(*this, *d_ptr_->ptr_relate_widget_, sizeHint(), *checked.ptr_radio_);
        return;
    }
    adjustSize();
    show();
    raise();
    checked.ptr_radio_->setFocus(Qt::PopupFocusReason);
}

bool CAdaptiveColumnWidthWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const QPoint global = static_cast<QMouseEvent *>(event)->globalPos();
        if (!IsInside(this, global) && !IsInside(d_ptr_->ptr_relate_widget_, global))
            hide();
    }
    return QWidget::eventFilter(watched, event); // never consumed: the press is for another widget
}

void CAdaptiveColumnWidthWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CAdaptiveColumnWidthWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    qApp->installEventFilter(this);
}

void CAdaptiveColumnWidthWidget::hideEvent(QHideEvent *event)
{
    qApp->removeEventFilter(this);
    QWidget::hideEvent(event);
}

void CAdaptiveColumnWidthWidget::keyPressEvent(QKeyEvent *event)
{
    if (!CloseDropDownByKey(*this, d_ptr_->ptr_relate_widget_, *event))
        QWidget::keyPressEvent(event);
}

void CAdaptiveColumnWidthWidget::OnMiniAdaptiveToggle(bool checked)
{
    if (!checked)
        return;
    UpdateRaddioButtonState(0);
    Q_EMIT SignalColumnWidthStateChanged(0);
}

void CAdaptiveColumnWidthWidget::OnMaxiAdaptiveToggle(bool checked)
{
    if (!checked)
        return;
    UpdateRaddioButtonState(1);
    Q_EMIT SignalColumnWidthStateChanged(1);
}

void CAdaptiveColumnWidthWidget::Retranslate()
{
    setAccessibleName(Translate(QStringLiteral("Column width")));
    d_ptr_->mini_.ptr_radio_->setText(Translate(QStringLiteral("Minimum width")));
    d_ptr_->maxi_.ptr_radio_->setText(Translate(QStringLiteral("Maximum width")));
}

} // namespace Vantor
