// SPDX-License-Identifier: MIT
#include "list/CsvFile.h"

#include "list/CsvColumns.h"
#include "list/CsvDialect.h"

#include <CsvParse/CsvParse.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <memory>

namespace Client {
namespace {

constexpr qint64 kBlockBytes = qint64{1024} * 1024;
constexpr int kMibUtf8 = 106;

// The blocks of a file, turned into UTF-8 when a mark names another Unicode encoding.
class CBlocks
{
public:
    explicit CBlocks(QFile &file) : file_(file) {}

    // Empty at the end.
    QByteArray Next()
    {
        QByteArray bytes = file_.read(kBlockBytes);
        if (is_first_)
            FindEncoding(bytes);
        is_first_ = false;
        if (!codec_)
            return bytes;
        return encoder_->fromUnicode(codec_->toUnicode(bytes.constData(), bytes.size(), &state_));
    }

    bool EndsWithinCharacter() const { return codec_ && state_.remainingChars > 0; }

private:
    void FindEncoding(const QByteArray &bytes)
    {
        QTextCodec *const codec = QTextCodec::codecForUtfText(bytes, nullptr);
        if (!codec || codec->mibEnum() == kMibUtf8)
            return;
        codec_ = codec;
        encoder_.reset(QTextCodec::codecForMib(kMibUtf8)->makeEncoder(QTextCodec::IgnoreHeader));
    }

    QFile &file_;
    bool is_first_ = true;
    QTextCodec *codec_ = nullptr; // null: the bytes stay as they are
    QTextCodec::ConverterState state_;
    // Holds back half a surrogate pair at the end of a block.
    std::unique_ptr<QTextEncoder> encoder_;
};

// Splits the file into cells. The CSV library is C: its state is released whatever happens, and no
// exception passes through it.
class CCsvSplitter
{
public:
    CCsvSplitter(CCsvColumns &columns, const CsvDialect &dialect)
        : columns_(columns), separator_(dialect.separator)
    {
        csvparse_init(&parser_, 0);
        csvparse_set_delimiter(&parser_, dialect.separator);
        csvparse_keep_blanks(&parser_, 1);
    }
    ~CCsvSplitter() { csvparse_free(&parser_); }
    CCsvSplitter(const CCsvSplitter &) = delete;
    CCsvSplitter &operator=(const CCsvSplitter &) = delete;

    bool Split(const QByteArray &bytes)
    {
        for (const char byte : bytes) {
            lines_ += byte == '\r' || (byte == '\n' && last_ != '\r') ? 1 : 0;
            last_ = byte;
        }
        if (!drops_blanks_ && HasBlanksAtQuotes(bytes, separator_)) {
            drops_blanks_ = true;
            csvparse_keep_blanks(&parser_, 0);
        }
        const auto length = static_cast<size_t>(bytes.size());
        return csvparse_parse(&parser_, bytes.constData(), length, OnField, OnRow, this) == length;
    }
    bool Finish()
    {
        is_open_ = csvparse_is_in_quotes(&parser_) != 0;
        return csvparse_fini(&parser_, OnField, OnRow, this) == 0;
    }

    // After Finish(): the line, from 1, of a quote that was never closed and has swallowed a line
    // break, or 0.
    [[nodiscard]] qint64 OpenQuoteLine() const
    {
        return is_open_ && swallowed_lines_ > 0 ? lines_ - swallowed_lines_ + 1 : 0;
    }

private:
    static void OnField(void *field, size_t length, void *splitter)
    {
        auto *const self = static_cast<CCsvSplitter *>(splitter);
        const auto *const bytes = static_cast<const char *>(field);
        if (self->is_open_) { // the last one
            self->swallowed_lines_ = std::count(bytes, bytes + length, '\n');
            if (self->swallowed_lines_ == 0)
                self->swallowed_lines_ = std::count(bytes, bytes + length, '\r');
        }
        self->columns_.AppendField(bytes, length);
    }
    static void OnRow(int, void *splitter)
    {
        static_cast<CCsvSplitter *>(splitter)->columns_.EndRow();
    }

    CCsvColumns &columns_;
    const char separator_;
    csvparse_parser parser_;
    bool drops_blanks_ = false;
    qint64 lines_ = 0; // line breaks so far
    char last_ = '\0';
    bool is_open_ = false;
    qint64 swallowed_lines_ = 0;
};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CsvFile)
};

ReadResult Failed(const QString &error)
{
    return {nullptr, error, {}};
}

void DropMark(QByteArray &block)
{
    if (!block.startsWith("\xEF\xBB\xBF"))
        return;
    // Lists that the library writes in its usual way have a zero byte behind the mark.
    const bool has_zero = block.size() > 3 && block.at(3) == '\0';
    block.remove(0, has_zero ? 4 : 3);
}

QString FindReadError(const QFile &file)
{
    if (file.error() != QFileDevice::NoError)
        return Texts::tr("Cannot read %1: %2")
            .arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
    return {};
}

// What the user should know about a list that was read.
QString FindWarnings(const CBlocks &blocks, const CCsvSplitter &splitter,
                     const QString &guessed_encoding, const QString &name)
{
    QStringList warnings;
    if (splitter.OpenQuoteLine() > 0)
        warnings.append(
            Texts::tr("%1: a quote in line %2 is not closed. The rows after it may be missing.")
                .arg(name, QLocale().toString(splitter.OpenQuoteLine())));
    if (blocks.EndsWithinCharacter())
        warnings.append(
            Texts::tr("%1 ends in the middle of a character. Rows may be missing.").arg(name));
    if (!guessed_encoding.isEmpty())
        warnings.append(Texts::tr("%1 is not in UTF-8. It was read as %2, which is a guess.")
                            .arg(name, guessed_encoding));
    return warnings.join(QLatin1Char('\n'));
}

ReadResult ReadRecords(QFile &file, char separator, const ReadProgress &progress)
{
    const QString name = QDir::toNativeSeparators(file.fileName());
    CBlocks blocks(file);
    QByteArray block = blocks.Next();
    DropMark(block);
    const CsvDialect dialect = FindDialect(block, separator);
    block.remove(0, dialect.header_bytes);
    CCsvColumns columns;
    CCsvSplitter splitter(columns, dialect);
    for (; !block.isEmpty(); block = blocks.Next()) {
        if (block.contains('\0'))
            return Failed(Texts::tr("%1 is not a CSV file: it holds zero bytes.").arg(name));
        if (!splitter.Split(block) || columns.HasFailed())
            return Failed(columns.Error().arg(name));
        if (progress && !progress(file.pos(), file.size()))
            return {};
    }
    const QString error = FindReadError(file);
    if (!error.isEmpty())
        return Failed(error);
    if (!splitter.Finish() || columns.HasFailed())
        return Failed(columns.Error().arg(name));
    if (columns.IsEmpty())
        return Failed(Texts::tr("%1 is empty.").arg(name));
    QString guessed_encoding;
    const IncidentListPtr list = columns.TakeList(guessed_encoding);
    return {list, {}, FindWarnings(blocks, splitter, guessed_encoding, name)};
}

} // namespace

ReadResult ReadCsvFile(const QString &path, const ReadProgress &progress, char separator)
{
    try {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return Failed(FindReadError(file));
        return ReadRecords(file, separator, progress);
    } catch (const std::bad_alloc &) {
        return Failed(
            Texts::tr("%1 is too large for the memory.").arg(QDir::toNativeSeparators(path)));
    }
}

} // namespace Client
