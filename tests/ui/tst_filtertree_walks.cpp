// SPDX-License-Identifier: MIT
// Random walks over a list, each beside the same list in its plainest form.
#include "PlainList.h"
#include "letter/ListLetter.h"
#include "support/Widgets.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>
#include <ui/FilterTreeViewEx/PageMath.h>

namespace {

constexpr int kWalks = 300;
constexpr int kSteps = 80;
constexpr int kMostRows = 60;

// Latin-1, beyond it (one with the low byte of "G"), outside the first plane; folding to one
// another, and empty.
QStringList Names()
{
    return {"gate",       "Gate",       "GATE 1",  "gate 10", "",
            "\u00B5s",    "\u03BCS",    "Größe",   "grösse",  "\u0628\u0627\u0628",
            "\U00010400", "\U00010428", "\u0147or"};
}

// A view with two models of its host's, beside the plain list with the same rows.
class CWalk
{
public:
    explicit CWalk(quint32 seed) : random_(seed)
    {
        view_.resize(300, 200);
        view_.show(); // the first height
        for (auto &model : models_) {
            model = std::make_unique<Ravel::CTreeViewModel>();
            model->SetHorizontalHeaderLabels({"Time", "Name", "Kind"});
        }
        view_.SetModel(models_[0].get());
        view_.SetTreeViewItemPerPage(7);
        row_height_px_ = RowHeight();
        plain_.SetSource(&rows_[0]);
        if (seed % 3 == 0) // they take most of the time
            testers_ = {
                new Tester(models_[0].get(), kReport), new Tester(models_[1].get(), kReport),
                new Tester(view_.GetBackupModel(), kReport), new Tester(view_.model(), kReport)};
        Listen();
    }
    ~CWalk() { qDeleteAll(testers_); }

    QString Step()
    {
        static const std::vector<std::pair<const char *, void (CWalk::*)()>> kinds = {
            {"add", &CWalk::Add},         {"insert", &CWalk::Insert},
            {"remove", &CWalk::Remove},   {"flip", &CWalk::Flip},
            {"flip", &CWalk::Flip},       {"keyword", &CWalk::KeyWord},
            {"keyword", &CWalk::KeyWord}, {"lists", &CWalk::Lists},
            {"resize", &CWalk::Resize},   {"sort", &CWalk::Sort},
            {"sort", &CWalk::Sort},       {"sort again", &CWalk::SortAgain},
            {"select", &CWalk::Select},   {"tag", &CWalk::WriteTag},
            {"text", &CWalk::WriteText},  {"per page", &CWalk::PerPage},
            {"reset", &CWalk::Reset},     {"model", &CWalk::OtherModel},
            {"clear", &CWalk::Clear},     {"refilter", &CWalk::Refilter}};
        auto kind = size_t(Below(kinds.size()));
        if (kinds.at(kind).second == &CWalk::Clear && Below(4))
            kind = 0;
        (this->*kinds.at(kind).second)();
        return kinds.at(kind).first;
    }

    // Texts and tags in the order of the keyword proxy, the page, and the signals.
    QStringList Ours() const
    {
        QStringList lines;
        const QAbstractItemModel &all = *view_.GetBackupModel();
        for (int row = 0; row < all.rowCount(); ++row)
            lines.append(all.index(row, 0).data().toString() + "|"
                         + all.index(row, 1).data().toString() + "|"
                         + all.index(row, 0).data(Ravel::kPageTagRole).toString());
        for (int row = 0; row < view_.model()->rowCount(); ++row)
            lines.append("page " + view_.model()->index(row, 0).data().toString());
        const QModelIndex current = view_.currentIndex();
        return lines << "current " + current.sibling(current.row(), 0).data().toString()
                     << signals_;
    }
    QStringList Plain()
    {
        QStringList lines;
        for (const int id : plain_.shown) {
            const CPlainList::Row &row = plain_.Of(id);
            lines.append(row.texts.value(0) + "|" + row.texts.value(1) + "|" + row.tag.toString());
        }
        QString current;
        for (const int id : plain_.page) {
            lines.append("page " + plain_.Of(id).texts.value(0));
            if (id == current_)
                current = plain_.Of(id).texts.value(0);
        }
        current_ = current.isEmpty() ? -1 : current_;
        return lines << "current " + current << plain_.signals_;
    }

private:
    using Tester = QAbstractItemModelTester;
    static constexpr auto kReport = Tester::FailureReportingMode::QtTest;

    static int RowHeight()
    {
        QStandardItemModel model(1, 1);
        model.setData(model.index(0, 0), "test");
        Ravel::CTableView view;
        view.setModel(&model);
        return view.sizeHintForRow(0);
    }

    int Below(size_t limit) { return static_cast<int>(random_.bounded(static_cast<int>(limit))); }
    QString AnyName() { return Names().at(Below(size_t(Names().size()))); }
    Ravel::CTreeViewModel *Model() const { return at_ < 0 ? nullptr : models_[size_t(at_)].get(); }
    CPlainList::Rows *Rows() { return at_ < 0 ? nullptr : &rows_[size_t(at_)]; }

    void Listen()
    {
        using View = Vantor::CFilterTreeViewEx;
        QObject::connect(&view_, &View::SignalPageReset, &view_, [this](int records, int pages) {
            signals_.append(QString("SignalPageReset(%1, %2)").arg(records).arg(pages));
        });
        QObject::connect(
            &view_, &View::SignalUpdateMaxMinPage, &view_, [this](bool previous, bool next) {
                signals_.append(QString("SignalUpdateMaxMinPage(%1, %2)")
                                    .arg(QVariant(previous).toString(), QVariant(next).toString()));
            });
        QObject::connect(&view_, &View::SignalSizeChanged, &view_,
                         [this] { signals_.append("SignalSizeChanged()"); });
        QObject::connect(&view_, &View::SignalDataSort, &view_,
                         [this] { signals_.append("SignalDataSort()"); });
    }

    CPlainList::Rows NewRows(QList<Ravel::CTreeViewItem *> &items)
    {
        CPlainList::Rows rows;
        const int room = kMostRows - static_cast<int>(Rows()->size());
        for (int i = room > 0 ? Below(size_t(room)) : 0; i > 0; --i) {
            QStringList texts = {QString::number(++made_), AnyName(),
                                 QString(QChar('a' + Below(3)))};
            while (texts.size() > 1 && Below(10) == 0)
                texts.removeLast();
            if (texts.size() == 3 && Below(10) == 0)
                texts.append("gate s"); // beyond the columns: no filter sees it
            rows.push_back({made_, texts, {}});
            items.append(new Ravel::CTreeViewItem(texts));
        }
        return rows;
    }

    void Add()
    {
        if (!Model())
            return;
        QList<Ravel::CTreeViewItem *> items;
        const CPlainList::Rows rows = NewRows(items);
        view_.AddTopLevelItems(items);
        if (!rows.empty())
            plain_.Add(rows);
    }

    void Insert()
    {
        if (!Model())
            return;
        QList<Ravel::CTreeViewItem *> items;
        const CPlainList::Rows rows = NewRows(items);
        const int at = Below(Rows()->size() + 1);
        if (!rows.empty() && Model()->InsertTopLevelItems(at, items))
            plain_.Insert(at, rows);
    }

    void Remove()
    {
        if (!Model() || Rows()->empty())
            return;
        const int at = Below(Rows()->size());
        const int count = Below(std::min<size_t>(Rows()->size() - size_t(at), 5)) + 1;
        Model()->removeRows(at, std::min(count, Model()->rowCount() - at));
        plain_.Remove(at, std::min<int>(count, int(Rows()->size()) - at));
        TakeCurrent(); // Qt moves it to a neighbour
    }

    void TakeCurrent()
    {
        const QModelIndex current = view_.currentIndex();
        current_ = current.isValid() ? current.sibling(current.row(), 0).data().toInt() : -1;
    }

    void Flip()
    {
        const int page = Below(5) + 1;
        view_.SetFilterPage(page);
        plain_.Flip(page);
    }

    void KeyWord()
    {
        static const QStringList keywords = {"",  "g", "G",      "ga",     "gat",    "gate",
                                             "1", "s", "\u00F6", "\u0628", "no such"};
        const QString keyword = keywords.at(Below(size_t(keywords.size())));
        RankSome();
        view_.SetFilterKeyWord(keyword);
        plain_.SetKeyWord(keyword);
    }

    // Filters then look at each different text once.
    void RankSome()
    {
        for (int column = Model() && Below(2) ? Below(3) : 3; column < 3; ++column)
            (void)Model()->Ranks(column);
    }

    void Lists()
    {
        std::vector<QStringList> lists = {{"1", QString::number(Below(99))}};
        if (Below(2))
            lists.emplace_back(Names().mid(Below(5), 6));
        if (Below(3) == 0)
            lists.push_back({"a", "b"});
        RankSome();
        view_.SetFilterKeyWords(lists);
        plain_.SetLists(lists);
    }

    void Resize()
    {
        const QSize size(200 + Below(200), Below(3) ? 100 + Below(200) : view_.height());
        const bool is_other = size.height() != view_.height();
        view_.resize(size); // another width alone changes nothing
        if (is_other && Model()) {
            Adapt();
            plain_.Resize();
        }
    }

    void Adapt()
    {
        if (is_adaptive_)
            plain_.rows_per_page = Vantor::RowsThatFit(
                view_.height(), view_.header()->sizeHint().height(), row_height_px_);
    }

    void PerPage()
    {
        const int count = Below(9);
        is_adaptive_ = count == 0;
        view_.SetTreeViewItemPerPage(count);
        plain_.rows_per_page = count;
        Adapt();
        plain_.Pass();
    }

    void Sort()
    {
        const int column = Below(4) - 1;
        const auto order = Below(2) ? Qt::AscendingOrder : Qt::DescendingOrder;
        if (column == view_.header()->sortIndicatorSection()
            && order == view_.header()->sortIndicatorOrder())
            return;
        view_.header()->setSortIndicator(column, order);
        plain_.SetSort(column, order == Qt::DescendingOrder);
        if (!Model())
            plain_.signals_.append("SignalDataSort()");
    }

    // Qt sorts the view's model, which is one page.
    void SortAgain()
    {
        view_.sortByColumn(view_.header()->sortIndicatorSection(),
                           view_.header()->sortIndicatorOrder());
        if (Model()) // without one the view ignores the role
            sort_role_ = sort_role_ == Qt::UserRole ? Qt::DisplayRole : Qt::UserRole;
        view_.SetSortRole(sort_role_);
        view_.setSortingEnabled(true);
        if (Model())
            plain_.ShowPage(); // Qt's setter asks for the filter, too
    }

    void Select()
    {
        const int shown = view_.model()->rowCount();
        if (shown > 0)
            view_.setCurrentIndex(view_.model()->index(Below(size_t(shown)), 0));
        TakeCurrent();
    }

    void WriteTag()
    {
        static const QVector<QVariant> tags = {QVariant(), "Page002", "Page2", "elsewhere", 3};
        const int rows = view_.TopLevelItemCount();
        if (rows == 0)
            return;
        const QVariant tag = tags.at(Below(size_t(tags.size())));
        const int row = Below(size_t(rows));
        Vantor::CFilterProxyModelEx *const proxy = view_.GetBackupModel();
        proxy->setData(proxy->index(row, 0), tag, Ravel::kPageTagRole);
        plain_.Of(plain_.shown[size_t(row)]).tag = tag;
    }

    void WriteText()
    {
        if (!Model() || Rows()->empty())
            return;
        const int row = Below(Rows()->size());
        CPlainList::Row &plain = (*Rows())[size_t(row)];
        if (plain.texts.size() < 2)
            return;
        plain.texts[1] = AnyName();
        Model()->setData(Model()->index(row, 1), plain.texts.at(1));
    }

    void Reset()
    {
        if (!Model())
            return;
        Model()->SetHorizontalHeaderLabels({"Time", "Name", "Kind"});
        plain_.Reset();
        current_ = -1;
    }

    // Another one, the same one, null, or a new one after the old one was deleted.
    void OtherModel()
    {
        const int kind = Below(4);
        if (kind == 0 && Model() && testers_.isEmpty()) {
            models_[size_t(at_)] = std::make_unique<Ravel::CTreeViewModel>();
            models_[size_t(at_)]->SetHorizontalHeaderLabels({"Time", "Name", "Kind"});
            rows_[size_t(at_)].clear();
            plain_.SetSource(nullptr);
        }
        if (kind > 0)
            at_ = Below(3) - 1;
        const bool is_same = Rows() == plain_.source;
        view_.SetModel(Model());
        Adapt();
        if (is_same) {
            plain_.SetSame();
        } else {
            plain_.SetSource(Rows());
            current_ = -1;
        }
    }

    void Clear()
    {
        view_.ClearAllItems();
        if (Model()) {
            plain_.Remove(0, static_cast<int>(Rows()->size()));
            plain_.Pass();
        }
    }

    // A host that knows Qt's class only.
    void Refilter()
    {
        QSortFilterProxyModel *const proxy = view_.GetBackupModel();
        proxy->invalidate();
        if (Model())
            plain_.Reapply();
    }

    QRandomGenerator random_;
    std::array<std::unique_ptr<Ravel::CTreeViewModel>, 2> models_;
    std::array<CPlainList::Rows, 2> rows_;
    int at_ = 0; // of the model, or -1
    Vantor::CFilterTreeViewEx view_;
    CPlainList plain_;
    QStringList signals_;
    QVector<Tester *> testers_;
    int row_height_px_ = 0;
    int sort_role_ = Qt::DisplayRole;
    int made_ = 0;
    int current_ = -1; // id
    bool is_adaptive_ = false;
};

// One of our proxies and Qt's in its plainest form, on top of the same models of another class.
class CForeignWalk
{
public:
    explicit CForeignWalk(quint32 seed)
        : random_(seed), qts_(Letter::Refilter::WhenRowsChange),
          tester_(&ours_, QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        for (QStandardItemModel &model : models_)
            model.setColumnCount(2);
        SetSource(&models_[0]);
        ours_.SetKeyWordFilter({});
        qts_.SetKeyWordFilter({});
    }

    QString Step()
    {
        const int kind = Below(10);
        const int rows = source_->rowCount();
        switch (kind) {
        case 0:
        case 1:
            source_->insertRow(ours_.sortColumn() < 0 ? Below(rows + 1) : rows, NewRow());
            return "insert";
        case 2:
            if (rows > 0)
                source_->removeRows(Below(rows), 1);
            Reapply(); // with the last child row Qt's engine goes
            return "remove";
        case 3:
            if (rows > 0)
                source_->setData(source_->index(Below(rows), Below(2)), Names().at(Below(12)));
            Reapply();
            return "text";
        case 4: {
            const QString keyword = QStringList{"", "g", "gate", "no such"}.at(Below(4));
            ours_.SetKeyWordFilter(keyword);
            qts_.SetKeyWordFilter(keyword);
            Reapply(); // equal rows are in the model's order again
            return "keyword";
        }
        case 5: {
            const std::vector<QStringList> lists = {{"", "gate 10"}, Names().mid(Below(5), 6)};
            ours_.SetKeyWordsFilter(lists);
            qts_.SetKeyWordsFilter(lists);
            Reapply();
            return "lists";
        }
        case 6: {
            const auto order = Below(2) ? Qt::AscendingOrder : Qt::DescendingOrder;
            const int column = Below(3) - 1;
            ours_.sort(column, order);
            qts_.sort(column, order);
            return "sort";
        }
        case 7:
            if (rows > 0 && Below(3) == 0)
                source_->item(Below(rows))->appendRow(NewRow());
            Reapply(); // the other engine has to
            return "child";
        case 8:
            SetSource(Below(2) ? source_ : &models_[size_t(Below(2))]);
            return "source";
        default:
            source_->setRowCount(Below(4) ? rows : 0);
            if (rows > 2 && Below(2))
                ours_.removeRows(0, std::min(2, ours_.rowCount()));
            Reapply();
            return "clear";
        }
    }

    QStringList Ours() const { return Texts(ours_); }
    QStringList Qts() const { return Texts(qts_); }

private:
    static QStringList Texts(const QAbstractItemModel &model, const QModelIndex &parent = {})
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex first = model.index(row, 0, parent);
            texts.append(first.data().toString() + '|'
                         + model.index(row, 1, parent).data().toString());
            texts.append(Texts(model, first));
        }
        return texts;
    }

    int Below(int limit) { return static_cast<int>(random_.bounded(limit)); }

    QList<QStandardItem *> NewRow()
    {
        return {new QStandardItem(Names().at(Below(12))), new QStandardItem(Names().at(Below(12)))};
    }

    void Reapply()
    {
        ours_.invalidate();
        qts_.invalidate();
    }

    void SetSource(QStandardItemModel *source)
    {
        source_ = source;
        ours_.setSourceModel(source);
        qts_.setSourceModel(source);
    }

    QRandomGenerator random_;
    std::array<QStandardItemModel, 2> models_;
    QStandardItemModel *source_ = nullptr;
    Vantor::CFilterProxyModelEx ours_;
    Letter::CFilterProxy qts_;
    const QAbstractItemModelTester tester_;
};

} // namespace

class TestFilterTreeWalks : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    // Over any model, with and without child rows, beside Qt's own proxy.
    void aProxyOverAnyModelIsAsQtsOwn()
    {
        for (quint32 seed = 0; seed < kWalks; ++seed) {
            CForeignWalk walk(seed);
            for (int i = 0; i < kSteps / 2; ++i) {
                const QString step = walk.Step();
                QVERIFY2(walk.Ours() == walk.Qts(),
                         qPrintable(QString("seed %1, step %2: ").arg(seed).arg(i) + step));
            }
        }
    }

    void everyWalkGoesWhereThePlainListGoes()
    {
        for (quint32 seed = 0; seed < kWalks; ++seed) {
            CWalk walk(seed);
            QStringList steps;
            for (int i = 0; i < kSteps; ++i) {
                steps.append(walk.Step());
                const QStringList ours = walk.Ours();
                const QStringList plain = walk.Plain();
                if (ours != plain)
                    qWarning("seed %u, after %s:", seed, qPrintable(steps.join(", ")));
                QCOMPARE(ours, plain);
            }
        }
    }
};

QTEST_MAIN(TestFilterTreeWalks)
#include "tst_filtertree_walks.moc"
