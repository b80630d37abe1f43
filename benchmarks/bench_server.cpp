// SPDX-License-Identifier: MIT
// Pages of the server's incident list, in a SQLite file of a million rows; VANTOR_BENCHMARK_ROWS
// makes it another number. VANTOR_BENCHMARK_DATABASE is a list that is there, a file or URL.
#include "Main.h"
#include "Pairs.h"

#include <server/IncidentLoad.h>
#include <server/IncidentPages.h>
#include <server/Migrations.h>
#include <server/Store.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

namespace {

using namespace Server;

constexpr double kMiddleBar = 1 / 5.0;
constexpr double kSearchBar = 50;
constexpr int kPages = 20; // of one measurement
constexpr qint64 kPresetRows = 1'000'000;
constexpr char kFew[] = "1995-02-03";
constexpr char kMany[] = "INTL";

struct List
{
    List()
    {
        columns = ReadIncidentTitles(*store).size();
        if (columns > 0)
            return;
        bool is_number = false;
        const qint64 rows = qEnvironmentVariable("VANTOR_BENCHMARK_ROWS").toLongLong(&is_number);
        const IncidentRows sample = ReadIncidentCsv(VANTOR_INCIDENTS);
        columns = sample.front().size();
        store->Write(
            [&] { CreateIncidents(*store, sample.front(), is_number ? rows : kPresetRows); });
        LoadIncidents(*store, sample, {});
    }

    const QTemporaryDir folder;
    const std::unique_ptr<CStore> store = OpenStore(ReadStoreAddress(qEnvironmentVariable(
        "VANTOR_BENCHMARK_DATABASE", folder.filePath(QStringLiteral("list.sqlite")))));
    CIncidentPages pages;
    int columns = 0;
};

std::unique_ptr<List> the_list;

List &TheList()
{
    if (!the_list)
        the_list = std::make_unique<List>();
    return *the_list;
}

size_t ReadPages(const IncidentOrder &order, int first)
{
    size_t rows = 0;
    for (int page = 0; page < kPages; ++page) {
        IncidentQuery query;
        query.page = first + page;
        query.order = order;
        rows += TheList().pages.Read(*TheList().store, query).rows.size();
    }
    return rows;
}

// The same page again and again: the first one.
size_t ReadFirstPages(const IncidentOrder &order)
{
    size_t rows = 0;
    for (int page = 0; page < kPages; ++page) {
        IncidentQuery query;
        query.order = order;
        rows += TheList().pages.Read(*TheList().store, query).rows.size();
    }
    return rows;
}

void MiddlePage(benchmark::State &state)
{
    const IncidentOrder order{int(state.range(0)), state.range(1) == 1};
    const IncidentPage first = TheList().pages.Read(*TheList().store, {});
    const int middle = int(first.total.rows / 2 / qint64(first.rows.size()));
    ReadPages(order, middle); // the first time makes what the next ones need
    size_t rows = 0;
    const std::string name = "server_middle_page_" + std::to_string(order.column)
                             + (order.is_descending ? "_down" : "_up");
    Pairs::Compare(
        state, name, kMiddleBar, [&] { benchmark::DoNotOptimize(ReadFirstPages(order)); },
        [&] { rows = ReadPages(order, middle); });
    if (rows != kPages * first.rows.size())
        state.SkipWithError("rows are missing");
}
BENCHMARK(MiddlePage)
    ->ArgsProduct({benchmark::CreateDenseRange(-1, 13, 1), {0, 1}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// Without the text index: every cell is compared.
qint64 Scan(const QString &text)
{
    QStringList conditions;
    QVariantList values;
    for (int column = 0; column < TheList().columns; ++column) {
        conditions.append((TheList().store->Kind() == Engine::Sqlite
                               ? QStringLiteral("c%1 LIKE ?")
                               : QStringLiteral("c%1 ILIKE ?"))
                              .arg(column));
        values.append(QLatin1Char('%') + text + QLatin1Char('%'));
    }
    return TheList()
        .store
        ->Value(QStringLiteral("SELECT count(*) FROM incident WHERE ")
                    + conditions.join(QLatin1String(" OR ")),
                values)
        .toLongLong();
}

void Search(benchmark::State &state, const char *name, const char *text)
{
    qint64 found = 0;
    IncidentPage page;
    IncidentQuery query;
    query.filter = QLatin1String(text);
    Pairs::Compare(
        state, name, kSearchBar, [&] { found = Scan(query.filter); },
        [&] {
            page = CIncidentPages().Read(*TheList().store, query);
        }); // which knows no filter yet
    if (page.total.is_exact ? page.total.rows != found : page.total.rows >= found)
        state.SkipWithError("another number of rows");
}

void SearchFew(benchmark::State &state)
{
    Search(state, "server_search_few", kFew);
}
BENCHMARK(SearchFew)->Iterations(1)->Unit(benchmark::kMillisecond);

void SearchMany(benchmark::State &state)
{
    Search(state, "server_search_many", kMany);
}
BENCHMARK(SearchMany)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QCoreApplication>(argc, argv, [] { the_list.reset(); });
}
