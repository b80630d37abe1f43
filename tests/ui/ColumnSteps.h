// SPDX-License-Identifier: MIT
#pragma once

#include "ColumnTable.h"

#include <QtCore/QHash>
#include <QtCore/QRandomGenerator>

#include <functional>
#include <memory>

/// Where the layouts are kept.
struct ColumnKeeper
{
    std::function<void(const QString &user)> log_in;
    std::function<QByteArray(const QString &user)> text; ///< the stored text of the test's key
    std::function<int()> writes;                         ///< how many there were so far
};

/// \brief 400 checks, moves, resets, restarts and changes of the user; after each, the table, the
/// drop-down and the stored text agree, and a user gets back the columns that he left.
inline void TakeColumnSteps(quint32 seed, const ColumnKeeper &keeper)
{
    constexpr int kSteps = 400;
    constexpr int kColumns = 8;
    QRandomGenerator random(seed);
    Columns columns = MakeColumns(kColumns);
    columns[2].SetVal_b_manual_check(false);
    columns[5].SetVal_b_manual_sort(false);
    QString user = "operator";
    QHash<QString, QString> left_by;
    QHash<QString, QByteArray> stored_by;
    keeper.log_in(user);
    auto table = std::make_unique<CTable>(columns);
    table->Open();
    QVERIFY(table->WaitSettled(1));
    for (int step = 0; step < kSteps; ++step) {
        const int writes = keeper.writes();
        const int settled = table->settled;
        const QString before = table->Rows(false);
        bool is_load = false;
        const int row = random.bounded(kColumns);
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
            QVERIFY(table->WaitSettled(1));
            break;
        case 3:
            is_load = true;
            user = random.bounded(2) ? "operator" : "visitor";
            keeper.log_in(user);
            table->button->UpdateAfterSwitchUser();
            QVERIFY(table->WaitSettled(settled + 1));
            break;
        case 4:
        case 5:
            table->DragTo(row, random.bounded(kColumns));
            table->Drop();
            break;
        case 6:
            table->List()->setCurrentIndex(table->Model()->index(row, 0));
            QTest::keyClick(table->List(), row % 2 ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier);
            break;
        default:
            table->ClickRow(row);
        }
        if (is_load) { // which writes nothing
            QCOMPARE(keeper.writes(), writes);
            QCOMPARE(keeper.text(user), stored_by.value(user));
            QCOMPARE(table->shown, left_by.value(user, QStringLiteral("ABCDEFGH")));
        } else if (keeper.writes() > writes) {
            QCOMPARE(keeper.writes(), writes + 1);
            QVERIFY(table->WaitSettled(settled + 1));
        } else { // a fixed column
            QCOMPARE(table->Rows(false), before);
        }
        QCOMPARE(table->Given(), table->shown);
        QCOMPARE(table->Rows(), table->shown);
        stored_by[user] = keeper.text(user);
        if (!stored_by.value(user).isEmpty())
            QCOMPARE(Stored(stored_by.value(user), columns), table->shown);
        QCOMPARE(table->Rows(false).indexOf('F'), 5); // it keeps its place
        QVERIFY(table->shown.contains('C'));
        left_by[user] = table->shown;
    }
    QVERIFY(left_by.size() == 2);
}
