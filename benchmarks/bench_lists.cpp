// SPDX-License-Identifier: MIT
#include "Main.h"
#include "Memory.h"
#include "Pairs.h"
#include "letter/ListLetter.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>

#include <QtCore/QRandomGenerator>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyledItemDelegate>

#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace {

constexpr int kMillion = 1'000'000;
constexpr int kHundredThousand = 100'000;
constexpr int kTenThousand = 10'000;
constexpr int kRowsPerPage = 100;
constexpr int kNameColumn = 1;
constexpr int kShownRows = 32;
constexpr int kMemoryRows = 200'000;
constexpr int kSlow = 1;  // runs of a plain form that takes seconds
constexpr int kQuick = 3; // of one that takes less
constexpr int kOurs = 7;  // of ours

// All work here is done by one thread, so the time of other programs can be left out.
template <class Operation> double CpuSecondsOf(Operation &&operation)
{
    const auto now_s = [] {
        timespec now{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
    };
    const double begin_s = now_s();
    operation();
    return now_s() - begin_s;
}

QStringList Labels()
{
    return {QStringLiteral("Time"),   QStringLiteral("Name"),     QStringLiteral("Kind"),
            QStringLiteral("Door"),   QStringLiteral("Severity"), QStringLiteral("Operator"),
            QStringLiteral("Remark"), QStringLiteral("Number")};
}

QString NameOf(int number)
{
    return QStringLiteral("Camera %1").arg(number, 3, 10, QLatin1Char('0'));
}

// In the order of time; every hundredth row holds "needle", every second one "even".
QStringList RowTexts(int row)
{
    static const QStringList kinds = {QStringLiteral("Line crossed"),
                                      QStringLiteral("Door forced")};
    const auto mixed = static_cast<int>(static_cast<quint32>(row) * 2654435761U >> 8U);
    return {QStringLiteral("2026-%1").arg(row, 9, 10, QLatin1Char('0')),
            NameOf(mixed % 50),
            kinds.at(mixed / 50 % 2),
            QStringLiteral("Gate north"),
            row % 2 == 0 ? QStringLiteral("even") : QStringLiteral("high"),
            QStringLiteral("operator"),
            row % 100 == 37 ? QStringLiteral("needle") : QStringLiteral("seen and noted"),
            QString::number(mixed)};
}

QList<Ravel::CTreeViewItem *> MakeItems(int first, int count)
{
    QList<Ravel::CTreeViewItem *> items;
    items.reserve(count);
    for (int row = first; row < first + count; ++row)
        items.append(new Ravel::CTreeViewItem(RowTexts(row)));
    return items;
}

// The same rows in both forms, each under its view.
struct CBoth
{
    explicit CBoth(int count) : rows(count), letter(Labels(), Letter::Refilter::Always)
    {
        Show(plain_view);
        plain_view.setUniformRowHeights(true); // or loading a million rows takes hours
        plain_view.setModel(&letter.page_);
        letter.rows_per_page_ = kRowsPerPage;
        model.SetHorizontalHeaderLabels(Labels());
        Show(view);
        view.SetModel(&model);
        view.SetTreeViewItemPerPage(kRowsPerPage);

        const QString absent = QStringLiteral("absent");
        std::vector<double> ours_add_s;
        std::vector<double> ours_filter_s;
        for (int run = 0; run < kQuick; ++run) {
            view.SetFilterKeyWord(QString());
            view.ClearAllItems();
            QList<Ravel::CTreeViewItem *> items = MakeItems(0, rows);
            ours_add_s.push_back(CpuSecondsOf([&] { view.AddTopLevelItems(items); }));
            ours_filter_s.push_back(CpuSecondsOf([&] { view.SetFilterKeyWord(absent); }));
        }
        add_s = Pairs::Median(ours_add_s);
        first_filter_s = Pairs::Median(ours_filter_s);
        QVector<QStringList> texts;
        texts.reserve(rows);
        for (int row = 0; row < rows; ++row)
            texts.append(RowTexts(row));
        Letter::CRows::Items plain_items = Letter::CRows::Make(texts);
        texts.clear();
        letter_add_s = CpuSecondsOf([&] { letter.Add(std::move(plain_items)); });
        first_letter_filter_s = CpuSecondsOf([&] { letter.SetKeyWord(absent); });
        letter.SetKeyWord(QString());
        view.SetFilterKeyWord(QString());
    }

    // 32 rows of 8 columns.
    static void Show(QTreeView &shown)
    {
        shown.resize(1280, 32 * 25 + 30);
        shown.show();
        QCoreApplication::processEvents(); // or nothing is painted
    }

    const int rows;
    Letter::CPagedList letter;
    QTreeView plain_view;
    Ravel::CTreeViewModel model;
    Vantor::CFilterTreeViewEx view;
    double letter_add_s = 0;
    double add_s = 0;
    double first_letter_filter_s = 0;
    double first_filter_s = 0;
};

std::map<int, std::unique_ptr<CBoth>> &Lists()
{
    static std::map<int, std::unique_ptr<CBoth>> lists;
    return lists;
}

CBoth &List(int rows)
{
    auto &list = Lists()[rows];
    if (!list)
        list = std::make_unique<CBoth>(rows);
    return *list;
}

using Operation = std::function<void(int run)>;

double MedianOf(int runs, int batch, const Operation &operation)
{
    std::vector<double> seconds;
    int run = 0;
    for (int i = 0; i < runs; ++i) {
        seconds.push_back(CpuSecondsOf([&] {
                              for (int k = 0; k < batch; ++k)
                                  operation(run++);
                          })
                          / batch);
    }
    return Pairs::Median(seconds);
}

void Tell(benchmark::State &state, const std::string &what, double bar, double baseline_s,
          double ours_s)
{
    state.counters["ratio_lists_" + what] = baseline_s / ours_s;
    state.counters["bar_lists_" + what] = bar;
    state.counters["seconds_baseline_" + what] = baseline_s;
    state.counters["seconds_ours_" + what] = ours_s;
}

// Both forms have to show the same rows on the same pages.
void Check(benchmark::State &state, CBoth &both)
{
    const QAbstractItemModel &plain = both.letter.page_;
    const QAbstractItemModel &ours = *both.view.model();
    bool is_same = both.letter.keywords_.rowCount() == both.view.TopLevelItemCount()
                   && plain.rowCount() == ours.rowCount();
    for (int row = 0; is_same && row < plain.rowCount(); ++row) {
        is_same = plain.index(row, 0).data() == ours.index(row, 0).data()
                  && plain.index(row, 0).data(Ravel::kPageTagRole)
                         == ours.index(row, 0).data(Ravel::kPageTagRole);
    }
    if (!is_same)
        state.SkipWithError("the lists differ");
}

// Once, so that each state is one run.
template <class Body> void Once(benchmark::State &state, Body &&body)
{
    for (auto _ : state)
        body();
}

// Before the big lists: the child processes share what is there.
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

void Load(benchmark::State &state)
{
    Once(state, [&] {
        CBoth &both = List(kMillion);
        Tell(state, "add_1m", 8, both.letter_add_s, both.add_s);
        Tell(state, "first_filter_1m", 10, both.first_letter_filter_s, both.first_filter_s);
        Check(state, both);
    });
}
BENCHMARK(Load)->Iterations(1);

void Pass(benchmark::State &state, int rows, const std::string &size, double bar)
{
    CBoth &both = List(rows);
    Once(state, [&] {
        // The page size changes each time, so that most tags are written.
        Tell(state, "paging_pass_" + size, bar,
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
        Tell(state, "resize_step_" + size, bar,
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
BENCHMARK_CAPTURE(Pass, Million, kMillion, "1m", 100)->Iterations(1);
BENCHMARK_CAPTURE(Pass, HundredThousand, kHundredThousand, "100k", 60)->Iterations(1);

void Flip(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    const auto page_of = [](int run) { return run * 37 % (kMillion / kRowsPerPage) + 1; };
    Once(state, [&] {
        Tell(state, "flip_1m", 80,
             MedianOf(kQuick, 1, [&](int run) { both.letter.SetPage(page_of(run)); }),
             MedianOf(kOurs, 50, [&](int run) { both.view.SetFilterPage(page_of(run)); }));
        Tell(state, "flip_with_paint_1m", 25,
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

void KeyWord(benchmark::State &state)
{
    CBoth &both = List(kMillion);
    const auto ours = [&](const QString &keyword) {
        std::vector<double> set_s;
        std::vector<double> clear_s;
        for (int run = 0; run < kOurs; ++run) {
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
        Tell(state, "keyword_without_match_1m", 15, plain(absent), ours(absent).first);
        Check(state, both);
        both.letter.SetKeyWord(QString());
        both.view.SetFilterKeyWord(QString());

        const QString needle = QStringLiteral("needle");
        const auto ours_s = ours(needle);
        Tell(state, "keyword_1_percent_1m", 100, plain(needle), ours_s.first);
        Check(state, both);
        Tell(state, "keyword_cleared_1m", 300, plain(QString()), ours_s.second);
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
            ours_s.push_back(CpuSecondsOf([&] { both.view.SetFilterKeyWord(even); }));
        }
        Tell(state, "keyword_50_percent_100k", 150,
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
        Tell(state, "column_lists_1m", 6, CpuSecondsOf([&] { both.letter.SetLists(lists); }),
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

// From the model's order each time; what was worked out for the sort before is forgotten.
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
        Tell(state, "sort_1m", 25,
             CpuSecondsOf([&] { both.letter.Sort(kNameColumn, Qt::AscendingOrder); }), sort_s);
        Check(state, both);
        Tell(state, "sort_1m_within_6_sorts_of_numbers", 1, 6 * Pairs::Median(numbers_s), sort_s);
        state.counters["seconds_number_column"] = Pairs::Median(number_column_s);
        both.view.header()->setSortIndicator(-1, Qt::AscendingOrder);
        both.letter.Sort(-1, Qt::AscendingOrder);
        Check(state, both);
    });
}
BENCHMARK(Sort)->Iterations(1);

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
        Tell(state, "add_100_to_1m_within_5_tag_fills", 1, 5 * Pairs::Median(fill_s),
             Pairs::Median(ours_s));
        both.model.removeRows(kMillion, both.model.rowCount() - kMillion);
        both.view.SetTreeViewItemPerPage(kRowsPerPage);
    });
}
BENCHMARK(AddMore)->Iterations(1);

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
        Tell(state, "page_repaint", 2, Pairs::Median(plain_s), Pairs::Median(lean_s));
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
         [&wanted](CBoth &both, int run) { both.view.SetFilterKeyWord(wanted(run)); }},
        {"sort", 250, 20, [](CBoth &both, int) { SortOurs(both, kNameColumn); }}};
    Once(state, [&] {
        for (const CRow &row : operations) {
            const double few_s = MedianOf(kOurs, row.batch_of_few,
                                          [&](int run) { row.operation(List(kTenThousand), run); });
            const double many_s =
                MedianOf(kOurs, 2, [&](int run) { row.operation(List(kMillion), run); });
            Tell(state,
                 std::string("growth_within_") + std::to_string(static_cast<int>(row.most)) + "_"
                     + row.what,
                 1, row.most * few_s, many_s);
        }
    });
}
BENCHMARK(Growth)->Iterations(1);

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
