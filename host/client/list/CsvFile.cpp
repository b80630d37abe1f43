// SPDX-License-Identifier: MIT
#include "list/CsvFile.h"

#include "list/CsvColumns.h"
#include "list/QuoteWatch.h"

#include <CsvParse/CsvParse.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <array>
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

// The CSV library is C: its state is released whatever happens, and no exception passes through it.
class CCsvSplitter
{
public:
    CCsvSplitter(CCsvColumns &columns, char separator) : columns_(columns)
    {
        csvparse_init(&parser_, 0);
        csvparse_set_delimiter(&parser_, separator);
    }
    ~CCsvSplitter() { csvparse_free(&parser_); }
    CCsvSplitter(const CCsvSplitter &) = delete;
    CCsvSplitter &operator=(const CCsvSplitter &) = delete;

    bool Split(const char *bytes, size_t length)
    {
        return csvparse_parse(&parser_, bytes, length, OnField, OnRow, &columns_) == length;
    }
    bool Finish() { return csvparse_fini(&parser_, OnField, OnRow, &columns_) == 0; }

private:
    static void OnField(void *field, size_t length, void *columns)
    {
        static_cast<CCsvColumns *>(columns)->AppendField(static_cast<const char *>(field), length);
    }
    static void OnRow(int, void *columns) { static_cast<CCsvColumns *>(columns)->EndRow(); }

    CCsvColumns &columns_;
    csvparse_parser parser_;
};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CsvFile)
};

ReadResult Failed(const QString &error)
{
    return {nullptr, error, {}};
}

char FindSeparator(const QByteArray &bytes)
{
    constexpr std::array<char, 3> kCandidates{',', ';', '\t'};
    std::array<int, 3> counts{};
    bool is_quoted = false;
    for (const char byte : bytes) {
        if (byte == '"')
            is_quoted = !is_quoted;
        if (is_quoted)
            continue;
        if (byte == '\n' || byte == '\r')
            break;
        for (size_t i = 0; i < kCandidates.size(); ++i)
            counts[i] += byte == kCandidates[i] ? 1 : 0;
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    return kCandidates[static_cast<size_t>(most - counts.begin())];
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

QString FindDamage(const CBlocks &blocks, const CQuoteWatch &quotes, const QString &name)
{
    if (quotes.OpenLine() > 0)
        return Texts::tr("%1: a quote in line %2 is not closed. The rows after it may be missing.")
            .arg(name, QLocale().toString(quotes.OpenLine()));
    if (blocks.EndsWithinCharacter())
        return Texts::tr("%1 ends in the middle of a character. Rows may be missing.").arg(name);
    return {};
}

ReadResult ReadRecords(QFile &file, const ReadProgress &progress)
{
    const QString name = QDir::toNativeSeparators(file.fileName());
    CBlocks blocks(file);
    QByteArray block = blocks.Next();
    DropMark(block);
    CCsvColumns columns;
    const char separator = FindSeparator(block);
    CCsvSplitter splitter(columns, separator);
    CQuoteWatch quotes(separator);
    for (; !block.isEmpty(); block = blocks.Next()) {
        if (block.contains('\0'))
            return Failed(Texts::tr("%1 is not a CSV file: it holds zero bytes.").arg(name));
        const bool is_split = splitter.Split(block.constData(), size_t(block.size()));
        if (!is_split || columns.HasFailed())
            return Failed(columns.Error().arg(name));
        quotes.Read(block);
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
    return {columns.TakeList(), {}, FindDamage(blocks, quotes, name)};
}

} // namespace

ReadResult ReadCsvFile(const QString &path, const ReadProgress &progress)
{
    try {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return Failed(FindReadError(file));
        return ReadRecords(file, progress);
    } catch (const std::bad_alloc &) {
        return Failed(
            Texts::tr("%1 is too large for the memory.").arg(QDir::toNativeSeparators(path)));
    }
}

} // namespace Client
