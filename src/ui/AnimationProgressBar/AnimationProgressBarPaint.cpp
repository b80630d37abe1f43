// SPDX-License-Identifier: MIT
#include "common/StyleManager.h"
#include "common/ZoneTime.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/Ruler.h"
#include "ui/AnimationProgressBar/TimeLineLook.h"

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

#include <cmath>

namespace Vantor {
namespace {

constexpr int kWidthPx = 640;
constexpr int kLeastWidthPx = 160;
constexpr int kSimpleHeightPx = 32;
constexpr int kLabelHeightPx = 22;
constexpr int kHeightPx = kLabelTopPx + kLabelHeightPx + 2;
constexpr int kMajorMarkPx = 7;
constexpr int kMinorMarkPx = 4;
constexpr int kCursorPx = 2;
constexpr int kChangeDashPx = 3;
constexpr double kSimpleShare = 0.25; // of the height, for the bars
constexpr double kRulerPointSize = 8.5;

QColor OrElse(const QColor &colour, const QColor &otherwise)
{
    return colour.isValid() ? colour : otherwise;
}

const CStyleManager &Theme()
{
    return Nim::Base::CSingleton<CStyleManager>::Instance();
}

QLocale LocaleOf(const QWidget &widget)
{
    return widget.testAttribute(Qt::WA_SetLocale) ? widget.locale() : QLocale();
}

} // namespace

int CAnimationProgressBar::ShownFractionPx() const
{
    // Delegates paint for the whole second that GetCurrentUTCTime() gives.
    const double fraction_s = double(d_ptr_->position_ms_ % 1000) / 1000.0;
    return int(std::lround(fraction_s * PixelsPerSecond()));
}

void CAnimationProgressBar::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const int lower_px =
        d_ptr_->b_simplify_ ? int(std::lround(height() * kSimpleShare)) : kLowerBandPx;
    painter.fillRect(rect(), OrElse(Theme().PanelColor(), palette().color(QPalette::Base)));
    painter.fillRect(0, kUpperBandPx, width(), lower_px,
                     OrElse(Theme().WidgetColorT2(), palette().color(QPalette::AlternateBase)));

    painter.translate(-ShownFractionPx(), 0);
    for (const QPointer<CAbstractDelegate> &delegate : qAsConst(d_ptr_->list_delegates_)) {
        if (delegate)
            delegate->Paint(&painter);
    }
    PaintRuler(painter);
    painter.resetTransform();

    const QColor brand = OrElse(Theme().BrandColor(), palette().color(QPalette::Highlight));
    painter.fillRect(width() / 2 - kCursorPx / 2, 0, kCursorPx, kUpperBandPx + lower_px, brand);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.backgroundColor = palette().color(QPalette::Base);
        painter.setPen(brand);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void CAnimationProgressBar::PaintRuler(QPainter &painter) const
{
    const TimeZoneParam &zone = d_ptr_->zone_.Read();
    const double scale = PixelsPerSecond();
    const RulerStep &step = ChooseRulerStep(scale, kLeastLabelPx);
    const qint64 centre_s = GetCurrentUTCTime();
    const auto reach_s = qint64(std::ceil((width() / 2.0 + kLeastLabelPx) / scale));
    const auto x_of = [&](qint64 seconds) {
        return int(std::lround(double(seconds - centre_s) * scale + width() / 2.0));
    };
    const QColor text = OrElse(Theme().TextNeuColor(), palette().color(QPalette::Text));
    const QColor line = OrElse(Theme().TextNeuColorT2(), text);
    const QLocale locale = LocaleOf(*this);
    QFont font = this->font();
    font.setPointSizeF(kRulerPointSize);
    painter.setFont(font);
    painter.setPen(text);
    for (const RulerMark &mark : RulerMarks(zone, centre_s - reach_s, centre_s + reach_s, step)) {
        const int x = x_of(mark.seconds);
        const int mark_px = mark.is_major ? kMajorMarkPx : kMinorMarkPx;
        painter.fillRect(x, kUpperBandPx - mark_px, 1, mark_px, line);
        if (mark.is_major && !d_ptr_->b_simplify_) {
            const int room_px = int(kLeastLabelPx);
            painter.drawText(QRect(x - room_px / 2, 0, room_px, kUpperBandPx - kMajorMarkPx),
                             Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                             RulerText(zone, mark.seconds, step.label, locale));
        }
    }
    if (!zone.b_dst)
        return;
    const QColor info = OrElse(Theme().InfoColor(), palette().color(QPalette::Link));
    for (const qint64 change_s : {zone.tm_dst_begin, zone.tm_dst_end}) {
        if (change_s < centre_s - reach_s || change_s > centre_s + reach_s)
            continue;
        for (int y = 0; y < kUpperBandPx + kLowerBandPx; y += 2 * kChangeDashPx)
            painter.fillRect(x_of(change_s), y, 1, kChangeDashPx, info);
    }
}

void CAnimationProgressBar::RefreshCalendarLabel(qint64 seconds)
{
    const QLocale locale = LocaleOf(*this);
    const QDateTime wall = WallClockOf(d_ptr_->zone_.Read(), seconds);
    const QString text =
        locale.toString(wall.date(), QStringLiteral("ddd d MMM yyyy")) + QStringLiteral("   ")
        + locale.toString(wall.time(), QStringLiteral("HH:mm:ss")) + QStringLiteral("   ")
        + OffsetText(WallClockOffset(d_ptr_->zone_.Read(), seconds), locale);
    if (d_ptr_->ptr_calendar_->text() == text)
        return;
    d_ptr_->ptr_calendar_->setText(text);
    PlaceCalendarLabel();
}

void CAnimationProgressBar::PlaceCalendarLabel()
{
    // As wide as the bar: the text stays in the middle without a new layout for each second.
    d_ptr_->ptr_calendar_->setGeometry(0, kLabelTopPx, width(),
                                       std::max(0, height() - kLabelTopPx));
}

QString CAnimationProgressBar::TipAtPos(const QPointF &pos) const
{
    return TimeText(UTCSecondsAtXPos(pos.x()));
}

QString CAnimationProgressBar::TimeText(qint64 seconds) const
{
    const QLocale locale = LocaleOf(*this);
    const QDateTime wall = WallClockOf(d_ptr_->zone_.Read(), seconds);
    return locale.toString(wall.date(), QStringLiteral("d MMM yyyy")) + QLatin1Char(' ')
           + locale.toString(wall.time(), QStringLiteral("HH:mm:ss")) + QLatin1Char(' ')
           + OffsetText(WallClockOffset(d_ptr_->zone_.Read(), seconds), locale);
}

QSize CAnimationProgressBar::sizeHint() const
{
    return {kWidthPx, d_ptr_->b_simplify_ ? kSimpleHeightPx : kHeightPx};
}

QSize CAnimationProgressBar::minimumSizeHint() const
{
    return {kLeastWidthPx, sizeHint().height()};
}

void CAnimationProgressBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    PlaceCalendarLabel();
}

void CAnimationProgressBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::LanguageChange:
    case QEvent::LocaleChange:
        RefreshCalendarLabel(GetCurrentUTCTime());
        [[fallthrough]];
    case QEvent::StyleChange:
    case QEvent::PaletteChange:
    case QEvent::FontChange:
        update();
        break;
    default:
        break;
    }
}

} // namespace Vantor
