// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Ravel/PageTag.h>
#include <Ravel/TextRanks.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>
#include <ui/FilterTreeViewEx/PageMath.h>

using Ravel::CTreeViewItem;
using namespace Vantor;

namespace {

QList<CTreeViewItem *> Items(int count)
{
    QList<CTreeViewItem *> items;
    for (int i = 0; i < count; ++i)
        items.append(new CTreeViewItem({QString::number(i), i % 2 ? "abc" : "x"}));
    return items;
}

// texts, keyword, is_shown
const Rows<QStringList, QString, bool> kHitRows = {
    {"inside", {"door", "gate"}, "gat", true},
    {"across two cells", {"door", "gate"}, "orga", false},
    {"across, then inside", {"ab", "cabc"}, "abc", true},
    {"short, across two", {"ab", "cd"}, "bc", false},
    {"wide across two", {"\u0628a", "b"}, "ab", false},
    {"wide keyword, narrow row", {"a", "b"}, "\u0628", false},
    {"beyond the columns", {"a", "b", "hidden"}, "hidden", false},
    {"behind a text of 70,000", {QString(70'000, 'x'), "gate"}, "gate", true},
    {"a row without texts", {}, "a", false},
};

const Rows<int> kSignalRows = {
    {"pages reset", 0}, {"buttons", 1},      {"size", 2},
    {"sort", 3},        {"data changed", 4}, {"rows inserted", 5},
};

} // namespace

class TestFilterTree : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        model_ = std::make_unique<Ravel::CTreeViewModel>();
        model_->SetHorizontalHeaderLabels({"Number", "Text"});
        view_ = std::make_unique<CFilterTreeViewEx>();
        view_->SetModel(model_.get());
        view_->SetTreeViewItemPerPage(100);
    }

    void TearDown() override
    {
        view_.reset();
        model_.reset();
    }

    std::unique_ptr<Ravel::CTreeViewModel> model_;
    std::unique_ptr<CFilterTreeViewEx> view_;

    void Connect(int signal, CFilterTreeViewEx &view, QObject *context,
                 const std::function<void()> &slot)
    {
        using View = CFilterTreeViewEx;
        const std::vector<std::function<void()>> all = {
            [&] { connect(&view, &View::SignalPageReset, context, slot); },
            [&] { connect(&view, &View::SignalUpdateMaxMinPage, context, slot); },
            [&] { connect(&view, &View::SignalSizeChanged, context, slot); },
            [&] { connect(&view, &View::SignalDataSort, context, slot); },
            [&] { connect(model_.get(), &QAbstractItemModel::dataChanged, context, slot); },
            [&] { connect(model_.get(), &QAbstractItemModel::rowsInserted, context, slot); }};
        all.at(size_t(signal))();
    }

private Q_SLOTS:
    void pagesBeyondAThousandHaveFourDigits()
    {
        QSignalSpy buttons(view_.get(), &CFilterTreeViewEx::SignalUpdateMaxMinPage);
        QSignalSpy reset(view_.get(), &CFilterTreeViewEx::SignalPageReset);
        QList<CTreeViewItem *> items = Items(100'001);
        view_->AddTopLevelItems(items);
        view_->SetFilterPage(1001);

        QCOMPARE(reset.last(), QVariantList({100'001, 1001}));
        QCOMPARE(buttons.last(), QVariantList({true, false}));
        QCOMPARE(view_->model()->rowCount(), 1);
        QCOMPARE(view_->model()->index(0, 0).data(Ravel::kPageTagRole).toString(), "Page1001");
    }

    void wholeRowsFitAndNeverTouchTheEdge()
    {
        const int sizes[][4] = {{480, 30, 30, 14}, // they touch the edge
                                {490, 30, 30, 15},
                                {60, 30, 30, 1}, // one row, touching
                                {0, 30, 30, 1},
                                {40, 30, 0, 9}}; // rows without a height
        for (const auto &[height, header, row, rows] : sizes)
            QCOMPARE(Vantor::RowsThatFit(height, header, row), rows);
    }

    void aHitLiesInOneCell_data() { AddRows(kHitRows); }
    void aHitLiesInOneCell()
    {
        const auto [name, texts, keyword, is_shown] = FetchRow(kHitRows);
        QList<CTreeViewItem *> items = {new CTreeViewItem(texts)};
        view_->AddTopLevelItems(items);
        for (int column = 0; column < model_->columnCount(); ++column)
            QCOMPARE(model_->index(0, column).data().toString(), texts.value(column));

        view_->SetFilterKeyWord(keyword);

        QCOMPARE(view_->TopLevelItemCount() == 1, is_shown);
        // Any other model is asked cell by cell and gives the same.
        QStandardItemModel plain(1, 2);
        for (int column = 0; column < 2; ++column)
            plain.setData(plain.index(0, column), texts.value(column));
        CFilterProxyModelEx proxy;
        proxy.setSourceModel(&plain);
        proxy.SetKeyWordFilter(keyword);
        QCOMPARE(proxy.rowCount() == 1, is_shown);
        proxy.setDynamicSortFilter(true);
        plain.setData(plain.index(0, 1), keyword);
        QCOMPARE(proxy.rowCount(), 1);
    }

    void textsSortAsQStringDoesWithoutCase()
    {
        QRandomGenerator random(7);
        const QStringList pieces = {"a",           "A",          "b",          "ß",
                                    "\u00B5",      "\u03BC",     "Ä",          "ä",
                                    "\u0628",      "\U00010400", "\U00010428", "\U0001F600",
                                    QChar(0xD801), "\uFFFD",     "12345678"};
        for (const bool is_wide : {false, true}) {
            QList<CTreeViewItem *> items;
            for (int i = 0; i < 400; ++i) {
                QString text;
                for (int k = static_cast<int>(random.bounded(6)); k > 0; --k)
                    text +=
                        pieces.at(static_cast<int>(random.bounded(is_wide ? pieces.size() : 5)));
                items.append(new CTreeViewItem({text}));
            }
            Ravel::CTreeViewModel model;
            model.SetHorizontalHeaderLabels({"Text"});
            QVERIFY(model.InsertTopLevelItems(0, items));
            const auto ranks = model.Ranks(0);
            for (int left = 0; left < items.size(); ++left) {
                for (int right = 0; right < items.size(); right += 7) {
                    const int order = items.at(left)->Data(0).toString().compare(
                        items.at(right)->Data(0).toString(), Qt::CaseInsensitive);
                    QCOMPARE(ranks->Rank(left) < ranks->Rank(right), order < 0);
                }
            }
        }
    }

    void ranksAreMadeInTheBackgroundWhileTextsChange()
    {
        QList<CTreeViewItem *> items = Items(5000);
        view_->AddTopLevelItems(items);
        model_->PrepareRanks();
        for (int row = 0; row < 500; ++row) {
            QVERIFY(model_->setData(model_->index(row, 1), QString::number(row % 7)));
            QVERIFY(model_->removeRows(row, 1));
        }
        for (int us = 0; us < 6000; us += 100) {
            Ravel::CTreeViewModel gone;
            gone.SetHorizontalHeaderLabels({"Number", "Text"});
            QVERIFY(gone.InsertTopLevelItems(0, Items(200)));
            gone.PrepareRanks();
            QThread::usleep(us);
        }

        QTRY_VERIFY(model_->HasRanks(0));
        QVERIFY(model_->HasRanks(1));
        for (int row = 1; row < model_->rowCount(); ++row) {
            const auto text = [&](int of) { return model_->index(of, 1).data().toString(); };
            QCOMPARE(model_->Ranks(1)->Rank(row) == model_->Ranks(1)->Rank(row - 1),
                     text(row) == text(row - 1));
        }
    }

    void slotsOfEverySignalMayChangeRows_data() { AddRows(kSignalRows); }
    void slotsOfEverySignalMayChangeRows()
    {
        const int signal = std::get<1>(FetchRow(kSignalRows));
        const QAbstractItemModelTester tester(
            view_->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        int calls = 0;
        const auto change = [this, &calls] {
            if (++calls > 20)
                return;
            QList<CTreeViewItem *> items = Items(3);
            view_->AddTopLevelItems(items);
            view_->SetFilterKeyWord(calls % 2 ? "abc" : "");
            view_->SetTreeViewItemPerPage(2);
            view_->SetFilterPage(2);
            model_->removeRows(0, 1);
            if (calls == 5)
                view_->ClearAllItems();
        };
        Connect(signal, *view_, this, change);
        view_->show();

        QList<CTreeViewItem *> items = Items(50);
        view_->AddTopLevelItems(items);
        view_->SetTreeViewItemPerPage(7);
        view_->SetFilterPage(3);
        view_->resize(300, 400);
        view_->header()->setSortIndicator(1, Qt::DescendingOrder);
        QTRY_VERIFY(calls > 0);
        QCoreApplication::sendPostedEvents();
        disconnect(view_.get(), nullptr, this, nullptr);
        disconnect(model_.get(), nullptr, this, nullptr);

        view_->SetFilterKeyWord(QString());
        QCOMPARE(view_->TopLevelItemCount(), model_->rowCount());
        view_->SetTreeViewItemPerPage(5);
        QCOMPARE(view_->model()->rowCount(), std::min(5, model_->rowCount()));
    }

    void aViewMayBeDeletedInASlotOfItsSignals()
    {
        view_->SetModel(nullptr); // a model belongs to one view
        for (const int signal : {0, 1, 3, 4}) {
            const QPointer<CFilterTreeViewEx> view = new CFilterTreeViewEx;
            view->SetModel(model_.get());
            Connect(signal, *view, view, [view] { delete view; });
            const std::vector<std::function<void()>> steps = {
                [&] { view->SetTreeViewItemPerPage(3); }, [&] { view->SetFilterPage(2); },
                [&] { view->header()->setSortIndicator(0, Qt::DescendingOrder); },
                [&] {
                    QList<CTreeViewItem *> items = Items(9);
                    view->AddTopLevelItems(items);
                }};
            for (const auto &step : steps) {
                if (view)
                    step();
            }
            QVERIFY(!view);
        }
    }

    void rowsWithRowsBelowAreShownAndPaged()
    {
        const QAbstractItemModelTester tester(
            view_->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QList<CTreeViewItem *> items = Items(250);
        view_->AddTopLevelItems(items);
        auto *const parent = new CTreeViewItem({"parent", "abc"});
        parent->AppendChild(std::make_unique<CTreeViewItem>(QStringList{"child", "abc"}));
        items = {parent};
        view_->AddTopLevelItems(items);
        QCOMPARE(view_->TopLevelItemCount(), 251);

        view_->SetFilterPage(3);
        QCOMPARE(view_->model()->rowCount(), 51);
        QCOMPARE(view_->model()->rowCount(view_->model()->index(50, 0)), 1);
        view_->SetFilterKeyWord("abc");
        view_->header()->setSortIndicator(0, Qt::DescendingOrder);
        QCOMPARE(view_->TopLevelItemCount(), 126);
        QCOMPARE(view_->model()->rowCount(), 100);
        QCOMPARE(view_->model()->index(0, 0).data().toString(), QString("parent"));
        view_->ClearAllItems();
        items = Items(5);
        view_->AddTopLevelItems(items);
        QVERIFY(view_->GetBackupModel()->IsFlat());
        QCOMPARE(view_->model()->rowCount(), 5);
    }

    void aModelMayBeDeletedUnderItsView()
    {
        QList<CTreeViewItem *> items = Items(10);
        view_->AddTopLevelItems(items);
        view_->show();

        model_.reset();

        QCOMPARE(view_->model()->rowCount(), 0);
        items = {};
        view_->AddTopLevelItems(items);
        view_->ClearAllItems();
        view_->SetFilterKeyWord("a");
        view_->SetFilterPage(2);
        QVERIFY(!view_->MapToSourceIndex(view_->model()->index(0, 0)).isValid());
    }

    void withPagingOffTheLastPageStaysAndThePageIsSortedAlone()
    {
        QList<CTreeViewItem *> items = Items(250);
        view_->AddTopLevelItems(items);
        view_->SetFilterPage(3);
        view_->SetFilterEnabled(false);
        QSignalSpy reset(view_.get(), &CFilterTreeViewEx::SignalPageReset);

        view_->SetFilterPage(1);
        view_->header()->setSortIndicator(0, Qt::DescendingOrder);

        QCOMPARE(view_->model()->rowCount(), 50);
        QCOMPARE(view_->model()->index(0, 0).data().toString(), QString("249"));
        QCOMPARE(view_->GetBackupModel()->index(0, 0).data().toString(), QString("0"));
        QCOMPARE(reset.count(), 0);
    }
};

QTEST_MAIN(TestFilterTree)
#include "tst_filtertree.moc"
