// SPDX-License-Identifier: MIT
#include "controller/CSV/CsvTask.h"

#include <Nim/Base/OS.h>
#include <Ravel/TextCodec.h>

#include <QtCore/QScopeGuard>
#include <QtCore/QStringView>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace Vantor {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr qsizetype kSliceCharacters = qsizetype{32} * 1024;
constexpr size_t kBlockBytes = size_t{256} * 1024;
constexpr size_t kMostWaiting = 2 * kBlockBytes;
constexpr size_t kLongFieldBytes = size_t{64} * 1024;

// Lays rows out in memory, because stepping back over the separator in the stream costs two system
// calls a row, and hands the stream whole rows in large blocks.
class CRowWriter
{
public:
    CRowWriter(std::FILE *stream, std::string separator, RowEnd row_end)
        : stream_(stream), separator_(std::move(separator)), row_end_(row_end)
    {
        // A field may be all quotes; the ends are its own two, its separator and CR LF.
        constexpr size_t kMostField = 2 * kLongFieldBytes;
        if (stream_)
            block_.resize(kMostWaiting + kMostField + 2 * (separator_.size() + 2));
    }

    [[nodiscard]] int Errno() const { return errno_; }
    [[nodiscard]] bool HasFailed() const { return errno_ != 0; }

    void AppendMark() { Append(kByteOrderMark, sizeof kByteOrderMark - 1); }

    void AppendField(const char *bytes, size_t length)
    {
        if (!CanWrite())
            return;
        Append('"');
        if (length > kLongFieldBytes)
            PassThrough(bytes, length);
        else
            AppendDoubled(bytes, length);
        Append('"');
        Append(separator_.data(), separator_.size());
        if (used_ >= kMostWaiting) // a row of many fields: not all of it has to wait
            FlushAllBut(separator_.size() + 1);
    }

    void EndRow()
    {
        if (!CanWrite())
            return;
        used_ -= static_cast<size_t>(row_end_.dropped_bytes);
        if (row_end_.has_line_end)
            Append("\r\n", 2);
        if (used_ >= kBlockBytes)
            Flush();
    }

    void Finish()
    {
        if (!CanWrite())
            return;
        Flush();
        if (!HasFailed() && std::fflush(stream_) != 0)
            Fail(errno);
    }

    void Fail(int error) { errno_ = error != 0 ? error : EIO; }

private:
    [[nodiscard]] bool CanWrite() const { return stream_ && !HasFailed(); }

    void Append(char byte) { block_[used_++] = byte; }

    void Append(const char *bytes, size_t length)
    {
        std::memcpy(block_.data() + used_, bytes, length);
        used_ += length;
    }

    void AppendDoubled(const char *bytes, size_t length)
    {
        const char *const end = bytes + length;
        while (const auto *quote =
                   static_cast<const char *>(std::memchr(bytes, '"', size_t(end - bytes)))) {
            Append(bytes, size_t(quote + 1 - bytes));
            Append('"');
            bytes = quote + 1;
        }
        Append(bytes, size_t(end - bytes));
    }

    // A long field goes to the stream piece by piece, so that the block stays small whatever a cell
    // holds. The bytes that the row end may drop are appended afterwards, so they are still in the
    // block.
    void PassThrough(const char *bytes, size_t length)
    {
        while (length > 0 && !HasFailed()) {
            const size_t piece = std::min(length, kLongFieldBytes);
            AppendDoubled(bytes, piece);
            Flush();
            bytes += piece;
            length -= piece;
        }
    }

    void Flush() { FlushAllBut(0); }

    // Keeps the last bytes of the block: what the end of the row may drop.
    void FlushAllBut(size_t kept)
    {
        const size_t written = used_ - kept;
        if (std::fwrite(block_.data(), 1, written, stream_) != written)
            Fail(errno);
        std::memmove(block_.data(), block_.data() + written, kept);
        used_ = kept;
    }

    std::FILE *const stream_;
    const std::string separator_;
    const RowEnd row_end_;
    std::vector<char> block_; // bytes to write, of which the first used_ are there
    size_t used_ = 0;
    int errno_ = 0;
};

// The CSV library is C: no exception may pass through it.
template <class Body> void CallWriter(void *user_data, Body body)
{
    auto *const writer = static_cast<CRowWriter *>(user_data);
    try {
        body(*writer);
    } catch (...) {
        writer->Fail(ENOMEM);
    }
}

void OnField(void *field, size_t length, void *user_data)
{
    CallWriter(user_data, [field, length](CRowWriter &writer) {
        writer.AppendField(static_cast<const char *>(field), length);
    });
}

void OnRow(int, void *user_data)
{
    CallWriter(user_data, [](CRowWriter &writer) { writer.EndRow(); });
}

// Hands over a long line slice by slice: its UTF-8 as a whole would take three bytes a character.
bool ParseLine(csvparse_parser &parser, QStringView line, CRowWriter &writer)
{
    while (!line.isEmpty()) {
        qsizetype count = std::min(line.size(), kSliceCharacters);
        if (count < line.size() && line.at(count - 1).isHighSurrogate())
            --count;
        const QByteArray utf8 = line.left(count).toUtf8();
        const auto length = static_cast<size_t>(utf8.size());
        if (csvparse_parse(&parser, utf8.constData(), length, OnField, OnRow, &writer) != length)
            return false;
        line = line.mid(count);
    }
    return true;
}

CRowWriter MakeWriter(const CsvJob &job)
{
    const QString text = Nim::Base::OS::ListSeparator();
    const QByteArray bytes = job.is_rfc4180 ? text.toUtf8() : Ravel::ConvertFromUnicode(text);
    // As fputs() writes it: up to the first zero byte.
    std::string separator = bytes.constData();
    if (!job.stream)
        return CRowWriter(nullptr, std::move(separator), {});
    // Flush before the stream is asked, or a full disk looks like a pipe.
    const bool is_settled = std::fflush(job.stream) == 0;
    const int error = errno;
    const bool can_step_back = std::fseek(job.stream, 0, SEEK_CUR) == 0;
    const RowEnd row_end = job.is_rfc4180 ? RowEnd{static_cast<int>(separator.size()), true}
                                          : ClassicRowEnd(can_step_back, job.is_appending);
    CRowWriter writer(job.stream, std::move(separator), row_end);
    if (!is_settled)
        writer.Fail(error);
    return writer;
}

} // namespace

RowEnd ClassicRowEnd(bool can_step_back, bool is_appending)
{
    if (!can_step_back)
        return {0, false};
    return is_appending ? RowEnd{0, true} : RowEnd{1, true};
}

CsvOutcome WriteCsvJob(csvparse_parser &parser, const CsvJob &job)
{
    CsvOutcome outcome;
    CRowWriter writer = MakeWriter(job);
    if (job.has_mark && job.stream)
        writer.AppendMark();
    {
        // Also after an exception: a half field must not turn up in the next file.
        const auto end = qScopeGuard([&parser, &writer] {
            csvparse_fini(&parser, OnField, OnRow, &writer);
            csvparse_free(&parser);
        });
        for (const QString &line : job.lines) {
            outcome.is_parsed = ParseLine(parser, line, writer);
            if (!outcome.is_parsed || writer.HasFailed())
                break;
        }
    }
    writer.Finish();
    outcome.write_errno = writer.Errno();
    return outcome;
}

} // namespace Vantor
