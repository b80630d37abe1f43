// SPDX-License-Identifier: MIT
#include "ColumnSteps.h"
#include "ColumnTable.h"
#include "LayoutStore.h"
#include "support/TestGuard.h"

#include <Faceplate/GUIMessageTipManager.h>
#include <Vantor/CCustomizeColumnButton>

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>
#include <thread>

using Vantor::CColumnInfo;
using Vantor::CCustomizeColumnButton;

namespace {

const QString kAnnasKey = QStringLiteral("anna/") + kColumnKey;

} // namespace

class TestCustomizeColumn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        messages_.clear();
        Faceplate::CGUIMessageTipManager::SetPresenter(
            [this](QWidget *, const QString &text, int, int, int) { messages_.append(text); });
        store_ = std::make_unique<CLayoutStore>();
    }

    void cleanup()
    {
        store_.reset();
        Faceplate::CGUIMessageTipManager::SetPresenter(nullptr);
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void anyStepsKeepTableDropDownAndStoreInAgreement()
    {
        TakeColumnSteps(1, {[this](const QString &user) { store_->user = user; },
                            [this](const QString &user) {
                                return store_->texts.value(user + '/' + kColumnKey);
                            },
                            [this] { return store_->writes; }});
        QVERIFY(messages_.isEmpty());
    }

    void aRefusedChangeIsTakenBackWithOneMessage_data()
    {
        QTest::addColumn<QList<int>>("clicks"); // rows, one change each
        QTest::addColumn<int>("refusals");      // of the first changes
        QTest::addColumn<QString>("shown");
        QTest::newRow("one change") << QList<int>{0} << 1 << "ABCD";
        QTest::newRow("two quick changes, both refused") << QList<int>{0, 1} << 2 << "ABCD";
        QTest::newRow("the second holds the first") << QList<int>{0, 1} << 1 << "CD";
    }

    void aRefusedChangeIsTakenBackWithOneMessage()
    {
        QFETCH(QList<int>, clicks);
        QFETCH(int, refusals);
        QFETCH(QString, shown);
        CTable table(MakeColumns(4));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        store_->Hold();
        for (const int row : qAsConst(clicks))
            table.ClickRow(row);
        store_->refusals = refusals;

        store_->AnswerAll();

        QTRY_COMPARE(table.settled, 1 + clicks.size());
        QCOMPARE(table.shown, shown);
        QCOMPARE(table.Rows(), shown);
        QCOMPARE(messages_.size(), refusals);
        table.ClickRow(3); // the next change works
        QTRY_COMPARE(table.shown, QString(shown).remove('D'));
        QCOMPARE(Stored(store_->texts.value(kAnnasKey), MakeColumns(4)), table.shown);
    }

    void aChoiceThatCannotBeReadIsAskedForAgainWhenOpened()
    {
        store_->texts[kAnnasKey] = R"({"CustomizeListItems":[{"ColumnLocation":1,"ColumnChecked":0,
            "ColumnManualCheck":"true","ColumnManualSort":"true"}]})";
        store_->refusals = 1;
        CTable table(MakeColumns(3));
        QTRY_COMPARE(table.settled, 1);
        QCOMPARE(table.shown, QString("ABC"));
        QCOMPARE(messages_.size(), 1);
        QVERIFY(messages_.first().contains("Peltra.9778d4835a7946b6ab94c46d137616dc.name"));

        table.Open();

        QVERIFY(!table.List()->isEnabled()); // a change now would replace what is not known yet
        QTRY_COMPARE(table.shown, QString("BC"));
        QVERIFY(table.List()->isEnabled());
        QVERIFY(table.List()->hasFocus());
        QCOMPARE(store_->writes, 0);
    }

    void anAnswerDuringADragIsAppliedAfterTheDrop_data()
    {
        QTest::addColumn<bool>("is_cancelled");
        QTest::newRow("dropped") << false;
        QTest::newRow("given up with Escape") << true;
    }

    void anAnswerDuringADragIsAppliedAfterTheDrop()
    {
        QFETCH(bool, is_cancelled);
        CTable table(MakeColumns(4));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        store_->Hold();
        store_->refusals = 1;
        table.ClickRow(0); // will be refused
        table.DragTo(1, 3);
        store_->AnswerAll();
        QCoreApplication::processEvents();
        QVERIFY(table.DropDown()->IsDragging());
        QCOMPARE(table.Rows(), QString("BCD"));
        QCOMPARE(table.settled, 1);

        if (is_cancelled)
            QTest::keyClick(table.List(), Qt::Key_Escape);
        else
            table.Drop();

        // The drop holds the refused change too, and is stored.
        QTRY_COMPARE(table.settled, is_cancelled ? 2 : 3);
        QCOMPARE(table.shown, QString(is_cancelled ? "ABCD" : "CDB"));
        QCOMPARE(table.Rows(), table.shown);
        QVERIFY(table.DropDown()->isVisible()); // Escape ended the drag only
    }

    void theLastUsersAnswersMeanNothingToTheNext()
    {
        CTable table(MakeColumns(3));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        store_->Hold();
        table.ClickRow(0);
        store_->refusals = 1;
        store_->AnswerNext(); // refused, but its answer is still on the way
        store_->user = "bert";
        table.button->UpdateAfterSwitchUser();
        QCOMPARE(table.Given(), QString("ABC"));

        store_->AnswerAll();

        QTRY_COMPARE(table.settled, 2);
        QCOMPARE(table.shown, QString("ABC"));
        QVERIFY(messages_.isEmpty());
        const QString line = guard_.LogLines().filter("UpdateAfterSwitchUser").value(0);
        QVERIFY2(
            line.startsWith("3 UserOperate [Vantor::CCustomizeColumnButton::UpdateAfterSwitchUser]"
                            "GetCurrentWidgetAdjustHeight : CListModuleFunctionCustomizeList["),
            qPrintable(line));
    }

    void theButtonMayGoWithAnAnswerOutstanding_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("destroyed") << 0;
        QTest::newRow("uninitialised") << 1;
        QTest::newRow("stopped") << 2;
        QTest::newRow("destroyed when it tells of the answer") << 3;
        QTest::newRow("destroyed with a row at the mouse") << 4;
    }

    void theButtonMayGoWithAnAnswerOutstanding()
    {
        QFETCH(int, way);
        CTable table(MakeColumns(3));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        store_->Hold();
        table.ClickRow(0);
        if (way == 1)
            table.button->UnInitCustomizeList();
        if (way == 2)
            table.button->StopWork();
        if (way == 3)
            table.is_deleting_button = true;
        if (way == 4)
            table.DragTo(1, 2);
        if (way == 0 || way == 4)
            delete table.button;

        std::thread([this] { store_->AnswerAll(); }).join();

        if (way == 3)
            QTRY_VERIFY(!table.button);
        QCoreApplication::processEvents();
        QCOMPARE(table.settled, way == 3 ? 2 : 1);
        QCOMPARE(store_->writes, 1); // what the user did is stored all the same
        if (way == 2)
            QCOMPARE(table.Given(), QString("BC"));
    }

    void theButtonIsInitialisedOnceUntilItIsUninitialised()
    {
        CTable table(MakeColumns(3));
        table.button->InitCustomizeListByModuleNameANdFunction("Other", "One", MakeColumns(5),
                                                               nullptr);
        QCOMPARE(table.button->property("MainInitialized"), QVariant(true));
        QTRY_COMPARE(table.settled, 1);
        QCOMPARE(table.shown, QString("ABC"));

        table.button->UnInitCustomizeList();
        QCOMPARE(table.Given(), QString());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        table.button->InitCustomizeListByModuleNameANdFunction("Module", "Function", MakeColumns(2),
                                                               nullptr);
        QTRY_COMPARE(table.shown, QString("AB"));
        table.Open();
        table.ClickRow(0);

        QTRY_COMPARE(table.settled, 3); // no signal is connected twice
        QCOMPARE(store_->writes, 1);
    }

    void theBoxForAllHasThreeStatesAndSparesFixedColumns()
    {
        Columns columns = MakeColumns(3);
        columns[1].SetVal_b_manual_check(false);
        columns[1].SetVal_column_checked(Qt::Unchecked);
        CTable table(columns);
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        QCOMPARE(table.AllBox()->checkState(), Qt::Checked);
        struct Step
        {
            int clicked_row; // -1: the box for all
            QString shown;
            Qt::CheckState state;
        };
        const Step steps[] = {{1, "AC", Qt::Checked}, // fixed
                              {0, "C", Qt::PartiallyChecked},
                              {-1, "AC", Qt::Checked},
                              {-1, "", Qt::Unchecked},
                              {-1, "AC", Qt::Checked}};
        for (const Step &step : steps) {
            if (step.clicked_row < 0)
                QTest::keyClick(table.AllBox(), Qt::Key_Space);
            else
                table.ClickRow(step.clicked_row);
            QCOMPARE(table.Rows(), step.shown);
            QCOMPARE(table.Given(), step.shown);
            QCOMPARE(table.AllBox()->checkState(), step.state);
        }
        QTRY_COMPARE(table.settled, 5);
        QCOMPARE(store_->writes, 4); // one a change, not one a column
    }

    void theDropDownOpensInsideTheWindow_data()
    {
        QTest::addColumn<QPoint>("button");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("upper left") << QPoint(0, 0) << Qt::LeftToRight;
        QTest::newRow("upper right") << QPoint(770, 0) << Qt::LeftToRight;
        QTest::newRow("lower right") << QPoint(770, 570) << Qt::LeftToRight;
        QTest::newRow("upper left, right to left") << QPoint(0, 0) << Qt::RightToLeft;
    }

    void theDropDownOpensInsideTheWindow()
    {
        QFETCH(QPoint, button);
        QFETCH(Qt::LayoutDirection, direction);
        QGuiApplication::setLayoutDirection(direction);
        CTable table(MakeColumns(20));
        table.button->move(button);
        table.Open();

        const QRect room(table.mapToGlobal(QPoint()), table.size());
        QVERIFY(table.DropDown()->isVisible());
        QVERIFY(room.contains(table.DropDown()->geometry()));
        QTRY_VERIFY(table.List()->hasFocus());
        QTest::keyClick(table.List(), Qt::Key_Escape);
        QVERIFY(!table.DropDown()->isVisible());
    }

    void theModelTellsOfChecksThatChange()
    {
        Vantor::CListSightCheckModel model;
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        for (const char *const name : {"a", "b", "c"})
            model.appendRow(new QStandardItem(QString(name)));
        QSignalSpy spy(&model, &Vantor::CListSightCheckModel::SignalCheckStateChanged);

        model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole);
        model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole);
        model.setData(model.index(1, 0), "other name");
        QVERIFY(model.MoveRow(0, 2));
        QVERIFY(!model.MoveRow(0, 3));

        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().mid(1), (QVariantList{0, 2}));
        QCOMPARE(model.index(2, 0).data().toString(), QString("a"));
    }

private:
    CTestGuard guard_;
    QStringList messages_;
    std::unique_ptr<CLayoutStore> store_;
};

QTEST_MAIN(TestCustomizeColumn)
#include "tst_customizecolumn.moc"
