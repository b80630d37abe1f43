// SPDX-License-Identifier: MIT
#include "pages/ZoneSwitch.h"
#include "support/Widgets.h"

#include <Vantor/CAnimationProgressBar>

using Client::CZoneSwitch;

namespace {

using ZoneRow = Row<QByteArray, int, int>; // zone, first_year, changes

} // namespace

class tst_client_zones : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void typedNamesAreZonesOrTakenBack()
    {
        auto *const names = zones_->findChild<QComboBox *>("ZoneNames");
        const QSignalSpy changed(zones_.get(), &CZoneSwitch::SignalZoneChanged);

        names->lineEdit()->setText("Asia/Kathmandu");
        QTest::keyClick(names->lineEdit(), Qt::Key_Return);
        names->lineEdit()->setText("Asia/Atlantis");
        QTest::keyClick(names->lineEdit(), Qt::Key_Return);

        QCOMPARE(changed.size(), 1);
        QCOMPARE(zones_->Zone().id(), QByteArray("Asia/Kathmandu"));
        QCOMPARE(names->currentText(), QString("Asia/Kathmandu"));
        QVERIFY(!zones_->SetZone("Asia/Atlantis"));
    }

    // Through a change a year, a year with two Ramadans, and 2038, where Qt's tables end.
    void theLineShowsTheZonesTimeWhereverItGoes_data()
    {
        AddRows<ZoneRow>({{"north", "Europe/Berlin", 2023, 9},
                          {"south", "Australia/Sydney", 2023, 9},
                          {"four changes a year", "Africa/Casablanca", 2012, 12},
                          {"another standard time", "Asia/Pyongyang", 2015, 2},
                          {"the end of the tables", "America/Miquelon", 2036, 9}});
    }

    void theLineShowsTheZonesTimeWhereverItGoes()
    {
        const auto &[name, zone, first_year, changes] = FetchRow<ZoneRow>();
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

protected:
    void SetUp() override
    {
        bar_ = std::make_unique<Vantor::CAnimationProgressBar>();
        zones_ = std::make_unique<CZoneSwitch>(bar_.get());
    }
    void TearDown() override
    {
        zones_.reset();
        bar_.reset();
    }

private:
    std::unique_ptr<Vantor::CAnimationProgressBar> bar_;
    std::unique_ptr<CZoneSwitch> zones_;
};

QTEST_MAIN(tst_client_zones)
#include "tst_client_zones.moc"
