// SPDX-License-Identifier: MIT
// Writes rows that are in no item model to a file: export FILE.csv, or export FILE.xlsx
#include <Vantor/CListExport>
#include <Vantor/CRowSource>

#include <QtWidgets/QApplication>

#include <memory>

namespace {

// A snapshot: the export's worker thread reads it, and nothing changes it any more.
class CReadings : public Vantor::CRowSource
{
public:
    int RowCount() const override { return 100000; }
    int ColumnCount() const override { return 2; }
    QString Title(int column) const override { return column == 0 ? "Sensor" : "Degrees"; }
    QVariant Cell(int row, int column) const override
    {
        return column == 0 ? QVariant(QString("Sensor %1").arg(row % 40))
                           : QVariant(row % 30 + 0.5);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc != 2)
        qFatal("usage: export FILE.csv|FILE.xlsx");

    using Result = Vantor::ListExportResult;
    Vantor::CListExport job;
    QObject::connect(&job, &Vantor::CListExport::SignalFinished, [](const Result &result) {
        qInfo("%d rows in %s %s", result.rows, qPrintable(result.path),
              qPrintable(result.system_text));
        QApplication::exit(result.end == Result::End::Done ? 0 : 1);
    });
    job.SetSource(std::make_shared<CReadings>());
    job.Start(app.arguments().at(1));
    return QApplication::exec();
}
