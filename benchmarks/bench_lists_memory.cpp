// SPDX-License-Identifier: MIT
#include "ListsUnderTest.h"
#include "Memory.h"

#include <malloc.h>

#include <QtGui/QStandardItemModel>

#include <algorithm>

using namespace ListsUnderTest;

namespace {

// Runs before the big lists exist, because the child processes share the memory of this one.
void MemoryPerRow(benchmark::State &state)
{
    long plain_kb = 0;
    long ours_kb = 0;
    Once(state, [&] {
        plain_kb = Memory::AddedKbApart([] {
            QStandardItemModel model;
            model.setHorizontalHeaderLabels(Labels());
            Vantor::CFilterProxyModelEx keywords;
            Vantor::CFilterProxyModelEx page;
            keywords.SetKeyWordFilter(QString());
            keywords.setSourceModel(&model);
            page.setSourceModel(&keywords);
            QTreeView view;
            CBoth::Show(view);
            view.setModel(&page);
            for (int row = 0; row < kMemoryRows; ++row) {
                QList<QStandardItem *> cells;
                const QStringList texts = RowTexts(row);
                for (const QString &text : texts)
                    cells.append(new QStandardItem(text));
                cells.constFirst()->setData(Ravel::PageTag(row / kRowsPerPage + 1),
                                            Ravel::kPageTagRole);
                model.invisibleRootItem()->appendRow(cells);
            }
            page.SetPageFilter(Ravel::PageTag(1));
        });
        ours_kb = Memory::AddedKbApart([] {
            Ravel::CTreeViewModel model;
            model.SetHorizontalHeaderLabels(Labels());
            Vantor::CFilterTreeViewEx view;
            CBoth::Show(view);
            view.SetModel(&model);
            view.SetTreeViewItemPerPage(kRowsPerPage);
            QList<Ravel::CTreeViewItem *> items = MakeItems(0, kMemoryRows);
            view.AddTopLevelItems(items);
        });
    });
    if (plain_kb <= 0 || ours_kb <= 0)
        state.SkipWithError("no memory was measured");
    state.counters["ratio_lists_memory_a_row"] =
        static_cast<double>(plain_kb) / static_cast<double>(ours_kb);
    state.counters["bar_lists_memory_a_row"] = 5;
    state.counters["bytes_baseline"] = static_cast<double>(plain_kb) * 1024 / kMemoryRows;
    state.counters["bytes_ours"] = static_cast<double>(ours_kb) * 1024 / kMemoryRows;
}
BENCHMARK(MemoryPerRow)->Iterations(1);

void Soak(benchmark::State &state)
{
    constexpr long kLimitKb = 1024;
    CBoth &both = List(kTenThousand);
    const auto work = [&both](int flips, int filters) {
        for (int i = 0; i < filters; ++i)
            both.view.SetFilterKeyWord(i % 2 ? QString() : QStringLiteral("needle"));
        for (int i = 0; i < flips; ++i)
            both.view.SetFilterPage(i % 100 + 1);
    };
    long grown_kb = 0;
    Once(state, [&] {
        work(1000, 100);
        malloc_trim(0);
        const long before_kb = Memory::StatusKb("VmRSS");
        work(100'000, 1000);
        malloc_trim(0);
        grown_kb = Memory::StatusKb("VmRSS") - before_kb;
    });
    state.counters["ratio_lists_soak_memory_limit_over_growth"] =
        static_cast<double>(kLimitKb) / static_cast<double>(std::max(1L, grown_kb));
    state.counters["bar_lists_soak_memory_limit_over_growth"] = 1;
    state.counters["grown_kb"] = static_cast<double>(grown_kb);
}
BENCHMARK(Soak)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    // Widgets must be deleted before the application object.
    return RunBenchmarks<QApplication>(argc, argv, [] { Lists().clear(); });
}
