// SPDX-License-Identifier: MIT
#include "CodeImage.h"

#include <QtCore/QBuffer>
#include <QtCore/QRandomGenerator>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace Server {
namespace {

constexpr QSize kSize_px(240, 80); // shown at half of it, sharp on dense screens
constexpr int kMargin_px = 16;
constexpr int kLetter_px = 52;
constexpr int kTilt_deg = 24;
constexpr int kLift_px = 8;
constexpr int kCurves = 4;
constexpr int kDots = 160;
constexpr int kHues = 360;

int Between(int low, int high)
{
    return QRandomGenerator::global()->bounded(low, high + 1);
}

QPoint AnyPoint()
{
    return {Between(0, kSize_px.width()), Between(0, kSize_px.height())};
}

QColor AnyInk()
{
    return QColor::fromHsv(Between(0, kHues - 1), Between(150, 255), Between(60, 150));
}

void DrawLetters(QPainter &painter, const QString &code)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(kLetter_px);
    font.setBold(true);
    const int width = (kSize_px.width() - 2 * kMargin_px) / std::max(1, code.size());
    for (int i = 0; i < code.size(); ++i) {
        QPainterPath letter;
        letter.addText(0, 0, font, code.mid(i, 1));
        painter.save();
        painter.translate(kMargin_px + width * i + width / 2.0,
                          kSize_px.height() / 2.0 + Between(-kLift_px, kLift_px));
        painter.rotate(Between(-kTilt_deg, kTilt_deg));
        painter.fillPath(letter.translated(-letter.boundingRect().center()), AnyInk());
        painter.restore();
    }
}

void DrawNoise(QPainter &painter)
{
    painter.setBrush(Qt::NoBrush);
    for (int i = 0; i < kCurves; ++i) {
        QPainterPath curve(QPoint(0, Between(0, kSize_px.height())));
        curve.cubicTo(AnyPoint(), AnyPoint(),
                      QPoint(kSize_px.width(), Between(0, kSize_px.height())));
        painter.setPen(QPen(AnyInk(), 2));
        painter.drawPath(curve);
    }
    for (int i = 0; i < kDots; ++i) {
        painter.setPen(QPen(AnyInk(), 2));
        painter.drawPoint(AnyPoint());
    }
}

} // namespace

QByteArray DrawCode(const QString &code)
{
    QImage image(kSize_px, QImage::Format_RGB32);
    image.fill(QColor(0xF4, 0xF6, 0xF8));
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        DrawLetters(painter, code);
        DrawNoise(painter);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace Server
