// SPDX-License-Identifier: MIT
#include "export/BarChart.h"

#include <QtCore/QBuffer>
#include <QtCore/QLocale>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>

namespace Client {
namespace {

constexpr int kPixelsPerPoint = 2;  // sharp on fine screens and on paper
constexpr int kDotsPerMeter = 3780; // 96 dots an inch, whatever screen there is
constexpr int kWidthPx = 620;
constexpr int kTitleHeightPx = 26;
constexpr int kBarPitchPx = 20;
constexpr int kBarHeightPx = 13;
constexpr int kMarginPx = 8;
constexpr int kLabelWidthPx = 220;
constexpr int kCountWidthPx = 80;
constexpr int kFontPx = 12;
constexpr QRgb kBarColour = 0xFF2F6FED;
constexpr QRgb kTextColour = 0xFF1B2A41;

QFont ChartFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
                      QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")});
    font.setPixelSize(kFontPx);
    return font;
}

class CChartPainter
{
public:
    CChartPainter(QImage &image, Qt::LayoutDirection direction)
        : painter_(&image), direction_(direction)
    {
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.scale(kPixelsPerPoint, kPixelsPerPoint);
        painter_.setLayoutDirection(direction);
    }

    void DrawTitle(const QString &title)
    {
        QFont font = ChartFont();
        font.setBold(true);
        painter_.setFont(font);
        painter_.setPen(QColor::fromRgb(kTextColour));
        const QRect line(kMarginPx, 0, kWidthPx - 2 * kMarginPx, kTitleHeightPx);
        painter_.drawText(line, Qt::AlignLeading | Qt::AlignVCenter, Elided(title, line.width()));
        painter_.setFont(ChartFont());
    }

    void DrawBar(int index, const ValueCount &value, int largest)
    {
        const int top = kTitleHeightPx + index * kBarPitchPx;
        const QRect label(kMarginPx, top, kLabelWidthPx, kBarPitchPx);
        const int room = kWidthPx - label.right() - 3 * kMarginPx - kCountWidthPx;
        const int length = std::max(1, static_cast<int>(qint64{room} * value.count / largest));
        const QRect bar(label.right() + kMarginPx, top + (kBarPitchPx - kBarHeightPx) / 2, length,
                        kBarHeightPx);
        const QRect count(bar.right() + kMarginPx, top, kCountWidthPx, kBarPitchPx);
        painter_.setPen(QColor::fromRgb(kTextColour));
        painter_.drawText(Placed(label), Qt::AlignTrailing | Qt::AlignVCenter,
                          Elided(value.value, kLabelWidthPx));
        painter_.drawText(Placed(count), Qt::AlignLeading | Qt::AlignVCenter,
                          QLocale().toString(value.count));
        painter_.fillRect(Placed(bar), QColor::fromRgb(kBarColour));
    }

private:
    [[nodiscard]] QString Elided(const QString &text, int width) const
    {
        return painter_.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, width);
    }
    [[nodiscard]] QRect Placed(QRect rect) const
    {
        if (direction_ == Qt::RightToLeft)
            rect.moveLeft(kWidthPx - rect.left() - rect.width());
        return rect;
    }

    QPainter painter_;
    const Qt::LayoutDirection direction_;
};

} // namespace

BarChart PaintBarChart(const QString &title, const QVector<ValueCount> &values)
{
    const QSize size(kWidthPx, kTitleHeightPx + kBarPitchPx * values.size());
    QImage image(size * kPixelsPerPoint, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(kDotsPerMeter);
    image.setDotsPerMeterY(kDotsPerMeter);
    {
        CChartPainter painter(image, QLocale().textDirection());
        painter.DrawTitle(title);
        int index = 0;
        for (const ValueCount &value : values)
            painter.DrawBar(index++, value, values.constFirst().count);
    }
    BarChart chart;
    chart.pixels_per_point = kPixelsPerPoint;
    QBuffer buffer(&chart.png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return chart;
}

} // namespace Client
