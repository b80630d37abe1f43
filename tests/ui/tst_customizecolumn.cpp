// SPDX-License-Identifier: MIT
#include "LayoutStore.h"
#include "support/TestGuard.h"

#include <Faceplate/GUIMessageTipManager.h>
#include <Vantor/CAdaptiveColumnWidthController>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CCustomizeColumnWidget>
#include <Vantor/CItemDragMovableListView>
#include <Vantor/CListSightCheckModel>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QPointer>
#include <QtCore/QRandomGenerator>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>

#include <memory>
#include <thread>

using Vantor::CColumnInfo;
using Vantor::CCustomizeColumnButton;
using Vantor::CCustomizeColumnWidget;
using Columns = QVector<CColumnInfo>;

namespace {

constexpr char kStoredKey[] = "anna/CListModuleFunctionCustomizeList";

// Columns A, B and so on with the ids 10, 11 and so on, all shown, numbered from 1.
Columns MakeColumns(int count)
{
    Columns columns;
    for (int i = 0; i < count; ++i) {
        CColumnInfo column;
        column.SetVal_column_No(i + 1);
        column.SetVal_column_id(10 + i);
        column.SetVal_column_name(QString(QChar('A' + i)));
        columns.append(column);
    }
    return columns;
}

// What a host reads from the stored text: the shown columns in order.
QString Stored(const QByteArray &text, const Columns &defaults)
{
    const QJsonArray items =
        QJsonDocument::fromJson(text).object().value("CustomizeListItems").toArray();
    QMap<int, QString> shown;
    for (int i = 0; i < items.size(); ++i) {
        const QJsonObject item = items.at(i).toObject();
        if (item.value("ColumnChecked").toInt() == 2)
            shown.insert(item.value("ColumnLocation").toInt(), defaults.at(i).GetVal_column_name());
    }
    return shown.values().join(QString());
}

} // namespace

/// A table with a column button, as a host has it.
class CTable : public QWidget
{
public:
    explicit CTable(const Columns &columns) : button(new CCustomizeColumnButton(this))
    {
        resize(800, 600);
        button->setGeometry(700, 10, 30, 30);
        connect(button.data(), &CCustomizeColumnButton::SignalGetCurrentCustomizelistShow, this,
                [this] { OnSettled(); });
        button->InitCustomizeListByModuleNameANdFunction("Module", "Function", columns, nullptr);
    }

    void Open()
    {
        show();
        QTest::mouseClick(button, Qt::LeftButton);
    }

    // What the host shows, what the drop-down would give, and what its rows say.
    [[nodiscard]] QString Given() const
    {
        QStringList names;
        button->GetCustomizeListCurrentContent(names);
        return names.join(QString());
    }

    [[nodiscard]] QString Rows(bool is_checked_only = true) const
    {
        QString names;
        for (int row = 0; row < Model()->rowCount(); ++row) {
            const QModelIndex index = Model()->index(row, 0);
            if (!is_checked_only || index.data(Qt::CheckStateRole).toInt() == Qt::Checked)
                names += index.data().toString();
        }
        return names;
    }

    [[nodiscard]] CCustomizeColumnWidget *DropDown() const
    {
        return button->findChild<CCustomizeColumnWidget *>();
    }
    [[nodiscard]] Vantor::CItemDragMovableListView *List() const
    {
        return button->findChild<Vantor::CItemDragMovableListView *>();
    }
    [[nodiscard]] QAbstractItemModel *Model() const { return List()->model(); }
    [[nodiscard]] QCheckBox *AllBox() const { return button->findChild<QCheckBox *>(); }
    [[nodiscard]] QPushButton *Reset() const
    {
        return button->findChild<QPushButton *>("ptr_reset_button_");
    }

    [[nodiscard]] QPoint RowCentre(int row) const
    {
        return List()->visualRect(Model()->index(row, 0)).center();
    }
    void ClickRow(int row) const
    {
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, RowCentre(row));
    }
    void DragTo(int from, int to) const
    {
        QTest::mousePress(List()->viewport(), Qt::LeftButton, {}, RowCentre(from));
        MoveMouse(RowCentre(to));
    }
    void Drop() const { QTest::mouseRelease(List()->viewport(), Qt::LeftButton, {}, mouse_); }

    QPointer<CCustomizeColumnButton> button;
    QString shown; ///< as of the last signal
    int settled = 0;
    bool is_deleting_button = false;

private:
    void OnSettled()
    {
        shown = Given();
        ++settled;
        if (is_deleting_button)
            delete button;
    }

    // With the button held; QTest::mouseMove() holds none.
    void MoveMouse(const QPoint &place) const
    {
        mouse_ = place;
        QMouseEvent move(QEvent::MouseMove, place, List()->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(List()->viewport(), &move);
    }

    mutable QPoint mouse_;
};

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

    void anyStepsKeepTableDropDownAndStoreInAgreement_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::newRow("seed 1") << 1U;
        QTest::newRow("seed 20261121") << 20261121U;
    }

    // Checks, moves, resets, restarts and changes of the user; expected_ is what each user last
    // left.
    void anyStepsKeepTableDropDownAndStoreInAgreement()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        Columns columns = MakeColumns(8);
        columns[2].SetVal_b_manual_check(false);
        columns[5].SetVal_b_manual_sort(false);
        QHash<QString, QString> left_by;
        auto table = std::make_unique<CTable>(columns);
        table->Open();
        QTRY_COMPARE(table->settled, 1);
        for (int step = 0; step < 1000; ++step) {
            const int writes = store_->writes;
            const int settled = table->settled;
            const QString before = table->Rows(false);
            bool is_load = false;
            switch (random.bounded(10)) {
            case 0:
                QTest::mouseClick(table->Reset(), Qt::LeftButton);
                break;
            case 1:
                QTest::keyClick(table->AllBox(), Qt::Key_Space);
                break;
            case 2:
                is_load = true;
                table = std::make_unique<CTable>(columns);
                table->Open();
                break;
            case 3:
                is_load = true;
                store_->user = random.bounded(2) ? "anna" : "bert";
                table->button->UpdateAfterSwitchUser();
                break;
            case 4:
            case 5:
                table->DragTo(random.bounded(8), random.bounded(8));
                table->Drop();
                break;
            case 6:
                table->List()->setCurrentIndex(table->Model()->index(random.bounded(8), 0));
                QTest::keyClick(table->List(), random.bounded(2) ? Qt::Key_Up : Qt::Key_Down,
                                Qt::AltModifier);
                break;
            default:
                table->ClickRow(random.bounded(8));
            }
            if (is_load) {
                QTRY_VERIFY(table->settled > 0 && table->List()->isEnabled());
                QCOMPARE(store_->writes, writes);
                QCOMPARE(table->shown, left_by.value(store_->user, QStringLiteral("ABCDEFGH")));
            } else if (store_->writes > writes) {
                QTRY_COMPARE(table->settled, settled + 1);
            } else { // a locked row, or a move that is refused
                QCOMPARE(table->Rows(false), before);
            }
            const QByteArray text = store_->texts.value(store_->user + QString(kStoredKey).mid(4));
            QCOMPARE(table->Given(), table->shown);
            QCOMPARE(table->Rows(), table->shown);
            if (!text.isEmpty())
                QCOMPARE(Stored(text, columns), table->shown);
            QCOMPARE(table->Rows(false).indexOf('F'), 5); // it keeps its place
            QVERIFY(table->shown.contains('C'));
            left_by[store_->user] = table->shown;
        }
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
        QCOMPARE(Stored(store_->texts.value(kStoredKey), MakeColumns(4)), table.shown);
    }

    void aChoiceThatCannotBeReadIsAskedForAgainWhenOpened()
    {
        store_->texts[kStoredKey] = R"({"CustomizeListItems":[{"ColumnLocation":1,"ColumnChecked":0,
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
