// SPDX-License-Identifier: MIT
#include "Main.h"
#include "Memory.h"
#include "Pairs.h"

#include <Vantor/CExcelControllorWithC>

#include <xlsxwriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <array>
#include <string>

namespace {

constexpr int kColumns = 10;
constexpr int kRows = 200'000;
constexpr int kFewRows = 20'000;
constexpr int kManyRows = 1'000'000;
constexpr int kPeerRows = 40'000;
constexpr double kTimeBar = 0.87; // at most 1.15 of the bare loop
constexpr double kPeerBar = 3.0;
constexpr double kMemoryBar = 1.0;
constexpr double kConstantLimitKb = 3.0 * 1024; // above the bare loop
constexpr double kGrowthLimit = 1.5;
constexpr int kMergedColumns = 4;
constexpr int kMergedRows = 16'000; // a sheet takes 65,535 merges
constexpr double kMergeGrowthLimit = 12;
constexpr double kInMemoryLimit = 1.05; // of the bare loop

using Looks = std::array<std::shared_ptr<Vantor::Clxw_format_>, 5>;

// Everything that is made before the timer starts, and two places for the files.
struct CInput
{
    CInput()
    {
        texts.reserve(static_cast<std::size_t>(kRows) * kColumns);
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column)
                texts.push_back("row " + std::to_string(row) + " column " + std::to_string(column));
        }
        static constexpr const char *kFills[] = {"#FF3366", "#33FF66", "#3366FF", "#EEEEEE", ""};
        for (std::size_t i = 0; i < looks.size(); ++i) {
            looks[i] = std::make_shared<Vantor::Clxw_format_>();
            looks[i]->SetVal_background_color(kFills[i]);
            looks[i]->SetVal_text_color("#111111");
            looks[i]->SetVal_font_size(11 + static_cast<int>(i));
        }
    }

    [[nodiscard]] const std::string &Text(int row, int column) const
    {
        return texts[static_cast<std::size_t>(row % kRows) * kColumns
                     + static_cast<std::size_t>(column)];
    }

    [[nodiscard]] std::string Path(const char *name) const
    {
        return folder.filePath(QLatin1String(name)).toStdString();
    }

    // Memory-backed, so that the disk's speed does not count.
    QTemporaryDir folder{QFile::exists(QStringLiteral("/dev/shm"))
                             ? QStringLiteral("/dev/shm/bench_xlsx")
                             : QDir::tempPath() + QStringLiteral("/bench_xlsx")};
    std::vector<std::string> texts;
    Looks looks;
};

int WriteBare(const CInput &input, int rows, bool is_constant)
{
    std::string cache = input.folder.path().toStdString();
    lxw_workbook_options options{};
    options.constant_memory = is_constant;
    options.tmpdir = is_constant ? cache.data() : nullptr;
    lxw_workbook *const book = workbook_new_opt(input.Path("bare.xlsx").c_str(), &options);
    lxw_worksheet *const sheet = workbook_add_worksheet(book, "Sheet");
    lxw_format *const format = workbook_add_format(book);
    format_set_font_name(format, "Microsoft YaHei");
    format_set_font_size(format, 12);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < kColumns; ++column)
            worksheet_write_string(sheet, static_cast<lxw_row_t>(row),
                                   static_cast<lxw_col_t>(column), input.Text(row, column).c_str(),
                                   format);
    }
    return workbook_close(book);
}

int WriteOurs(const CInput &input, int rows, bool is_constant)
{
    Vantor::CExcelControllorWithC writer;
    writer.Init(input.Path("ours.xlsx"),
                is_constant ? input.folder.path().toStdString() + '/' : std::string());
    writer.AddSheetByName("Sheet");
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < kColumns; ++column)
            writer.SetCellString(row, column, input.Text(row, column),
                                 input.looks[static_cast<std::size_t>(column) % 5]);
    }
    writer.Close();
    return writer.LastCloseResult();
}

// Both files hold the same cells; only the numbers of their styles differ.
bool HaveSameCells(const CInput &input)
{
    const QString script = QStringLiteral(R"(
import re, sys, zipfile
def cells(path):
    with zipfile.ZipFile(path) as book:
        return re.sub(rb' s="\d+"', b'', book.read('xl/worksheets/sheet1.xml'))
sys.exit(cells(sys.argv[1]) != cells(sys.argv[2]))
)");
    return QProcess::execute(QStringLiteral("python3"),
                             {QStringLiteral("-c"), script,
                              QString::fromStdString(input.Path("bare.xlsx")),
                              QString::fromStdString(input.Path("ours.xlsx"))})
           == 0;
}

void Require(benchmark::State &state, bool condition, const char *fault)
{
    if (!condition)
        state.SkipWithError(fault);
}

void CompareTimes(benchmark::State &state, const CInput &input, const std::string &what,
                  bool is_constant)
{
    int faults = 0;
    Pairs::Compare(
        state, what, kTimeBar, [&] { faults += WriteBare(input, kRows, is_constant); },
        [&] { faults += WriteOurs(input, kRows, is_constant); });
    Require(state, faults == 0, "a workbook was not saved");
    Require(state, HaveSameCells(input), "the cells differ");
}

void ConstantMemory(benchmark::State &state)
{
    const CInput input;
    CompareTimes(state, input, "xlsx_constant_memory", true);

    const auto added_kb = [&input](auto write, int rows) {
        return static_cast<double>(Memory::AddedKbApart([&] { write(input, rows, true); }));
    };
    const double bare_kb = added_kb(WriteBare, kRows);
    const double ours_kb = added_kb(WriteOurs, kRows);
    const double few_kb = added_kb(WriteOurs, kFewRows);
    const double many_kb = added_kb(WriteOurs, kManyRows);
    Require(state, std::min({bare_kb, ours_kb, few_kb, many_kb}) > 0, "memory was not measured");
    state.counters["ratio_xlsx_constant_memory_limit_over_added"] =
        kConstantLimitKb / std::max(1.0, ours_kb - bare_kb);
    state.counters["bar_xlsx_constant_memory_limit_over_added"] = kMemoryBar;
    state.counters["ratio_xlsx_constant_memory_limit_over_growth"] =
        kGrowthLimit * few_kb / many_kb;
    state.counters["bar_xlsx_constant_memory_limit_over_growth"] = kMemoryBar;
    state.counters["kb_bare"] = bare_kb;
    state.counters["kb_ours"] = ours_kb;
    state.counters["kb_few"] = few_kb;
    state.counters["kb_many"] = many_kb;
}
BENCHMARK(ConstantMemory)->Iterations(1)->Unit(benchmark::kSecond);

void InMemory(benchmark::State &state)
{
    const CInput input;
    CompareTimes(state, input, "xlsx_in_memory", false);

    const auto added_kb = [&input](auto write) {
        return static_cast<double>(Memory::AddedKbApart([&] { write(input, kRows, false); }));
    };
    const double bare_kb = added_kb(WriteBare);
    const double ours_kb = added_kb(WriteOurs);
    Require(state, std::min(bare_kb, ours_kb) > 0, "memory was not measured");
    state.counters["ratio_xlsx_in_memory_limit_over_used"] = kInMemoryLimit * bare_kb / ours_kb;
    state.counters["bar_xlsx_in_memory_limit_over_used"] = kMemoryBar;
    state.counters["kb_bare"] = bare_kb;
    state.counters["kb_ours"] = ours_kb;
}
BENCHMARK(InMemory)->Iterations(1)->Unit(benchmark::kSecond);

// openpyxl's write-only mode with styles, on the same cells.
void AgainstOpenpyxl(benchmark::State &state)
{
    const CInput input;
    double peer_s = 0;
    double ours_s = 0;
    int fault = 0;
    for (auto _ : state) {
        QProcess peer;
        // Debian's openpyxl belongs to Debian's Python.
        peer.start(QStringLiteral("/usr/bin/python3"),
                   {QStringLiteral(VANTOR_BENCHMARK_FOLDER "/write_styled_cells.py"),
                    QString::fromStdString(input.Path("peer.xlsx")), QString::number(kPeerRows)});
        peer.waitForFinished(-1);
        peer_s = peer.readAllStandardOutput().trimmed().toDouble();
        ours_s = Pairs::SecondsOf([&] { fault = WriteOurs(input, kPeerRows, true); });
    }
    Require(state, fault == 0, "the workbook was not saved");
    if (peer_s <= 0) {
        state.SetLabel("skipped: openpyxl did not run, tools/setup check installs it");
        return;
    }
    state.counters["ratio_xlsx_against_openpyxl"] = peer_s / ours_s;
    state.counters["bar_xlsx_against_openpyxl"] = kPeerBar;
    state.counters["seconds_baseline"] = peer_s;
    state.counters["seconds_ours"] = ours_s;
}
BENCHMARK(AgainstOpenpyxl)->Iterations(1)->Unit(benchmark::kSecond);

// Column by column: each merge has all those before it to be compared with.
double SecondsOfMerges(const CInput &input, int rows, int &fault)
{
    Vantor::CExcelControllorWithC writer;
    writer.Init(input.Path("merges.xlsx"), "");
    writer.AddSheetByName("Sheet");
    const double seconds = Pairs::SecondsOf([&] {
        for (int column = 0; column < kMergedColumns; ++column) {
            for (int row = 0; row < rows; ++row)
                writer.MergeCells(row, 2 * column, row, 2 * column + 1, "merged", nullptr);
        }
    });
    writer.Discard();
    fault += writer.LastCloseResult();
    return seconds;
}

// Ten times the rows take at most twelve times the time.
void Merges(benchmark::State &state)
{
    const CInput input;
    int fault = 0;
    std::vector<double> growths;
    for (auto _ : state) {
        for (int pair = 0; pair < Pairs::kPairs; ++pair) {
            const double few_s = SecondsOfMerges(input, kMergedRows / 10, fault);
            growths.push_back(SecondsOfMerges(input, kMergedRows, fault) / few_s);
        }
    }
    Require(state, fault == 0, "the merges were not written");
    state.counters["ratio_xlsx_merges_limit_over_growth"] =
        kMergeGrowthLimit / Pairs::Median(growths);
    state.counters["bar_xlsx_merges_limit_over_growth"] = 1.0;
}
BENCHMARK(Merges)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QCoreApplication>(argc, argv);
}
