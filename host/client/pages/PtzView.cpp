// SPDX-License-Identifier: MIT
#include "pages/PtzView.h"

#include <QtCore/QLocale>
#include <QtGui/QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr auto kFrameTime = 16ms;
constexpr double kFullSpeed = 63;
constexpr double kDegreesPerSecond = 60; // at full speed and no zoom
constexpr double kZoomPerSecond = 2;
constexpr double kWidestView = 60; // degrees from edge to edge
constexpr double kCircle = 360;
constexpr double kTiltLimit = 30;
constexpr double kZoomLimit = 8;

constexpr struct
{
    int operation;
    int pan;
    int tilt;
    int zoom;
} kMoves[] = {
    {100, 0, 1, 0}, {101, 0, -1, 0},  {102, -1, 0, 0}, {103, 1, 0, 0}, {106, -1, 1, 0},
    {107, 1, 1, 0}, {108, -1, -1, 0}, {109, 1, -1, 0}, {104, 0, 0, 1}, {105, 0, 0, -1},
};

// The scene, in degrees of the circle and above the horizon; it does not follow the theme, as no
// camera's does.
constexpr struct
{
    double left;
    double width;
    double height;
    QRgb colour;
} kBuildings[] = {
    {4, 18, 9, 0xFF5B6B7F},   {24, 9, 17, 0xFF6E7F94},   {35, 26, 6, 0xFF4E5D70},
    {66, 7, 21, 0xFF7C8CA1},  {75, 15, 11, 0xFF5B6B7F},  {96, 30, 5, 0xFF46556A},
    {130, 8, 14, 0xFF6E7F94}, {140, 20, 8, 0xFF5B6B7F},  {166, 6, 24, 0xFF8796A9},
    {174, 22, 7, 0xFF4E5D70}, {205, 12, 12, 0xFF6E7F94}, {222, 25, 5, 0xFF46556A},
    {252, 9, 18, 0xFF7C8CA1}, {264, 16, 9, 0xFF5B6B7F},  {286, 28, 6, 0xFF4E5D70},
    {320, 8, 15, 0xFF6E7F94}, {331, 21, 10, 0xFF5B6B7F},
};
constexpr QRgb kSkyTop = 0xFF3B82C4;
constexpr QRgb kSkyLow = 0xFFCFE3F2;
constexpr QRgb kGround = 0xFF6B7F5A;
constexpr QRgb kGroundNear = 0xFF4C5B3F;
constexpr QRgb kWindow = 0xFFF2D98B;

// From degrees to pixels.
struct Lens
{
    Lens(const CameraAim &where, QSize size)
        : aim(where), centre(size.width() / 2.0, size.height() / 2.0),
          scale(size.width() / kWidestView * where.zoom)
    {}

    [[nodiscard]] double X(double degrees) const
    {
        return centre.x() + std::remainder(degrees - aim.pan, kCircle) * scale;
    }
    [[nodiscard]] double Y(double degrees) const
    {
        return centre.y() - (degrees - aim.tilt) * scale;
    }

    CameraAim aim;
    QPointF centre;
    double scale; // pixels to a degree
};

void PaintBuilding(QPainter &painter, const QRectF &place, const QColor &colour, double degree)
{
    painter.fillRect(place, colour);
    const double pitch = degree * 1.6;
    for (double y = place.top() + pitch / 2; y + pitch < place.bottom(); y += pitch) {
        for (double x = place.left() + pitch / 2; x + pitch / 2 < place.right(); x += pitch)
            painter.fillRect(QRectF(x, y, pitch * 0.45, pitch * 0.55), QColor(kWindow));
    }
}

void PaintScene(QPainter &painter, const Lens &lens, QSize size)
{
    QLinearGradient sky(0, lens.Y(45), 0, lens.Y(0));
    sky.setColorAt(0, QColor(kSkyTop));
    sky.setColorAt(1, QColor(kSkyLow));
    painter.fillRect(QRect(QPoint(), size), sky);
    QLinearGradient ground(0, lens.Y(0), 0, lens.Y(-45));
    ground.setColorAt(0, QColor(kGround));
    ground.setColorAt(1, QColor(kGroundNear));
    painter.fillRect(QRectF(0, lens.Y(0), size.width(), size.height() - lens.Y(0)), ground);
    for (const auto &building : kBuildings) {
        const double left =
            lens.X(building.left + building.width / 2) - building.width / 2 * lens.scale;
        const QRectF place(left, lens.Y(building.height), building.width * lens.scale,
                           (building.height + 1) * lens.scale);
        if (place.right() > 0 && place.left() < size.width())
            PaintBuilding(painter, place, QColor(building.colour), lens.scale);
    }
}

} // namespace

CameraAim Moved(CameraAim aim, int operation, int speed, double seconds)
{
    for (const auto &move : kMoves) {
        if (move.operation != operation)
            continue;
        const double degrees =
            kDegreesPerSecond * seconds / aim.zoom * std::clamp(speed / kFullSpeed, 0.0, 1.0);
        const double pan = aim.pan + move.pan * degrees;
        aim.pan = pan - kCircle * std::floor(pan / kCircle);
        aim.tilt = std::clamp(aim.tilt + move.tilt * degrees, -kTiltLimit, kTiltLimit);
        aim.zoom =
            std::clamp(aim.zoom * std::pow(kZoomPerSecond, move.zoom * seconds), 1.0, kZoomLimit);
    }
    return aim;
}

CPtzView::CPtzView(QWidget *parent) : QWidget(parent), timer_(this)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    timer_.setInterval(kFrameTime);
    connect(&timer_, &QTimer::timeout, this, &CPtzView::OnTick);
}

void CPtzView::Control(int operation, bool is_stop, int speed)
{
    const auto moves = [operation](const auto &move) { return move.operation == operation; };
    if (!is_stop) {
        if (std::none_of(std::begin(kMoves), std::end(kMoves), moves))
            return; // a selection, say, does not end the move that runs
        operation_ = operation;
        speed_ = speed;
        since_tick_.start();
        timer_.start();
    } else if (operation == operation_) {
        OnTick(); // to where it is now
        operation_ = 0;
        timer_.stop();
    }
}

QSize CPtzView::sizeHint() const
{
    return {640, 360};
}

void CPtzView::OnTick()
{
    const CameraAim aim = Moved(aim_, operation_, speed_, double(since_tick_.restart()) / 1000);
    if (aim == aim_)
        return;
    aim_ = aim;
    update();
}

QString CPtzView::Text() const
{
    return tr("Pan %1°  Tilt %2°  Zoom %3×")
        .arg(locale().toString(aim_.pan, 'f', 0), locale().toString(aim_.tilt, 'f', 0),
             locale().toString(aim_.zoom, 'f', 1));
}

void CPtzView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    PaintScene(painter, Lens(aim_, size()), size());
    const int height = painter.fontMetrics().height();
    QRect bar = rect();
    bar.setTop(bar.bottom() - 2 * height);
    painter.fillRect(bar, QColor(0, 0, 0, 150));
    painter.setPen(Qt::white);
    painter.drawText(bar.adjusted(height, 0, -height, 0), Qt::AlignVCenter, Text());
}

} // namespace Client
