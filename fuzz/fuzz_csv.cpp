// SPDX-License-Identifier: MIT
// Bytes become the cells of a few lines; both ways of writing must survive them. The classic way
// must give the bytes of the plain form, the RFC 4180 way must give every cell back.
#include "Require.h"
#include "letter/CsvLetter.h"

#include <CsvParse/CsvParse.h>
#include <Nim/Base/FileSystem.h>
#include <Nim/Base/OS.h>
#include <Vantor/CCSVParser>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <cstdio>

namespace {

constexpr int kMarkBytes = 3;

using Rows = QList<QStringList>;

// Byte 0 ends a field, byte 1 a row; the first byte chooses the separator.
Rows RowsOf(const QByteArray &input)
{
    Rows rows;
    const QList<QByteArray> lines = input.split('\x01');
    for (const QByteArray &row : lines) {
        QStringList fields;
        const QList<QByteArray> cells = row.split('\0');
        for (const QByteArray &field : cells)
            fields.append(QString::fromUtf8(field));
        rows.append(fields);
    }
    return rows;
}

QByteArray Written(const QString &path, const Rows &rows, bool rfc4180)
{
    Vantor::CCSVParser parser(nullptr);
    parser.SetRfc4180(rfc4180);
    Require(parser.OpenFile(path), "the file opens");
    for (const QStringList &row : rows) {
        if (rfc4180)
            parser.AppendLineWithoutCheckSpecChar(row);
        else
            parser.AppendLine(row);
    }
    parser.WriteCSVFile();
    parser.CloseFile();
    Require(!parser.HasWriteError(), "the file is written");
    QFile file(path);
    Require(file.open(QIODevice::ReadOnly), "the file is there");
    return file.readAll();
}

QByteArray WrittenPlainly(const QString &path, const Rows &rows)
{
    QStringList lines;
    for (const QStringList &row : rows)
        lines.append(Letter::JoinLine(row, true, Vantor::GetLocalListSperator));
    std::FILE *const stream = Nim::Base::FileSystem::OpenShared(path, "wb");
    Letter::WriteLines(stream, lines, true, Vantor::GetLocalListSperator());
    std::fclose(stream);
    QFile file(path);
    Require(file.open(QIODevice::ReadOnly), "the plain file is there");
    return file.readAll();
}

Rows ReadBack(const QByteArray &bytes, char separator)
{
    struct Reader
    {
        Rows rows;
        QStringList fields;
    } reader;
    csvparse_parser parser;
    csvparse_init(&parser, 0);
    csvparse_set_delimiter(&parser, separator);
    const auto on_field = [](void *field, size_t length, void *data) {
        static_cast<Reader *>(data)->fields.append(
            QString::fromUtf8(static_cast<const char *>(field), static_cast<int>(length)));
    };
    const auto on_row = [](int, void *data) {
        auto *const target = static_cast<Reader *>(data);
        target->rows.append(target->fields);
        target->fields.clear();
    };
    csvparse_parse(&parser, bytes.constData() + kMarkBytes,
                   static_cast<size_t>(bytes.size() - kMarkBytes), on_field, on_row, &reader);
    csvparse_fini(&parser, on_field, on_row, &reader);
    csvparse_free(&parser);
    return reader.rows;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz_csv"));
    static const QString path = folder.filePath(QStringLiteral("a.csv"));
    static constexpr char kSeparators[] = {',', ';', '\t'};
    if (size == 0)
        return 0;
    const char separator = kSeparators[data[0] % sizeof kSeparators];
    Nim::Base::OS::SetListSeparatorSource([separator](QString &answer) {
        answer = QLatin1Char(separator);
        return true;
    });
    const Rows rows =
        RowsOf(QByteArray(reinterpret_cast<const char *>(data) + 1, static_cast<int>(size) - 1));

    Require(Written(path, rows, false) == WrittenPlainly(path, rows),
            "the classic bytes equal the plain form's");
    Require(ReadBack(Written(path, rows, true), separator) == rows, "every cell comes back");
    return 0;
}
