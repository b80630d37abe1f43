// SPDX-License-Identifier: MIT
#include "common/DateText.h"
#include "common/Guard.h"
#include "common/StyleManager.h"
#include "common/ZoneTime.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/Ruler.h"
#include "ui/AnimationProgressBar/TimeLineMeasures.h"

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>

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
constexpr int kCursorRimPx = 1;
constexpr int kCursorHeadPx = 5; // half the width of the triangle at its top
constexpr int kChangeDashPx = 3;
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
    const double fraction_s = double(d_ptr_->view_.position_ms % 1000) / 1000.0;
    return int(std::lround(fraction_s * PixelsPerSecond()));
}

void CAnimationProgressBar::paintEvent(QPaintEvent * /*event*/)
{
    static constexpr char kFunction[] = "Vantor::CAnimationProgressBar::paintEvent";
    QPainter painter(this);
    const int lower_px =
        d_ptr_->b_simplify_ ? int(std::lround(height() * kSimpleShare)) : kLowerBandPx;
    QColor base = palette().color(QPalette::Base);
    base.setAlpha(
        255); // theme colours may be translucent, and nothing is painted below this widget
    painter.fillRect(rect(), base);
    painter.fillRect(rect(), OrElse(Theme().PanelColor(), base));
    painter.fillRect(0, kUpperBandPx, width(), lower_px,
                     OrElse(Theme().WidgetColorT2(), palette().color(QPalette::AlternateBase)));

    painter.translate(-ShownFractionPx(), 0);
    const auto list = d_ptr_->list_delegates_; // a delegate may change the stack
    for (const QPointer<CAbstractDelegate> &delegate : list) {
        if (!delegate || delegate->AnimationProgressBar() != this)
            continue;
        painter.save();
        RunGuarded(kFunction, [&] { delegate->Paint(&painter); });
        painter.restore();
    }
    PaintRuler(painter);
    painter.resetTransform();
    PaintCursorLine(painter, lower_px);
    if (hasFocus()) {
        painter.setPen(OrElse(Theme().BrandColor(), palette().color(QPalette::Highlight)));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

// With a rim in the colour of the panel, so that it is seen on bars of its own colour.
void CAnimationProgressBar::PaintCursorLine(QPainter &painter, int lower_px) const
{
    const QColor brand = OrElse(Theme().BrandColor(), palette().color(QPalette::Highlight));
    QColor rim = OrElse(Theme().PanelColor(), palette().color(QPalette::Base));
    rim.setAlpha(255);
    const int width_px = kCursorPx + width() % 2; // with the exact centre in its middle
    const QRect line((width() - width_px) / 2, 0, width_px, kUpperBandPx + lower_px);
    painter.fillRect(line.adjusted(-kCursorRimPx, 0, kCursorRimPx, 0), rim);
    for (int row = 0; row < kCursorHeadPx; ++row)
        painter.fillRect(line.left() + row - kCursorHeadPx, row,
                         width_px + 2 * (kCursorHeadPx - row), 1, brand);
    painter.fillRect(line, brand);
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

// Of the label and of a visible tip.
void CAnimationProgressBar::RefreshTexts()
{
    RefreshCalendarLabel(GetCurrentUTCTime());
    RefreshTip();
}

void CAnimationProgressBar::RefreshCalendarLabel(qint64 seconds)
{
    const QLocale locale = LocaleOf(*this);
    const QDateTime wall = WallClockOf(d_ptr_->zone_.Read(), seconds);
    const QString text =
        DateText(locale, wall.date(), DateParts::WeekdayDayMonthYear) + QStringLiteral("   ")
        + locale.toString(wall.time(), QStringLiteral("HH:mm:ss")) + QStringLiteral("   ")
        + OffsetText(WallClockOffset(d_ptr_->zone_.Read(), seconds), locale);
    if (d_ptr_->ptr_calendar_->text() == text)
        return;
    d_ptr_->ptr_calendar_->setText(text);
    PlaceCalendarLabel();
}

void CAnimationProgressBar::PlaceCalendarLabel()
{
    // As wide as the bar, so that the text stays centred without a new layout for each second.
    d_ptr_->ptr_calendar_->setGeometry(0, kLabelTopPx, width(),
                                       std::max(0, height() - kLabelTopPx));
}

QString CAnimationProgressBar::TipAtPos(const QPointF &pos) const
{
    return TimeText(UTCSecondsAtXPos(pos.x()));
}

QString CAnimationProgressBar::TipAtCursorLine() const
{
    return TimeText(GetCurrentUTCTime());
}

QString CAnimationProgressBar::TimeText(qint64 seconds) const
{
    return WallClockText(d_ptr_->zone_.Read(), seconds, LocaleOf(*this));
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
    RefreshTip();
}

void CAnimationProgressBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::EnabledChange: // queued as for hiding
        QMetaObject::invokeMethod(
            this, [this] { LetGo(); }, Qt::QueuedConnection);
        break;
    case QEvent::LanguageChange:
    case QEvent::LocaleChange:
        RefreshTexts();
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
