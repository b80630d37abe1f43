// SPDX-License-Identifier: MIT
// Random walks over a list, each beside the same list in its plainest form.
#include "letter/ListLetter.h"
#include "support/TestGuard.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>

#include <QtCore/QRandomGenerator>
#include <QtGui/QStandardItemModel>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>

#include <algorithm>

namespace {

constexpr int kWalks = 1000;
constexpr int kSteps = 10;
constexpr int kMostRows = 2000;

QStringList Labels()
{
    return {"Time", "Name", "Kind"};
}

// Latin-1, beyond it, outside the first plane; folding to one another, empty, and a missing cell.
QStringList Names()
{
    return {"gate",       "Gate",      "GATE 1", "gate 10", "",
            "\u00B5s",    "\u03BCS",   "Größe",  "grösse",  "\u0628\u0627\u0628",
            "\U00010400", "\U00010428"};
}

int RowHeight()
{
    QStandardItemModel model;
    model.appendRow(new QStandardItem("test"));
    Ravel::CTableView view;
    view.setModel(&model);
    return view.sizeHintForRow(0);
}

// One list in both forms; every step is done to both.
class CWalk
{
public:
    explicit CWalk(quint32 seed)
        : random_(seed), letter_(Labels(), Letter::Refilter::WhenRowsChange)
    {
        model_.SetHorizontalHeaderLabels(Labels());
        view_.resize(300, 200);
        view_.SetModel(&model_);
        view_.SetTreeViewItemPerPage(7);
        letter_.rows_per_page_ = 7;
        Listen();
        most_rows_ = seed % 100 == 0 ? kMostRows : 40;
        view_.show();
        letter_view_.setModel(&letter_.page_);
        // The first show brings a first height.
        signals_.clear();
        if (seed % 4 == 0) // they take most of the time
            testers_ = {new Tester(&model_, kReport), new Tester(view_.GetBackupModel(), kReport),
                        new Tester(view_.model(), kReport)};
    }
    ~CWalk() { qDeleteAll(testers_); }

    // What was done, for the message when the two part.
    QString Step()
    {
        const QVector<QPair<const char *, void (CWalk::*)()>> steps = {
            {"add", &CWalk::Add},          {"add", &CWalk::Add},       {"flip", &CWalk::Flip},
            {"keyword", &CWalk::Keyword},  {"lists", &CWalk::Lists},   {"resize", &CWalk::Resize},
            {"sort", &CWalk::Sort},        {"select", &CWalk::Select}, {"tag", &CWalk::WriteTag},
            {"per page", &CWalk::PerPage}, {"clear", &CWalk::Clear}};
        const int step = Below(Below(4) ? steps.size() - 1 : steps.size());
        (this->*steps.at(step).second)();
        return steps.at(step).first;
    }

    // Texts and tags in the order of the keyword proxy, the page shown, what is selected, signals.
    QStringList Ours() const
    {
        return State(*view_.GetBackupModel(), *view_.model(), *view_.selectionModel(), signals_);
    }
    QStringList Letters() const
    {
        return State(letter_.keywords_, letter_.page_, *letter_view_.selectionModel(),
                     letter_.signals_);
    }

private:
    using Tester = QAbstractItemModelTester;
    static constexpr auto kReport = Tester::FailureReportingMode::QtTest;

    static QStringList State(const QAbstractItemModel &keywords, const QAbstractItemModel &page,
                             const QItemSelectionModel &selection, const QStringList &told)
    {
        QStringList lines;
        for (int row = 0; row < keywords.rowCount(); ++row) {
            const QModelIndex first = keywords.index(row, 0);
            lines.append(first.data().toString() + "|" + first.siblingAtColumn(1).data().toString()
                         + "|" + first.data(Ravel::kPageTagRole).toString());
        }
        for (int row = 0; row < page.rowCount(); ++row)
            lines.append("shown " + page.index(row, 0).data().toString());
        QStringList selected;
        const auto rows = selection.selectedRows();
        for (const QModelIndex &row : rows)
            selected.append(row.data().toString());
        selected.sort();
        return lines << "selected " + selected.join(',')
                     << "current " + selection.currentIndex().data().toString() << told;
    }

    QString Any(const QStringList &texts) { return texts.at(Below(texts.size())); }
    int Below(int limit) { return static_cast<int>(random_.bounded(limit)); }

    void Listen()
    {
        using View = Vantor::CFilterTreeViewEx;
        QObject::connect(&view_, &View::SignalPageReset, [this](int records, int pages) {
            signals_.append(QString("SignalPageReset(%1, %2)").arg(records).arg(pages));
        });
        QObject::connect(&view_, &View::SignalUpdateMaxMinPage, [this](bool previous, bool next) {
            signals_.append(QString("SignalUpdateMaxMinPage(%1, %2)")
                                .arg(previous ? "true" : "false", next ? "true" : "false"));
        });
        QObject::connect(&view_, &View::SignalSizeChanged,
                         [this] { signals_.append("SignalSizeChanged()"); });
        QObject::connect(&view_, &View::SignalDataSort,
                         [this] { signals_.append("SignalDataSort()"); });
    }

    void Add()
    {
        const int room = most_rows_ - model_.rowCount();
        QVector<QStringList> rows;
        QList<Ravel::CTreeViewItem *> items;
        for (int i = Below(std::max(1, room)); i > 0; --i) {
            QStringList texts = {QString::number(++made_), Any(Names()),
                                 QString(QChar('a' + Below(3)))};
            while (texts.size() > 1 && Below(10) == 0)
                texts.removeLast();
            rows.append(texts);
            items.append(new Ravel::CTreeViewItem(texts));
        }
        view_.AddTopLevelItems(items);
        if (!rows.isEmpty())
            letter_.Add(Letter::CRows::Make(rows));
    }

    void Flip()
    {
        const int page = Below(5) + 1;
        view_.SetFilterPage(page);
        letter_.SetPage(page);
    }

    void Keyword()
    {
        const QStringList keywords = {"", "gate", "1", "\u00F6", "\u0628", "no such"};
        const QString keyword = Any(keywords);
        view_.SetFilterKeyWord(keyword);
        letter_.SetKeyWord(keyword);
    }

    void Lists()
    {
        std::vector<QStringList> lists = {{"1", QString::number(Below(99))}};
        if (Below(2))
            lists.push_back(Names().mid(Below(5), 6));
        if (Below(3) == 0)
            lists.push_back({"a", "b"});
        view_.SetFilterKeyWords(lists);
        letter_.SetLists(lists);
    }

    void Resize()
    {
        const int height = 100 + Below(200);
        if (height == view_.height())
            return;
        view_.resize(300, height);
        if (is_adaptive_)
            letter_.SetAdaptive(height, view_.header()->sizeHint().height(), RowHeight());
        letter_.Resize();
    }

    void PerPage()
    {
        const int count = Below(9);
        is_adaptive_ = count == 0;
        view_.SetTreeViewItemPerPage(count);
        if (is_adaptive_)
            letter_.SetAdaptive(view_.height(), view_.header()->sizeHint().height(), RowHeight());
        letter_.SetPerPage(is_adaptive_ ? letter_.rows_per_page_ : count);
    }

    void Sort()
    {
        const int column = Below(4) - 1;
        const auto order = Below(2) ? Qt::AscendingOrder : Qt::DescendingOrder;
        if (column == view_.header()->sortIndicatorSection()
            && order == view_.header()->sortIndicatorOrder())
            return;
        view_.header()->setSortIndicator(column, order);
        letter_.Sort(column, order);
    }

    void Select()
    {
        const int shown = view_.model()->rowCount();
        if (shown == 0)
            return;
        const int row = Below(shown);
        const auto flags = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
        view_.selectionModel()->setCurrentIndex(view_.model()->index(row, 0), flags);
        letter_view_.selectionModel()->setCurrentIndex(letter_.page_.index(row, 0), flags);
    }

    void WriteTag()
    {
        const QVector<QVariant> tags = {QVariant(), "Page002", "Page2", "elsewhere", 3};
        const QVariant tag = tags.at(Below(tags.size()));
        const int rows = view_.TopLevelItemCount();
        if (rows == 0)
            return;
        const int row = Below(rows);
        Vantor::CFilterProxyModelEx *const proxy = view_.GetBackupModel();
        proxy->setData(proxy->index(row, 0), tag, Ravel::kPageTagRole);
        letter_.keywords_.setData(letter_.keywords_.index(row, 0), tag, Ravel::kPageTagRole);
    }

    void Clear()
    {
        view_.ClearAllItems();
        letter_.Clear();
    }

    QRandomGenerator random_;
    Ravel::CTreeViewModel model_;
    Vantor::CFilterTreeViewEx view_;
    Letter::CPagedList letter_;
    Ravel::CTableView letter_view_; // a view moves the current row by itself
    QStringList signals_;
    QVector<Tester *> testers_;
    int most_rows_ = 0;
    int made_ = 0;
    bool is_adaptive_ = false;
};

} // namespace

class TestFilterTreeWalks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void everyWalkGoesWhereThePlainFormGoes()
    {
        for (quint32 seed = 0; seed < kWalks; ++seed) {
            CWalk walk(seed);
            QStringList steps;
            for (int i = 0; i < kSteps; ++i) {
                steps.append(walk.Step());
                const QStringList ours = walk.Ours();
                const QStringList letters = walk.Letters();
                if (ours == letters)
                    continue;
                const auto parting =
                    std::mismatch(ours.begin(), ours.end(), letters.begin(), letters.end());
                QFAIL(qPrintable(
                    QString("seed %1, after %2: \"%3\" instead of \"%4\"")
                        .arg(QString::number(seed), steps.join(", "),
                             parting.first == ours.end() ? "the end" : *parting.first,
                             parting.second == letters.end() ? "the end" : *parting.second)));
            }
        }
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(TestFilterTreeWalks)
#include "tst_filtertree_walks.moc"
