// SPDX-License-Identifier: MIT
#pragma once

#include <ui/TimeBarDelegate/TimeBarParam.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QRectF>
#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Letter {

/// \brief The bars of a time line in their plain form: each append sorts the whole row, each type
/// looks at every bar.
struct TimeBars
{
    QVector<Vantor::CTimeBarParam> bars;
    QVector<Vantor::CTimeBarParam> sync_bars;
    QList<int> types;
    QMap<int, bool> visible;
    bool has_sync = false;

    /// The values that the owning time line sets.
    struct Line
    {
        int width;
        int height;
        qint64 position_s;
        double pixels_per_second;
        bool is_simple;
    };

    void Paint(QPainter *painter, const Line &line) const;
};

/// \brief By start; bars of equal start in any order.
void SortTimeBars(QVector<Vantor::CTimeBarParam> &bars);
/// \brief The same, with bars of equal start in the order in which they came.
void SortTimeBarsStably(QVector<Vantor::CTimeBarParam> &bars);

[[nodiscard]] QRectF CheckOverlap(QRectF &last, const QRectF &rect);

} // namespace Letter
