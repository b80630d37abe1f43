// SPDX-License-Identifier: MIT
#include "common/StyleManager.h"

#include "common/ForwardEvents.h"
#include "common/LogMacro.h"

#include <QtCore/QThread>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

template class Nim::Base::CSingleton<Vantor::CStyleManager>;

namespace Vantor {

struct CStyleManagerDataPtr
{
    QColor neu_color_;
    QColor neu_color_t2_;
    QColor text_neu_color_;
    QColor text_neu_color_t2_;
    QColor back_color_;
    QColor panel_color_;
    QColor widget_color_;
    QColor back_color_t2_;
    QColor panel_color_t2_;
    QColor widget_color_t2_;
    QColor brand_color_;
    QColor info_color_;
};

namespace {

QColor WithOpacity(QColor color, float opacity)
{
    color.setAlphaF(static_cast<qreal>(opacity));
    return color;
}

} // namespace

CStyleManager::CStyleManager(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_shared<CStyleManagerDataPtr>())
{
    if (QThread::currentThread() != qApp->thread()) {
        VANTOR_LOG("Vantor::CStyleManager::CStyleManager", 4, VANTOR_LOG_WARNING,
                   "The style manager is a widget and was made outside the GUI thread.");
        Q_ASSERT_X(false, "CStyleManager", "the first Instance() belongs on the GUI thread");
    }
    // In the constructor's body the meta object is that of this class, so its rules match.
    style()->polish(this);
}

CStyleManager::~CStyleManager() = default;

QColor CStyleManager::NeuColor() const
{
    return d_ptr_->neu_color_;
}

QColor CStyleManager::NeuColorT2() const
{
    return d_ptr_->neu_color_t2_;
}

QColor CStyleManager::TextNeuColor() const
{
    return d_ptr_->text_neu_color_;
}

QColor CStyleManager::TextNeuColorT2() const
{
    return d_ptr_->text_neu_color_t2_;
}

QColor CStyleManager::BackColor() const
{
    return d_ptr_->back_color_;
}

QColor CStyleManager::PanelColor() const
{
    return d_ptr_->panel_color_;
}

QColor CStyleManager::WidgetColor() const
{
    return d_ptr_->widget_color_;
}

QColor CStyleManager::BackColorT2() const
{
    return d_ptr_->back_color_t2_;
}

QColor CStyleManager::PanelColorT2() const
{
    return d_ptr_->panel_color_t2_;
}

QColor CStyleManager::WidgetColorT2() const
{
    return d_ptr_->widget_color_t2_;
}

QColor CStyleManager::BrandColor() const
{
    return d_ptr_->brand_color_;
}

QColor CStyleManager::InfoColor() const
{
    return d_ptr_->info_color_;
}

void CStyleManager::SetNeuColor(const QColor &color)
{
    d_ptr_->neu_color_ = color;
}

void CStyleManager::SetNeuColorT2(const QColor &color)
{
    d_ptr_->neu_color_t2_ = color;
}

void CStyleManager::SetTextNeuColor(const QColor &color)
{
    d_ptr_->text_neu_color_ = color;
}

void CStyleManager::SetTextNeuColorT2(const QColor &color)
{
    d_ptr_->text_neu_color_t2_ = color;
}

void CStyleManager::SetBackColor(const QColor &color)
{
    d_ptr_->back_color_ = color;
}

void CStyleManager::SetPanelColor(const QColor &color)
{
    d_ptr_->panel_color_ = color;
}

void CStyleManager::SetWidgetColor(const QColor &color)
{
    d_ptr_->widget_color_ = color;
}

void CStyleManager::SetBackColorT2(const QColor &color)
{
    d_ptr_->back_color_t2_ = color;
}

void CStyleManager::SetPanelColorT2(const QColor &color)
{
    d_ptr_->panel_color_t2_ = color;
}

void CStyleManager::SetWidgetColorT2(const QColor &color)
{
    d_ptr_->widget_color_t2_ = color;
}

void CStyleManager::SetBrandColor(const QColor &color)
{
    d_ptr_->brand_color_ = color;
}

void CStyleManager::SetInfoColor(const QColor &color)
{
    d_ptr_->info_color_ = color;
}

QColor CStyleManager::GetNeuColor(float opacity)
{
    return WithOpacity(d_ptr_->neu_color_, opacity);
}

QColor CStyleManager::GetNeuColorT2(float opacity)
{
    return WithOpacity(d_ptr_->neu_color_t2_, opacity);
}

QColor CStyleManager::GetTextNeuColor(float opacity)
{
    return WithOpacity(d_ptr_->text_neu_color_, opacity);
}

QColor CStyleManager::GetTextNeuColorT2(float opacity)
{
    return WithOpacity(d_ptr_->text_neu_color_t2_, opacity);
}

VANTOR_FORWARD_EVENTS(CStyleManager, QWidget)

} // namespace Vantor
