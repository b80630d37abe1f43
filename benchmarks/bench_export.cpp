// SPDX-License-Identifier: MIT
// A model of a million rows to a file: how long each event of it holds the GUI thread, and how much
// memory it takes beside a tenth of the rows.
#include "Main.h"
#include "Memory.h"

#include <Vantor/CListExport>

#include <QtCore/QAbstractTableModel>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <ctime>
#include <string>

namespace {

constexpr int kColumns = 8;
constexpr int kRows = 1'000'000;
constexpr int kFewRows = 100'000;
constexpr double kFrameMs = 16;
constexpr double kBar = 1.0;
constexpr double kGrowthLimit = 1.5;

// Of this thread: other programs, and the export's worker, do not count.
double ThreadMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Knows the event that held the GUI thread longest.
class CTimedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const double begin_ms = ThreadMs();
        const bool is_accepted = QApplication::notify(receiver, event);
        longest_ms = std::max(longest_ms, ThreadMs() - begin_ms);
        return is_accepted;
    }

    inline static double longest_ms = 0;
};

// Makes a new text for each cell, as models of records do.
class CRecordModel : public QAbstractTableModel
{
public:
    explicit CRecordModel(int rows) : rows_(rows) {}

    int rowCount(const QModelIndex & = {}) const override { return rows_; }
    int columnCount(const QModelIndex & = {}) const override { return kColumns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return index.column() == 0 ? QVariant(index.row())
                                   : QStringLiteral("record %1").arg(index.row());
    }

private:
    const int rows_;
};

QString FastFolder()
{
    const QString shared_memory = QStringLiteral("/dev/shm");
    return QFile::exists(shared_memory) ? shared_memory : QDir::tempPath();
}

// The rows that were written.
int Export(int rows, const char *suffix)
{
    const QTemporaryDir folder(FastFolder() + QStringLiteral("/bench_export"));
    CRecordModel model(rows);
    Vantor::CListExport job;
    job.SetModel(&model);
    job.SetTemporaryFolder(folder.path());
    int written = 0;
    QEventLoop loop;
    QObject::connect(&job, &Vantor::CListExport::SignalFinished, &loop,
                     [&](const Vantor::ListExportResult &result) {
                         written =
                             result.end == Vantor::ListExportResult::End::Done ? result.rows : 0;
                         loop.quit();
                     });
    job.Start(folder.filePath(QStringLiteral("list") + QLatin1String(suffix)));
    loop.exec();
    return written;
}

void WholeList(benchmark::State &state, const char *suffix)
{
    const std::string what = "export_" + std::string(suffix + 1);
    long few_kb = 0;
    long many_kb = 0;
    int written = Export(kFewRows, suffix); // one-time costs do not count
    for (auto _ : state) {
        few_kb = Memory::AddedKb([&] { written += Export(kFewRows, suffix); });
        CTimedApplication::longest_ms = 0;
        many_kb = Memory::AddedKb([&] { written += Export(kRows, suffix); });
    }
    if (written != kRows + 2 * kFewRows)
        state.SkipWithError("rows are missing");
    state.counters["ratio_" + what + "_frame_over_longest_event"] =
        kFrameMs / CTimedApplication::longest_ms;
    state.counters["bar_" + what + "_frame_over_longest_event"] = kBar;
    state.counters["ratio_" + what + "_limit_over_growth"] =
        kGrowthLimit * static_cast<double>(std::max(few_kb, 1024L))
        / static_cast<double>(std::max(many_kb, 1024L));
    state.counters["bar_" + what + "_limit_over_growth"] = kBar;
    state.counters["longest_ms"] = CTimedApplication::longest_ms;
    state.counters["kb_few"] = static_cast<double>(few_kb);
    state.counters["kb_many"] = static_cast<double>(many_kb);
}
BENCHMARK_CAPTURE(WholeList, Csv, ".csv")->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(WholeList, Xlsx, ".xlsx")->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<CTimedApplication>(argc, argv);
}
