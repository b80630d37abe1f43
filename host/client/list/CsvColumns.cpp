// SPDX-License-Identifier: MIT
#include "list/CsvColumns.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTextCodec>

#include <algorithm>

namespace Client {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CsvFile)
};

constexpr size_t kMaximumColumns = 1000;
constexpr size_t kMaximumFieldBytes = size_t{1024} * 1024 * 1024;
constexpr int kMibUtf8 = 106;
constexpr int kMibWindows1252 = 2252;

bool IsUtf8(const QVector<QByteArray> &texts)
{
    QTextCodec *const utf8 = QTextCodec::codecForMib(kMibUtf8);
    return std::all_of(texts.begin(), texts.end(), [utf8](const QByteArray &text) {
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        utf8->toUnicode(text.constData(), text.size(), &state);
        return state.invalidChars == 0 && state.remainingChars == 0;
    });
}

QTextCodec *FallbackCodec()
{
    QTextCodec *const local = QTextCodec::codecForLocale();
    return local->mibEnum() == kMibUtf8 ? QTextCodec::codecForMib(kMibWindows1252) : local;
}

// With a mark at the start of the text, which belongs to the cell.
QString ToUnicode(const QTextCodec &codec, const QByteArray &text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.toUnicode(text.constData(), text.size(), &state);
}

} // namespace

int CCsvColumns::Column::IndexOf(const QByteArray &text)
{
    int index = index_of_text.value(text, -1);
    if (index < 0) {
        index = texts.size();
        const QByteArray own(text.constData(), text.size());
        texts.append(own);
        index_of_text.insert(own, index);
    }
    return index;
}

void CCsvColumns::Column::Append(int row, const QByteArray &text)
{
    if (text_of_row.isEmpty())
        first_row = row;
    const int missing = row - first_row - text_of_row.size();
    if (missing > 0)
        text_of_row.insert(text_of_row.size(), missing, IndexOf({}));
    text_of_row.append(IndexOf(text));
}

CCsvColumns::Column &CCsvColumns::NextColumn()
{
    if (next_column_ == columns_.size())
        columns_.emplace_back();
    return columns_[next_column_++];
}

void CCsvColumns::AppendField(const char *bytes, size_t length) noexcept
{
    if (HasFailed())
        return;
    try {
        if (next_column_ == kMaximumColumns)
            failure_ = Failure::TooManyColumns;
        else if (length > kMaximumFieldBytes)
            failure_ = Failure::OutOfMemory;
        else if (has_titles_)
            NextColumn().Append(rows_, QByteArray::fromRawData(bytes, static_cast<int>(length)));
        else
            NextColumn().title = QByteArray(bytes, static_cast<int>(length));
    } catch (...) {
        failure_ = Failure::OutOfMemory;
    }
}

void CCsvColumns::EndRow() noexcept
{
    if (HasFailed())
        return;
    next_column_ = 0;
    rows_ += has_titles_ ? 1 : 0;
    has_titles_ = true;
    if (rows_ > kMaximumRows)
        failure_ = Failure::TooManyRows;
}

QString CCsvColumns::Error() const
{
    switch (failure_) {
    case Failure::TooManyColumns:
        return Texts::tr("%1 has more columns than can be shown.");
    case Failure::TooManyRows:
        return Texts::tr("%1 has more rows than can be shown.");
    case Failure::None: // the CSV library gave up first, for the same reason
    case Failure::OutOfMemory:
        break;
    }
    return Texts::tr("%1 is too large for the memory.");
}

IncidentListPtr CCsvColumns::TakeList(QString &guessed_encoding)
{
    const bool is_utf8 = std::all_of(columns_.begin(), columns_.end(), [](const Column &column) {
        return IsUtf8(column.texts) && IsUtf8({column.title});
    });
    QTextCodec *const codec = is_utf8 ? QTextCodec::codecForMib(kMibUtf8) : FallbackCodec();
    if (!is_utf8)
        guessed_encoding = QString::fromLatin1(codec->name());
    QVector<IncidentColumn> columns;
    for (Column &column : columns_) {
        IncidentColumn result;
        if (column.text_of_row.size() < rows_)
            result.outside = column.IndexOf({});
        column.index_of_text.clear();
        for (const QByteArray &text : qAsConst(column.texts))
            result.texts.append(ToUnicode(*codec, text));
        result.title = ToUnicode(*codec, column.title);
        result.text_of_row = std::move(column.text_of_row);
        result.first_row = column.first_row;
        columns.append(result);
    }
    columns_.clear();
    return std::make_shared<CIncidentList>(std::move(columns));
}

} // namespace Client
