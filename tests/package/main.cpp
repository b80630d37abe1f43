// SPDX-License-Identifier: MIT
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CListExport>
#include <Vantor/CMutiPageWidget>

#include <QtWidgets/QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Ravel::CTreeViewModel model;
    model.SetHorizontalHeaderLabels({"Door", "State"});

    Vantor::CMutiPageWidget list;
    list.SetPageSeen(true);      // the number of pages is known
    list.SetFilterEnabled(true); // the widget cuts the rows into pages
    list.SetModel(&model);
    QList<Ravel::CTreeViewItem *> doors;
    for (int door = 1; door <= 1000; ++door)
        doors.append(new Ravel::CTreeViewItem({QString("Door %1").arg(door), "closed"}));
    list.AddTopLevelItems(doors); // the model owns them from now on
    list.resize(640, 480);
    list.show();

    Vantor::CListExport job;
    QObject::connect(
        &job, &Vantor::CListExport::SignalFinished, [](const Vantor::ListExportResult &result) {
            qInfo("%d rows in %s", result.rows, qPrintable(result.path));
            QApplication::exit(result.end == Vantor::ListExportResult::End::Done ? 0 : 1);
        });
    job.SetModel(&model);
    if (argc > 1)
        job.Start(app.arguments().at(1)); // a name with ".csv" or ".xlsx"
    return QApplication::exec();
}
