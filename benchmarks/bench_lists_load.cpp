// SPDX-License-Identifier: MIT
#include "ListsUnderTest.h"

using namespace ListsUnderTest;

namespace {

void Load(benchmark::State &state)
{
    Once(state, [&] {
        CBoth &both = List(kMillion);
        Report(state, "add_1m", 8, both.letter_add_s, both.add_s);
        Report(state, "first_filter_1m", 10, both.first_letter_filter_s, both.first_filter_s);
        Check(state, both);
    });
}
BENCHMARK(Load)->Iterations(1);

double FillTags(std::vector<int> &tags, int rows_per_page)
{
    return CpuSecondsOf([&] {
        for (size_t row = 0; row < tags.size(); ++row)
            tags[row] = static_cast<int>(row) / rows_per_page + 1;
        benchmark::DoNotOptimize(tags.data());
        benchmark::ClobberMemory();
    });
}

void AddMore(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    std::vector<int> tags(kMillion);
    Once(state, [&] {
        std::vector<double> fill_s;
        std::vector<double> ours_s;
        for (int run = 0; run < kOurs; ++run) {
            fill_s.push_back(FillTags(tags, kRowsPerPage));
            QList<Ravel::CTreeViewItem *> items = MakeItems(kMillion + 100 * run, 100);
            ours_s.push_back(CpuSecondsOf([&] { both.view.AddTopLevelItems(items); }));
        }
        Report(state, "add_100_to_1m_within_2_tag_fills", 1, 2 * Pairs::Median(fill_s),
               Pairs::Median(ours_s));
        both.model.removeRows(kMillion, both.model.rowCount() - kMillion);
        both.view.SetTreeViewItemPerPage(kRowsPerPage);
    });
}
BENCHMARK(AddMore)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    // Widgets must be deleted before the application object.
    return RunBenchmarks<QApplication>(argc, argv, [] { Lists().clear(); });
}
