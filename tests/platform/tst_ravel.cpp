// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Ravel/ChaseDialog.h>
#include <Ravel/LocationComboBox.h>
#include <Ravel/MultiPairData.h>
#include <Ravel/TextCodec.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Ravel/WaitWatcher.h>

#include <QtCore/QTextCodec>

using namespace Ravel;

class TestRavel : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void pairsAreKeptByTypeAndValueOfTheirKey()
    {
        Ravel::CMultiPairData data;
        data.InsertPairData(1, "number");
        data.InsertPairData("1", "text");
        data.InsertPairData(1, "number again");
        Ravel::CMultiPairData copy = data;
        copy.InsertPairData("1", "changed");

        QCOMPARE(data.GetPairData(1).toString(), QString("number again"));
        QCOMPARE(data.GetPairData("1").toString(), QString("text"));
        QCOMPARE(copy.GetPairData("1").toString(), QString("changed"));
        QVERIFY(!data.GetPairData(1.0).isValid());
    }

    void textKeepsItsZeroBytesBothWays()
    {
        const QString text = QStringLiteral("a") + QChar(0) + QStringLiteral("é");

        QCOMPARE(Ravel::ConvertToUnicode(Ravel::ConvertFromUnicode(text)), text);
        QTextCodec *const latin1 = QTextCodec::codecForName("ISO-8859-1");
        QCOMPARE(Ravel::ConvertFromUnicode(text, latin1), QByteArray("a\0\xE9", 3));
        QCOMPARE(Ravel::ConvertToUnicode(QByteArray("a\0\xE9", 3), latin1), text);
    }

    void rowsComeGoAndChangeUnderTheModelTester()
    {
        CTreeViewModel model;
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.SetHorizontalHeaderLabels({"A", "B"});
        auto *const parent = new CTreeViewItem({"2"});
        parent->AppendChild(std::make_unique<CTreeViewItem>(QStringList{"2.1"}));
        parent->AppendChild(std::make_unique<CTreeViewItem>(QStringList{"2.2", "b"}));
        QSignalSpy changed(&model, &CTreeViewModel::dataChanged);

        QVERIFY(model.InsertTopLevelItems(0, {new CTreeViewItem({"1"}), parent}));
        QVERIFY(model.InsertTopLevelItems(1, {new CTreeViewItem({"1a"})}));

        const QModelIndex above = model.index(2, 0);
        QCOMPARE(model.rowCount(above), 2);
        QCOMPARE(model.index(1, 1, above).data().toString(), QString("b"));
        QCOMPARE(model.parent(model.index(1, 1, above)), above);
        QVERIFY(model.setData(model.index(1, 1), "new"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(2).value<QVector<int>>(),
                 QVector<int>({Qt::DisplayRole, Qt::EditRole}));
        QVERIFY(model.removeRows(0, 1, above) && model.removeRows(0, 1));
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.index(0, 0, model.index(1, 0)).data().toString(), QString("2.2"));
        QCOMPARE(parent->Row(), 1);
        QVERIFY(!parent->Parent());
    }

    void rowsThatHaveNoPlaceAreRefusedWhole()
    {
        CTreeViewModel model;
        model.SetHorizontalHeaderLabels({"A"});
        auto *const held = new CTreeViewItem({"held"});
        QVERIFY(model.InsertTopLevelItems(0, {held}));
        CTreeViewItem free({"free"});

        QVERIFY(!model.InsertTopLevelItems(0, {&free, nullptr}));
        QVERIFY(!model.InsertTopLevelItems(0, {&free, held}));
        QVERIFY(!model.InsertTopLevelItems(0, {&free, &free}));
        QVERIFY(!model.InsertTopLevelItems(2, {&free}) && !model.InsertTopLevelItems(-1, {&free}));
        QVERIFY(!model.removeRows(0, 2));

        QCOMPARE(model.rowCount(), 1);
    }

    void waitingDialogsEndByAnEarlyStopAndByEscape()
    {
        Ravel::CChaseDialog dialog(nullptr, QString(), "Working", false);
        QSignalSpy waiting(&Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance(),
                           &Ravel::CWaitWatcher::SignalWaitingChanged);

        dialog.OnStopChaseByAccept();
        const int result = dialog.exec();

        QCOMPARE(result, int(QDialog::Accepted));
        QCOMPARE(waiting.count(), 2);
        QCOMPARE(dialog.findChild<QLabel *>("ChaseText")->text(), QString("Working"));

        Ravel::CChaseDialog cancelled(nullptr, QString(), QString(), true);
        QTimer::singleShot(0, &cancelled, [&] { QTest::keyClick(&cancelled, Qt::Key_Escape); });
        QCOMPARE(cancelled.exec(), int(QDialog::Rejected));
    }

    void ticksLeaveThePopupOpenAndNoRowCurrent()
    {
        QStandardItemModel model(0, 1);
        for (const char *const text : {"a", "b", "c"}) {
            auto *const item = new QStandardItem(text);
            item->setCheckable(true);
            model.appendRow(item);
        }
        Ravel::CLocationComboBox combo;
        combo.setModel(&model);
        combo.setCurrentIndex(-1);
        combo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&combo));
        QAbstractItemView &list = *combo.view();
        const auto middle = [&](int row) { return list.visualRect(model.index(row, 0)).center(); };

        QTest::keyClick(&combo, Qt::Key_Down);
        QTRY_VERIFY(list.isVisible());
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middle(0)); // of the opening press
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middle(1));
        list.setCurrentIndex(model.index(2, 0));
        QTest::keyClick(&list, Qt::Key_Space);
        QTest::keyClick(&list, Qt::Key_Return);
        QTest::keyClick(&list, Qt::Key_Space);

        QVERIFY(list.isVisible());
        QCOMPARE(model.item(0)->checkState(), Qt::Unchecked);
        QCOMPARE(model.item(1)->checkState(), Qt::Checked);
        QCOMPARE(model.item(2)->checkState(), Qt::Checked);
        QCOMPARE(combo.currentIndex(), -1);
        QTest::keyClick(&list, Qt::Key_F4);
        QTRY_VERIFY(!list.isVisible());
        QTest::keyClick(&combo, Qt::Key_PageDown);
        QCOMPARE(combo.currentIndex(), -1);
    }
};

QTEST_MAIN(TestRavel)
#include "tst_ravel.moc"
