// SPDX-License-Identifier: MIT
#include "pages/RecordingsTable.h"
#include "pages/TimeEntry.h"
#include "pages/TimeLinePage.h"
#include "support/Widgets.h"

#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CTimeBarDelegate>

#include <QtTest/QAbstractItemModelTester>

using Client::CIncidentList;
using Client::CTimeLinePage;
using Vantor::CBaseFileProgressBar;

namespace {

constexpr qint64 kDay = 86400;
const qint64 kShownDay = QDate(1970, 1, 1).daysTo(QDate(1991, 3, 5));

Client::IncidentListPtr NewList()
{
    return std::make_shared<const CIncidentList>(QVector<Client::IncidentColumn>{
        {"Airport Name", {"NORTH", "SOUTH"}, {0, 1, 0}},
        {"Flight Date", {"1990-01-08", "1991-03-05", "none"}, {0, 1, 2}},
        {"Time of day", {"Night", "", "later"}, {0, 1, 2}}});
}

// time: null: refused
using TextRow = Row<QString, QDateTime>; // text, time

} // namespace

class tst_client_timeline : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void timesAreReadWhole_data()
    {
        const QDateTime time({2001, 3, 4}, {5, 6, 7}, Qt::UTC);
        const QDateTime minute({2001, 3, 4}, {5, 6, 0}, Qt::UTC);
        AddRows<TextRow>({{"all", "2001-03-04 05:06:07", time},
                          {"ISO", "2001-03-04T05:06:07Z", time},
                          {"pasted with blanks and marks", " \u200E2001/3/4 5:6:7 ", time},
                          {"Arabic digits", "٢٠٠١-٠٣-٠٤ ٠٥:٠٦", minute},
                          {"a date", "2001.3.4", QDateTime({2001, 3, 4}, {12, 0}, Qt::UTC)},
                          {"a time", "5:06", QDateTime({1991, 3, 5}, {5, 6}, Qt::UTC)},
                          {"no such day", "2001-02-29 05:06", {}},
                          {"no such hour", "24:00", {}},
                          {"empty", "", {}},
                          {"no time", "tomorrow", {}}});
    }

    void timesAreReadWhole()
    {
        const auto &[name, text, time] = FetchRow<TextRow>();
        const QSignalSpy messages(page_.get(), &CTimeLinePage::SignalMessage);
        auto *const entry = page_->findChild<Client::CTimeEntry *>("TypedTime");
        entry->selectAll();
        entry->insert(text); // as a paste does
        entry->setModified(true);
        line_->SetPosition(line_->Position() + 1000); // does not change a text being typed
        line_->SetPosition(line_->Position() - 1000);

        QTest::keyClick(entry, Qt::Key_Return);

        const QDateTime expected = time.isNull() ? QDateTime({1991, 3, 5}, {12, 0}, Qt::UTC) : time;
        QTRY_COMPARE(line_->GetCurrentDateTime(), expected);
        QCOMPARE(messages.size(), time.isNull() ? 1 : 0);
        entry->setCursorPosition(0);
        QTest::keyClick(entry, Qt::Key_Up);
        QTRY_COMPARE(line_->GetCurrentDateTime(), expected.addYears(1));
    }

    // Details and table agree with the line, whatever moves it.
    void detailsAndTableFollowTheLine()
    {
        std::mt19937 random(3); // NOLINT(cert-msc51-cpp)
        const auto any = [&](int most) { return int(random() % unsigned(most)); };
        auto *const table = page_->findChild<Client::CRecordingsTable *>("RecordingsOfDay");
        auto *const details = page_->findChild<QLabel *>("RecordingDetails");
        auto *const overview = page_->findChild<CBaseFileProgressBar *>("TimeLineOverview");
        const QAbstractItemModelTester tester(table->model());
        auto &model = static_cast<Client::CRecordingsModel &>(*table->model());
        for (int step = 0; step < 30; ++step) {
            const int action = any(6);
            if (action == 0)
                QTest::keyClick(table, any(2) ? Qt::Key_Down : Qt::Key_PageUp);
            else if (action == 1)
                QTest::mouseClick(overview, Qt::LeftButton, {}, {any(overview->width()), 5});
            else if (action == 2)
                line_->SetPosition(line_->Position() + any(7200000) - 3600000);
            else if (action == 3)
                line_->ZoomBy(0.5 + any(3), any(line_->width()));
            else if (action == 4)
                page_->findChild<QCheckBox *>(any(2) ? "Type500" : "Type0")->click();
            else
                page_->findChild<QCheckBox *>("SecondRow")->click();
            if (any(3) == 0)
                continue; // the next one comes while this one runs
            QTest::qWait(150);
            QTRY_VERIFY(!line_->IsSliding() && !overview->IsSliding());
            QTest::qWait(150);

            const auto bar = line_->TimeBarDelegate()->FindTimeBarAt(line_->GetCurrentUTCTime());
            QCOMPARE(details->text().startsWith("Nothing"), !bar.has_value());
            QVERIFY(!bar || details->text().contains(bar->GetVal_strFileName()));
            const QModelIndexList marked = table->selectionModel()->selectedRows();
            QCOMPARE(marked.isEmpty(), !bar.has_value());
            if (bar) {
                const auto &row = model.Recordings().at(marked.at(0).row()).bar.Read();
                QVERIFY(row.dtStart
                            == line_->GetCurrentUTCTime() // the chosen one, or the one on top
                        || (row.dtStart == bar->GetVal_dtStart()
                            && row.strFileName == bar->GetVal_strFileName()));
            }
            QVERIFY(std::abs(overview->Position() - line_->Position()) * overview->PixelsPerSecond()
                    <= 1000);
        }
    }

    void manyRecordingsTakeThePlaceOfTheDay()
    {
        const auto first_of_day = [this] {
            return line_->TimeBarDelegate()->GetTimeBar().constFirst().GetVal_dtStart() / kDay;
        };
        QCOMPARE(first_of_day(), kShownDay - 1);
        line_->SetPosition(line_->Position() + 5 * kDay * 1000);
        QCOMPARE(first_of_day(), kShownDay + 4);
        auto *const amount = page_->findChild<QComboBox *>("Amount");
        amount->setFocus();
        QTest::keyClick(amount, Qt::Key_Down);
        QTRY_COMPARE(line_->TimeBarDelegate()->GetTimeBar().size(), 10000);

        line_->SetPosition(0); // no day comes in between

        QCOMPARE(line_->TimeBarDelegate()->GetTimeBar().size(), 10000);
        QTest::keyClick(amount, Qt::Key_Up);
        QVERIFY(line_->TimeBarDelegate()->GetTimeBar().size() < 1000);
    }

protected:
    void SetUp() override
    {
        page_ = std::make_unique<CTimeLinePage>();
        line_ = page_->findChild<CBaseFileProgressBar *>("TimeLine");
        page_->SetList(NewList());
        page_->resize(900, 600);
        page_->show();
    }
    void TearDown() override { page_.reset(); }

private:
    std::unique_ptr<CTimeLinePage> page_;
    CBaseFileProgressBar *line_ = nullptr;
};

QTEST_MAIN(tst_client_timeline)
#include "tst_client_timeline.moc"
