// SPDX-License-Identifier: MIT
#include "Ravel/ShadowWidget.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

namespace Ravel {
namespace {

constexpr QColor kDefaultColor(0, 0, 0, 70);
constexpr int kStops = 8; // of the gradient: enough for a curve without a visible bend

// The tone falls with the square of the distance that remains to the outer edge.
QGradientStops Stops(const QColor &color)
{
    QGradientStops stops;
    for (int i = 0; i <= kStops; ++i) {
        const qreal way = qreal(i) / kStops;
        QColor tone = color;
        tone.setAlphaF(color.alphaF() * (1 - way) * (1 - way));
        stops.append({way, tone});
    }
    return stops;
}

void FillSide(QPainter &painter, const QRect &side, QPointF from, QPointF to,
              const QGradientStops &stops)
{
    QLinearGradient gradient(from, to);
    gradient.setStops(stops);
    painter.fillRect(side, gradient);
}

void FillCorner(QPainter &painter, const QRect &corner, QPointF centre, const QGradientStops &stops)
{
    QRadialGradient gradient(centre, CShadowWidget::kReachPx);
    gradient.setStops(stops);
    painter.fillRect(corner, gradient);
}

} // namespace

CShadowWidget::CShadowWidget(QWidget *window) : QWidget(window), color_(kDefaultColor)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

CShadowWidget::~CShadowWidget() = default;

void CShadowWidget::Wrap(QWidget *panel, int mode)
{
    if (panel_) {
        panel_->removeEventFilter(this);
        panel_->disconnect(this);
    }
    hide();
    panel_ = panel;
    mode_ = mode;
    if (!panel)
        return;
    panel->installEventFilter(this);
    connect(panel, &QObject::destroyed, this, &QObject::deleteLater);
}

void CShadowWidget::SetShadowColor(const QColor &color)
{
    if (color_ == color)
        return;
    color_ = color;
    update();
}

bool CShadowWidget::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
        Follow();
        break;
    case QEvent::Hide:
        hide();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void CShadowWidget::Follow()
{
    if (!panel_ || !parentWidget() || mode_ != kShadowAround || !panel_->isVisible()
        || panel_->width() == 0) {
        hide();
        return;
    }
    const QPoint place = parentWidget()->mapFromGlobal(panel_->mapToGlobal(QPoint(0, 0)));
    const QRect below(place, panel_->size());
    const QRect around = below.adjusted(-kReachPx, -kReachPx, kReachPx, kReachPx);
    if (around != geometry()) {
        setGeometry(around);
        // The area under the panel need not be repainted at each step of an animation.
        setMask(QRegion(rect()).subtracted(below.translated(-around.topLeft())));
    }
    if (!isVisible()) {
        raise();
        show();
    }
}

void CShadowWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QGradientStops stops = Stops(color_);
    const int reach = kReachPx;
    const QRect panel = rect().adjusted(reach, reach, -reach, -reach);
    const int left = panel.left();
    const int top = panel.top();
    const int right = panel.left() + panel.width();
    const int bottom = panel.top() + panel.height();
    FillSide(painter, {0, top, reach, panel.height()}, {qreal(left), 0}, {0, 0}, stops);
    FillSide(painter, {right, top, reach, panel.height()}, {qreal(right), 0},
             {qreal(right + reach), 0}, stops);
    FillSide(painter, {left, 0, panel.width(), reach}, {0, qreal(top)}, {0, 0}, stops);
    FillSide(painter, {left, bottom, panel.width(), reach}, {0, qreal(bottom)},
             {0, qreal(bottom + reach)}, stops);
    FillCorner(painter, {0, 0, reach, reach}, {qreal(left), qreal(top)}, stops);
    FillCorner(painter, {right, 0, reach, reach}, {qreal(right), qreal(top)}, stops);
    FillCorner(painter, {0, bottom, reach, reach}, {qreal(left), qreal(bottom)}, stops);
    FillCorner(painter, {right, bottom, reach, reach}, {qreal(right), qreal(bottom)}, stops);
}

} // namespace Ravel
