// SPDX-License-Identifier: MIT
#include "letter/CsvLetter.h"
#include "support/Files.h"
#include "support/TestGuard.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/OS.h>
#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CCSVParser>

#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtGui/QStandardItemModel>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <functional>

using Vantor::CCSVParser;

namespace {

const QByteArray kMark = QByteArrayLiteral("\xEF\xBB\xBF");
const QByteArray kMarkAndZero = QByteArray("\xEF\xBB\xBF\0", 4);

void UseSeparator(const QString &separator)
{
    Nim::Base::OS::SetListSeparatorSource([separator](QString &answer) {
        answer = separator;
        return true;
    });
}

// One row of `cells` below headers H1, H2, …
std::unique_ptr<QStandardItemModel> ModelOf(const QList<QStringList> &rows)
{
    auto model = std::make_unique<QStandardItemModel>();
    for (const QStringList &row : rows) {
        QList<QStandardItem *> items;
        for (const QString &cell : row)
            items.append(new QStandardItem(cell));
        model->appendRow(items);
    }
    for (int column = 0; column < model->columnCount(); ++column)
        model->setHeaderData(column, Qt::Horizontal, QStringLiteral("H%1").arg(column + 1));
    return model;
}

// Cells that are likely to hold what the rules look at.
QString RandomCell(QRandomGenerator &random)
{
    static const QStringList pieces{
        ",",
        ";",
        "\"",
        "=",
        "@",
        "\n",
        "\r",
        " ",
        "\t",
        "'",
        "a",
        "12.5",
        QStringLiteral("é"),
        QStringLiteral("中文"),
        QStringLiteral("😀"),
        QString(QChar(0xD800)),
        "::",
        QStringLiteral("¦"),
        "-1",
        "text",
    };
    QString cell;
    for (int i = random.bounded(6); i > 0; --i)
        cell += pieces.at(random.bounded(pieces.size()));
    return cell;
}

QStringList RandomFields(QRandomGenerator &random)
{
    QStringList fields;
    for (int i = random.bounded(5); i >= 0; --i)
        fields.append(RandomCell(random));
    return fields;
}

enum class Stream { Fresh, Append, Pipe };

} // namespace

Q_DECLARE_METATYPE(Stream)

class TestCsvParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        folder_ = std::make_unique<QTemporaryDir>();
        UseSeparator(",");
    }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void modelCellsAreWrittenInTheirClassicForm_data()
    {
        QTest::addColumn<QString>("separator");
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QByteArray>("written");
        const QString comma = ",";
        const QString semicolon = ";";

        QTest::newRow("a number becomes a formula text")
            << comma << "007" << QByteArray("\"'=\"\"007\"\"\"");
        QTest::newRow("an empty cell too") << comma << "" << QByteArray("\"'=\"\"\"\"\"");
        QTest::newRow("an equals sign stays inside it")
            << comma << "=1+1" << QByteArray("\"'=\"\"=1+1\"\"\"");
        QTest::newRow("a comma is only quoted") << semicolon << "a,b" << QByteArray("\"a,b\"");
        QTest::newRow("two line breaks become blanks")
            << comma << "a\nb\nc" << QByteArray("\"a b c\"");
        QTest::newRow("two line breaks take the equals signs along")
            << comma << "a=\nb=\nc" << QByteArray("\"a b c\"");
    }

    void modelCellsAreWrittenInTheirClassicForm()
    {
        QFETCH(QString, separator);
        QFETCH(QString, cell);
        QFETCH(QByteArray, written);
        UseSeparator(separator);
        const auto model = ModelOf({{cell, "x"}});

        const QByteArray bytes =
            Export([&model](CCSVParser &parser) { parser.PrepareSourceData(model.get()); });

        const QByteArray between = separator.toUtf8();
        QCOMPARE(bytes, kMarkAndZero + "\"H1\"" + between + "\"H2\"\r\n" + written + between
                            + "\"'=\"\"x\"\"\"\r\n");
    }

    // Importers were built around these very bytes; docs/known-behaviour.md describes them.
    void aCellThatHoldsTheSeparatorSwallowsTheNextRow()
    {
        const auto model = ModelOf({{"c", "a,b"}, {"d", "e"}});

        const QByteArray bytes =
            Export([&model](CCSVParser &parser) { parser.PrepareSourceData(model.get()); });

        QCOMPARE(bytes, kMarkAndZero
                            + "\"H1\",\"H2\"\r\n"
                              "\"'=\"\"c\"\"\",\"\"\"a,b\"\"\n'=\"\"d\",\"'=\"\"e\"\"\"\r\n");
    }

    void linesAreGuardedAndQuoted_data()
    {
        QTest::addColumn<QString>("separator");
        QTest::addColumn<bool>("checked");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QByteArray>("row");
        const QString comma = ",";
        const QString semicolon = ";";

        QTest::newRow("a leading equals sign gets an apostrophe")
            << comma << true << QStringList{"=1", "a=1"} << QByteArray("\"'=1\",\"a=1\"\r\n");
        QTest::newRow("a leading at sign gets one")
            << comma << true << QStringList{"@x", "x@"} << QByteArray("\"'@x\",\"x@\"\r\n");
        QTest::newRow("an equals sign before an at sign gets one")
            << comma << true << QStringList{"=@"} << QByteArray("\"'=@\"\r\n");
        QTest::newRow("unchecked fields stay as they are")
            << comma << false << QStringList{"=1", "@x"} << QByteArray("\"=1\",\"@x\"\r\n");
        QTest::newRow("empty fields are written as empty quotes")
            << comma << true << QStringList{"", "a", ""} << QByteArray("\"\",\"a\",\"\"\r\n");
        QTest::newRow("a comma is enclosed where it separates")
            << comma << true << QStringList{"a,b", "c"} << QByteArray("\"a,b\",\"c\"\r\n");
        QTest::newRow("a semicolon is enclosed where it separates")
            << semicolon << true << QStringList{"a;b", "c"} << QByteArray("\"a;b\";\"c\"\r\n");
        QTest::newRow("a comma splits a field where semicolons separate")
            << semicolon << true << QStringList{"a,b"} << QByteArray("\"a\";\"b\"\r\n");
        QTest::newRow("a line of no fields leaves no row")
            << comma << true << QStringList{} << QByteArray();
        QTest::newRow("a separator of two bytes loses its last at the row end")
            << QStringLiteral("¦") << true << QStringList{"a", "b"}
            << QByteArray("\"a\"\xC2\xA6\"b\"\xC2\r\n");
    }

    void linesAreGuardedAndQuoted()
    {
        QFETCH(QString, separator);
        QFETCH(bool, checked);
        QFETCH(QStringList, fields);
        QFETCH(QByteArray, row);
        UseSeparator(separator);

        const QByteArray bytes = Export([checked, &fields](CCSVParser &parser) {
            if (checked)
                parser.AppendLine(fields);
            else
                parser.AppendLineWithoutCheckSpecChar(fields);
        });

        QCOMPARE(bytes, kMark + row);
    }

    void bytesEqualThePlainForm_data()
    {
        QTest::addColumn<Stream>("kind");
        QTest::newRow("a new file") << Stream::Fresh;
        QTest::newRow("the end of a file") << Stream::Append;
        QTest::newRow("a pipe, which cannot step back") << Stream::Pipe;
    }

    // 200 exports of 1000 random lines each, half of them through a model, with all kinds of
    // separators.
    void bytesEqualThePlainForm()
    {
        QFETCH(Stream, kind);
        const QStringList separators{",", ";", "\t", QStringLiteral("¦"), "::", "=", "'", "\""};
        QRandomGenerator random(20261121);
        for (int round = 0; round < 200; ++round) {
            const QString separator = separators.at(round % separators.size());
            UseSeparator(separator);
            for (const char *const name : {"a.csv", "plain.csv"})
                WriteBytes(folder_->filePath(name), "old\n");
            QList<QStringList> rows;
            for (int row = 0; row < 500; ++row)
                rows.append(RandomFields(random));
            const auto model = ModelOf(rows);
            QStringList lines =
                Letter::CollectModel(*model, kind != Stream::Append, Vantor::GetLocalListSperator);
            const auto fill = [&](CCSVParser &parser) {
                parser.PrepareSourceData(model.get());
                for (int row = 0; row < 500; ++row) {
                    const QStringList fields = RandomFields(random);
                    const bool guarded = random.bounded(2) == 0;
                    lines.append(Letter::JoinLine(fields, guarded, Vantor::GetLocalListSperator));
                    if (guarded)
                        parser.AppendLine(fields);
                    else
                        parser.AppendLineWithoutCheckSpecChar(fields);
                }
            };

            const QByteArray ours = Export(fill, kind);

            QCOMPARE(ours, PlainExport(lines, separator, kind));
        }
    }

    void aLongFieldGoesThroughWhole()
    {
        const QString longest = QString(300000, QLatin1Char('"')) + QString(300000, QChar(0x4E2D));

        const QByteArray bytes = Export([&longest](CCSVParser &parser) {
            parser.AppendLine({QLatin1Char('"') + longest + QLatin1Char('"'), "b"});
        });

        QCOMPARE(bytes,
                 PlainExport({Letter::JoinLine({QLatin1Char('"') + longest + QLatin1Char('"'), "b"},
                                               true, Vantor::GetLocalListSperator)},
                             ",", Stream::Fresh, kMark));
        QVERIFY(bytes.size() > 1200000);
    }

    void aModelWithoutRowsYieldsTheHeaderOnly()
    {
        QStandardItemModel model(0, 2);
        model.setHorizontalHeaderLabels({"=A", "B"});

        const QByteArray bytes = Export([&model](CCSVParser &parser) {
            parser.PrepareSourceData(nullptr);
            parser.PrepareSourceData(&model);
            parser.PrepareSourceData(&model);
        });

        QCOMPARE(bytes, kMarkAndZero + "\"'=A\",\"B\"\r\n");
    }

    void rowsOfATreeModelAreExported()
    {
        Ravel::CTreeViewModel model;
        model.SetHorizontalHeaderLabels({"A", "B"});
        model.InsertTopLevelItems(0, {new Ravel::CTreeViewItem({"1"})});

        const QByteArray bytes =
            Export([&model](CCSVParser &parser) { parser.PrepareSourceData(&model); });

        QCOMPARE(bytes, kMarkAndZero + "\"A\",\"B\"\r\n\"'=\"\"1\"\"\",\"'=\"\"\"\"\"\r\n");
    }

    void appendingLeavesEarlierBytesAndAddsNoMark()
    {
        const QString path = folder_->filePath("a.csv");
        Export([](CCSVParser &parser) { parser.AppendLine({"1"}); });

        const QByteArray bytes = Export(
            [](CCSVParser &parser) {
                parser.AppendLine({"2", "3"});
            },
            Stream::Append);

        // Nothing at the end of such a file can be overwritten, so the last separator stays.
        QCOMPARE(bytes, kMark + "\"1\"\r\n\"2\",\"3\",\r\n");
        QVERIFY(QFile::exists(path));
    }

    void aWriteForgetsItsLinesAndTheParserIsReadyForMore()
    {
        const QByteArray bytes = Export([](CCSVParser &parser) {
            // An open quote runs on into the next line and is delivered at the end of its own write
            // only.
            parser.AppendLine({"\"open"});
            parser.AppendLine({"end"});
            parser.WriteCSVFile();
            parser.AppendLine({"next"});
        });

        QCOMPARE(bytes, kMark + "\"open\nend\n\"\r\n\"next\"\r\n");
    }

    void anEmptyPathIsRefusedAndChangesNothing()
    {
        const QByteArray bytes = Export([](CCSVParser &parser) {
            parser.AppendLine({"kept"});
            QVERIFY(!parser.OpenFile({}));
            QVERIFY(!parser.OpenFileWithAppendMode({}));
        });

        QCOMPARE(bytes, kMark + "\"kept\"\r\n");
    }

    void anOpenThatFailsForgetsTheLines()
    {
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        parser.AppendLine({"lost"});

        QVERIFY(!parser.OpenFile(folder_->filePath("missing/a.csv")));

        const QString path = folder_->filePath("b.csv");
        parser.WriteCSVFile(); // no stream: writes nothing
        QVERIFY(parser.OpenFile(path));
        parser.WriteCSVFile();
        parser.CloseFile();
        QCOMPARE(FileBytes(path), kMark);
        QVERIFY(!parser.HasWriteError());
        QCOMPARE(guard_.LogLines().size(), 1);
        QVERIFY(guard_.LogLines().constFirst().contains(
            "missing/a.csv cannot be opened: No such file"));
    }

    void closingAlwaysTells()
    {
        CCSVParser parser(nullptr);
        QSignalSpy over(&parser, &CCSVParser::SignalWriteOver);
        parser.CloseFile();
        QVERIFY(parser.OpenFile(folder_->filePath("a.csv")));

        parser.CloseFile();
        parser.CloseFile();

        QCOMPARE(over.count(), 3);
    }

    void aClosedFileTakesAndGivesNothing()
    {
        guard_.AnnounceLogLines();
        const QString path = folder_->filePath("a.csv");
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(path));
        parser.CloseFile();
        QString line = "as it was";

        parser.AppendLine({"late"});
        parser.WriteCSVFile();
        const auto model = ModelOf({{"late"}});
        parser.PrepareSourceData(model.get());
        parser.ReadOneline(line, QString());

        QCOMPARE(FileBytes(path), QByteArray());
        QCOMPARE(line, "as it was");
        QVERIFY(parser.HasWriteError()); // the late line is nowhere
    }

    void aLineIsFoundFromWhereTheLastSearchEnded_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QStringList>("found");
        const QByteArray longest = QByteArray(255, 'x') + "KEY" + QByteArray(300, 'y') + "\r\n";

        QTest::newRow("with its line break")
            << QByteArray("one\r\ntwo\r\n") << QStringList{"tw"} << QStringList{"two\r\n"};
        QTest::newRow("case counts")
            << QByteArray("key\nKEY\n") << QStringList{"KEY"} << QStringList{"KEY\n"};
        QTest::newRow("the second key is searched behind the first")
            << QByteArray("a\nb\na\n") << QStringList{"b", "a", "a"}
            << QStringList{"b\n", "a\n", "-"};
        QTest::newRow("a long line gives the piece that holds the key")
            << longest << QStringList{"KEY"}
            << QStringList{QString::fromLatin1(longest.mid(255, 255))};
        QTest::newRow("the last line may lack its break")
            << QByteArray("a\nb") << QStringList{"b"} << QStringList{"b"};
        QTest::newRow("an empty file leaves the line as it was")
            << QByteArray() << QStringList{"a"} << QStringList{"-"};
        QTest::newRow("a header behind mark and zero byte")
            << kMarkAndZero + "\"Name\"\r\n"
            << QStringList{"Name"} << QStringList{QChar(0) + QString("\"Name\"\r\n")};
    }

    void aLineIsFoundFromWhereTheLastSearchEnded()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, keys);
        QFETCH(QStringList, found);
        const QString path = folder_->filePath("a.csv");
        WriteBytes(path, content);
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFileWithAppendMode(path));

        QStringList lines;
        for (const QString &key : keys) {
            QString line = "-";
            parser.ReadOneline(line, key);
            lines.append(line);
        }

        parser.CloseFile();
        QCOMPARE(lines, found);
    }

    void searchAndWriteMayAlternate()
    {
        const QString path = folder_->filePath("a.csv");
        WriteBytes(path, "a\nb\n");
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFileWithAppendMode(path));
        QString line;
        parser.ReadOneline(line, "a");

        parser.AppendLine({"c"});
        parser.WriteCSVFile();
        parser.ReadOneline(line, "b");
        parser.CloseFile();

        QCOMPARE(FileBytes(path), QByteArray("a\nb\n\"c\",\r\n"));
        QCOMPARE(line, "a\n"); // writing went to the end, and so did the search
    }

    void rfc4180FieldsComeBackAsTheyWere_data()
    {
        QTest::addColumn<QString>("separator");
        QTest::addColumn<Stream>("kind");
        const char *const kinds[] = {"a new file", "the end of a file", "a pipe"};
        const QStringList separators{",", ";", "\t", "\u00A6"};
        for (const QString &separator : separators) {
            for (const Stream kind : {Stream::Fresh, Stream::Append, Stream::Pipe}) {
                const QString row = separator + " on " + kinds[static_cast<int>(kind)];
                QTest::newRow(qPrintable(row)) << separator << kind;
            }
        }
    }

    void rfc4180FieldsComeBackAsTheyWere()
    {
        QFETCH(QString, separator);
        QFETCH(Stream, kind);
        UseSeparator(separator);
        QList<QStringList> rows{{"a,b", "c;d"},
                                {"one\nbreak", "x\r\n"},
                                {"say \"hi\"", "\""},
                                {"  blanks  ", QString()},
                                {"two\n\nbreaks = kept", QStringLiteral("é 中文 😀")}};
        const auto model = ModelOf(rows);

        const QByteArray bytes = Export(
            [&model](CCSVParser &parser) {
                parser.SetRfc4180(true);
                parser.OpenFile(QString()); // refused; the mode stays
                parser.PrepareSourceData(model.get());
            },
            kind, true);

        QByteArray expected = kMark;
        rows.prepend({"H1", "H2"});
        for (const QStringList &row : qAsConst(rows)) {
            QStringList quoted;
            for (QString cell : row)
                quoted.append(QLatin1Char('"') + cell.replace(QLatin1Char('"'), "\"\"")
                              + QLatin1Char('"'));
            expected += quoted.join(separator).toUtf8() + "\r\n";
        }
        QCOMPARE(bytes, expected);
    }

    void rfc4180AppendingToAFileWithRowsAddsRowsOnly()
    {
        Export([](CCSVParser &parser) { parser.AppendLine({"1"}); }, Stream::Fresh, true);
        const auto model = ModelOf({{"2"}});

        const QByteArray bytes =
            Export([&model](CCSVParser &parser) { parser.PrepareSourceData(model.get()); },
                   Stream::Append, true, false);

        QCOMPARE(bytes, kMark + "\"1\"\r\n\"2\"\r\n");
    }

    void rfc4180GuardsFormulas_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<bool>("is_formula");
        for (const char *const formula :
             {"=1", "+1+1", "-a", "-1,2.3", "@a", "\t=1", "\r=1", "  =1", " \n-2+3", "\xC2\xA0=1",
              "\xEF\xBB\xBF=1", "\xE2\x80\x8B=1",
              "\xEF\xBC\x9D"
              "1",
              "\x01=1"})
            QTest::addRow("%s", QByteArray(formula).toPercentEncoding().constData())
                << QString::fromUtf8(formula) << true;
        for (const char *const text :
             {"", " ", "1", "a=1", "'=1", "1-2", "(=1)", "-5", "+1.5", " -2,5"})
            QTest::addRow("[%s]", text) << QString::fromUtf8(text) << false;
    }

    void rfc4180GuardsFormulas()
    {
        QFETCH(QString, field);
        QFETCH(bool, is_formula);

        const QByteArray bytes = Export(
            [&field](CCSVParser &parser) {
                parser.AppendLine({field});
                parser.AppendLineWithoutCheckSpecChar({field});
            },
            Stream::Fresh, true);

        const QByteArray apostrophe = is_formula ? "'" : "";
        QCOMPARE(bytes, kMark + "\"" + apostrophe + field.toUtf8() + "\"\r\n\"" + field.toUtf8()
                            + "\"\r\n");
    }

    void theSeparatorFallsBackToAComma_data()
    {
        QTest::addColumn<int>("source");
        QTest::newRow("the system gives none") << 0;
        QTest::newRow("the answer is empty") << 1;
        QTest::newRow("the source throws") << 2;
    }

    void theSeparatorFallsBackToAComma()
    {
        QFETCH(int, source);
        Nim::Base::OS::SetListSeparatorSource([source](QString &answer) {
            if (source == 2)
                throw std::runtime_error("no locale");
            answer = source == 0 ? "x" : QString();
            return source == 1;
        });

        QCOMPARE(Vantor::GetLocalListSperator(), ",");
    }

private:
    using Fill = std::function<void(CCSVParser &)>;

    static void WriteBytes(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    // What an export leaves on a stream of that kind. Appending goes on from "old\n", or from
    // nothing when `is_empty`.
    QByteArray Export(const Fill &fill, Stream kind = Stream::Fresh, bool rfc4180 = false,
                      bool is_empty = true)
    {
        const QString path = folder_->filePath("a.csv");
        if (kind == Stream::Append && rfc4180 && is_empty)
            QFile::remove(path);
        CPipe pipe;
        CCSVParser parser(nullptr);
        parser.SetRfc4180(rfc4180);
        const bool is_open = kind == Stream::Append
                                 ? parser.OpenFileWithAppendMode(path)
                                 : parser.OpenFile(kind == Stream::Pipe ? pipe.Path() : path);
        if (!is_open)
            return "not opened";
        fill(parser);
        parser.WriteCSVFile();
        parser.CloseFile();
        return kind == Stream::Pipe ? pipe.Bytes() : FileBytes(path);
    }

    // The same lines through the plain form, on a stream of that kind.
    QByteArray PlainExport(const QStringList &lines, const QString &separator, Stream kind,
                           const QByteArray &mark = kMarkAndZero)
    {
        const QString path = folder_->filePath("plain.csv");
        CPipe pipe;
        std::FILE *const stream = Nim::Base::FileSystem::OpenShared(
            kind == Stream::Pipe ? pipe.Path() : path, kind == Stream::Append ? "ab+" : "wb");
        if (kind != Stream::Append)
            std::fwrite(mark.constData(), 1, static_cast<size_t>(mark.size()), stream);
        Letter::WriteLines(stream, lines, false, separator);
        std::fclose(stream);
        return kind == Stream::Pipe ? pipe.Bytes() : FileBytes(path);
    }

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
};

QTEST_MAIN(TestCsvParser)
#include "tst_csvparser.moc"
