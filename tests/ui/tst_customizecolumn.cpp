// SPDX-License-Identifier: MIT
#include "ColumnTable.h"

#include <BusinessCommon/AdaptiveColumnWidthManager.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Vantor/CAdaptiveColumnWidthController>
#include <Vantor/CAdaptiveColumnWidthWidget>
#include <common/Translate.h>

#include <deque>

using namespace BusinessCommon;
using namespace Vantor;

namespace {

/// \brief A server of layouts in memory that replaces the real one while it lives.
///
/// It answers at once or on demand, and can refuse. A real server cannot be made to do so at a
/// given moment.
class CLayoutStore
{
public:
    CLayoutStore()
    {
        CAdaptiveColumnWidthManager::SetHandler(
            [this](const AdaptiveLayout &layout, const Answer &answer) {
                waiting_.emplace_back([this, layout, answer] { Serve(layout, answer); });
                if (!is_holding_)
                    AnswerNext();
            });
    }
    ~CLayoutStore() { CAdaptiveColumnWidthManager::SetHandler(nullptr); }

    void Hold() { is_holding_ = true; }
    void AnswerAll()
    {
        is_holding_ = false;
        while (!waiting_.empty())
            AnswerNext();
    }
    /// Answer the last request before the others.
    void AnswerNewest()
    {
        std::rotate(waiting_.begin(), waiting_.end() - 1, waiting_.end());
        AnswerNext();
    }
    void AnswerNext()
    {
        const auto next = waiting_.front();
        waiting_.pop_front();
        next();
    }

    QHash<QString, QByteArray> texts; ///< by user and key
    QString user = QStringLiteral("anna");
    int refusals = 0; ///< how many answers to come are failures
    int reads = 0;
    int writes = 0;
    AdaptiveLayout last;

private:
    using Param = CAdaptiveColumnWidthObserver::Param;
    using Answer = CAdaptiveColumnWidthManager::Answer;

    void Serve(const AdaptiveLayout &layout, const Answer &answer)
    {
        const bool is_write = !layout.layout_data.empty();
        const QString place = user + QLatin1Char('/') + QString::fromStdString(layout.key_value);
        ++(is_write ? writes : reads);
        last = layout;
        Param param;
        if (refusals > 0) {
            --refusals;
            param.error_code = {2, 21};
        } else {
            param.current_column_state = 1;
            if (is_write)
                texts[place] = QByteArray::fromStdString(layout.layout_data);
            else
                param.result.receive_data = texts.value(place).toStdString();
        }
        answer(param);
    }

    std::deque<std::function<void()>> waiting_;
    bool is_holding_ = false;
};

const QString kAnnasKey = QStringLiteral("anna/") + kColumnKey;

enum class Way { Destroyed, Uninitialised, Stopped, DestroyedInTheSignal, DestroyedInADrag };

// clicks (rows, one change each), refusals (of the first changes), shown
const Rows<QList<int>, int, QString> kRefusalRows = {
    {"one change", {0}, 1, "ABCD"},
    {"two quick changes, both refused", {0, 1}, 2, "ABCD"},
    {"the second includes the first", {0, 1}, 1, "CD"},
};

const Rows<Way> kWayRows = {
    {"destroyed", Way::Destroyed},
    {"uninitialised", Way::Uninitialised},
    {"stopped", Way::Stopped},
    {"destroyed in the signal", Way::DestroyedInTheSignal},
    {"destroyed while a row is dragged", Way::DestroyedInADrag},
};

} // namespace

class TestCustomizeColumn : public CGuardedTest
{
    Q_OBJECT

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

    QStringList messages_;
    std::unique_ptr<CLayoutStore> store_;

private Q_SLOTS:
    void aRefusedChangeIsTakenBackWithOneMessage_data() { AddRows(kRefusalRows); }

    void aRefusedChangeIsTakenBackWithOneMessage()
    {
        const auto &[name, clicks, refusals, shown] = FetchRow(kRefusalRows);
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
        QVERIFY(
            guard_.LogLines()
                .filter("UpdateAfterSwitchUser")
                .value(0)
                .startsWith("3 UserOperate [Vantor::CCustomizeColumnButton::UpdateAfterSwitchUser]"
                            "GetCurrentWidgetAdjustHeight : CListModuleFunctionCustomizeList["));
    }

    void theButtonMayGoWithAnAnswerOutstanding_data() { AddRows(kWayRows); }

    void theButtonMayGoWithAnAnswerOutstanding()
    {
        const Way way = std::get<1>(FetchRow(kWayRows));
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

    void answersComeAsSignalsInTheOrderOfTheRequests()
    {
        store_->Hold();
        CAdaptiveColumnWidthController controller;
        QStringList answers;
        using Controller = CAdaptiveColumnWidthController;
        connect(&controller, &Controller::SignalGetLayoutDataSuccess, this,
                [&](const QString &layout) { answers.append("read " + layout); });
        connect(&controller, &Controller::SignalPostLayoutDataSuccess, this,
                [&](const bool &ok) { answers.append(ok ? "written" : "?"); });
        connect(&controller, &Controller::SignalRequestDataFailed, this,
                [&](const int &first, const int &second, const int &get_or_post) {
                    answers.append(QString("%1 %2 %3").arg(first).arg(second).arg(get_or_post));
                });
        for (const char *const text : {"", "\xD8\xB9", "", "\xD8\xB9", ""}) // one Arabic letter
            controller.AdaptiveGetOrPostLayoutCurrentColumnState({"key", 1, text});

        store_->AnswerNewest(); // its answer waits
        for (int i = 0; i < 3; ++i)
            store_->AnswerNext();
        store_->refusals = 1;
        store_->AnswerAll();
        CAdaptiveColumnWidthManager::SetHandler([](const auto &, const auto &) {}); // drops it
        controller.AdaptiveGetOrPostLayoutCurrentColumnState({"key", 1, ""});

        QTRY_COMPARE(answers, (QStringList{"read ", "written", QString::fromUtf8("read \xD8\xB9"),
                                           "2 21 1", "read ", "2 24 0"}));
    }

    void aChoiceIsEmittedOnceAndAPressElsewhereHidesIt()
    {
        QWidget window;
        window.resize(400, 300);
        QPushButton button("Width", &window);
        button.setGeometry(300, 10, 80, 30);
        CAdaptiveColumnWidthWidget widget(&window);
        widget.SetRelateWidget(&button);
        window.show();
        widget.ShowAtRelateWidget();
        auto *const mini = widget.findChild<QRadioButton *>("ptr_min_width_radio_");
        auto *const maxi = widget.findChild<QRadioButton *>("ptr_max_width_radio_");
        QSignalSpy spy(&widget, &CAdaptiveColumnWidthWidget::SignalColumnWidthStateChanged);
        const auto names = [&] {
            return mini->parentWidget()->objectName() + ' ' + maxi->parentWidget()->objectName();
        };
        const QString minimum = "ptr_min_width_checked_widget_ ptr_max_width_widget_";
        const QString maximum = "ptr_min_width_widget_ ptr_max_width_checked_widget_";
        QCOMPARE(names(), minimum);
        QTest::keyClick(maxi, Qt::Key_Space);
        QTest::keyClick(maxi, Qt::Key_Space); // a checked one stays checked
        QCOMPARE(names(), maximum);
        QTest::keyClick(mini, Qt::Key_Space);
        QCOMPARE(names(), minimum);
        widget.UpdateRaddioButtonState(5); // from code: no signal
        QCOMPARE(names(), maximum);
        QCOMPARE(spy.size(), 2);

        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(2, 2));
        QVERIFY(widget.isVisible());
        QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(5, 290));
        QVERIFY(!widget.isVisible());
    }
};

QTEST_MAIN(TestCustomizeColumn)
#include "tst_customizecolumn.moc"
