// SPDX-License-Identifier: MIT
// What painting and growing a time line costs, beside the plain loop over all bars.
#include "Main.h"
#include "Pairs.h"
#include "letter/TimeBarLetter.h"

#include <Vantor/CAnimationProgressBar>
#include <Vantor/CTimeBarDelegate>
#include <Vantor/CTimeBarParam>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <random>

namespace {

using Vantor::CTimeBarParam;

constexpr int kWidthPx = 1920;
constexpr int kHeightPx = 70;
constexpr qint64 kNow = 1700000000;
constexpr qint64 kDay = 86400;
constexpr int kFramesOfSlide = 5;
constexpr int kMillion = 1000000;
constexpr qint64 kSpacing = 60; // seconds from start to start, as the client makes them
const QList<int> kTypes{22, 0, 500, 13};

class CPaintable : public Vantor::CTimeBarDelegate
{
public:
    using CTimeBarDelegate::CTimeBarDelegate;
    using CTimeBarDelegate::Paint;
};

// Recordings of four types one after another, of changing length, around kNow.
QVector<CTimeBarParam> NewBars(int count)
{
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same set each time
    std::uniform_int_distribution<int> length_s(5, 4 * kSpacing);
    QVector<CTimeBarParam> bars;
    bars.reserve(count);
    for (int i = 0; i < count; ++i) {
        const int type = i % kTypes.size();
        const qint64 start = kNow + (i - count / 2) * kSpacing;
        bars.append(
            CTimeBarParam(Vantor::TimeBarParam{kTypes.at(type),
                                               size_t(i),
                                               start,
                                               start + length_s(random),
                                               {},
                                               {},
                                               QColor::fromHsv(type * 80, 200, 220).toRgb()}));
    }
    return bars;
}

/// A time line with the same bars in both forms, looking at `seconds` of them.
struct Scene
{
    Scene(const QVector<CTimeBarParam> &bars, double seconds)
    {
        line.resize(kWidthPx, kHeightPx);
        line.SetPosition(kNow * 1000);
        line.SetUnitScale(kWidthPx, seconds);
        line.AppendDelegate(&ours);
        ours.InitTypes(kTypes);
        ours.AppendTimeBar(bars);
        plain.bars = bars;
        plain.types = kTypes;
        for (const int type : kTypes)
            plain.visible[type] = true;
    }

    void PaintPlain()
    {
        Paint(plain_image, [this](QPainter &painter) {
            plain.Paint(&painter, {kWidthPx, kHeightPx, line.GetCurrentUTCTime(),
                                   line.PixelsPerSecond(), false});
        });
    }
    void PaintOurs()
    {
        Paint(image, [this](QPainter &painter) { ours.Paint(&painter); });
    }

    // As a window keeps its picture from one frame to the next.
    QImage plain_image{kWidthPx, kHeightPx, QImage::Format_ARGB32_Premultiplied};
    QImage image{kWidthPx, kHeightPx, QImage::Format_ARGB32_Premultiplied};
    Vantor::CAnimationProgressBar line;
    CPaintable ours{&line};
    Letter::TimeBars plain;

private:
    template <class Body> static void Paint(QImage &image, Body &&paint)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        paint(painter);
    }
};

void Paint(benchmark::State &state, const std::string &what, double share, double bar)
{
    Scene scene(NewBars(kMillion), double(kMillion) * kSpacing * share);
    Pairs::Compare(
        state, "timebar_" + what, bar,
        [&] {
            for (int i = 0; i < kFramesOfSlide; ++i)
                scene.PaintPlain();
        },
        [&] {
            for (int i = 0; i < kFramesOfSlide; ++i)
                scene.PaintOurs();
        });
    if (scene.plain_image != scene.image)
        state.SkipWithError("the pictures differ");
}
BENCHMARK_CAPTURE(Paint, AllVisible, "paint_1m_all_visible", 1.0, 10.0)->Iterations(1);
BENCHMARK_CAPTURE(Paint, OnePercent, "paint_1m_1_percent_visible", 0.01, 40.0)->Iterations(1);
BENCHMARK_CAPTURE(Paint, Day, "paint_1m_24_hours", double(kDay) / kSpacing / kMillion, 100.0)
    ->Iterations(1);

// 24 hours out of a million bars beside the same 24 hours out of 10,000: at most twice the time.
void DayOfFew(benchmark::State &state)
{
    Scene few(NewBars(10000), kDay);
    Scene many(NewBars(kMillion), kDay);
    constexpr int kFrames = 100;
    Pairs::Compare(
        state, "timebar_paint_24_hours_of_10k_over_1m", 0.5,
        [&] {
            for (int i = 0; i < kFrames; ++i)
                few.PaintOurs();
        },
        [&] {
            for (int i = 0; i < kFrames; ++i)
                many.PaintOurs();
        });
    few.PaintPlain();
    many.PaintPlain();
    if (few.image != few.plain_image || many.image != many.plain_image)
        state.SkipWithError("the pictures differ");
}
BENCHMARK(DayOfFew)->Iterations(1);

// A thousand bars anywhere among a million, beside appending them and sorting all.
void Append(benchmark::State &state)
{
    const QVector<CTimeBarParam> bars = NewBars(kMillion);
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp): the same set each time
    std::uniform_int_distribution<qint64> start(kNow - kMillion / 2 * kSpacing,
                                                kNow + kMillion / 2 * kSpacing);
    QVector<CTimeBarParam> added = NewBars(1000);
    for (CTimeBarParam &bar : added)
        bar.SetVal_dtStart(start(random));

    std::vector<double> plain_s;
    std::vector<double> ours_s;
    std::vector<double> ratios;
    for (auto _ : state) {
        for (int pair = 0; pair < Pairs::kPairs; ++pair) {
            QVector<CTimeBarParam> plain;
            Vantor::CTimeBarDelegate ours(nullptr);
            plain += bars;
            plain.detach(); // from the set, because that copy must not count
            for (int i = 0; i < bars.size(); i += kMillion / 4) // as a search gives them
                ours.AppendTimeBar(bars.mid(i, kMillion / 4));
            plain_s.push_back(Pairs::SecondsOf([&] {
                plain += added;
                Letter::SortTimeBars(plain);
            }));
            ours.InitTypes(kTypes);
            static_cast<void>(ours.FindStart(0, true));
            ours_s.push_back(Pairs::SecondsOf([&] {
                ours.AppendTimeBar(added);
                static_cast<void>(ours.FindStart(0, true)); // sorts them in
            }));
            ratios.push_back(plain_s.back() / ours_s.back());
            for (int i = 0; i < plain.size(); ++i) {
                if (plain.at(i).Read().dtStart != ours.GetTimeBar().at(i).Read().dtStart)
                    state.SkipWithError("the rows differ");
            }
        }
    }
    state.counters["ratio_timebar_append_1k_to_1m"] = Pairs::Median(ratios);
    state.counters["bar_timebar_append_1k_to_1m"] = 20.0;
    state.counters["seconds_baseline"] = Pairs::Median(plain_s);
    state.counters["seconds_ours"] = Pairs::Median(ours_s);
}
BENCHMARK(Append)->Iterations(1);

// Single bars, the newest first as searches answer, beside the same bars the oldest first.
void AppendNewestFirst(benchmark::State &state)
{
    constexpr int kBars = 20000;
    const QVector<CTimeBarParam> bars = NewBars(kBars);
    int starts_in_order = 0;
    const auto append = [&](bool is_newest_first) {
        Vantor::CTimeBarDelegate delegate(nullptr);
        delegate.InitTypes(kTypes);
        for (int i = 0; i < kBars; ++i)
            delegate.AppendTimeBar({bars.at(is_newest_first ? kBars - 1 - i : i)});
        starts_in_order +=
            int(std::is_sorted(delegate.GetTimeBar().begin(), delegate.GetTimeBar().end(),
                               [](const CTimeBarParam &a, const CTimeBarParam &b) {
                                   return a.Read().dtStart < b.Read().dtStart;
                               }));
    };
    Pairs::Compare(
        state, "timebar_append_newest_first", 0.5, [&] { append(false); }, [&] { append(true); });
    if (starts_in_order != 2 * Pairs::kPairs)
        state.SkipWithError("the rows are not sorted");
}
BENCHMARK(AppendNewestFirst)->Iterations(1);

class CPlainLayer : public Vantor::CAbstractDelegate
{
public:
    CPlainLayer(const Letter::TimeBars &bars, QObject *parent)
        : CAbstractDelegate(0, parent), bars_(bars)
    {}

protected:
    void Paint(QPainter *painter) override
    {
        const Vantor::CAnimationProgressBar &line = *AnimationProgressBar();
        bars_.Paint(painter, {line.width(), line.height(), line.GetCurrentUTCTime(),
                              line.PixelsPerSecond(), false});
    }

private:
    const Letter::TimeBars &bars_;
};

// 60 notches of the wheel over a million bars, each with its picture.
void Wheel(benchmark::State &state)
{
    Scene scene(NewBars(kMillion), kDay * 300.0);
    const double first_px = scene.line.UnitScaleLength();
    const double first_s = scene.line.UnitTimeLength();
    scene.line.SetAnimationDuration(0);
    CPlainLayer layer(scene.plain, &scene.line);
    const auto turn = [&](QImage &image) {
        scene.line.SetUnitScale(first_px, first_s);
        scene.line.SetPosition(kNow * 1000);
        for (int notch = 0; notch < 60; ++notch) {
            const QPointF at(kWidthPx / 4.0, 10);
            QWheelEvent event(at, at, {}, {0, notch < 30 ? 120 : -120}, Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&scene.line, &event);
            scene.line.render(&image);
        }
    };
    Pairs::Compare(
        state, "timebar_60_wheel_notches_over_1m", 10.0,
        [&] {
            scene.line.RemoveDelegate(&scene.ours);
            scene.line.AppendDelegate(&layer);
            turn(scene.plain_image);
        },
        [&] {
            scene.line.RemoveDelegate(&layer);
            scene.line.AppendDelegate(&scene.ours);
            turn(scene.image);
        });
    if (scene.plain_image != scene.image)
        state.SkipWithError("the pictures differ");
}
BENCHMARK(Wheel)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QApplication>(argc, argv);
}
