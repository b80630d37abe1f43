// SPDX-License-Identifier: MIT
#include "letter/TimeBarLetter.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace Letter {
namespace {

using Vantor::CTimeBarParam;

QRectF last_rect;

bool LessThan(const CTimeBarParam &a, const CTimeBarParam &b)
{
    return a.GetVal_dtStart() < b.GetVal_dtStart();
}

} // namespace

void SortTimeBars(QVector<CTimeBarParam> &bars)
{
    std::sort(bars.begin(), bars.end(), LessThan);
}

void SortTimeBarsStably(QVector<CTimeBarParam> &bars)
{
    std::stable_sort(bars.begin(), bars.end(), LessThan);
}

QRectF CheckOverlap(QRectF &last, const QRectF &rect)
{
    const double left = last.x();
    const double last_right = last.right();
    const double right = rect.right();
    if (rect.intersects(last) && last != QRectF(0, 0, 0, 0)) {
        if (rect.intersected(last) == rect)
            return {};
        last = QRectF(left, 0, right - left, 22.0);
        return {last_right, 0, right - last_right, 22.0};
    }
    last = rect;
    return rect;
}

void TimeBars::Paint(QPainter *painter, const Line &line) const
{
    painter->save();
    painter->setOpacity(1.0);
    const double centre = line.width / 2.0;
    double lower = line.is_simple ? line.height * 0.25 : 20.0;
    if (has_sync)
        lower = 9.0;
    for (const int type : types) {
        last_rect = QRectF(0, 0, 0, 0);
        if (!visible.value(type))
            continue;
        for (const bool is_sync : {false, true}) {
            if (is_sync && !has_sync)
                continue;
            if (is_sync)
                last_rect = QRectF(0, 0, 0, 0);
            for (const CTimeBarParam &bar : is_sync ? sync_bars : bars) {
                if (bar.GetVal_iTimeType() != type)
                    continue;
                const double x1 =
                    double(bar.GetVal_dtStart() - line.position_s) * line.pixels_per_second
                    + centre;
                const double x2 =
                    double(bar.GetVal_dtEnd() - line.position_s) * line.pixels_per_second + centre;
                const double width = x2 - x1 > 1.0 ? x2 - x1 : 1.0;
                if (!(x2 >= 0 && x1 <= line.width))
                    continue;
                if (!is_sync)
                    painter->setOpacity(0.2);
                const QRectF rest = CheckOverlap(last_rect, QRectF(x1, 0, width, 22.0));
                if (rest.isEmpty())
                    continue;
                if (is_sync) {
                    painter->setOpacity(1.0);
                    painter->fillRect(QRectF(x1, 22.0 + 9.0 + 2.0, width, 9.0),
                                      bar.GetVal_barColor());
                    continue;
                }
                painter->fillRect(rest, bar.GetVal_barColor());
                painter->setOpacity(1.0);
                painter->fillRect(QRectF(rest.x(), 22.0, rest.width(), lower),
                                  bar.GetVal_barColor());
            }
        }
    }
    painter->restore();
}

} // namespace Letter
