// SPDX-License-Identifier: MIT
#include "CsvFile.h"

#include "CsvColumns.h"

#include <CsvParse/CsvParse.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <array>

namespace Client {
namespace {

constexpr qint64 kBlockBytes = qint64{1024} * 1024;

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
    return {nullptr, error};
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

// Reads on to the end of the file; `block` holds what was read for a start.
ReadResult ReadRecords(QFile &file, QByteArray block, const ReadProgress &progress)
{
    const QString name = QDir::toNativeSeparators(file.fileName());
    DropMark(block);
    CCsvColumns columns;
    CCsvSplitter splitter(columns, FindSeparator(block));
    for (; !block.isEmpty(); block = file.read(kBlockBytes)) {
        if (block.contains('\0'))
            return Failed(Texts::tr("%1 is not a CSV file: it holds zero bytes.").arg(name));
        const bool is_split = splitter.Split(block.constData(), size_t(block.size()));
        if (!is_split || columns.HasFailed())
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
    return {columns.TakeList(), {}};
}

} // namespace

ReadResult ReadCsvFile(const QString &path, const ReadProgress &progress)
{
    try {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return Failed(FindReadError(file));
        const QByteArray block = file.read(kBlockBytes);
        const QString error = FindReadError(file);
        return error.isEmpty() ? ReadRecords(file, block, progress) : Failed(error);
    } catch (const std::bad_alloc &) {
        return Failed(
            Texts::tr("%1 is too large for the memory.").arg(QDir::toNativeSeparators(path)));
    }
}

} // namespace Client
