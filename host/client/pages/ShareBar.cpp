// SPDX-License-Identifier: MIT
#include "pages/ShareBar.h"

#include <Vantor/CStyleManager>

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace Client {
namespace {

constexpr QSize kSizePx(120, 6);

QRect FilledRect(const QRect &bar, double share, Qt::LayoutDirection direction)
{
    const int width = qRound(bar.width() * share);
    return QStyle::alignedRect(direction, Qt::AlignLeft, QSize(width, bar.height()), bar);
}

} // namespace

CShareBar::CShareBar(QWidget *parent) : QWidget(parent)
{
    setFixedSize(kSizePx);
}

void CShareBar::SetShare(double share)
{
    if (share_ == share)
        return;
    share_ = share;
    update();
}

QSize CShareBar::sizeHint() const
{
    return kSizePx;
}

void CShareBar::paintEvent(QPaintEvent *)
{
    const auto &colours = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
    const double radius = height() / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.NeuColorT2());
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(colours.InfoColor());
    painter.drawRoundedRect(FilledRect(rect(), share_, layoutDirection()), radius, radius);
}

} // namespace Client
