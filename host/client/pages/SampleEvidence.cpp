// SPDX-License-Identifier: MIT
#include "pages/SampleEvidence.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace Client {
namespace {

constexpr int kPictures = 6;
constexpr int kFramesOfClip = 48;
constexpr int kWidthPx = 1280;
constexpr int kHeightPx = 720;
constexpr int kHorizonPx = 400;
constexpr int kJpegQuality = 85;

void DrawCar(QPainter &painter, qreal x, const QColor &color)
{
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(x, 520, 260, 70), 18, 18);
    QPainterPath cabin;
    cabin.moveTo(x + 40, 522);
    cabin.lineTo(x + 80, 468);
    cabin.lineTo(x + 180, 468);
    cabin.lineTo(x + 220, 522);
    painter.drawPath(cabin);
    painter.setBrush(QColor(30, 32, 36));
    for (const qreal wheel : {x + 60, x + 200})
        painter.drawEllipse(QPointF(wheel, 590), 26, 26);
}

// A road, a gate whose bar opens as `share` goes from 0 to 1, and a car that passes it.
QImage DrawScene(const QString &camera, const QString &time, qreal share, const QColor &color)
{
    QImage image(kWidthPx, kHeightPx, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QLinearGradient sky(0, 0, 0, kHorizonPx);
    sky.setColorAt(0, QColor(118, 146, 174));
    sky.setColorAt(1, QColor(205, 214, 220));
    painter.fillRect(0, 0, kWidthPx, kHorizonPx, sky);
    painter.fillRect(0, kHorizonPx, kWidthPx, kHeightPx - kHorizonPx, QColor(96, 106, 92));
    painter.fillRect(0, 500, kWidthPx, 150, QColor(74, 76, 80));
    for (int x = 20; x < kWidthPx; x += 120)
        painter.fillRect(x, 572, 60, 6, QColor(222, 220, 200));
    painter.fillRect(940, 250, 240, 250, QColor(150, 132, 112));
    painter.fillRect(980, 300, 70, 80, QColor(60, 74, 92));
    DrawCar(painter, -300 + share * 1500, color);
    painter.save();
    painter.translate(860, 470);
    painter.fillRect(-14, 0, 28, 130, QColor(210, 160, 40));
    painter.rotate(share * 70);
    for (int i = 0; i < 8; ++i)
        painter.fillRect(-60 - i * 60, -8, 60, 16, i % 2 ? QColor(190, 40, 40) : Qt::white);
    painter.restore();
    painter.fillRect(0, 0, kWidthPx, 44, QColor(0, 0, 0, 130));
    QFont font = painter.font();
    font.setPixelSize(24);
    painter.setFont(font);
    painter.setPen(Qt::white);
    const QRect bar(16, 0, kWidthPx - 32, 44);
    painter.drawText(bar, Qt::AlignLeft | Qt::AlignVCenter, camera);
    painter.drawText(bar, Qt::AlignRight | Qt::AlignVCenter, time);
    return image;
}

QByteArray Jpeg(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", kJpegQuality);
    return bytes;
}

QByteArray Picture(int number)
{
    const QColor colors[] = {Qt::darkRed, Qt::darkBlue, Qt::darkGray};
    return Jpeg(DrawScene(QStringLiteral("Gate east"),
                          QStringLiteral("2026-03-01 08:%1:12").arg(10 + number * 7),
                          qreal(number + 1) / (kPictures + 1), colors[number % 3]));
}

QByteArray Clip()
{
    QByteArray bytes;
    for (int frame = 0; frame < kFramesOfClip; ++frame) {
        const QString time =
            QStringLiteral("2026-03-01 09:00:%1").arg(frame / 12, 2, 10, QLatin1Char('0'));
        bytes += Jpeg(DrawScene(QStringLiteral("Gate west"), time, qreal(frame) / kFramesOfClip,
                                QColor(200, 120, 30)));
    }
    return bytes;
}

bool Save(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

QStringList MakeSampleEvidence(const QString &folder)
{
    QStringList paths;
    if (!QDir().mkpath(folder))
        return paths;
    const QDir there(folder);
    for (int i = 0; i < kPictures; ++i) {
        const QString path = there.filePath(QStringLiteral("gate-east-%1.jpg").arg(i + 1));
        if (QFileInfo::exists(path) || Save(path, Picture(i)))
            paths.append(path);
    }
    const QString clip = there.filePath(QStringLiteral("gate-west.mjpeg"));
    if (QFileInfo::exists(clip) || Save(clip, Clip()))
        paths.append(clip);
    return paths;
}

} // namespace Client
