// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

/// \brief Run the benchmarks that the command line selects, while an \a Application exists.
/// \param at_end deletes what must not outlive the application.
template <class Application>
int RunBenchmarks(
    int argc, char **argv, void (*at_end)() = [] {})
{
    const Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    at_end();
    return 0;
}
