// SPDX-License-Identifier: MIT
#include "Main.h"
#include "Memory.h"
#include "Pairs.h"
#include "letter/CsvLetter.h"

#include <Nim/Base/FileSystem.h>
#include <Vantor/CCSVParser>

#include <QtCore/QAbstractTableModel>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVector>

#include <string>

namespace {

constexpr int kColumns = 8;
constexpr int kWrittenRows = 1'000'000;
constexpr int kCollectedRows = 1'000'000;
constexpr int kPooledRows = 10'000; // rows with texts of their own; the others share these
constexpr double kWriteBar = 4.0;
constexpr double kCollectBar = 4.0;
constexpr double kMemoryBar = 1.0;
// The longest field is short, so its double does not count.
constexpr long kMemoryLimitKb = 2L * 1024;

// Memory-backed, so that the disk's speed does not count.
QString FastFolder()
{
    const QString shared_memory = QStringLiteral("/dev/shm");
    return QFile::exists(shared_memory) ? shared_memory : QDir::tempPath();
}

QStringList RowTexts(int row)
{
    return {QString::number(row),           QStringLiteral("Camera %1").arg(row % 500),
            QStringLiteral("Gate north"),   QStringLiteral("2026-03-%1 10:20:30").arg(row % 28 + 1),
            QStringLiteral("Line crossed"), QStringLiteral("high"),
            QStringLiteral("operator"),     QStringLiteral("seen and noted")};
}

// Hands out the texts it holds; its own cost counts for both sides.
class CTextModel : public QAbstractTableModel
{
public:
    explicit CTextModel(int rows) : rows_(rows)
    {
        for (int row = 0; row < kPooledRows; ++row)
            texts_.append(RowTexts(row).toVector());
    }

    int rowCount(const QModelIndex & = {}) const override { return rows_; }
    int columnCount(const QModelIndex & = {}) const override { return kColumns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole
                   ? texts_.at(index.row() % kPooledRows * kColumns + index.column())
                   : QVariant();
    }

private:
    const int rows_;
    QVector<QString> texts_;
};

QByteArray BytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteTask(benchmark::State &state)
{
    QTemporaryDir folder(FastFolder() + QStringLiteral("/bench_csv"));
    const QString plain_path = folder.filePath(QStringLiteral("plain.csv"));
    const QString path = folder.filePath(QStringLiteral("ours.csv"));
    const QString separator = Vantor::GetLocalListSperator();
    QStringList lines;
    lines.reserve(kWrittenRows);
    for (int row = 0; row < kWrittenRows; ++row)
        lines.append(Letter::JoinLine(RowTexts(row), true, Vantor::GetLocalListSperator));
    Vantor::CCSVParser parser(nullptr);
    std::FILE *plain = nullptr;
    // Lines are collected, and streams opened, outside the timed part, because WriteCSVFile()
    // forgets its lines.
    const auto collect = [&parser] {
        for (int row = 0; row < kWrittenRows; ++row)
            parser.AppendLine(RowTexts(row));
    };

    std::vector<double> plain_s;
    std::vector<double> ours_s;
    std::vector<double> ratios;
    std::vector<double> added_kb;
    for (auto _ : state) {
        for (int pair = 0; pair < Pairs::kPairs; ++pair) {
            plain = Nim::Base::FileSystem::OpenShared(plain_path, "wb");
            plain_s.push_back(
                Pairs::SecondsOf([&] { Letter::WriteLines(plain, lines, true, separator); }));
            std::fclose(plain);
            if (!parser.OpenFile(path)) {
                state.SkipWithError("the file cannot be opened");
                return;
            }
            collect();
            added_kb.push_back(static_cast<double>(Memory::AddedKb([&] {
                ours_s.push_back(Pairs::SecondsOf([&parser] { parser.WriteCSVFile(); }));
            })));
            parser.CloseFile();
            ratios.push_back(plain_s.back() / ours_s.back());
        }
    }
    if (BytesOf(plain_path) != BytesOf(path))
        state.SkipWithError("the files differ");
    state.counters["ratio_csv_write_task"] = Pairs::Median(ratios);
    state.counters["bar_csv_write_task"] = kWriteBar;
    state.counters["ratio_csv_write_memory_limit_over_used"] =
        static_cast<double>(kMemoryLimitKb) / std::max(1.0, Pairs::Median(added_kb));
    state.counters["bar_csv_write_memory_limit_over_used"] = kMemoryBar;
    state.counters["seconds_baseline"] = Pairs::Median(plain_s);
    state.counters["seconds_ours"] = Pairs::Median(ours_s);
    state.counters["added_kb"] = Pairs::Median(added_kb);
}
BENCHMARK(WriteTask)->Iterations(1)->Unit(benchmark::kSecond);

// What the write task adds for rows that are far from ordinary, against its limit.
void LongRows(benchmark::State &state, const std::string &what, int fields, int field_bytes)
{
    QTemporaryDir folder(FastFolder() + QStringLiteral("/bench_csv"));
    Vantor::CCSVParser parser(nullptr);
    if (!parser.OpenFile(folder.filePath(QStringLiteral("long.csv")))) {
        state.SkipWithError("the file cannot be opened");
        return;
    }
    QStringList row;
    for (int i = 0; i < fields; ++i)
        row.append(QString(field_bytes, QLatin1Char('x')));
    parser.AppendLine(row);
    long added_kb = 0;
    for (auto _ : state)
        added_kb = Memory::AddedKb([&parser] { parser.WriteCSVFile(); });
    parser.CloseFile();
    if (parser.HasWriteError())
        state.SkipWithError("the row was not written");
    const double limit_kb = kMemoryLimitKb + 2.0 * field_bytes / 1024;
    state.counters["ratio_" + what] = limit_kb / std::max(1.0, static_cast<double>(added_kb));
    state.counters["bar_" + what] = kMemoryBar;
    state.counters["added_kb"] = static_cast<double>(added_kb);
}
BENCHMARK_CAPTURE(LongRows, OneField, "csv_memory_limit_over_used_1_x_16_mb", 1, 16 << 20)
    ->Iterations(1);
BENCHMARK_CAPTURE(LongRows, EightFields, "csv_memory_limit_over_used_8_x_4_mb", 8, 4 << 20)
    ->Iterations(1);
BENCHMARK_CAPTURE(LongRows, ManyFields, "csv_memory_limit_over_used_1000_x_62_kb", 1000, 62 << 10)
    ->Iterations(1);

void PrepareSourceData(benchmark::State &state)
{
    QTemporaryDir folder(FastFolder() + QStringLiteral("/bench_csv"));
    const QString plain_path = folder.filePath(QStringLiteral("plain.csv"));
    const QString path = folder.filePath(QStringLiteral("ours.csv"));
    const QString separator = Vantor::GetLocalListSperator();
    CTextModel model(kCollectedRows);
    Vantor::CCSVParser parser(nullptr);
    QStringList lines;

    Pairs::Compare(
        state, "csv_prepare_source_data", kCollectBar,
        [&] { lines = Letter::CollectModel(model, true, Vantor::GetLocalListSperator); },
        [&] {
            if (!parser.OpenFile(path)) // forgets the lines of the pair before
                state.SkipWithError("the file cannot be opened");
            parser.PrepareSourceData(&model);
        });

    parser.WriteCSVFile();
    parser.CloseFile();
    std::FILE *const plain = Nim::Base::FileSystem::OpenShared(plain_path, "wb");
    std::fwrite("\xEF\xBB\xBF", 1, 4, plain);
    Letter::WriteLines(plain, lines, false, separator);
    std::fclose(plain);
    if (BytesOf(plain_path) != BytesOf(path))
        state.SkipWithError("the files differ");
}
BENCHMARK(PrepareSourceData)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QCoreApplication>(argc, argv);
}
