// SPDX-License-Identifier: MIT
#include "ListsUnderTest.h"

#include <QtCore/QRandomGenerator>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>

using namespace ListsUnderTest;

namespace {

void Pass(benchmark::State &state, int rows, const std::string &size, double bar)
{
    CBoth &both = List(rows);
    Once(state, [&] {
        // The page size changes each time, so that most tags are written.
        Report(
            state, "paging_pass_" + size, bar,
            MedianOf(kQuick, 1, [&](int run) { both.letter.SetPerPage(kRowsPerPage + run % 2); }),
            MedianOf(kOurs, 10,
                     [&](int run) { both.view.SetTreeViewItemPerPage(kRowsPerPage + run % 2); }));
        both.letter.SetPerPage(kRowsPerPage);
        both.view.SetTreeViewItemPerPage(kRowsPerPage);
        Check(state, both);

        // A border is dragged by more than a row, and the page size follows.
        const QSize size_before = both.view.size();
        const int header_px = both.view.header()->sizeHint().height();
        const int row_px = both.view.sizeHintForRow(0);
        const auto height_of = [&](int run) { return size_before.height() - 50 * (1 + run % 2); };
        both.view.SetTreeViewItemPerPage(0);
        Report(state, "resize_step_" + size, bar,
               MedianOf(kQuick, 1,
                        [&](int run) {
                            both.letter.SetAdaptive(height_of(run), header_px, row_px);
                            both.letter.Resize();
                        }),
               MedianOf(kOurs, 4,
                        [&](int run) { both.view.resize(size_before.width(), height_of(run)); }));
        both.view.resize(size_before.width(), height_of(0));
        both.letter.SetAdaptive(height_of(0), header_px, row_px);
        both.letter.Resize();
        Check(state, both);
        both.view.resize(size_before);
        both.letter.SetPerPage(kRowsPerPage);
        both.view.SetTreeViewItemPerPage(kRowsPerPage);
    });
}
BENCHMARK_CAPTURE(Pass, Million, kMillion, "1m", 700)->Iterations(1);
BENCHMARK_CAPTURE(Pass, HundredThousand, kHundredThousand, "100k", 420)->Iterations(1);

void Flip(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    const auto page_of = [](int run) { return run * 37 % (kMillion / kRowsPerPage) + 1; };
    Once(state, [&] {
        Report(state, "flip_1m", 1000,
               MedianOf(kQuick, 1, [&](int run) { both.letter.SetPage(page_of(run)); }),
               MedianOf(kOurs, 50, [&](int run) { both.view.SetFilterPage(page_of(run)); }));
        Report(state, "flip_with_paint_1m", 60,
               MedianOf(kQuick, 1,
                        [&](int run) {
                            both.letter.SetPage(page_of(run));
                            both.plain_view.viewport()->repaint();
                        }),
               MedianOf(kOurs, 50, [&](int run) {
                   both.view.SetFilterPage(page_of(run));
                   both.view.viewport()->repaint();
               }));
        both.letter.SetPage(7);
        both.view.SetFilterPage(7);
        Check(state, both);
    });
}
BENCHMARK(Flip)->Iterations(1);

// A list keeps the rows of the last keywords until a text changes: here every keyword is a new one.
void ForgetWords(CBoth &both)
{
    const QModelIndex first = both.model.index(0, 0);
    both.model.setData(first, first.data());
}

void KeyWord(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    const auto ours = [&](const QString &keyword) {
        std::vector<double> set_s;
        std::vector<double> clear_s;
        for (int run = 0; run < kOurs; ++run) {
            ForgetWords(both);
            set_s.push_back(CpuSecondsOf([&] { both.view.SetFilterKeyWord(keyword); }));
            clear_s.push_back(CpuSecondsOf([&] { both.view.SetFilterKeyWord(QString()); }));
        }
        both.view.SetFilterKeyWord(keyword);
        return std::make_pair(Pairs::Median(set_s), Pairs::Median(clear_s));
    };
    const auto plain = [&](const QString &keyword) {
        return CpuSecondsOf([&] { both.letter.SetKeyWord(keyword); });
    };
    Once(state, [&] {
        const QString absent = QStringLiteral("absent");
        Report(state, "keyword_without_match_1m", 60, plain(absent), ours(absent).first);
        Check(state, both);
        both.letter.SetKeyWord(QString());
        both.view.SetFilterKeyWord(QString());

        const QString needle = QStringLiteral("needle");
        const auto ours_s = ours(needle);
        Report(state, "keyword_1_percent_1m", 500, plain(needle), ours_s.first);
        Check(state, both);
        Report(state, "keyword_cleared_1m", 5000, plain(QString()), ours_s.second);
        both.view.SetFilterKeyWord(QString());
        Check(state, both);
    });
}
BENCHMARK(KeyWord)->Iterations(1);

void KeyWordHalf(benchmark::State &state)
{
    CBoth &both = List(kHundredThousand);
    Once(state, [&] {
        const QString even = QStringLiteral("even");
        std::vector<double> ours_s;
        for (int run = 0; run < kOurs; ++run) {
            both.view.SetFilterKeyWord(QString());
            ForgetWords(both);
            ours_s.push_back(CpuSecondsOf([&] { both.view.SetFilterKeyWord(even); }));
        }
        Report(state, "keyword_50_percent_100k", 150,
               CpuSecondsOf([&] { both.letter.SetKeyWord(even); }), Pairs::Median(ours_s));
        Check(state, both);
        both.view.SetFilterKeyWord(QString());
        both.letter.SetKeyWord(QString());
    });
}
BENCHMARK(KeyWordHalf)->Iterations(1);

void ColumnLists(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    QStringList names;
    for (int i = 0; i < 50; ++i)
        names.append(NameOf(i));
    // What passes is one run of rows, so that the lists are measured and not the runs.
    std::vector<QStringList> lists = {
        {RowTexts(kMillion / 4).constFirst(), RowTexts(kMillion / 4 * 3).constFirst()},
        names,
        {QStringLiteral("Line crossed"), QStringLiteral("Door forced")}};
    Once(state, [&] {
        std::vector<double> ours_s;
        for (int run = 0; run < kOurs; ++run) {
            both.view.SetFilterKeyWord(QString());
            ours_s.push_back(CpuSecondsOf([&] { both.view.SetFilterKeyWords(lists); }));
        }
        Report(state, "column_lists_1m", 25, CpuSecondsOf([&] { both.letter.SetLists(lists); }),
               Pairs::Median(ours_s));
        Check(state, both);
        both.view.SetFilterKeyWord(QString());
        both.letter.SetKeyWord(QString());
    });
}
BENCHMARK(ColumnLists)->Iterations(1);

double SortNumbers(int count)
{
    QRandomGenerator random(1);
    std::vector<quint64> numbers(static_cast<size_t>(count));
    std::generate(numbers.begin(), numbers.end(), [&random] { return random.generate64(); });
    return CpuSecondsOf([&] { std::sort(numbers.begin(), numbers.end()); });
}

// From the model's order each time, without the results of the earlier sort.
double SortOurs(CBoth &both, int column)
{
    both.view.header()->setSortIndicator(-1, Qt::AscendingOrder);
    both.model.setData(both.model.index(0, column), RowTexts(0).at(column));
    return CpuSecondsOf([&] { both.view.header()->setSortIndicator(column, Qt::AscendingOrder); });
}

void Sort(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    Once(state, [&] {
        std::vector<double> ours_s;
        std::vector<double> numbers_s;
        std::vector<double> number_column_s;
        for (int run = 0; run < kOurs; ++run) {
            numbers_s.push_back(SortNumbers(kMillion));
            number_column_s.push_back(SortOurs(both, 7)); // a million different texts
            ours_s.push_back(SortOurs(both, kNameColumn));
        }
        const double sort_s = Pairs::Median(ours_s);
        Report(state, "sort_1m", 60,
               CpuSecondsOf([&] { both.letter.Sort(kNameColumn, Qt::AscendingOrder); }), sort_s);
        Check(state, both);
        Report(state, "sort_1m_within_4_sorts_of_numbers", 1, 4 * Pairs::Median(numbers_s), sort_s);
        state.counters["seconds_number_column"] = Pairs::Median(number_column_s);
        both.view.header()->setSortIndicator(-1, Qt::AscendingOrder);
        both.letter.Sort(-1, Qt::AscendingOrder);
        Check(state, both);
    });
}
BENCHMARK(Sort)->Iterations(1);

void Repaint(benchmark::State &state)
{
    CBoth &both = List(kTenThousand);
    Once(state, [&] {
        QAbstractItemDelegate *const lean = both.view.itemDelegate();
        QStyledItemDelegate plain;
        std::vector<double> plain_s;
        std::vector<double> lean_s;
        for (int run = 0; run < kOurs; ++run) {
            both.view.setItemDelegate(&plain);
            plain_s.push_back(MedianOf(1, 50, [&](int) { both.view.viewport()->repaint(); }));
            both.view.setItemDelegate(lean);
            lean_s.push_back(MedianOf(1, 50, [&](int) { both.view.viewport()->repaint(); }));
        }
        Report(state, "page_repaint", 2, Pairs::Median(plain_s), Pairs::Median(lean_s));
    });
}
BENCHMARK(Repaint)->Iterations(1);

// A hundred times the rows may take so many times as long.
void Growth(benchmark::State &state)
{
    struct CRow
    {
        const char *what;
        double most;
        int batch_of_few;
        std::function<void(CBoth &, int)> operation;
    };
    const auto wanted = [](int run) { return run % 2 ? QStringLiteral("needle") : QString(); };
    const std::vector<CRow> operations = {
        {"flip", 150, 200, [](CBoth &both, int run) { both.view.SetFilterPage(run % 90 + 1); }},
        {"paging_pass", 150, 200,
         [](CBoth &both, int run) { both.view.SetTreeViewItemPerPage(kRowsPerPage + run % 2); }},
        {"keyword", 150, 200,
         [&wanted](CBoth &both, int run) {
             ForgetWords(both);
             both.view.SetFilterKeyWord(wanted(run));
         }},
        {"sort", 250, 20, [](CBoth &both, int) { SortOurs(both, kNameColumn); }}};
    Once(state, [&] {
        for (const CRow &row : operations) {
            const double few_s = MedianOf(kOurs, row.batch_of_few,
                                          [&](int run) { row.operation(List(kTenThousand), run); });
            const double many_s =
                MedianOf(kOurs, 2, [&](int run) { row.operation(List(kMillion), run); });
            Report(state,
                   std::string("growth_within_") + std::to_string(static_cast<int>(row.most)) + "_"
                       + row.what,
                   1, row.most * few_s, many_s);
        }
    });
}
BENCHMARK(Growth)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    // Widgets must be deleted before the application object.
    return RunBenchmarks<QApplication>(argc, argv, [] { Lists().clear(); });
}
