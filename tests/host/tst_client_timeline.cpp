// SPDX-License-Identifier: MIT
#include "pages/RecordingsTable.h"
#include "pages/TimeEntry.h"
#include "pages/TimeLinePage.h"
#include "pages/ZoneSwitch.h"
#include "support/Widgets.h"

#include <Vantor/CAnimationProgressBar>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CTimeBarDelegate>

using namespace Client;
using Vantor::CBaseFileProgressBar;

namespace {

constexpr qint64 kDay = 86400;
const qint64 kShownDay = QDate(1970, 1, 1).daysTo(QDate(1991, 3, 5));

IncidentListPtr NewList()
{
    return std::make_shared<const CIncidentList>(
        QVector<IncidentColumn>{{"Airport Name", {"NORTH", "SOUTH"}, {0, 1, 0}},
                                {"Flight Date", {"1990-01-08", "1991-03-05", "none"}, {0, 1, 2}},
                                {"Time of day", {"Night", "", "later"}, {0, 1, 2}}});
}

// zone, first_year, changes
const Rows<QByteArray, int, int> kZoneRows = {
    {"north", "Europe/Berlin", 2023, 9},
    {"south", "Australia/Sydney", 2023, 9},
    {"four changes a year", "Africa/Casablanca", 2012, 12},
    {"another standard time", "Asia/Pyongyang", 2015, 2},
    {"the end of the tables", "America/Miquelon", 2036, 9},
};

const QDateTime kTyped({2001, 3, 4}, {5, 6, 7}, Qt::UTC);
const QDateTime kTypedMinute({2001, 3, 4}, {5, 6, 0}, Qt::UTC);

// text, time (null: refused)
const Rows<QString, QDateTime> kTextRows = {
    {"all", "2001-03-04 05:06:07", kTyped},
    {"ISO", "2001-03-04T05:06:07Z", kTyped},
    {"pasted with blanks and marks", " \u200E2001/3/4 5:6:7 ", kTyped},
    {"Arabic digits", "٢٠٠١-٠٣-٠٤ ٠٥:٠٦", kTypedMinute},
    {"a date", "2001.3.4", QDateTime({2001, 3, 4}, {12, 0}, Qt::UTC)},
    {"a time", "5:06", QDateTime({1991, 3, 5}, {5, 6}, Qt::UTC)},
    {"no such day", "2001-02-29 05:06", {}},
    {"no such hour", "24:00", {}},
    {"empty", "", {}},
    {"no time", "tomorrow", {}},
};

} // namespace

class tst_client_timeline : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        page_ = std::make_unique<CTimeLinePage>();
        line_ = page_->findChild<CBaseFileProgressBar *>("TimeLine");
        page_->SetList(NewList());
        page_->resize(900, 600);
        page_->show();
        bar_ = std::make_unique<Vantor::CAnimationProgressBar>();
        zones_ = std::make_unique<CZoneSwitch>(bar_.get());
    }
    void TearDown() override
    {
        page_.reset();
        zones_.reset();
        bar_.reset();
    }

    std::unique_ptr<CTimeLinePage> page_;
    CBaseFileProgressBar *line_ = nullptr;

    std::unique_ptr<Vantor::CAnimationProgressBar> bar_;
    std::unique_ptr<CZoneSwitch> zones_;

private Q_SLOTS:
    void timesAreReadWhole_data() { AddRows(kTextRows); }

    void timesAreReadWhole()
    {
        const auto &[name, text, time] = FetchRow(kTextRows);
        const QSignalSpy messages(page_.get(), &CTimeLinePage::SignalMessage);
        auto *const entry = page_->findChild<CTimeEntry *>("TypedTime");
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
        auto *const table = page_->findChild<CRecordingsTable *>("RecordingsOfDay");
        auto *const details = page_->findChild<QLabel *>("RecordingDetails");
        auto *const overview = page_->findChild<CBaseFileProgressBar *>("TimeLineOverview");
        const QAbstractItemModelTester tester(table->model());
        auto &model = static_cast<CRecordingsModel &>(*table->model());
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

    void typedNamesAreZonesOrTakenBack()
    {
        auto *const names = zones_->findChild<QComboBox *>("ZoneNames");
        const QSignalSpy changed(zones_.get(), &CZoneSwitch::SignalZoneChanged);
        for (const char *const typed : {"Asia/Kathmandu", "Asia/Atlantis"}) {
            names->lineEdit()->setText(typed);
            QTest::keyClick(names->lineEdit(), Qt::Key_Return);
        }

        QCOMPARE(changed.size(), 1);
        QCOMPARE(zones_->Zone().id(), QByteArray("Asia/Kathmandu"));
        QCOMPARE(names->currentText(), QString("Asia/Kathmandu"));
        QVERIFY(!zones_->SetZone("Asia/Atlantis"));
    }

    // Through a change a year, a year with two Ramadans, and 2038, where Qt's tables end.
    void theLineShowsTheZonesTimeWhereverItGoes_data() { AddRows(kZoneRows); }

    void theLineShowsTheZonesTimeWhereverItGoes()
    {
        const auto &[name, zone, first_year, changes] = FetchRow(kZoneRows);
        QVERIFY(zones_->SetZone(zone));
        bar_->SetPosition(QDateTime({first_year, 1, 1}, {0, 0}, Qt::UTC).toMSecsSinceEpoch());
        auto *const later = zones_->findChild<QPushButton *>("LaterChange");

        for (int i = 0; i < changes; ++i) {
            later->click();
            const qint64 change_s = bar_->GetCurrentUTCTime();
            for (const qint64 s : {change_s - 1, change_s}) {
                bar_->SetPosition(s * 1000);
                const QDateTime utc = QDateTime::fromSecsSinceEpoch(s, Qt::UTC);
                QCOMPARE(bar_->GetCurrentDateTime(),
                         utc.addSecs(zones_->Zone().offsetFromUtc(utc)));
            }
            QVERIFY(zones_->Zone().offsetFromUtc(QDateTime::fromSecsSinceEpoch(change_s))
                    != zones_->Zone().offsetFromUtc(QDateTime::fromSecsSinceEpoch(change_s - 1)));
        }

        const qint64 last_ms = bar_->Position();
        zones_->findChild<QPushButton *>("EarlierChange")->click();
        QVERIFY(bar_->Position() < last_ms);
        later->click();
        QCOMPARE(bar_->Position(), last_ms);
    }

    void wallClockTimesAreOfTheirOwnYearAndTheNextChangeIsShown()
    {
        const QDateTime summer({2027, 7, 1}, {12, 0}, Qt::UTC);
        const auto *const state = zones_->findChild<QLabel *>("ZoneState");
        zones_->SetZone("Europe/Berlin");

        zones_->SlideToWallClock(summer, 0);

        QCOMPARE(bar_->GetCurrentUTCTime(), summer.toSecsSinceEpoch() - 7200);
        QCOMPARE(bar_->GetCurrentDateTime(), summer);
        bar_->SetPressed(true);
        zones_->SlideToWallClock(summer.addYears(1), 0);
        QCOMPARE(bar_->GetCurrentDateTime(), summer);
        bar_->SetPressed(false);
        QCOMPARE(state->text(), QString("The clocks go back on 31 Oct 2027 03:00."));
        zones_->GoToLaterChange();
        QCOMPARE(state->text(), QString("The clocks go forward on 26 Mar 2028 02:00."));
        zones_->SetZone("UTC");
        QCOMPARE(state->text(), QString("The clocks do not change."));
        QVERIFY(!zones_->findChild<QPushButton *>("LaterChange")->isEnabled());
        bar_.reset();
        zones_->GoToLaterChange();
    }
};

QTEST_MAIN(tst_client_timeline)
#include "tst_client_timeline.moc"
