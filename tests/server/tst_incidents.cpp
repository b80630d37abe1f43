// SPDX-License-Identifier: MIT
// The incident list on both engines, compared with a plain list in memory; and what clients send
// back.
#include "server/ServerHarness.h"
#include "support/Test.h"

#include <server/IncidentPages.h>
#include <server/Migrations.h>
#include <server/SampleAccounts.h>
#include <server/Store.h>

namespace {

using namespace Server;

constexpr int kColumns = 3;
constexpr int kSteps = 500;
constexpr IncidentLimits kShortLists{20, 3, 7, 40, 2};

const QStringList kCells =
    QString(u8",0,5,05,-3.5e2,1e400,-1e999,.5, 7,1.e1,+9x,0x10,abc,ABC,abcd,B-52,\u00e4rger,"
            u8"\u00c4RGER,50% off,a_b,a\\b,\"q\",it's,a\nb,\U0001F426\U0001F427\U0001F426,\u212A,"
            u8"None,none,2026-11-22,turkey "
            u8"vulture,\x1f-x,x\ufeffyz,1e-400,1e-310,5e-324,9007199254740993")
        .split(',')
    << QString(300, 'L') + "1" << QString(300, 'l') + "0";
const QStringList kFilters =
    QString(u8",,,a,ab,abc,ABC,%,_,\\,',\",\"q\",0,50%,a_b,a\\b,e,none,zzz,\u00e4rg,"
            u8"\U0001F427\U0001F426,\U0001F426\U0001F427\U0001F426,k,b\n,a\nb,key vul,c\x1f,\x1f-x,"
            u8"vulturex,\ufeffyz,9007199254740993")
        .split(',');

double NumberOf(const QString &cell)
{
    static const QRegularExpression number(
        "^[ \\t\\n\\v\\f\\r]*([-+]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][-+]?\\d+)?)");
    return std::strtod(number.match(cell.left(256)).captured(1).toLatin1().constData(), nullptr);
}

QByteArray Folded(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    for (char &byte : bytes)
        if (byte >= 'A' && byte <= 'Z')
            byte = char(byte - 'A' + 'a');
    return bytes;
}

// What the list must say, by the plainest means.
std::vector<int> Expected(const IncidentRows &rows, qint64 begin, qint64 end,
                          const IncidentQuery &query)
{
    std::vector<int> found;
    const QByteArray filter = Folded(query.filter);
    for (int row = int(begin); row < end; ++row)
        if (std::any_of(rows[row].begin(), rows[row].end(),
                        [&filter](const QString &cell) { return Folded(cell).contains(filter); }))
            found.push_back(row);
    const int column = query.order.column;
    const bool is_descending = query.order.is_descending;
    if (column < 0) {
        if (is_descending)
            std::reverse(found.begin(), found.end());
        return found;
    }
    const auto key = [&](int row) {
        return std::pair(NumberOf(rows[row][column]), Folded(rows[row][column].left(256)));
    };
    std::stable_sort(found.begin(), found.end(), [&](int left, int right) {
        return is_descending ? key(right) < key(left) : key(left) < key(right);
    });
    return found;
}

Answered AskPage(const std::string &members)
{
    return Ask("GET", "/IncidentList", "{\"IncidentListRequest\":{" + members + "}}");
}

std::string Member(const char *name, const std::string &value)
{
    return std::string(",\"") + name + "\":\"" + value + '"';
}

constexpr char kList[] = "/Data/IncidentList/";

} // namespace

class tst_incidents : public CGuardedTest
{
    Q_OBJECT

    IncidentRows NewRows(int count);
    QString Compare(const IncidentQuery &query, const IncidentPage &page);

    std::mt19937 random_{20261122};
    IncidentRows rows_;

private Q_SLOTS:
    void aRandomWalkAgreesWithAPlainList();
    void pagesHoldStillWhileRowsArrive();
    void onlyItsOwnTextsAreTakenBack();
    void onlyWholeRowsAreStored();
};

IncidentRows tst_incidents::NewRows(int count)
{
    IncidentRows rows;
    for (int row = 0; row < count; ++row) {
        QStringList cells;
        for (int column = 0; column < kColumns; ++column)
            cells.append(kCells[int(random_() % (column == 0 ? 4U : uint(kCells.size())))]);
        rows.push_back(cells);
    }
    return rows;
}

// Empty, or how the page differs.
QString tst_incidents::Compare(const IncidentQuery &query, const IncidentPage &page)
{
    const std::vector<int> all = Expected(rows_, 0, page.moment, query);
    auto begin = all.begin();
    if (query.after)
        begin = std::find(all.begin(), all.end(), int(*query.after) - 1) + 1;
    else
        begin += std::min<qint64>(qint64(query.page - 1) * query.size, qint64(all.size()));
    const auto end = begin + std::min<qint64>(query.size, all.end() - begin);
    const bool is_exact = query.filter.isEmpty() || qint64(all.size()) <= kShortLists.counted;
    if (page.total.is_exact != is_exact
        || page.total.rows != (is_exact ? qint64(all.size()) : kShortLists.counted))
        return "total";
    const IncidentCount arrived = page.arrived;
    const auto later = qint64(Expected(rows_, page.moment, qint64(rows_.size()), query).size());
    if (arrived.is_exact ? arrived.rows != later : arrived.rows > later || later <= 1000)
        return "arrived";
    if (qint64(page.rows.size()) != end - begin)
        return "count";
    for (auto row = begin; row != end; ++row)
        if (page.rows[size_t(row - begin)] != rows_[size_t(*row)])
            return QString("row %1: ").arg(*row) + page.rows[size_t(row - begin)].join('|')
                   + " for " + rows_[size_t(*row)].join('|');
    if (page.next.has_value() != (end != all.end()) || (page.next && *page.next != *(end - 1) + 1))
        return "next";
    return {};
}

void tst_incidents::aRandomWalkAgreesWithAPlainList()
{
    const QTemporaryDir folder;
    const auto opened = OpenStore(ReadStoreAddress(NewDatabase(folder.path())));
    CStore &store = *opened;
    rows_ = NewRows(150);
    store.Write([&] { CreateIncidents(store, {"a", "b", "c"}, 150); });
    AddIncidents(store, rows_);
    FinishIncidents(store);
    CIncidentPages pages(kShortLists);
    std::vector<qint64> moments{150};
    std::optional<IncidentQuery> following;
    const auto below = [this](size_t end) { return int(random_() % end); };

    for (int step = 0; step < kSteps; ++step) {
        if (below(8) == 0) {
            const IncidentRows more = NewRows(1 + below(40));
            rows_.insert(rows_.end(), more.begin(), more.end());
            QCOMPARE(AppendIncidents(store, more), qint64(rows_.size()));
            moments.push_back(qint64(rows_.size()));
        }
        IncidentQuery query;
        query.size = 1 + below(30);
        query.page = 1 + below(2 + rows_.size() / size_t(query.size));
        query.order = {below(kColumns + 1) - 1, below(2) == 1};
        query.filter = kFilters[below(size_t(kFilters.size()))];
        if (below(2) == 0)
            query.moment = moments[size_t(below(moments.size()))];
        if (following && below(3) > 0)
            query = *following;

        const IncidentPage page = pages.Read(store, query);

        const QString difference = Compare(query, page);
        QString place;
        QDebug(&place) << "step" << step << "page" << query.page << "of" << query.size << "column"
                       << query.order.column << query.order.is_descending << "filter"
                       << query.filter << "moment" << page.moment << "after"
                       << query.after.value_or(0) << difference;
        QVERIFY2(difference.isEmpty(), qPrintable(place));
        following.reset();
        if (page.next) {
            following = query;
            following->moment = page.moment;
            following->after = page.next;
        }
    }
}

// Rows arrive, 1,000 a second, while every page of one moment is read by number and by following.
void tst_incidents::pagesHoldStillWhileRowsArrive()
{
    CTestServer server;
    QCOMPARE(server.Start(), QString());
    QVERIFY(LogIn(kSampleAccounts[0].name, kSampleAccounts[0].password));
    std::atomic<bool> is_over{false};
    std::atomic<int> stored{0};
    std::thread writer([&] {
        std::string rows;
        for (int row = 0; row < 50; ++row)
            rows += std::string(row == 0 ? "" : ",") + R"(["Gate 0","0","new, all"])";
        while (!is_over) {
            const Answered reply =
                Ask("POST", "/Incident", R"({"IncidentRequest":{"Rows":[)" + rows + "]}}");
            stored += reply.Int("/Data/Incident/Total") > 0 ? 50 : 0;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });
    const std::string order = R"("PageSize":20,"SortColumn":1,"Descending":0,"Filter":"GATE")";
    const Answered first = AskPage(order);
    const std::string moment = Member("Moment", first.Text(std::string(kList) + "Moment"));
    const int total = first.Int(std::string(kList) + "Total");
    const int before = stored + 50; // one request may be under way
    QStringList by_number;
    QStringList followed;
    const auto add = [](const Answered &page, QStringList &cells) {
        const int count = page.document->GetCount(std::string("/ResponseStatus") + kList + "Rows");
        for (int row = 0; row < count; ++row)
            cells.append(
                QString::fromStdString(page.Text(kList + ("Rows/" + std::to_string(row)) + "/0")));
    };
    for (int page = 1; page <= (total + 19) / 20; ++page)
        add(AskPage(order + moment + ",\"Page\":" + std::to_string(page)), by_number);
    Answered page = AskPage(order + moment);
    add(page, followed);
    for (std::string next = page.Text(std::string(kList) + "Next"); !next.empty();
         next = page.Text(std::string(kList) + "Next")) {
        page = AskPage(order + moment + Member("After", next));
        add(page, followed);
    }
    QTRY_VERIFY(stored >= before + 500);
    const int arrived = AskPage(order + moment).Int(std::string(kList) + "NewRows");
    is_over = true;
    writer.join();

    QCOMPARE(by_number.size(), total);
    QCOMPARE(followed, by_number);
    QCOMPARE(QSet<QString>(by_number.begin(), by_number.end()).size(), 250 + int(total > 250));
    QVERIFY(total - 250 + arrived >= 500); // some came before the moment
}

void tst_incidents::onlyItsOwnTextsAreTakenBack()
{
    CTestServer server;
    QCOMPARE(server.Start(), QString());
    QVERIFY(LogIn(kSampleAccounts[0].name, kSampleAccounts[0].password));
    const Answered page = AskPage(R"("PageSize":10,"Filter":"gate")");
    const std::string moment = page.Text(std::string(kList) + "Moment");
    const std::string next = page.Text(std::string(kList) + "Next");
    const auto status = [](const std::string &members) {
        return AskPage(members).error.error_code;
    };

    QCOMPARE(status(R"("Filter":"gate")" + Member("After", next)), 0);
    QCOMPARE(status(R"("Filter":"Gate 1")" + Member("After", next)), 400);
    QCOMPARE(status(R"("Filter":"gate","Descending":1)" + Member("After", next)), 400);
    QCOMPARE(status("\"Page\":1" + Member("Moment", "9" + moment)), 400);
    QCOMPARE(status("\"Page\":1" + Member("Moment", moment + "0")), 400);
    QCOMPARE(status("\"Page\":1" + Member("After", moment)), 400);
}

void tst_incidents::onlyWholeRowsAreStored()
{
    CTestServer server;
    QCOMPARE(server.Start(), QString());
    QVERIFY(LogIn(kSampleAccounts[0].name, kSampleAccounts[0].password));
    const auto text = [](const std::string &row) {
        const Answered reply =
            Ask("POST", "/Incident", R"({"IncidentRequest":{"Rows":[["a","","c"],)" + row + "]}}");
        return QString::fromStdString(reply.Text("/ErrorText"));
    };

    QCOMPARE(text(R"(["too","few"])"), QString("row 2 has 2 cells, and the list has 3"));
    for (const char *const cell : {"{}", "null", "[]", R"({"a":"b"})", R"(["a"])"})
        QCOMPARE(text(std::string(R"(["a",)") + cell + R"(,"c"])"),
                 QString("row 2, cell 2 is not a text"));

    QCOMPARE(AskPage("\"Page\":1").Int(std::string(kList) + "Total"), 250);
}

QTEST_MAIN(tst_incidents)
#include "tst_incidents.moc"
