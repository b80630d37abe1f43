// SPDX-License-Identifier: MIT
#include "Main.h"
#include "Pairs.h"

#include <Nim/Base/Log.h>
#include <Vantor/CBaseDockFrame>
#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>

#include <QtCore/QPropertyAnimation>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace {

constexpr int kFields = 100; // each with its label: 200 widgets
constexpr int kWidth = 400;
constexpr int kSteps = 20; // a slide of 300 ms at some 60 pictures a second
constexpr int kSlides = 20;
constexpr double kStepBar = 1 / 1.3;

void Fill(QWidget *content)
{
    auto *const form = new QFormLayout(content);
    for (int i = 0; i < kFields; ++i) {
        form->addRow(new QLabel(QStringLiteral("Field %1").arg(i), content),
                     new QLineEdit(QStringLiteral("value"), content));
    }
}

// What a slide shows, with the time of each step set by hand.
void Slide(QWidget *window)
{
    auto *const slide = window->findChild<QPropertyAnimation *>();
    slide->pause(); // it would end by itself on a slow machine
    for (int step = 1; step <= kSteps; ++step) {
        slide->setCurrentTime(slide->totalDuration() * step / kSteps - 1);
        QCoreApplication::processEvents();
    }
}

void SlideSteps(benchmark::State &state)
{
    // The log lines are written but go nowhere, because the sink's speed must not count.
    Nim::Base::Log::SetSink([](int, const std::string &, const std::string &) {});
    QWidget window;
    window.setGeometry(50, 50, 1000, 700);
    window.show();
    auto &manager = Ravel::CUiSingleton<Vantor::CDockManager>::Instance();
    manager.SetMainWindow(&window);
    Vantor::CBaseDockFrame frame(&window);
    auto *const content = new QWidget;
    Fill(content);
    frame.SetContentWnd(content);

    // A frame that holds the same panel, kept as wide as the dock keeps it, and grows the same way.
    QFrame bare(&window, Qt::FramelessWindowHint | Qt::Dialog);
    bare.setGeometry(500, 91, 0, 658);
    auto *const panel = new Vantor::CBaseDockFrame(&bare);
    auto *const panel_content = new QWidget;
    Fill(panel_content);
    panel->SetContentWnd(panel_content);
    panel->resize(kWidth, 658);

    auto *const growth = new QPropertyAnimation(&bare, QByteArrayLiteral("size"), &bare);
    growth->setDuration(300);
    growth->setStartValue(QSize(0, 658));
    growth->setEndValue(QSize(kWidth, 658));
    bool is_shown = true;
    Pairs::Compare(
        state, "dock_steps_of_a_slide", kStepBar,
        [&] {
            bare.show();
            for (int i = 0; i < kSlides; ++i) {
                growth->start();
                Slide(&bare);
                growth->stop();
            }
            bare.hide();
        },
        [&] {
            manager.SetDockWidget(&frame, kWidth);
            for (int i = 0; i < kSlides; ++i) {
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                manager.GetDockWidget()->ShowInAnimation();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                Slide(manager.GetDockWidget());
            }
            is_shown &= frame.isVisible() && manager.GetDockWidget()->width() >= kWidth - 5;
            manager.GetDockWidget()->hide();
        });
    if (!is_shown)
        state.SkipWithError("not shown");
}

BENCHMARK(SlideSteps)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QApplication>(argc, argv);
}
