// SPDX-License-Identifier: MIT
// A hundred thousand rows in pages, under a bar that filters them by words and by types.
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CMutiPageWidgetEx>

#include <QtCore/QTime>
#include <QtWidgets/QApplication>

namespace {

constexpr int kRows = 100000;

QList<Ravel::CTreeViewItem *> MakeRows()
{
    const QStringList kinds{"Door", "Window", "Gate"};
    const QStringList states{"open", "closed", "forced", "blocked"};
    QList<Ravel::CTreeViewItem *> rows;
    rows.reserve(kRows);
    for (int row = 0; row < kRows; ++row)
        rows.append(new Ravel::CTreeViewItem({QTime(0, 0).addSecs(row % 86400).toString("HH:mm:ss"),
                                              kinds.at(row % kinds.size()),
                                              states.at(row % states.size())}));
    return rows;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Ravel::CTreeViewModel model;
    model.SetHorizontalHeaderLabels({"Time", "Kind", "State"});

    Vantor::CMutiPageWidgetEx list;
    Vantor::CMutiPageWidget *const pages = list.GetMutiPageWidget();
    pages->SetPageSeen(true);
    pages->SetFilterEnabled(true);
    pages->SetModel(&model);
    list.SetRelatedIndex(1, 2); // main types in column 1, sub types in column 2
    list.SetModel(&model);
    QList<Ravel::CTreeViewItem *> rows = MakeRows();
    pages->AddTopLevelItems(rows);
    list.AddTopLevelItems(); // the bar reads its types

    QObject::connect(&list, &Vantor::CMutiPageWidgetEx::SignalFilterWithKeyWords, [&list] {
        std::vector<QStringList> words{{"00:00:00", "23:59:59"}, // column 0: from, to
                                       list.GetSelectedMainType(),
                                       list.GetSelectedSubType()};
        list.OnFilterWithKeyWords(words);
    });
    QObject::connect(&list, &Vantor::CMutiPageWidgetEx::SignalClearFilter,
                     [&list] { list.OnFilterWithKeyWord({}); });

    list.setWindowTitle("Doors");
    list.resize(800, 600);
    list.show();
    return QApplication::exec();
}
