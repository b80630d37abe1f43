// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

/// Measures one operation beside its baseline in the same run, so that a machine that slows down
/// slows both.
namespace Pairs {

constexpr int kPairs = 7;

template <class Operation> double SecondsOf(Operation &&operation)
{
    malloc_trim(0); // each makes its own memory: one may leave a heap behind that the next reuses
    const auto begin = std::chrono::steady_clock::now();
    operation();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// \brief Run kPairs interleaved pairs and report the median of baseline / ours as the counter
/// "ratio_<what>".
///
/// tools/bench prints it beside \a bar, the ratio that is promised. The medians of both times go
/// along, in seconds. \a prepare runs before each of the two and is not measured.
template <class Prepare, class Baseline, class Ours>
void ComparePrepared(benchmark::State &state, const std::string &what, double bar,
                     Prepare &&prepare, Baseline &&baseline, Ours &&ours)
{
    std::vector<double> baseline_s;
    std::vector<double> ours_s;
    std::vector<double> ratios;
    for (auto _ : state) {
        for (int pair = 0; pair < kPairs; ++pair) {
            prepare();
            baseline_s.push_back(SecondsOf(baseline));
            prepare();
            ours_s.push_back(SecondsOf(ours));
            ratios.push_back(baseline_s.back() / ours_s.back());
        }
    }
    state.counters["ratio_" + what] = Median(ratios);
    state.counters["bar_" + what] = bar;
    state.counters["seconds_baseline"] = Median(baseline_s);
    state.counters["seconds_ours"] = Median(ours_s);
}

template <class Baseline, class Ours>
void Compare(benchmark::State &state, const std::string &what, double bar, Baseline &&baseline,
             Ours &&ours)
{
    ComparePrepared(
        state, what, bar, [] {}, baseline, ours);
}

} // namespace Pairs
