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
#include <QtWidgets/QApplication>

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
BENCHMARK_CAPTURE(Paint, AllVisible, "paint_1m_all_visible", 1.0, 3.5)->Iterations(1);
BENCHMARK_CAPTURE(Paint, OnePercent, "paint_1m_1_percent_visible", 0.01, 25.0)->Iterations(1);
BENCHMARK_CAPTURE(Paint, Day, "paint_1m_24_hours", double(kDay) / kSpacing / kMillion, 80.0)
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
            plain.detach(); // from the set: that copy is not what is measured
            for (int i = 0; i < bars.size(); i += kMillion / 4) // as a search gives them
                ours.AppendTimeBar(bars.mid(i, kMillion / 4));
            plain_s.push_back(Pairs::SecondsOf([&] {
                plain += added;
                Letter::SortTimeBars(plain);
            }));
            ours_s.push_back(Pairs::SecondsOf([&] { ours.AppendTimeBar(added); }));
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

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QApplication>(argc, argv);
}
