// SPDX-License-Identifier: MIT
// The client's list page with a million rows: how long each thing that a user does holds the GUI
// thread, painting included, beside a plain read of all texts.
#include "Main.h"
#include "Pairs.h"

#include <Ravel/TextRanks.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CComboBoxEx>
#include <Vantor/CFilterTreeViewEx>

#include <list/CsvFile.h>
#include <pages/ListPage.h>

#include <QtCore/QRandomGenerator>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <ctime>
#include <map>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int kRows = 1'000'000;
constexpr int kRuns = 7;
constexpr int kReadsAFrame = 4; // plain reads of all texts: about a frame
constexpr int kScatters = 4;    // that a sort may take

// Of the GUI thread: other programs, and the threads that read in the background, do not count.
template <class Operation> double SecondsOf(Operation &&operation)
{
    const auto now_s = [] {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
    };
    const double begin_s = now_s();
    operation();
    return now_s() - begin_s;
}

struct CPageUnderTest
{
    CPageUnderTest()
    {
        page.resize(1280, 800);
        page.show();
        const auto read = Client::ReadCsvFile(QStringLiteral(":/Client/Data/incidents.csv"));
        load_s = SecondsOf([&] { page.SetList(read.list->Resized(kRows)); });
        model = page.findChild<Ravel::CTreeViewModel *>();
        view = page.findChild<Vantor::CFilterTreeViewEx *>();
        search = page.findChild<QLineEdit *>(QStringLiteral("pKeyWordEdit"));
        search->setFocus();
        WaitForRanks();
        QCoreApplication::processEvents();
    }

    // They are ready when the last column has them.
    void WaitForRanks() const
    {
        while (!model->HasRanks(model->columnCount() - 1))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    // Everything that a press of the key causes, until the page is painted.
    double Type(int key, const QString &text = {})
    {
        return Hold([&] {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
            QCoreApplication::sendEvent(search, &press);
        });
    }
    template <class Operation> double Hold(Operation &&operation)
    {
        return SecondsOf([&] {
            operation();
            QCoreApplication::processEvents();
            view->viewport()->repaint();
        });
    }

    Client::CListPage page;
    Ravel::CTreeViewModel *model = nullptr;
    Vantor::CFilterTreeViewEx *view = nullptr;
    QLineEdit *search = nullptr;
    double load_s = 0;
};

std::unique_ptr<CPageUnderTest> &Page()
{
    static std::unique_ptr<CPageUnderTest> page;
    if (!page)
        page = std::make_unique<CPageUnderTest>();
    return page;
}

double PlainRead_s(const Ravel::CTreeViewModel &model)
{
    return SecondsOf([&model] {
        unsigned sum = 0;
        for (int row = 0; row < model.rowCount(); ++row) {
            const Ravel::CTextBlock &texts = model.ItemFromIndex(model.index(row, 0))->Texts();
            if (texts.IsWide())
                continue;
            const std::string_view all = texts.Latin(0, texts.Count());
            sum = std::accumulate(all.begin(), all.end(), sum,
                                  [](unsigned to, char byte) { return to + uchar(byte); });
        }
        benchmark::DoNotOptimize(sum);
    });
}

void Report(benchmark::State &state, const std::string &what, double bar_s, double ours_s)
{
    state.counters["ratio_page_" + what] = bar_s / ours_s;
    state.counters["bar_page_" + what] = 1;
    state.counters["seconds_" + what] = ours_s;
}

using Times = std::map<std::string, std::vector<double>>;

void TypeWords(CPageUnderTest &page, Times &times)
{
    const auto clear = [&page] { return page.Hold([&] { page.search->clear(); }); };
    times["key_half"].push_back(page.Type(Qt::Key_E, QStringLiteral("E")));
    times["next_key"].push_back(page.Type(Qt::Key_A, QStringLiteral("A")));
    times["key_deleted"].push_back(page.Type(Qt::Key_Backspace));
    times["cleared"].push_back(clear());
    times["key_few"].push_back(page.Type(Qt::Key_Q, QStringLiteral("Q")));
    times["cleared"].push_back(clear());
    times["key_none"].push_back(page.Type(Qt::Key_section, QStringLiteral("\u00A7")));
    times["cleared"].push_back(clear());
    page.model->setData(page.model->index(0, 0), page.model->index(0, 0).data()); // forget words
}

void UsePage(CPageUnderTest &page, Times &times)
{
    auto *const types =
        page.page.findChild<Vantor::CComboBoxEx *>(QStringLiteral("pMainTypeComboBox"));
    auto *const by_word = page.page.findChild<QCheckBox *>(QStringLiteral("pKeyWordCheckBtn"));
    auto *const filter = page.page.findChild<QPushButton *>(QStringLiteral("pFilterBtn"));
    times["flip"].push_back(page.Hold([&] { page.view->SetFilterPage(777); }));
    times["height"].push_back(page.Hold([&] { page.page.resize(1280, 740); }));
    page.Hold([&] { page.page.resize(1280, 800); });
    by_word->setChecked(false);
    page.WaitForRanks(); // no text has changed for a while when a user does this
    const QModelIndex first = types->model()->index(1, 0);
    times["type_ticked"].push_back(page.Hold([&] {
        types->model()->setData(first, Qt::Unchecked, Qt::CheckStateRole);
        filter->click();
    }));
    types->TickAll();
    page.Hold([&] { filter->click(); });
    by_word->setChecked(true);
}

void Frames(benchmark::State &state, const std::string &order, int sort_column)
{
    CPageUnderTest &page = *Page();
    for (auto _ : state) {
        page.view->header()->setSortIndicator(sort_column, Qt::AscendingOrder);
        QCoreApplication::processEvents();
        Times times;
        std::vector<double> read_s;
        for (int run = 0; run < kRuns; ++run) {
            read_s.push_back(PlainRead_s(*page.model));
            TypeWords(page, times);
            UsePage(page, times);
        }
        const double frame_s = kReadsAFrame * Pairs::Median(read_s);
        state.counters["seconds_frame"] = frame_s;
        for (const auto &[what, seconds] : times)
            Report(state, what + order, frame_s, Pairs::Median(seconds));
        page.view->header()->setSortIndicator(-1, Qt::AscendingOrder);
    }
}
BENCHMARK_CAPTURE(Frames, InFileOrder, "", -1)->Iterations(1);
BENCHMARK_CAPTURE(Frames, Sorted, "_sorted", 4)->Iterations(1);

double Scatter_s()
{
    std::vector<int> places(kRows);
    std::iota(places.begin(), places.end(), 0);
    QRandomGenerator random(1);
    std::shuffle(places.begin(), places.end(), random);
    std::vector<int> values(kRows);
    return SecondsOf([&] {
        for (int i = 0; i < kRows; ++i)
            values[static_cast<size_t>(places[static_cast<size_t>(i)])] = i;
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    });
}

// Ranks that are ready, from the file's order and from the order of another column.
void Sort(benchmark::State &state)
{
    CPageUnderTest &page = *Page();
    page.WaitForRanks();
    for (auto _ : state) {
        std::vector<double> scatter_s;
        std::vector<double> ours_s;
        std::vector<double> shown_s;
        for (int run = 0; run < kRuns; ++run) {
            scatter_s.push_back(Scatter_s());
            const auto ranks = page.model->Ranks(4);
            const auto all = Ravel::CRowOrder::Range(0, kRows);
            ours_s.push_back(
                SecondsOf([&] { benchmark::DoNotOptimize(ranks->Sorted(all, false).Rows()); }));
            shown_s.push_back(page.Hold(
                [&] { page.view->header()->setSortIndicator(3 + run % 2, Qt::AscendingOrder); }));
        }
        Report(state, "sort_within_4_scatters", kScatters * Pairs::Median(scatter_s),
               Pairs::Median(ours_s));
        state.counters["seconds_sort_with_pass_and_paint"] = Pairs::Median(shown_s);
        state.counters["seconds_load"] = page.load_s;
    }
    page.view->header()->setSortIndicator(-1, Qt::AscendingOrder);
}
BENCHMARK(Sort)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    // Widgets must be deleted before the application object.
    return RunBenchmarks<QApplication>(argc, argv, [] { Page().reset(); });
}
