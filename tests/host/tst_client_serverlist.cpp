// SPDX-License-Identifier: MIT
#include "ClientSession.h"
#include "pages/PageFetch.h"
#include "pages/ServerListPage.h"
#include "support/RawServer.h"

#include <ClientComm/RapidJsonProto.h>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CListExport>
#include <Vantor/CMutiPageWidget>

#include <QtWidgets/QScrollBar>

using namespace Client;

namespace {

// A server over sockets whose list has numbered rows that repeat the request.
class CListServer
{
public:
    std::atomic<int> total{250};
    std::atomic<int> is_exact{1};
    std::atomic<int> new_rows{0};
    std::atomic<int> lost{0};              // rows that it counts and does not have
    std::atomic<int> broken_off{0};        // requests that the client no longer waits for
    std::atomic<int> last_page{1'000'000}; // at the next one, connections are closed

    QString Address() const { return QString("127.0.0.1:%1").arg(raw_.Port()); }
    // The request, as "filter/column/descending/page/after".
    QStringList Asked() const
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        return asked_;
    }

private:
    void Serve(int socket)
    {
        for (std::string text; !(text = CRawServer::ReadRequest(socket)).empty();) {
            std::string reply = R"({"ResponseStatus":{"ErrorCode":0,"Data":{"Session":"s",)"
                                R"("AdaptiveLayout":{"LayoutData":""}}}})";
            std::string status = "200 OK";
            if (text.find("IncidentList ") != std::string::npos) {
                ClientComm::CRapidJsonProto body;
                body.Load(text.substr(text.find("\r\n") + 2));
                const auto field = [&body](const std::string &name) {
                    return QString::fromStdString(body.GetString("/IncidentListRequest/" + name));
                };
                const QString after = field("After");
                const int page = after.isEmpty() ? field("Page").toInt() : after.toInt();
                const QString order = field("SortColumn") + '/' + field("Descending");
                if (field("PageSize") != "1") {
                    const std::lock_guard<std::mutex> lock(mutex_);
                    asked_ << QStringList{field("Filter"), order, field("Page"), after}.join('/');
                }
                if (field("Filter") == "slow") {
                    CRawServer::ReadRequest(socket);
                    ++broken_off;
                }
                if (page > last_page || field("Filter") == "slow")
                    return;
                if (field("Filter") == "x") {
                    reply = R"({"ResponseStatus":{"ErrorModule":3,"ErrorCode":504}})";
                    status = "504 Gateway Timeout";
                } else {
                    reply = Page(field("Filter"), order, page, field("PageSize").toInt());
                }
            }
            if (!CRawServer::Send(socket, CRawServer::ReplyWith(reply, status)))
                return;
        }
    }

    std::string Page(const QString &filter, const QString &order, int page, int size) const
    {
        QJsonArray rows;
        const int end = std::min(page * size, total - lost);
        for (int row = (page - 1) * size; row < end; ++row)
            rows.append(QJsonArray{filter + '#' + QString::number(row), order});
        const QJsonObject list{{"Total", int(total)},
                               {"TotalIsExact", int(is_exact)},
                               {"NewRows", int(new_rows)},
                               {"Titles", QJsonArray{"Name", "Order"}},
                               {"Moment", "m"},
                               {"Next", end < total - lost ? QString::number(page + 1) : QString()},
                               {"Rows", rows}};
        const QJsonObject data{{"IncidentList", list}};
        return QJsonDocument(QJsonObject{{"ResponseStatus", QJsonObject{{"Data", data}}}})
            .toJson()
            .toStdString();
    }

    mutable std::mutex mutex_;
    QStringList asked_; // under the mutex
    CRawServer raw_{[this](int socket) { Serve(socket); }};
};

// The page over such a server, a hundred rows a page.
struct Shown
{
    Shown()
    {
        page.resize(900, 500);
        list->GetItemPerPageComboBox()->setCurrentIndex(1);
        link.Start(server.Address(), CServerLink::Users().constFirst());
    }
    QString Cell(int row, int column = 0) const
    {
        return list->GetTreeView()->model()->index(row, column).data().toString();
    }
    template <class Widget> Widget *Find(const char *name) const
    {
        return page.findChild<Widget *>(QLatin1String(name));
    }
    QString State() const { return Find<QLabel>("ServerState")->text(); }

    CListServer server;
    CServerLink link;
    CServerListPage page;
    Vantor::CMutiPageWidget *const list = page.findChild<Vantor::CMutiPageWidget *>();
};

using Reason = Vantor::ListExportResult::Reason;

// total, last_page, is_exact, lost, reason
const Rows<int, int, int, int, Vantor::ListExportResult::Reason> kExportEndRows = {
    {"the whole list", 4321, 1'000'000, 1, 0, Reason::None},
    {"a list that is not counted", 4321, 1'000'000, 0, 0, Reason::None},
    {"the server goes away in the middle", 4321, 3, 0, 0, Reason::ListFailed},
    {"the server forgets the end", 4321, 1'000'000, 1, 1, Reason::ListFailed},
};

} // namespace

class tst_client_serverlist : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override { qputenv("XDG_DATA_HOME", folder_.Path().toLocal8Bit()); }

private Q_SLOTS:
    // Over the real server, in this process.
    void pagesComeFromTheServer()
    {
        CServerLink link;
        CServerListPage page;
        page.resize(900, 500);
        QCOMPARE(page.findChild<QLabel *>("ServerState")->text(), QString("There is no server."));
        link.Start({}, CServerLink::Users().constFirst());
        auto *const list = page.findChild<Vantor::CMutiPageWidget *>();
        const QAbstractItemModel *const rows = list->GetTreeView()->model();
        const auto cell = [rows](int row) { return rows->index(row, 3).data().toString(); };
        list->GetItemPerPageComboBox()->setCurrentIndex(1);

        QTRY_COMPARE_WITH_TIMEOUT(rows->rowCount(), 100, 30000);
        QTRY_COMPARE(page.findChild<QLabel *>("ptr_total_page_")->text(), QString("/100"));
        QCOMPARE(list->TopLevelItemCount(), 10000);
        const QString first = cell(0);
        list->GetNextPageBtn()->click();
        QTRY_VERIFY(cell(0) != first);
        QCOMPARE(list->GetCurrentPage(), 2);
        list->GetTreeView()->header()->setSortIndicator(3, Qt::AscendingOrder);
        QTRY_COMPARE(list->GetCurrentPage(), 1);
        QVERIFY(cell(0) < first);

        auto *const search = page.findChild<QLineEdit *>("ServerSearch");
        search->setText("herring gull");
        QTRY_COMPARE(rows->rowCount(), 52);
        QVERIFY(!list->GetNextPageBtn()->isEnabled());

        page.findChild<QCheckBox *>("TotalKnown")->setChecked(false);
        search->clear();
        QTRY_COMPARE(rows->rowCount(), 100);
        QVERIFY(page.findChild<QLabel *>("ptr_total_page_")->isHidden());
        QVERIFY(list->GetNextPageBtn()->isEnabled());

        page.show();
        list->GetItemPerPageComboBox()->setCurrentIndex(0);
        QTRY_COMPARE(rows->rowCount(), list->GetItemsPerPage());
        QTRY_VERIFY(list->GetTreeView()->horizontalScrollBar()->maximum() > 0);
        QCOMPARE(list->GetTreeView()->verticalScrollBar()->maximum(), 0); // all rows fit
    }

    // Wishes, answers, late answers and failures in any order.
    void onlyWhatIsWantedIsShown()
    {
        QRandomGenerator random(7);
        const auto chance = [&random](int of) { return random.bounded(of) == 0; };
        CPageFetch fetch;
        PageRequest wanted;
        std::map<int, PageRequest> sent; // by ticket
        int under_way = 0;               // the ticket that is not broken off
        int shown = 0;
        const auto follow = [&](const FetchStep &step) {
            if (step.is_breaking_off)
                under_way = 0;
            if (step.shows && step.shows->error == PageError::None) {
                ++shown;
                QCOMPARE(step.shows->rows.value(0).value(0),
                         QString("%1/%2").arg(wanted.query.filter).arg(wanted.page));
                QCOMPARE(fetch.Request().moment, QString("m") + wanted.query.filter);
            }
            if (step.sends) {
                QCOMPARE(under_way, 0);
                under_way = step.ticket;
                sent[step.ticket] = *step.sends;
            }
        };
        const auto answer = [&](int ticket) {
            const PageRequest request = sent.at(ticket);
            ServerPage page;
            page.error = chance(8) ? PageError::Busy : PageError::None;
            page.moment = "m" + request.query.filter;
            page.next = QString::number(request.page + 1);
            if (!request.after.isEmpty())
                QCOMPARE(request.after, QString::number(request.page));
            page.rows = {{QString("%1/%2").arg(request.query.filter).arg(request.page)}};
            if (ticket == under_way)
                under_way = 0;
            follow(fetch.Answer(ticket, page));
        };

        for (int step = 0; step < 20000; ++step) {
            if (chance(3)) {
                wanted.query.filter =
                    chance(4) ? QString::number(random.bounded(3)) : wanted.query.filter;
                wanted.page = chance(2) ? wanted.page + 1 : 1 + random.bounded(5);
                follow(fetch.Show(wanted.query, wanted.page, 10));
            } else if (chance(10)) {
                follow(fetch.Outdate());
                follow(fetch.Show(wanted.query, wanted.page, 10));
            } else if (chance(5)) {
                follow(fetch.LookForNew());
            } else if (!sent.empty()) {
                answer(under_way != 0 && !chance(4) ? under_way
                                                    : 1 + random.bounded(int(sent.size())));
            }
            if (QTest::currentTestFailed())
                return;
        }
        while (fetch.Now() != CPageFetch::Phase::Shown) {
            if (under_way == 0)
                follow(fetch.Retry());
            answer(under_way);
        }
        QVERIFY(shown > 1000);
    }

    void whatIsTypedIsAskedForOnceAndOutdatedSearchesAreBrokenOff()
    {
        Shown shown;
        QTRY_COMPARE(shown.Cell(0), QString("#0"));
        QTRY_COMPARE(shown.server.Asked().size(), 2); // and the next page
        auto *const search = shown.Find<QLineEdit>("ServerSearch");

        QTest::keyClicks(search, "slow");
        QTRY_COMPARE(shown.server.Asked().size(), 3);
        QTest::keyClicks(search, "er");

        QTRY_COMPARE(shown.Cell(0), QString("slower#0"));
        QTRY_COMPARE(int(shown.server.broken_off), 1);
        const QStringList asked{"/-1/1/1/", "/-1/1/2/2", "slow/-1/1/1/", "slower/-1/1/1/",
                                "slower/-1/1/2/2"};
        QTRY_COMPARE(shown.server.Asked(), asked);
        shown.list->GetNextPageBtn()->click(); // it is here already
        QCOMPARE(shown.Cell(0), QString("slower#100"));
        QCOMPARE(shown.State(), QString("Rows 101 to 200 of 250"));
        shown.list->GetTreeView()->header()->setSortIndicator(1, Qt::AscendingOrder);
        QTRY_COMPARE(shown.Cell(0, 1), QString("1/0"));
        QCOMPARE(shown.list->GetCurrentPage(), 1);
    }

    void whatTheServerTellsIsShown()
    {
        Shown shown;
        shown.server.is_exact = 0;
        shown.server.new_rows = 12;
        QTRY_COMPARE(shown.State(), QString("Rows 1 to 100 of more than 250"));
        QVERIFY(shown.Find<QLabel>("ptr_total_page_")->isHidden());
        auto *const new_rows = shown.Find<QPushButton>("NewRows");
        QCOMPARE(new_rows->text(), QString("12 new"));
        shown.list->GetNextPageBtn()->click();
        QTRY_COMPARE(shown.Cell(0), QString("#100"));

        shown.server.is_exact = 1;
        shown.server.new_rows = 0;
        new_rows->click();
        QTRY_COMPARE(shown.State(), QString("Rows 1 to 100 of 250"));
        QVERIFY(new_rows->isHidden());

        shown.Find<QLineEdit>("ServerSearch")->setText("x");
        QTRY_VERIFY(shown.State().contains("three characters"));
        QCOMPARE(shown.Cell(0), QString()); // no rows of another search
    }

    void exportsEnd_data() { AddRows(kExportEndRows); }

    void exportsEnd()
    {
        const auto &[name, total, last_page, is_exact, lost, reason] = FetchRow(kExportEndRows);
        Shown shown;
        shown.server.total = total;
        shown.server.is_exact = is_exact;
        shown.server.last_page = last_page;
        shown.server.lost = lost;
        guard_.AnnounceLogLines();
        QTRY_COMPARE(shown.Cell(0), QString("#0"));
        const QString path = folder_.Put("list.csv", "earlier");
        Vantor::CListExport job;
        QSignalSpy ends(&job, &Vantor::CListExport::SignalFinished);

        shown.page.SetRows(job);
        QVERIFY(job.Start(path));

        QTRY_COMPARE_WITH_TIMEOUT(ends.size(), 1, 20000);
        const auto result = ends.constFirst().constFirst().value<Vantor::ListExportResult>();
        QCOMPARE(result.reason, reason);
        const QByteArray written = folder_.Bytes("list.csv");
        if (reason == Vantor::ListExportResult::Reason::None) {
            QCOMPARE(written.count("\r\n"), 1 + total);
            QVERIFY(written.contains("#4320"));
        } else {
            QCOMPARE(written, QByteArray("earlier"));
            QCOMPARE(result.system_text,
                     lost == 0 ? QString("The server cannot be reached.")
                               : QString("Rows that the server sent: 4,320 of 4,321."));
        }
    }
};

QTEST_MAIN(tst_client_serverlist)
#include "tst_client_serverlist.moc"
