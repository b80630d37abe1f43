// SPDX-License-Identifier: MIT
// The arithmetic of column lists and drop-downs, and how lists are kept in agreement, without
// widgets.
#include "support/Test.h"
#include "ui/CustomizeColumnButton/ColumnLayout.h"
#include "ui/CustomizeColumnButton/ColumnSync.h"
#include "ui/CustomizeColumnButton/DropDownPlace.h"

#include <deque>

using namespace Vantor;
using Columns = QVector<CColumnInfo>;

namespace {

// "place:check:free to check:free to move", one a column; names and ids follow the list.
Columns Parse(const QString &text)
{
    Columns columns;
    const auto words = text.split(' ', Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const QStringList parts = word.split(':');
        CColumnInfo column;
        column.SetVal_column_id(100 + columns.size());
        column.SetVal_column_name(QString(QChar('A' + columns.size())));
        column.SetVal_column_No(parts.at(0).toInt());
        column.SetVal_column_checked(Qt::CheckState(parts.at(1).toInt()));
        column.SetVal_b_manual_check(parts.at(2) == "y");
        column.SetVal_b_manual_sort(parts.at(3) == "y");
        columns.append(column);
    }
    return columns;
}

QString Text(const Columns &columns)
{
    QStringList words;
    for (const CColumnInfo &column : columns) {
        words.append(QStringLiteral("%1:%2:%3:%4")
                         .arg(column.GetVal_column_No())
                         .arg(column.GetVal_column_checked())
                         .arg(column.GetVal_b_manual_check() ? "y" : "n",
                              column.GetVal_b_manual_sort() ? "y" : "n"));
    }
    return words.join(' ');
}

// A button, a user and a server that fails now and then, around a CColumnSync.
class CWalk
{
public:
    explicit CWalk(quint32 seed) : random_(seed) { Take(sync_.OnStart(defaults_)); }

    void Step()
    {
        switch (random_.bounded(9)) {
        case 0:
            is_dragging_ = is_dragging_ || sync_.CanBeChanged();
            break;
        case 1:
            EndDrag();
            break;
        case 2:
            Take(sync_.OnOpened());
            break;
        case 3:
            if (random_.bounded(8) == 0)
                SwitchUser();
            break;
        case 4:
        case 5:
            Change();
            break;
        default:
            Answer(random_.bounded(4) == 0);
        }
        if (asked_.empty() && !is_dragging_ && sync_.CurrentPhase() == CColumnSync::Phase::Ready)
            Compare();
    }

    void Finish()
    {
        EndDrag();
        for (int round = 0; round < 2; ++round) {
            while (!asked_.empty())
                Answer(false);
            Take(sync_.OnOpened());
        }
        QCOMPARE(sync_.CurrentPhase(), CColumnSync::Phase::Ready);
        Compare();
    }

private:
    void Compare() const
    {
        const Columns stored = Vantor::WithColumnLayout(defaults_, text_);
        QVERIFY(Vantor::AreSameColumns(stored, sync_.Current()));
        QVERIFY(Vantor::AreSameColumns(stored, sync_.Confirmed()));
        QVERIFY(Vantor::AreSameColumns(stored, laid_out_));
    }

    void Take(const CColumnSync::Actions &actions)
    {
        for (const ColumnAction &action : actions) {
            if (action.kind == ColumnAction::Kind::Settle)
                laid_out_ = sync_.Current();
            if (action.kind == ColumnAction::Kind::Read || action.kind == ColumnAction::Kind::Write)
                asked_.push_back(action);
        }
    }

    void Change()
    {
        Columns columns = sync_.Current();
        columns[random_.bounded(columns.size())].SetVal_column_checked(
            random_.bounded(2) ? Qt::Checked : Qt::Unchecked);
        columns[random_.bounded(columns.size())].SetVal_column_No(random_.bounded(100));
        const bool can_be_changed = sync_.CanBeChanged();
        const size_t before = asked_.size();
        Take(sync_.OnChanged(columns));
        QCOMPARE(asked_.size() - before, size_t(can_be_changed)); // else the store would be lost
    }

    void Answer(bool is_failing)
    {
        if (asked_.empty())
            return;
        const ColumnAction asked = asked_.front();
        asked_.pop_front();
        const bool is_write = asked.kind == ColumnAction::Kind::Write;
        if (is_write && (!is_failing || random_.bounded(2))) // only the reply may have been lost
            text_ = Vantor::ColumnLayoutText(asked.columns);
        ColumnAnswer answer;
        answer.kind = is_failing ? ColumnAnswer::Kind::Failed
                      : is_write ? ColumnAnswer::Kind::Written
                                 : ColumnAnswer::Kind::Read;
        answer.is_write = is_write;
        answer.layout = text_;
        const auto actions = sync_.OnAnswer(answer, is_dragging_);
        QVERIFY(!is_dragging_ || actions.empty()); // the rows below the mouse stay
        Take(actions);
    }

    void EndDrag()
    {
        is_dragging_ = false;
        Take(sync_.OnDragEnded());
    }

    void SwitchUser()
    {
        asked_.clear(); // answers for the last user are dropped
        is_dragging_ = false;
        text_ = random_.bounded(2) ? Vantor::ColumnLayoutText(Parse("2:0:y:y 1:2:y:y 3:2:y:y"))
                                   : QByteArray();
        Take(sync_.OnStart(defaults_));
    }

    const Columns defaults_ = Parse("0:2:y:y 1:2:y:y 2:2:n:y");
    QRandomGenerator random_;
    CColumnSync sync_;
    std::deque<ColumnAction> asked_; // of the server, not answered yet
    QByteArray text_;                // what the server keeps
    Columns laid_out_;
    bool is_dragging_ = false;
};

// movable (a letter a column), from, to, is_possible
const Rows<QString, int, int, bool> kMoveRows = {
    {"down among movable ones", "yyyy", 0, 3, true},
    {"up among movable ones", "yyyy", 3, 0, true},
    {"one that keeps its place", "nyyy", 0, 2, false},
    {"onto one that keeps its place", "yyyn", 1, 3, false},
    {"past one that keeps its place", "yyny", 0, 3, false},
    {"next to one that keeps its place", "nyyy", 3, 1, true},
    {"out of the list", "yyyy", 0, 4, false},
    {"from nowhere", "yyyy", -1, 0, false},
};

const QByteArray kMoved = R"({"ColumnID":7,"ColumnLocation":5,"ColumnChecked":0,)"
                          R"("ColumnManualCheck":"true","ColumnManualSort":"true"})";

const QSize kSize(200, 300);

// items, expected
const Rows<QByteArray, QString> kLayoutRows = {
    {"one entry changes the first column, whatever its id", kMoved, "5:0:y:y 1:2:y:y"},
    {"more entries than columns", kMoved + "," + kMoved + "," + kMoved, "5:0:y:y 5:0:y:y"},
    {"a flag that is a JSON boolean is false",
     R"({"ColumnLocation":5,"ColumnChecked":2,"ColumnManualCheck":true,)"
     R"("ColumnManualSort":"true"})",
     "5:2:n:y 1:2:y:y"},
    {"1 is partially checked", QByteArray(kMoved).replace(":0", ":1"), "5:1:y:y 1:2:y:y"},
    {"other numbers are checked", QByteArray(kMoved).replace(":0", ":-3"), "5:2:y:y 1:2:y:y"},
    {"an entry that is no object", "7," + kMoved, "0:2:y:y 5:0:y:y"},
    {"no entry", {}, "0:2:y:y 1:2:y:y"},
    {"a text that is cut", kMoved.left(30), "0:2:y:y 1:2:y:y"},
    {"too deep", QByteArray(100000, '['), "0:2:y:y 1:2:y:y"},
};

// button, size, is_mirrored, expected
const Rows<QRect, QSize, bool, QRect> kPlaceRows = {
    {"below", {300, 100, 30, 30}, kSize, false, {300, 130, 200, 300}},
    {"below, right to left", {300, 100, 30, 30}, kSize, true, {130, 130, 200, 300}},
    {"at the right edge", {870, 100, 30, 30}, kSize, false, {700, 130, 200, 300}},
    {"at the left edge, mirrored", {100, 100, 30, 30}, kSize, true, {100, 130, 200, 300}},
    {"at the lower edge: above", {300, 660, 30, 30}, kSize, false, {300, 360, 200, 300}},
    {"no room: shifted", {300, 400, 30, 30}, {200, 590}, false, {300, 110, 200, 590}},
    {"too large: cut", {300, 100, 30, 30}, {2000, 2000}, false, {100, 100, 800, 600}},
    {"a button outside", {5000, -90, 30, 30}, kSize, false, {700, 100, 200, 300}},
};

} // namespace

class TestColumnLayout : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void theStoredFormIsWhatOtherClientsRead()
    {
        const QByteArray text = Vantor::ColumnLayoutText(Parse("1:2:y:n 0:0:n:y"));

        QCOMPARE(Vantor::ColumnLayoutKey("Alarm", "History"),
                 QString("CListAlarmHistoryCustomizeList"));
        const auto whole = QJsonDocument::fromJson(R"({"CustomizeListItems":[
            {"ColumnID":100,"ColumnLocation":1,"ColumnChecked":2,"ColumnManualCheck":"true",
             "ColumnManualSort":"false"},
            {"ColumnID":101,"ColumnLocation":0,"ColumnChecked":0,"ColumnManualCheck":"false",
             "ColumnManualSort":"true"}]})");
        QCOMPARE(QJsonDocument::fromJson(text), whole);
        QVERIFY(text.startsWith("{\n    \"CustomizeListItems\"")); // indented
    }

    void aLayoutIsPutBackEntryByEntry_data() { AddRows(kLayoutRows); }

    void aLayoutIsPutBackEntryByEntry()
    {
        const auto &[name, items, expected] = FetchRow(kLayoutRows);
        const QString layout = "{\"CustomizeListItems\":[" + QString::fromUtf8(items) + "]}";
        QCOMPARE(Text(Vantor::WithColumnLayout(Parse("0:2:y:y 1:2:y:y"), layout)), expected);
    }

    void aMoveLeavesColumnsInPlaceThatKeepTheirs_data() { AddRows(kMoveRows); }

    void aMoveLeavesColumnsInPlaceThatKeepTheirs()
    {
        const auto &[name, movable, from, to, is_possible] = FetchRow(kMoveRows);
        Columns columns = Parse("3:2:y:y 2:2:y:y 1:2:y:y 0:2:y:y"); // shown in reverse
        const QVector<int> order = Vantor::ColumnOrder(columns);
        for (int place = 0; place < 4; ++place)
            columns[order.at(place)].SetVal_b_manual_sort(movable.at(place) == 'y');

        QCOMPARE(Vantor::CanMoveColumn(columns, order, from, to), is_possible);
    }

    void aDropDownStaysInsideOnEveryEdge_data() { AddRows(kPlaceRows); }

    void aDropDownStaysInsideOnEveryEdge()
    {
        const auto &[name, button, size, is_mirrored, expected] = FetchRow(kPlaceRows);
        const auto direction = is_mirrored ? Qt::RightToLeft : Qt::LeftToRight;
        const QRect room(100, 100, 800, 600);
        QCOMPARE(Vantor::DropDownPlace(button, size, room, direction), expected);
    }

    void anyEventsKeepTheUsersColumnsAndTheServersInAgreement()
    {
        for (quint32 seed = 0; seed < 200 && !QTest::currentTestFailed(); ++seed) {
            CWalk walk(seed);
            for (int step = 0; step < 500 && !QTest::currentTestFailed(); ++step)
                walk.Step();
            walk.Finish();
        }
    }
};

QTEST_GUILESS_MAIN(TestColumnLayout)
#include "tst_columnlayout.moc"
