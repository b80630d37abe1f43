// SPDX-License-Identifier: MIT
#include "letter/CsvLetter.h"
#include "support/Test.h"

#include <CsvParse/CsvParse.h>
#include <Nim/Base/FileSystem.h>
#include <Nim/Base/OS.h>
#include <Vantor/CCSVParser>

#include <csv.h>

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

// What a parser reports, in the QByteArray `seen`.
void NoteField(void *bytes, size_t length, void *seen)
{
    const QByteArray field(static_cast<const char *>(bytes), static_cast<int>(length));
    static_cast<QByteArray *>(seen)->append('<' + field + '>');
}
void NoteRow(int terminator, void *seen)
{
    static_cast<QByteArray *>(seen)->append(static_cast<char>(terminator));
}

enum class Stream { Fresh, Append, Pipe };

const Rows<Stream> kStreamRows = {
    {"a new file", Stream::Fresh},
    {"the end of a file", Stream::Append},
    {"a pipe, which cannot step back", Stream::Pipe},
};

const Rows<QString, Stream> kSeparatorRows = {
    {"commas in a new file", ",", Stream::Fresh},
    {"semicolons at the end of a file", ";", Stream::Append},
    {"tabs in a pipe", "\t", Stream::Pipe},
    {"a separator of two bytes", "\u00A6", Stream::Fresh},
};

const QByteArray kLongLine = QByteArray(255, 'x') + "KEY" + QByteArray(300, 'y') + "\r\n";

// content, keys, found ("-": the line stays as it was)
const Rows<QByteArray, QStringList, QStringList> kSearchRows = {
    {"with its line break", "one\r\ntwo\r\n", {"tw"}, {"two\r\n"}},
    {"case counts", "key\nKEY\n", {"KEY"}, {"KEY\n"}},
    {"behind the first key", "a\nb\na\n", {"b", "a", "a"}, {"b\n", "a\n", "-"}},
    {"the piece of a long line", kLongLine, {"KEY"}, {kLongLine.mid(255, 255)}},
    {"the last line may lack its break", "a\nb", {"b"}, {"b"}},
    {"an empty file leaves the line as it was", "", {"a"}, {"-"}},
    {"behind mark and zero byte", kMarkAndZero + "Name", {"Name"}, {QChar(0) + QString("Name")}},
};

} // namespace

class TestCsvParser : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override { UseSeparator(","); }

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

private Q_SLOTS:
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

    void bytesEqualThePlainForm_data() { AddRows(kStreamRows); }

    // 200 exports of 1000 random lines each, half of them through a model, with all kinds of
    // separators.
    void bytesEqualThePlainForm()
    {
        const Stream kind = std::get<1>(FetchRow(kStreamRows));
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

    void readingEqualsLibcsv()
    {
        const QByteArray delimiters = ",;\t|x";
        QRandomGenerator random(20261122);
        for (int round = 0; round < 20000; ++round) {
            const char delimiter = delimiters.at(random.bounded(delimiters.size()));
            const bool keeps_blanks = random.bounded(2) == 0;
            csv_parser plain;
            csv_init(&plain, 0);
            csv_set_delim(&plain, static_cast<unsigned char>(delimiter));
            if (keeps_blanks)
                csv_set_space_func(&plain, [](unsigned char) { return 0; });
            csvparse_parser parser;
            csvparse_init(&parser, 0);
            csvparse_set_delimiter(&parser, delimiter);
            csvparse_keep_blanks(&parser, keeps_blanks ? 1 : 0);
            QByteArray bytes;
            QByteArray expected;
            QByteArray seen;
            const QByteArray alphabet = QByteArray("\"\"\n\r ab\0", 8) + delimiter;
            for (int piece = random.bounded(5); piece >= 0; --piece) {
                QByteArray part;
                for (int i = random.bounded(20); i > 0; --i)
                    part += alphabet.at(random.bounded(alphabet.size()));
                bytes += part;
                const auto size = static_cast<size_t>(part.size());
                csv_parse(&plain, part.constData(), size, NoteField, NoteRow, &expected);
                csvparse_parse(&parser, part.constData(), size, NoteField, NoteRow, &seen);
                const bool is_quoted = plain.pstate == 2 && plain.quoted != 0;
                QCOMPARE(csvparse_is_in_quotes(&parser) != 0, is_quoted);
            }
            csv_fini(&plain, NoteField, NoteRow, &expected);
            csvparse_fini(&parser, NoteField, NoteRow, &seen);
            csv_free(&plain);
            csvparse_free(&parser);
            QVERIFY2(seen == expected, bytes.toPercentEncoding());
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
            parser.AppendLine({"=next", "@a"});
            parser.AppendLineWithoutCheckSpecChar({"=next", "@a"});
            QVERIFY(!parser.OpenFile({}) && !parser.OpenFileWithAppendMode({})); // changes nothing
        });

        QCOMPARE(bytes, kMark + "\"open\nend\n\"\r\n\"'=next\",\"'@a\"\r\n\"=next\",\"@a\"\r\n");
    }

    void anOpenThatFailsForgetsTheLines()
    {
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        parser.AppendLine({"lost"});

        QVERIFY(!parser.OpenFile(folder_.Path("missing/a.csv")));
        QVERIFY(!parser.OpenFileWithAppendMode(folder_.Path()));
        QCOMPARE(errno, EISDIR);

        const QString path = folder_.Path("b.csv");
        parser.WriteCSVFile(); // no stream: writes nothing
        QVERIFY(parser.OpenFile(path));
        parser.WriteCSVFile();
        parser.CloseFile();
        QCOMPARE(FileBytes(path), kMark);
        QVERIFY(!parser.HasWriteError());
        QCOMPARE(guard_.LogLines().size(), 2);
        QVERIFY(guard_.LogLines().at(0).contains("missing/a.csv cannot be opened: No such file"));
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

    void aLineIsFoundFromWhereTheLastSearchEnded_data() { AddRows(kSearchRows); }

    void aLineIsFoundFromWhereTheLastSearchEnded()
    {
        const auto &[name, content, keys, found] = FetchRow(kSearchRows);
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

    void rfc4180FieldsComeBackAsTheyWere_data() { AddRows(kSeparatorRows); }

    void rfc4180FieldsComeBackAsTheyWere()
    {
        const auto &[name, separator, kind] = FetchRow(kSeparatorRows);
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

        QString expected;
        rows.prepend({"H1", "H2"});
        for (QStringList &row : rows)
            expected +=
                '"' + row.replaceInStrings("\"", "\"\"").join('"' + separator + '"') + "\"\r\n";
        QCOMPARE(bytes, kMark + expected.toUtf8());
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

    void rfc4180GuardsFormulas()
    {
        const QStringList formulas{"=1",       "+1+1",
                                   "-a",       "-1,2.3",
                                   "@a",       "\t=1",
                                   "\r=1",     "  =1",
                                   " \n-2+3",  "\u00A0=1",
                                   "\uFEFF=1", "\u200B=1",
                                   "\uFF1Da",  QChar(1) + QString("=1")};
        const QStringList texts{"", " ", "1", "a=1", "'=1", "1-2", "(=1)", "-5", "+1.5", " -2,5"};
        const QStringList fields = formulas + texts;
        for (const QString &field : fields) {
            const QByteArray bytes = Export(
                [&field](CCSVParser &parser) {
                    parser.AppendLine({field});
                    parser.AppendLineWithoutCheckSpecChar({field});
                },
                Stream::Fresh, true);

            const QByteArray plain = '"' + field.toUtf8() + "\"\r\n";
            const QByteArray guarded = formulas.contains(field) ? "\"'" + plain.mid(1) : plain;
            QCOMPARE(bytes, kMark + guarded + plain);
        }
    }

    void theSeparatorFallsBackToAComma()
    {
        const std::function<bool(QString &)> sources[] = {
            [](QString &answer) { return answer.append('x').isEmpty(); }, // no answer
            [](QString &) { return true; },                               // an empty one
            [](QString &) -> bool { throw std::runtime_error("no locale"); }};
        for (const auto &source : sources) {
            Nim::Base::OS::SetListSeparatorSource(source);
            QCOMPARE(Vantor::GetLocalListSperator(), ",");
        }
    }
};

QTEST_MAIN(TestCsvParser)
#include "tst_csvparser.moc"
