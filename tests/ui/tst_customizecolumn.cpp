// SPDX-License-Identifier: MIT
#include "ColumnTable.h"
#include "LayoutStore.h"
#include "support/Test.h"

#include <Faceplate/GUIMessageTipManager.h>
#include <common/Translate.h>

namespace {

const QString kAnnasKey = QStringLiteral("anna/") + kColumnKey;

// clicks: rows, one change each; refusals: of the first changes
using Refusal = Row<QList<int>, int, QString>; // clicks, refusals, shown

enum class Way { Destroyed, Uninitialised, Stopped, DestroyedInTheSignal, DestroyedInADrag };

struct End
{
    const char *name;
    Way way;
};

} // namespace

class TestCustomizeColumn : public CGuardedTest
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        Vantor::RemoveTranslations(); // the keys
        messages_.clear();
        Faceplate::CGUIMessageTipManager::SetPresenter(
            [this](QWidget *, const QString &text, int, int, int) { messages_.append(text); });
        store_ = std::make_unique<CLayoutStore>();
    }

    void TearDown() override
    {
        store_.reset();
        Faceplate::CGUIMessageTipManager::SetPresenter(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private Q_SLOTS:
    void aRefusedChangeIsTakenBackWithOneMessage_data()
    {
        AddRows<Refusal>({{"one change", {0}, 1, "ABCD"},
                          {"two quick changes, both refused", {0, 1}, 2, "ABCD"},
                          {"the second includes the first", {0, 1}, 1, "CD"}});
    }

    void aRefusedChangeIsTakenBackWithOneMessage()
    {
        const auto &[name, clicks, refusals, shown] = FetchRow<Refusal>();
        CTable table(MakeColumns(4));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        store_->Hold();
        for (const int clicked : clicks)
            table.ClickRow(clicked);
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

    void aChoiceThatCannotBeReadIsNeverReplaced()
    {
        store_->texts[kAnnasKey] = R"({"CustomizeListItems":[{"ColumnLocation":1,"ColumnChecked":0,
            "ColumnManualCheck":"true","ColumnManualSort":"true"}]})";
        store_->refusals = 3;
        CTable table(MakeColumns(3));
        QTRY_COMPARE(table.settled, 1);
        QCOMPARE(table.shown, QString("ABC"));
        QVERIFY(messages_.value(0).contains("Peltra.9778d4835a7946b6ab94c46d137616dc.name"));
        auto *const again = table.button->findChild<QPushButton *>("ptr_read_again_button_");

        table.Open(); // asks again, and fails again
        QTRY_COMPARE(table.settled, 2);
        table.ClickRow(1);
        QTest::mouseClick(table.Reset(), Qt::LeftButton);
        QTest::keyClick(table.AllBox(), Qt::Key_Space);
        QCOMPARE(store_->writes, 0);
        QVERIFY(again->hasFocus());
        QTest::keyClick(again, Qt::Key_Escape);
        QVERIFY(!table.DropDown()->isVisible());
        table.Open();
        QTRY_COMPARE(table.settled, 3);
        QTest::keyClick(again, Qt::Key_Space);

        QTRY_COMPARE(table.shown, QString("BC"));
        QVERIFY(!again->isVisible() && table.List()->hasFocus());
        QCOMPARE(store_->writes, 0);
        table.ClickRow(2);
        QTRY_COMPARE(table.shown, QString("B"));
    }

    void anAnswerDuringADragIsAppliedAfterTheDrop()
    {
        for (const bool is_cancelled : {false, true}) {
            CTable table(MakeColumns(4));
            table.Open();
            QTRY_COMPARE(table.settled, 1);
            store_->Hold();
            store_->refusals = 1;
            table.ClickRow(0);
            table.DragTo(1, 3);
            store_->AnswerAll();
            QCoreApplication::processEvents();
            QVERIFY(table.DropDown()->IsDragging());
            QCOMPARE(table.Rows(), QString("BCD"));

            if (is_cancelled)
                QTest::keyClick(table.List(), Qt::Key_Escape);
            else
                table.Drop();

            QTRY_COMPARE(table.settled, is_cancelled ? 2 : 3);
            // The drop includes the refused change, and is stored.
            QCOMPARE(table.shown, is_cancelled ? "ABCD" : "CDB");
            QCOMPARE(table.Rows(), table.shown);
            QVERIFY(table.DropDown()->isVisible()); // Escape ended the drag only
            store_->texts.clear();
        }
    }

    void eachClickCountsButNotOnTheHandle()
    {
        CTable table(MakeColumns(3));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        QWidget *const viewport = table.List()->viewport();
        const QPoint row = table.RowCentre(0);
        QTest::mouseClick(viewport, Qt::LeftButton, {}, {viewport->width() - 8, row.y()});
        QCOMPARE(table.Rows(), "ABC");
        table.ClickRow(0);
        QCOMPARE(table.Rows(), "BC");
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, row); // clicks once before it
        table.ClickRow(0);
        QCOMPARE(table.Rows(), "ABC");
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
        AddRows<End>({{"destroyed", Way::Destroyed},
                      {"uninitialised", Way::Uninitialised},
                      {"stopped", Way::Stopped},
                      {"destroyed in the signal", Way::DestroyedInTheSignal},
                      {"destroyed while a row is dragged", Way::DestroyedInADrag}});
    }

    void theButtonMayGoWithAnAnswerOutstanding()
    {
        const Way way = FetchRow<End>().way;
        CTable table(MakeColumns(3));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        store_->Hold();
        table.ClickRow(0);
        table.is_deleting_button = way == Way::DestroyedInTheSignal;
        if (way == Way::Uninitialised)
            table.button->UnInitCustomizeList();
        if (way == Way::Stopped)
            table.button->StopWork();
        if (way == Way::DestroyedInADrag)
            table.DragTo(1, 2);
        if (way == Way::Destroyed || way == Way::DestroyedInADrag)
            delete table.button;

        std::thread([this] { store_->AnswerAll(); }).join();

        if (table.is_deleting_button)
            QTRY_VERIFY(!table.button);
        QCoreApplication::processEvents();
        QCOMPARE(table.settled, table.is_deleting_button ? 2 : 1);
        QCOMPARE(store_->writes, 1); // the user's change is stored all the same
        if (way == Way::Stopped) {
            QCOMPARE(table.Given(), QString("BC"));
            table.Open();
            QVERIFY(!table.DropDown()->isVisible()); // nothing would be stored
        }
    }

    void theButtonIsInitialisedOnceUntilItIsUninitialised()
    {
        CTable table(MakeColumns(3));
        table.button->InitCustomizeListByModuleNameANdFunction("Other", "One", MakeColumns(5),
                                                               nullptr);
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

    void theBoxForAllSparesFixedColumns()
    {
        Columns columns = MakeColumns(3);
        columns[1].SetVal_b_manual_check(false);
        columns[1].SetVal_column_checked(Qt::Unchecked);
        CTable table(columns);
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        table.ClickRow(1); // fixed
        QCOMPARE(table.Rows(), QString("AC"));
        table.ClickRow(0);
        QCOMPARE(table.AllBox()->checkState(), Qt::PartiallyChecked);
        for (const char *const shown : {"AC", "", "AC"}) {
            QTest::keyClick(table.AllBox(), Qt::Key_Space);
            QCOMPARE(table.Rows(), QString(shown));
            QCOMPARE(table.Given(), QString(shown));
        }
        QTRY_COMPARE(table.settled, 5);
        QCOMPARE(store_->writes, 4); // one a change, not one a column
        QTest::keyClick(table.List(), Qt::Key_Escape);
        QVERIFY(!table.DropDown()->isVisible());
        QCOMPARE(table.focusWidget(), table.button.data());
    }

private:
    QStringList messages_;
    std::unique_ptr<CLayoutStore> store_;
};

QTEST_MAIN(TestCustomizeColumn)
#include "tst_customizecolumn.moc"
