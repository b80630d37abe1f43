// SPDX-License-Identifier: MIT
#include "Faceplate/InfoTip.h"

#include <QtCore/QPropertyAnimation>
#include <QtCore/QVector>
#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <algorithm>
#include <chrono>

namespace Faceplate {
namespace {

using namespace std::chrono_literals;

constexpr int kWidthPx = 320;
constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 10;
constexpr auto kShown = 5s;
constexpr int kFadeMs = 400;

// The tips that are shown, the lowest first. GUI thread only. A tip removes itself.
QVector<CInfoTip *> &ShownTips()
{
    static auto *const tips = new QVector<CInfoTip *>;
    return *tips;
}

QScreen *ScreenOf(const QWidget *parent)
{
    const QWindow *const window = parent ? parent->window()->windowHandle() : nullptr;
    return window ? window->screen() : QGuiApplication::primaryScreen();
}

// The windows form a stack at the lower right of each screen. When one closes, those above it move
// down.
void PileUp(const QScreen *screen)
{
    const QRect room =
        screen->availableGeometry().adjusted(kMarginPx, kMarginPx, -kMarginPx, -kMarginPx);
    int bottom = room.bottom() + 1;
    for (CInfoTip *const tip : qAsConst(ShownTips())) {
        if (ScreenOf(tip->parentWidget()) != screen)
            continue;
        bottom -= tip->height();
        tip->move(room.right() + 1 - tip->width(), std::max(bottom, room.top()));
        bottom -= kSpacingPx;
    }
}

} // namespace

CInfoTip::CInfoTip(const CStruInfoTipsData &tip, QWidget *parent)
    : QFrame(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus)
{
    setObjectName(QStringLiteral("InfoTip"));
    setProperty("informationType", tip.information_type);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tip.text);
    auto *const label = new QLabel(tip.text, this);
    label->setObjectName(QStringLiteral("InfoTipText"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->addWidget(label);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &CInfoTip::FadeAway);
    // A tip without a parent would outlive the application object.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &QWidget::close);
}

CInfoTip::~CInfoTip()
{
    ShownTips().removeOne(this);
    if (const QScreen *const screen = ScreenOf(parentWidget()))
        PileUp(screen);
}

void CInfoTip::Appear()
{
    resize(kWidthPx, std::max(heightForWidth(kWidthPx), minimumSizeHint().height()));
    ShownTips().append(this);
    if (const QScreen *const screen = ScreenOf(parentWidget()))
        PileUp(screen);
    show();
    timer_.start(kShown);
}

void CInfoTip::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    close();
}

void CInfoTip::FadeAway()
{
    auto *const fade = new QPropertyAnimation(this, "windowOpacity", this);
    fade->setDuration(kFadeMs);
    fade->setEndValue(0.0);
    connect(fade, &QAbstractAnimation::finished, this, &QWidget::close);
    fade->start();
}

} // namespace Faceplate
