// SPDX-License-Identifier: MIT
#include "controller/CSV/CSVParser.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "common/LogMacro.h"
#include "controller/CSV/CSVParserData.h"
#include "controller/CSV/CsvCollect.h"
#include "controller/CSV/CsvWrite.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/OS.h>
#include <Ravel/TextCodec.h>

#include <cerrno>
#include <cstring>
#include <new>

namespace Vantor {
namespace {

constexpr int kSearchPieceBytes = 255;

bool IsRefused(const CCSVParserDataPtr &data, const char *function)
{
    if (data.IsWriting())
        VANTOR_LOG(function, 4, VANTOR_LOG_WARNING, "Refused: a write is running.");
    return data.IsWriting();
}

bool IsEmptyFile(std::FILE *stream)
{
    const bool is_empty = std::fseek(stream, 0, SEEK_END) == 0 && std::ftell(stream) == 0;
    std::rewind(stream);
    return is_empty;
}

bool Open(CCSVParserDataPtr &data, const char *function, const QString &path, bool append)
{
    if (path.isEmpty() || IsRefused(data, function))
        return false;
    data.list_lines_.clear();
    data.b_bom_written_ = append;
    data.str_file_path_ = path;
    data.ptr_stream_ = nullptr;
    data.b_append_ = append;
    data.b_closed_ = false;
    data.write_errno_ = 0;
    data.ptr_stream_ = Nim::Base::FileSystem::OpenShared(path, append ? "ab+" : "wb");
    if (!data.ptr_stream_) {
        const int error = errno; // logging may change it, and callers look at it
        VANTOR_LOG(function, 4, VANTOR_LOG_WARNING, "The CSV file %s cannot be opened: %s",
                   qUtf8Printable(path), std::strerror(error));
        errno = error;
        return false;
    }
    if (append && data.b_rfc4180_)
        data.b_bom_written_ = !IsEmptyFile(data.ptr_stream_);
    return true;
}

void WriteMarkAtOnce(CCSVParserDataPtr &data, const char *function)
{
    // Four bytes: the zero behind the mark is part of the files that importers of these lists know.
    constexpr char kMark[] = "\xEF\xBB\xBF";
    const size_t length = data.b_rfc4180_ ? sizeof kMark - 1 : sizeof kMark;
    data.b_bom_written_ = true;
    if (data.Stream() && std::fwrite(kMark, 1, length, data.Stream()) != length)
        KeepWriteError(data, function, errno);
}

// Runs `body`, which collects lines: when it throws, lines are missing from the file to come.
template <class Body> void Collect(CCSVParserDataPtr &data, const char *function, Body body)
{
    RunGuarded(function, [&] {
        try {
            body();
        } catch (const std::bad_alloc &) {
            KeepWriteError(data, function, ENOMEM, true);
            throw;
        } catch (...) {
            KeepWriteError(data, function, kModelThrew, true);
            throw;
        }
    });
}

// At most kSearchPieceBytes bytes, up to and with the next line break; empty at the end of the
// file.
QByteArray ReadPiece(std::FILE *stream)
{
    QByteArray piece;
    while (piece.size() < kSearchPieceBytes && !piece.endsWith('\n')) {
        const int byte = std::getc(stream);
        if (byte == EOF)
            break;
        piece.append(static_cast<char>(byte));
    }
    return piece;
}

} // namespace

QString GetLocalListSperator()
{
    return Nim::Base::OS::ListSeparator();
}

CCSVParser::CCSVParser(QWidget *parent)
    : QObject(parent), d_ptr_(std::make_shared<CCSVParserDataPtr>(parent))
{}

CCSVParser::~CCSVParser() = default;

bool CCSVParser::OpenFile(const QString &path)
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::OpenFile";
    bool is_open = false;
    RunGuarded(kFunction, [&] { is_open = Open(*d_ptr_, kFunction, path, false); });
    return is_open;
}

bool CCSVParser::OpenFileWithAppendMode(const QString &path)
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::OpenFileWithAppendMode";
    bool is_open = false;
    RunGuarded(kFunction, [&] { is_open = Open(*d_ptr_, kFunction, path, true); });
    return is_open;
}

void CCSVParser::PrepareSourceData(QAbstractItemModel *model)
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::PrepareSourceData";
    if (!model)
        return;
    Collect(*d_ptr_, kFunction, [this, model] {
        if (!d_ptr_->b_bom_written_) {
            WriteMarkAtOnce(*d_ptr_, kFunction);
            AppendLine(HeaderTexts(*model));
        }
        CollectRows(d_ptr_->list_lines_, *model, d_ptr_->b_rfc4180_);
    });
}

void CCSVParser::AppendLine(QStringList fields)
{
    Collect(*d_ptr_, "Vantor::CCSVParser::AppendLine", [this, &fields] {
        d_ptr_->list_lines_.append(JoinFields(fields, true, d_ptr_->b_rfc4180_));
    });
}

void CCSVParser::AppendLineWithoutCheckSpecChar(QStringList fields)
{
    Collect(*d_ptr_, "Vantor::CCSVParser::AppendLineWithoutCheckSpecChar", [this, &fields] {
        d_ptr_->list_lines_.append(JoinFields(fields, false, d_ptr_->b_rfc4180_));
    });
}

void CCSVParser::WriteCSVFile()
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::WriteCSVFile";
    if (IsRefused(*d_ptr_, kFunction))
        return;
    Collect(*d_ptr_, kFunction, [this] {
        WriteLines(*d_ptr_);
        d_ptr_->list_lines_.clear();
    });
}

void CCSVParser::WriteCSVFileWithChase()
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::WriteCSVFileWithChase";
    if (IsRefused(*d_ptr_, kFunction))
        return;
    const std::shared_ptr<CCSVParserDataPtr> data = d_ptr_; // outlives the parser
    Collect(*data, kFunction, [data] { WriteLinesBehindDialog(data); });
}

void CCSVParser::ReadOneline(QString &line, const QString &key)
{
    std::FILE *const stream = d_ptr_->Stream();
    if (!stream || d_ptr_->IsWriting())
        return;
    RunGuarded("Vantor::CCSVParser::ReadOneline", [&line, &key, stream] {
        std::fseek(stream, 0, SEEK_CUR); // C wants a positioning call between writing and reading
        for (QByteArray piece = ReadPiece(stream); !piece.isEmpty(); piece = ReadPiece(stream)) {
            const QString text = Ravel::ConvertToUnicode(piece);
            if (text.contains(key)) {
                line = text;
                return;
            }
        }
    });
}

void CCSVParser::CloseFile()
{
    const std::shared_ptr<CCSVParserDataPtr> data = d_ptr_;
    data->future_.waitForFinished();
    if (std::FILE *const stream = data->Stream()) {
        data->b_closed_ = true;
        if (std::fclose(stream) != 0)
            KeepWriteError(*data, "Vantor::CCSVParser::CloseFile", errno);
    }
    Q_EMIT SignalWriteOver();
}

bool CCSVParser::HasWriteError() const
{
    return d_ptr_->write_errno_ != 0;
}

QString CCSVParser::WriteErrorText() const
{
    return WriteErrorTextOf(d_ptr_->write_errno_);
}

int CCSVParser::WriteErrno() const
{
    return d_ptr_->write_errno_;
}

void CCSVParser::SetRfc4180(bool on)
{
    d_ptr_->b_rfc4180_ = on;
}

bool CCSVParser::IsRfc4180() const
{
    return d_ptr_->b_rfc4180_;
}

VANTOR_FORWARD_EVENTS(CCSVParser, QObject)

} // namespace Vantor
