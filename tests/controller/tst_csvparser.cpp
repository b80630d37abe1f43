// SPDX-License-Identifier: MIT
#include "letter/CsvLetter.h"
#include "support/Test.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/OS.h>
#include <Vantor/CCSVParser>

#include <QtGui/QStandardItemModel>

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
    static const QStringList pieces{",", ";",           "\"", "=", "@",    "\n",  "\r",
                                    " ", "\t",          "'",  "a", "12.5", "é",   "中文",
                                    "😀", QChar(0xD800), "::", "¦", "-1",   "text"};
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

using Cell = Row<QString, QString, QByteArray>; // separator, cell, written

struct Line
{
    const char *name;
    QString separator;
    bool is_checked;
    QStringList fields;
    QByteArray row;
};

// found: "-" when the line stays as it was
using Search = Row<QByteArray, QStringList, QStringList>; // content, keys, found

} // namespace

class TestCsvParser : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override { UseSeparator(","); }

private Q_SLOTS:
    void modelCellsAreWrittenInTheirClassicForm_data()
    {
        AddRows<Cell>({{"a number becomes a formula text", ",", "007", "\"'=\"\"007\"\"\""},
                       {"an empty cell too", ",", "", "\"'=\"\"\"\"\""},
                       {"an equals sign stays inside it", ",", "=1+1", "\"'=\"\"=1+1\"\"\""},
                       {"a comma is only quoted", ";", "a,b", "\"a,b\""},
                       {"two line breaks become blanks", ",", "a\nb\nc", "\"a b c\""},
                       {"and take the equals signs along", ",", "a=\nb=\nc", "\"a b c\""}});
    }

    void modelCellsAreWrittenInTheirClassicForm()
    {
        const auto [name, separator, cell, written] = FetchRow<Cell>();
        UseSeparator(separator);
        const auto model = ModelOf({{cell, "x"}});

        const QByteArray bytes = Export([&model](CCSVParser &parser) {
            parser.PrepareSourceData(nullptr);
            parser.PrepareSourceData(model.get());
        });

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
        AddRows<Line>({{"an equals sign in front", ",", true, {"=1", "a=1"}, "\"'=1\",\"a=1\"\r\n"},
                       {"an at sign in front", ",", true, {"@x", "x@"}, "\"'@x\",\"x@\"\r\n"},
                       {"both in front", ",", true, {"=@"}, "\"'=@\"\r\n"},
                       {"unchecked", ",", false, {"=1", "@x"}, "\"=1\",\"@x\"\r\n"},
                       {"empty fields", ",", true, {"", "a", ""}, "\"\",\"a\",\"\"\r\n"},
                       {"a comma where it separates", ",", true, {"a,b", "c"}, "\"a,b\",\"c\"\r\n"},
                       {"a semicolon where it does", ";", true, {"a;b", "c"}, "\"a;b\";\"c\"\r\n"},
                       {"a comma where semicolons do", ";", true, {"a,b"}, "\"a\";\"b\"\r\n"},
                       {"no fields leave no row", ",", true, {}, ""},
                       {"a separator of two bytes loses its last at the row end",
                        "¦",
                        true,
                        {"a", "b"},
                        "\"a\"\xC2\xA6\"b\"\xC2\r\n"}});
    }

    void linesAreGuardedAndQuoted()
    {
        const auto &line = FetchRow<Line>();
        UseSeparator(line.separator);

        const QByteArray bytes = Export([&line](CCSVParser &parser) {
            if (line.is_checked)
                parser.AppendLine(line.fields);
            else
                parser.AppendLineWithoutCheckSpecChar(line.fields);
        });

        QCOMPARE(bytes, kMark + line.row);
    }

    void bytesEqualThePlainForm_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("a new file") << int(Stream::Fresh);
        QTest::newRow("the end of a file") << int(Stream::Append);
        QTest::newRow("a pipe, which cannot step back") << int(Stream::Pipe);
    }

    // 200 exports of 1000 random lines each, half of them through a model, with all kinds of
    // separators.
    void bytesEqualThePlainForm()
    {
        const auto kind = Stream(*static_cast<int *>(QTest::qData("kind", QMetaType::Int)));
        const QStringList separators{",", ";", "\t", QStringLiteral("¦"), "::", "=", "'", "\""};
        QRandomGenerator random(20261121);
        for (int round = 0; round < 200; ++round) {
            const QString separator = separators.at(round % separators.size());
            UseSeparator(separator);
            for (const char *const name : {"a.csv", "plain.csv"})
                folder_.Put(name, "old\n");
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
        const QString emoji = QString("😀").repeated(40000); // at odd places, too
        const QString longest = '"' + QString(300000, '"') + emoji + 'a' + emoji + '"';

        const QByteArray bytes = Export([&longest](CCSVParser &parser) {
            parser.AppendLine({longest, "b"});
        });

        const QString line = Letter::JoinLine({longest, "b"}, true, Vantor::GetLocalListSperator);
        QCOMPARE(bytes, PlainExport({line}, ",", Stream::Fresh, kMark));
    }

    void theHeaderComesOnceAndIsGuarded()
    {
        QStandardItemModel model(0, 2); // without rows
        model.setHorizontalHeaderLabels({"=A", "B"});
        const QByteArray bytes = Export([&model](CCSVParser &parser) {
            parser.PrepareSourceData(&model);
            parser.PrepareSourceData(&model);
        });
        QCOMPARE(bytes, kMarkAndZero + "\"'=A\",\"B\"\r\n");
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
            QVERIFY(!parser.OpenFile({}) && !parser.OpenFileWithAppendMode({})); // changes nothing
        });

        QCOMPARE(bytes, kMark + "\"open\nend\n\"\r\n\"next\"\r\n");
    }

    void anOpenThatFailsForgetsTheLines()
    {
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        parser.AppendLine({"lost"});

        QVERIFY(!parser.OpenFile(folder_.Path("missing/a.csv")));

        const QString path = folder_.Path("b.csv");
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

    void aClosedFileTakesAndGivesNothing()
    {
        guard_.AnnounceLogLines();
        const QString path = folder_.Path("a.csv");
        CCSVParser parser(nullptr);
        QSignalSpy over(&parser, &CCSVParser::SignalWriteOver);
        parser.CloseFile();
        QVERIFY(parser.OpenFile(path));
        parser.CloseFile();
        parser.CloseFile();
        QCOMPARE(over.count(), 3); // each call emits it
        QString line = "as it was";

        parser.AppendLine({"late"});
        parser.WriteCSVFile();
        parser.ReadOneline(line, QString());

        QCOMPARE(FileBytes(path), QByteArray());
        QCOMPARE(line, "as it was");
        QVERIFY(parser.HasWriteError()); // the late line is nowhere
    }

    void aLineIsFoundFromWhereTheLastSearchEnded_data()
    {
        const QByteArray longest = QByteArray(255, 'x') + "KEY" + QByteArray(300, 'y') + "\r\n";
        AddRows<Search>({{"with its line break", "one\r\ntwo\r\n", {"tw"}, {"two\r\n"}},
                         {"case counts", "key\nKEY\n", {"KEY"}, {"KEY\n"}},
                         {"the second key is searched behind the first",
                          "a\nb\na\n",
                          {"b", "a", "a"},
                          {"b\n", "a\n", "-"}},
                         {"a long line gives the piece that holds the key",
                          longest,
                          {"KEY"},
                          {longest.mid(255, 255)}},
                         {"the last line may lack its break", "a\nb", {"b"}, {"b"}},
                         {"an empty file leaves the line as it was", "", {"a"}, {"-"}},
                         {"a header behind mark and zero byte",
                          kMarkAndZero + "\"Name\"\r\n",
                          {"Name"},
                          {QChar(0) + QString("\"Name\"\r\n")}}});
    }

    void aLineIsFoundFromWhereTheLastSearchEnded()
    {
        const auto &[name, content, keys, found] = FetchRow<Search>();
        const QString path = folder_.Put("a.csv", content);
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
        const QString path = folder_.Put("a.csv", "a\nb\n");
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
        QTest::addColumn<int>("kind");
        const char *const kinds[] = {"a new file", "the end of a file", "a pipe"};
        for (const char *const separator : {",", ";", "\t", "\u00A6"}) {
            for (int kind = 0; kind < 3; ++kind)
                QTest::addRow("%s on %s", separator, kinds[kind]) << QString(separator) << kind;
        }
    }

    void rfc4180FieldsComeBackAsTheyWere()
    {
        QFETCH(QString, separator);
        QFETCH(int, kind);
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
            Stream(kind), true);

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

    void theSeparatorFallsBackToAComma()
    {
        const std::function<bool(QString &)> sources[] = {
            [](QString &answer) {
                answer = "x";
                return false;
            },
            [](QString &) { return true; }, // an empty answer
            [](QString &) -> bool { throw std::runtime_error("no locale"); }};
        for (const auto &source : sources) {
            Nim::Base::OS::SetListSeparatorSource(source);
            QCOMPARE(Vantor::GetLocalListSperator(), ",");
        }
    }

private:
    using Fill = std::function<void(CCSVParser &)>;

    // What an export leaves on a stream of that kind. Appending goes on from "old\n", or from
    // nothing when `is_empty`.
    QByteArray Export(const Fill &fill, Stream kind = Stream::Fresh, bool rfc4180 = false,
                      bool is_empty = true)
    {
        const QString path = folder_.Path("a.csv");
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
        const QString path = folder_.Path("plain.csv");
        CPipe pipe;
        std::FILE *const stream = Nim::Base::FileSystem::OpenShared(
            kind == Stream::Pipe ? pipe.Path() : path, kind == Stream::Append ? "ab+" : "wb");
        if (kind != Stream::Append)
            std::fwrite(mark.constData(), 1, static_cast<size_t>(mark.size()), stream);
        Letter::WriteLines(stream, lines, false, separator);
        std::fclose(stream);
        return kind == Stream::Pipe ? pipe.Bytes() : FileBytes(path);
    }
};

QTEST_MAIN(TestCsvParser)
#include "tst_csvparser.moc"
