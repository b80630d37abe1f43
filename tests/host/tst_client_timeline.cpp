// SPDX-License-Identifier: MIT
#include "pages/TimeLinePage.h"
#include "support/TestGuard.h"

#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CTimeBarDelegate>

#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateTimeEdit>

using Client::CIncidentList;
using Client::CTimeLinePage;
using Vantor::CBaseFileProgressBar;

namespace {

Client::IncidentListPtr NewList()
{
    return std::make_shared<const CIncidentList>(QVector<Client::IncidentColumn>{
        {"Airport Name", {"NORTH", "SOUTH"}, {0, 1, 0}},
        {"Flight Date", {"1990-01-08", "1991-03-05", "none"}, {0, 1, 2}},
        {"Time of day", {"Night", "", "later"}, {0, 1, 2}}});
}

} // namespace

class tst_client_timeline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        page_ = std::make_unique<CTimeLinePage>();
        line_ = page_->findChild<CBaseFileProgressBar *>("TimeLine");
        page_->SetList(NewList());
        page_->show();
    }
    void cleanup()
    {
        page_.reset();
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void dayOfTheNewestIncidentIsShownAndTheNextFollows()
    {
        const auto first_of_day = [this] {
            return line_->TimeBarDelegate()->GetTimeBar().constFirst().GetVal_dtStart() / 86400;
        };
        const qint64 day = QDate(1991, 3, 5).toJulianDay() - QDate(1970, 1, 1).toJulianDay();
        QCOMPARE(line_->GetCurrentUTCTime() / 86400, day);
        QCOMPARE(first_of_day(), day - 1);

        line_->SetPosition(line_->Position() + 5 * 86400000LL);

        QCOMPARE(first_of_day(), day + 4);
    }

    void typedTimeIsGoneTo()
    {
        auto *const time = page_->findChild<QDateTimeEdit *>("TypedTime");
        time->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(time, "2001");
        line_->SetPosition(line_->Position() + 1000); // leaves what is being typed alone

        QTest::keyClick(time, Qt::Key_Return);

        const QDateTime typed({2001, 3, 5}, {12, 0}, Qt::UTC);
        QTRY_COMPARE(line_->GetCurrentDateTime(), typed);
        QTRY_COMPARE(time->dateTime(), typed);
    }

    void manyRecordingsTakeThePlaceOfTheDay()
    {
        auto *const amount = page_->findChild<QComboBox *>("Amount");
        amount->setFocus();
        QTest::keyClick(amount, Qt::Key_Down);
        QTRY_COMPARE(line_->TimeBarDelegate()->GetTimeBar().size(), 10000);

        line_->SetPosition(0); // no day comes in between

        QCOMPARE(line_->TimeBarDelegate()->GetTimeBar().size(), 10000);
        QTest::keyClick(amount, Qt::Key_Up);
        QVERIFY(line_->TimeBarDelegate()->GetTimeBar().size() < 1000);
    }

    void boxesHideTypesOnBothLines()
    {
        auto *const overview = page_->findChild<CBaseFileProgressBar *>("TimeLineOverview");
        page_->findChild<QCheckBox *>("Type500")->click();
        for (CBaseFileProgressBar *const bar : {line_, overview}) {
            QVERIFY(!bar->TimeBarDelegate()->IsTimeBarVisible(500));
            QVERIFY(bar->TimeBarDelegate()->IsTimeBarVisible(0));
        }
        page_->findChild<QCheckBox *>("SecondRow")->click();
        QVERIFY(line_->TimeBarDelegate()->SyncFlag());
    }

private:
    CTestGuard guard_;
    std::unique_ptr<CTimeLinePage> page_;
    CBaseFileProgressBar *line_ = nullptr;
};

QTEST_MAIN(tst_client_timeline)
#include "tst_client_timeline.moc"
