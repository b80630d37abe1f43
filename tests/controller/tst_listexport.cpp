// SPDX-License-Identifier: MIT
#include "ExcelParts.h"
#include "support/Limits.h"
#include "support/Widgets.h"

#include <Vantor/CListExport>
#include <Vantor/CRowSource>

using Vantor::CListExport;
using Result = Vantor::ListExportResult;
using End = Result::End;
using Reason = Result::Reason;

namespace {

const QByteArray kMark = "\xEF\xBB\xBF";

// Rows "r,c"; may throw at one of them.
class CCells : public Vantor::CRowSource
{
public:
    CCells(int rows, int columns, int throws_at = -1)
        : rows_(rows), columns_(columns), throws_at_(throws_at)
    {}

    int RowCount() const override { return rows_; }
    int ColumnCount() const override { return columns_; }
    QString Title(int column) const override { return QString("title %1").arg(column); }
    QVariant Cell(int row, int column) const override
    {
        if (row == throws_at_)
            throw std::runtime_error("no such row");
        return QString("%1,%2").arg(row).arg(column);
    }

private:
    const int rows_;
    const int columns_;
    const int throws_at_;
};

// Texts "row N" in one column, without memory for them.
class CLongModel : public QAbstractTableModel
{
public:
    explicit CLongModel(int rows) : rows_(rows) {}

    int rowCount(const QModelIndex & = {}) const override { return rows_; }
    int columnCount(const QModelIndex & = {}) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (throws && index.row() > 5000)
            throw std::runtime_error("gone");
        return role == Qt::DisplayRole ? QString("row %1").arg(index.row()) : QVariant();
    }
    void RemoveLast()
    {
        beginRemoveRows({}, rows_ - 1, rows_ - 1);
        --rows_;
        endRemoveRows();
    }

    bool throws = false;

private:
    int rows_;
};

using Act = std::function<void()>;
using Interruption = Row<std::function<void(CListExport *, const Act &)>>; // when

// change, reason
const Rows<std::function<void(CLongModel *)>, Reason> kChangeRows = {
    {"a row goes", [](CLongModel *model) { model->RemoveLast(); }, Reason::ListChanged},
    {"the model goes", [](CLongModel *model) { delete model; }, Reason::ListChanged},
    {"the model throws", [](CLongModel *model) { model->throws = true; }, Reason::ListFailed},
};

const auto kNone = std::shared_ptr<CCells>();
const auto kCells = std::make_shared<CCells>(3, 2);
const auto kFailing = std::make_shared<CCells>(9000, 1, 5000);

// path, source, reason
const Rows<QString, std::shared_ptr<CCells>, Reason> kRefusalRows = {
    {"an unknown suffix", "out/a.ods", kCells, Reason::UnknownFormat},
    {"a missing folder", "missing/a.csv", kCells, Reason::NoFolder},
    {"a file in place of the folder", "out/a.csv/b.csv", kCells, Reason::NoFolder},
    {"a folder in place of the file", "out", kCells, Reason::UnknownFormat},
    {"a folder with a suffix", "folder.csv", kCells, Reason::Folder},
    {"a device", "device.csv", kCells, Reason::Device},
    {"links in a ring", "ring.csv", kCells, Reason::DeadLink},
    {"neither model nor source", "out/a.csv", kNone, Reason::NoColumns},
    {"no columns", "out/a.csv", std::make_shared<CCells>(3, 0), Reason::NoColumns},
    {"a source that throws", "out/a.csv", kFailing, Reason::ListFailed},
    {"the same for a workbook", "out/a.xlsx", kFailing, Reason::ListFailed},
};

} // namespace

class TestListExport : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        temporary_ = folder_.PutFolder("temporary");
        target_ = folder_.PutFolder("out") + "/a.csv";
    }

    // Nothing but `files` may be left once the workers are done.
    void ExpectFiles(const QStringList &files) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(FileNames(temporary_), QStringList(), 30000);
        QCOMPARE(FileNames(folder_.Path("out")), files);
    }

    Result Run(CListExport &job, const QString &path)
    {
        job.SetTemporaryFolder(temporary_);
        QSignalSpy finished(&job, &CListExport::SignalFinished);
        if (!job.Start(path) || (finished.isEmpty() && !finished.wait(30000)))
            return {};
        return finished.constFirst().constFirst().value<Result>();
    }

    QString temporary_;
    QString target_;

private Q_SLOTS:
    void aViewIsWrittenAsTheUserSeesIt()
    {
        QStandardItemModel model(0, 3);
        model.setHorizontalHeaderLabels({"a", "hidden", "=c"});
        for (const double number : {1.5, -2.0}) {
            auto *const cell = new QStandardItem;
            cell->setData(number, Qt::DisplayRole);
            model.appendRow({cell, new QStandardItem("x"), new QStandardItem("say \"hi\"\n;")});
        }
        QTreeView view;
        view.setModel(&model);
        view.header()->hideSection(1);
        view.header()->moveSection(2, 0);
        CListExport job;
        job.SetView(&view);
        QCOMPARE(job.Columns(), (QVector<int>{2, 0}));

        const Result csv = Run(job, target_);
        const Result xlsx = Run(job, folder_.Path("out/a.xlsx"));

        QCOMPARE(int(csv.end), int(End::Done));
        QCOMPARE(csv.rows, 2);
        QCOMPARE(FileBytes(target_), kMark
                                         + "\"'=c\",\"a\"\r\n\"say \"\"hi\"\"\n;\",\"1.5\"\r\n"
                                           "\"say \"\"hi\"\"\n;\",\"-2\"\r\n");
        QCOMPARE(int(xlsx.end), int(End::Done));
        const QByteArray sheet = ReadParts(xlsx.path).value("xl/worksheets/sheet1.xml");
        for (const char *const part :
             {"<v>1.5</v>", "<v>-2</v>", "state=\"frozen\"", "<autoFilter ref=\"A1:B3\"/>"})
            QVERIFY2(sheet.contains(part), sheet);
        QVERIFY(xlsx.notes.IsEmpty());
        ExpectFiles({"a.csv", "a.xlsx"});
    }

    void rowsThatASheetCannotHoldContinueOnTheNext()
    {
        CListExport job;
        job.SetSource(std::make_shared<CCells>(5, 2));
        Vantor::ListExportLook look;
        look.sheet_name = "List";
        look.rows_per_sheet = 2;
        QStringList at_end;
        look.on_end = [&at_end](Vantor::CExcelControllorWithC &, const QStringList &sheets) {
            at_end = sheets;
        };
        job.SetLook(look);

        const Result result = Run(job, folder_.Path("out/a.xlsx"));

        QCOMPARE(result.rows, 5);
        QCOMPARE(at_end, (QStringList{"List", "List 2", "List 3"}));
        const Parts parts = ReadParts(result.path);
        QVERIFY(parts["xl/worksheets/sheet2.xml"].contains("title 1"));
        QVERIFY(parts["xl/worksheets/sheet2.xml"].contains("3,1"));
        QVERIFY(!parts["xl/worksheets/sheet2.xml"].contains("4,0"));
        QVERIFY(parts["xl/worksheets/sheet3.xml"].contains("<autoFilter ref=\"A1:B2\"/>"));
    }

    void whatCannotBeWrittenSaysWhyAndLeavesTheEarlierFile_data() { AddRows(kRefusalRows); }

    void whatCannotBeWrittenSaysWhyAndLeavesTheEarlierFile()
    {
        const auto &[name, path, source, reason] = FetchRow(kRefusalRows);
        guard_.AnnounceLogLines();
        folder_.Put("out/a.csv", "earlier");
        folder_.PutFolder("folder.csv");
        QVERIFY(QFile::link("/dev/full", folder_.Path("device.csv")));
        QVERIFY(QFile::link(folder_.Path("ring.csv"), folder_.Path("ring2.csv")));
        QVERIFY(QFile::link(folder_.Path("ring2.csv"), folder_.Path("ring.csv")));
        CListExport job;
        job.SetSource(source);

        const Result result = Run(job, folder_.Path(path));

        QCOMPARE(int(result.end), int(End::Failed));
        QCOMPARE(int(result.reason), int(reason));
        QVERIFY(!result.can_save_again && !job.SaveAgain(target_));
        QCOMPARE(folder_.Bytes("out/a.csv"), QByteArray("earlier"));
        ExpectFiles({"a.csv"});
    }

    void aFullDiskKeepsTheBuiltFileForAnotherName()
    {
        const CSmallDisk disk(folder_.Path("small"), 64 * 1024);
        const QString earlier = folder_.Put("small/a.xlsx", "earlier");
        CListExport job;
        job.SetSource(std::make_shared<CCells>(40000, 2));

        const Result full = Run(job, earlier);
        job.SetSource(nullptr); // not read again
        QSignalSpy finished(&job, &CListExport::SignalFinished);
        QVERIFY(job.SaveAgain(folder_.Path("missing/a.xlsx")) && finished.wait(30000));
        QVERIFY(job.SaveAgain(folder_.Path("out/a.xlsx")) && finished.wait(30000));
        const auto saved = finished.at(1).constFirst().value<Result>();

        QCOMPARE(int(full.reason), int(Reason::DiskFull));
        QCOMPARE(FileBytes(earlier), QByteArray("earlier"));
        QCOMPARE(folder_.Files("small"), QStringList{"a.xlsx"});
        QCOMPARE(int(saved.end), int(End::Done));
        QCOMPARE(saved.rows, 40000);
        QVERIFY(!ReadParts(folder_.Path("out/a.xlsx")).isEmpty() && !job.SaveAgain(target_));
        ExpectFiles({"a.xlsx"});
    }

    void aFullTemporaryFolderIsNoticedOnTheWay()
    {
        guard_.AnnounceLogLines();
        const CSmallDisk disk(temporary_, 1024 * 1024);
        for (const char *const name : {"out/a.csv", "out/a.xlsx"}) {
            CListExport job;
            job.SetSource(std::make_shared<CCells>(500000, 4));

            const Result result = Run(job, folder_.Path(name));

            QCOMPARE(int(result.reason), int(Reason::TemporaryDiskFull));
            QVERIFY(result.rows < 200000);
            ExpectFiles({});
        }
    }

    void cancellingAndDeletingAtAnyTimeLeaveTheEarlierFile_data()
    {
        const auto in_progress = [](int share) {
            return [share](CListExport *job, const Act &act) {
                QObject::connect(job, &CListExport::SignalProgress, job,
                                 [share, act](int done, int total) {
                                     if (done * 100LL >= total * qint64{share})
                                         act();
                                 });
            };
        };
        const auto at_once = [](CListExport *, const Act &act) { act(); };
        AddRows<Interruption>({{"at once", at_once},
                               {"at the first progress", in_progress(0)},
                               {"half of the rows", in_progress(20)},
                               {"while it is saved", in_progress(44)}});
    }

    void cancellingAndDeletingAtAnyTimeLeaveTheEarlierFile()
    {
        const auto &when = std::get<1>(FetchRow<Interruption>());
        folder_.Put("out/a.xlsx", "earlier");
        CLongModel model(60000);
        const QPointer<CListExport> cancelled(new CListExport);
        const QPointer<CListExport> deleted(new CListExport);
        QSignalSpy finished(cancelled, &CListExport::SignalFinished);
        for (CListExport *const job : {cancelled.data(), deleted.data()}) {
            job->SetModel(&model);
            job->SetTemporaryFolder(temporary_);
            QVERIFY(job->Start(folder_.Path("out/a.xlsx"))); // two at once, to one file
            QVERIFY(!job->Start(target_));
        }
        when(deleted, [&deleted] { delete deleted; });
        when(cancelled, [&cancelled] { cancelled->Cancel(); });

        QTRY_VERIFY_WITH_TIMEOUT(!deleted && !finished.isEmpty(), 60000);
        QCOMPARE(int(finished.constFirst().constFirst().value<Result>().end), int(End::Cancelled));
        delete cancelled;
        ExpectFiles({"a.xlsx"});
        QCOMPARE(folder_.Bytes("out/a.xlsx"), QByteArray("earlier"));
    }

    void aListThatChangesOnTheWayIsNotTakenForAWholeOne_data() { AddRows(kChangeRows); }

    void aListThatChangesOnTheWayIsNotTakenForAWholeOne()
    {
        const auto &[name, change, reason] = FetchRow(kChangeRows);
        guard_.AnnounceLogLines();
        const QPointer<CLongModel> model(new CLongModel(2000000));
        CListExport job;
        job.SetModel(model);
        bool is_changed = false;
        connect(&job, &CListExport::SignalProgress, this, [&, &once = change] {
            if (!std::exchange(is_changed, true))
                once(model);
        });

        const Result result = Run(job, target_);

        QCOMPARE(int(result.reason), int(reason));
        delete model;
        ExpectFiles({});
    }

    void theLastSlotMayDeleteAndStartAgain()
    {
        CLongModel model(10);
        auto *const first = new CListExport;
        first->SetModel(&model);
        CListExport second;
        second.SetModel(&model);
        second.SetTemporaryFolder(temporary_);
        connect(first, &CListExport::SignalFinished, &second, [&, first] {
            delete first;
            QVERIFY(second.Start(folder_.Path("out/b.csv")));
        });
        QSignalSpy finished(&second, &CListExport::SignalFinished);
        first->SetTemporaryFolder(temporary_);
        QVERIFY(first->Start(target_));

        QVERIFY(finished.wait(30000));
        QCOMPARE(FileBytes(target_), folder_.Bytes("out/b.csv"));
        ExpectFiles({"a.csv", "b.csv"});
    }

    void theEarlierFilesLinkAndPermissionsStay()
    {
        const QString real = folder_.Put("out/real.csv", "earlier");
        const QString link = folder_.Path("out/link.csv");
        QVERIFY(QFile::link("real.csv", link));
        QVERIFY(QFile::setPermissions(real, QFile::ReadOwner | QFile::WriteOwner));
        CListExport job;
        job.SetSource(std::make_shared<CCells>(1, 1));

        QCOMPARE(int(Run(job, link).end), int(End::Done));

        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(FileBytes(real), kMark + "\"title 0\"\r\n\"0,0\"\r\n");
        QVERIFY(!QFile::permissions(real).testFlag(QFile::ReadGroup));
        Run(job, target_);
        QCOMPARE(QFile::permissions(target_),
                 QFile::permissions(folder_.Put("plain", ""))); // those of any new file
    }
};

int main(int argc, char **argv)
{
    AllowMounts();
    QApplication application(argc, argv);
    TestListExport test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_listexport.moc"
