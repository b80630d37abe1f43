// SPDX-License-Identifier: MIT
#pragma once

#include "Main.h"
#include "Pairs.h"
#include "letter/ListLetter.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>

#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>

#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <string>

/// Lists of up to a million rows, each in our form and in its plain form.
namespace ListsUnderTest {

constexpr int kMillion = 1'000'000;
constexpr int kHundredThousand = 100'000;
constexpr int kTenThousand = 10'000;
constexpr int kRowsPerPage = 100;
constexpr int kNameColumn = 1;
constexpr int kMemoryRows = 200'000;
constexpr int kSlow = 1;  // runs of a plain form that takes seconds
constexpr int kQuick = 3; // of one that takes less
constexpr int kOurs = 7;  // of ours

// All work here is done by one thread, so the time of other programs can be left out.
template <class Operation> double CpuSecondsOf(Operation &&operation)
{
    const auto now_s = [] {
        timespec now{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
    };
    const double begin_s = now_s();
    operation();
    return now_s() - begin_s;
}

inline QStringList Labels()
{
    return {QStringLiteral("Time"),   QStringLiteral("Name"),     QStringLiteral("Kind"),
            QStringLiteral("Door"),   QStringLiteral("Severity"), QStringLiteral("Operator"),
            QStringLiteral("Remark"), QStringLiteral("Number")};
}

inline QString NameOf(int number)
{
    return QStringLiteral("Camera %1").arg(number, 3, 10, QLatin1Char('0'));
}

// In the order of time; every hundredth row holds "needle", every second one "even".
inline QStringList RowTexts(int row)
{
    static const QStringList kinds = {QStringLiteral("Line crossed"),
                                      QStringLiteral("Door forced")};
    const auto mixed = static_cast<int>(static_cast<quint32>(row) * 2654435761U >> 8U);
    return {QStringLiteral("2026-%1").arg(row, 9, 10, QLatin1Char('0')),
            NameOf(mixed % 50),
            kinds.at(mixed / 50 % 2),
            QStringLiteral("Gate north"),
            row % 2 == 0 ? QStringLiteral("even") : QStringLiteral("high"),
            QStringLiteral("operator"),
            row % 100 == 37 ? QStringLiteral("needle") : QStringLiteral("seen and noted"),
            QString::number(mixed)};
}

inline QList<Ravel::CTreeViewItem *> MakeItems(int first, int count)
{
    QList<Ravel::CTreeViewItem *> items;
    items.reserve(count);
    for (int row = first; row < first + count; ++row)
        items.append(new Ravel::CTreeViewItem(RowTexts(row)));
    return items;
}

// The same rows in both forms, each under its view.
struct CBoth
{
    explicit CBoth(int count) : rows(count), letter(Labels(), Letter::Refilter::Always)
    {
        Show(plain_view);
        plain_view.setUniformRowHeights(true); // or loading a million rows takes hours
        plain_view.setModel(&letter.page_);
        letter.rows_per_page_ = kRowsPerPage;
        model.SetHorizontalHeaderLabels(Labels());
        Show(view);
        view.SetModel(&model);
        view.SetTreeViewItemPerPage(kRowsPerPage);

        const QString absent = QStringLiteral("absent");
        std::vector<double> ours_add_s;
        std::vector<double> ours_filter_s;
        for (int run = 0; run < kQuick; ++run) {
            view.SetFilterKeyWord(QString());
            view.ClearAllItems();
            QList<Ravel::CTreeViewItem *> items = MakeItems(0, rows);
            ours_add_s.push_back(CpuSecondsOf([&] { view.AddTopLevelItems(items); }));
            ours_filter_s.push_back(CpuSecondsOf([&] { view.SetFilterKeyWord(absent); }));
        }
        add_s = Pairs::Median(ours_add_s);
        first_filter_s = Pairs::Median(ours_filter_s);
        QVector<QStringList> texts;
        texts.reserve(rows);
        for (int row = 0; row < rows; ++row)
            texts.append(RowTexts(row));
        Letter::CRows::Items plain_items = Letter::CRows::Make(texts);
        texts.clear();
        letter_add_s = CpuSecondsOf([&] { letter.Add(std::move(plain_items)); });
        first_letter_filter_s = CpuSecondsOf([&] { letter.SetKeyWord(absent); });
        letter.SetKeyWord(QString());
        view.SetFilterKeyWord(QString());
    }

    // 32 rows of 8 columns.
    static void Show(QTreeView &shown)
    {
        shown.resize(1280, 32 * 25 + 30);
        shown.show();
        QCoreApplication::processEvents(); // or nothing is painted
    }

    const int rows;
    Letter::CPagedList letter;
    QTreeView plain_view;
    Ravel::CTreeViewModel model;
    Vantor::CFilterTreeViewEx view;
    double letter_add_s = 0;
    double add_s = 0;
    double first_letter_filter_s = 0;
    double first_filter_s = 0;
};

inline std::map<int, std::unique_ptr<CBoth>> &Lists()
{
    static std::map<int, std::unique_ptr<CBoth>> lists;
    return lists;
}

inline CBoth &List(int rows)
{
    auto &list = Lists()[rows];
    if (!list)
        list = std::make_unique<CBoth>(rows);
    return *list;
}

using Operation = std::function<void(int run)>;

inline double MedianOf(int runs, int batch, const Operation &operation)
{
    std::vector<double> seconds;
    seconds.reserve(static_cast<size_t>(runs));
    int run = 0;
    for (int i = 0; i < runs; ++i) {
        seconds.push_back(CpuSecondsOf([&] {
                              for (int k = 0; k < batch; ++k)
                                  operation(run++);
                          })
                          / batch);
    }
    return Pairs::Median(seconds);
}

inline void Report(benchmark::State &state, const std::string &what, double bar, double baseline_s,
                   double ours_s)
{
    state.counters["ratio_lists_" + what] = baseline_s / ours_s;
    state.counters["bar_lists_" + what] = bar;
    state.counters["seconds_baseline_" + what] = baseline_s;
    state.counters["seconds_ours_" + what] = ours_s;
}

// Both forms have to show the same rows on the same pages.
inline void Check(benchmark::State &state, CBoth &both)
{
    const QAbstractItemModel &plain = both.letter.page_;
    const QAbstractItemModel &ours = *both.view.model();
    bool is_same = both.letter.keywords_.rowCount() == both.view.TopLevelItemCount()
                   && plain.rowCount() == ours.rowCount();
    for (int row = 0; is_same && row < plain.rowCount(); ++row) {
        is_same = plain.index(row, 0).data() == ours.index(row, 0).data()
                  && plain.index(row, 0).data(Ravel::kPageTagRole)
                         == ours.index(row, 0).data(Ravel::kPageTagRole);
    }
    if (!is_same)
        state.SkipWithError("the lists differ");
}

// Once, so that each state is one run.
template <class Body> void Once(benchmark::State &state, Body &&body)
{
    for (auto _ : state)
        body();
}

} // namespace ListsUnderTest
