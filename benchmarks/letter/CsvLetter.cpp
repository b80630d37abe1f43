// SPDX-License-Identifier: MIT
#include "letter/CsvLetter.h"

#include <csv.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QTextCodec>

namespace Letter {
namespace {

struct Target
{
    std::FILE *stream;
    QByteArray separator;
};

void WriteField(void *field, size_t length, void *user_data)
{
    const auto *const target = static_cast<Target *>(user_data);
    csv_fwrite(target->stream, field, length);
    std::fputs(target->separator.constData(), target->stream);
}

void WriteRowEnd(int, void *user_data)
{
    const auto *const target = static_cast<Target *>(user_data);
    if (std::fseek(target->stream, -1, SEEK_CUR) != 0)
        return;
    std::fputc('\r', target->stream);
    std::fputc('\n', target->stream);
}

} // namespace

QString JoinLine(QStringList fields, bool guarded, const SeparatorSource &separator)
{
    for (QString &field : fields) {
        if (guarded) {
            if (!field.isEmpty() && field.at(0) == QLatin1Char('='))
                field.replace(0, 1, QStringLiteral("'="));
            else if (!field.isEmpty() && field.at(0) == QLatin1Char('@'))
                field.replace(0, 1, QStringLiteral("'@"));
        }
        if (field.contains(separator(), Qt::CaseSensitive))
            field = QLatin1Char('"') + field + QLatin1Char('"');
    }
    return fields.join(QLatin1Char(',')) + QLatin1Char('\n');
}

QStringList ModelRow(const QAbstractItemModel &model, int row)
{
    const QString line_break = QStringLiteral("\n");
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        QString cell = model.index(row, column).data(Qt::DisplayRole).toString();
        if (cell.contains(QLatin1Char(',')))
            cell = QLatin1Char('"') + cell + QLatin1Char('"');
        else
            cell = QStringLiteral("=\"") + cell + QLatin1Char('"');
        if (cell.contains(line_break) && cell.indexOf(line_break) != cell.lastIndexOf(line_break)) {
            cell.replace(line_break, QStringLiteral(" "));
            if (cell.contains(QLatin1Char('=')))
                cell.remove(QLatin1Char('='));
        }
        cells.append(cell);
    }
    return cells;
}

QStringList CollectModel(const QAbstractItemModel &model, bool with_header,
                         const SeparatorSource &separator)
{
    QStringList lines;
    if (with_header) {
        QStringList header;
        for (int column = 0; column < model.columnCount(); ++column)
            header.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        lines.append(JoinLine(header, true, separator));
    }
    for (int row = 0; row < model.rowCount(); ++row)
        lines.append(JoinLine(ModelRow(model, row), true, separator));
    return lines;
}

void WriteLines(std::FILE *stream, const QStringList &lines, bool with_mark,
                const QString &separator)
{
    csv_parser parser;
    csv_init(&parser, 0);
    Target target{stream, separator.toLocal8Bit()};
    if (with_mark)
        std::fwrite("\xEF\xBB\xBF", 1, 3, stream);
    QTextCodec *const utf8 = QTextCodec::codecForName("UTF-8");
    for (const QString &line : lines) {
        const QByteArray bytes = utf8->fromUnicode(line);
        const auto length = static_cast<size_t>(bytes.size());
        if (csv_parse(&parser, bytes.constData(), length, WriteField, WriteRowEnd, &target)
            != length)
            break;
    }
    csv_fini(&parser, WriteField, WriteRowEnd, &target);
    csv_free(&parser);
    std::fflush(stream);
}

} // namespace Letter
