// SPDX-License-Identifier: MIT
#include "controller/CSV/CSVParser.h"

#include "common/Guard.h"
#include "common/LogMacro.h"
#include "common/Translate.h"
#include "controller/CSV/CsvLine.h"
#include "controller/CSV/CsvTask.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/OS.h>
#include <Ravel/ChaseDialog.h>
#include <Ravel/TextCodec.h>
#include <Ravel/WaitWatcher.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QAbstractItemModel>
#include <QtCore/QFutureWatcher>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <atomic>
#include <cerrno>
#include <cstring>

namespace Vantor {
namespace {

constexpr int kSearchPieceBytes = 255;

} // namespace

struct CCSVParserDataPtr
{
    explicit CCSVParserDataPtr(QWidget *parent) : ptr_parent_(parent)
    {
        csvparse_init(&parser_, 0);
    }
    CCSVParserDataPtr(const CCSVParserDataPtr &) = delete;
    CCSVParserDataPtr &operator=(const CCSVParserDataPtr &) = delete;
    // Here and not in ~CCSVParser(): a write that is still running uses the CSV library's parser to
    // its end.
    ~CCSVParserDataPtr()
    {
        csvparse_fini(&parser_, nullptr, nullptr, nullptr);
        csvparse_free(&parser_);
    }

    [[nodiscard]] bool IsWriting() const { return future_.isRunning(); }
    // The stream, or null when there is none to use: a closed one keeps its pointer.
    [[nodiscard]] std::FILE *Stream() const { return b_closed_ ? nullptr : ptr_stream_; }

    QStringList list_lines_;
    QString str_file_path_;
    csvparse_parser parser_; // used by the writing thread while a write is running
    std::FILE *ptr_stream_ = nullptr;
    bool b_bom_written_ = false; // in the file already, or not to be written
    QPointer<QWidget> ptr_parent_;
    bool b_append_ = false;
    bool b_closed_ = false;
    bool b_rfc4180_ = false;
    QFuture<bool> future_;                   // of the write behind a waiting dialog
    std::atomic<bool> b_write_error_{false}; // set by the writing thread and by the object's own
};

namespace {

void ReportWriteError(CCSVParserDataPtr &data, const char *function, int error)
{
    if (!data.b_write_error_.exchange(true))
        VANTOR_LOG(function, 5, VANTOR_LOG_WARNING, "Writing the CSV file failed: %s",
                   std::strerror(error));
}

bool IsEmptyFile(std::FILE *stream)
{
    const bool is_empty = std::fseek(stream, 0, SEEK_END) == 0 && std::ftell(stream) == 0;
    std::rewind(stream);
    return is_empty;
}

bool Open(CCSVParserDataPtr &data, const char *function, const QString &path, bool append)
{
    if (path.isEmpty())
        return false;
    if (data.IsWriting()) {
        VANTOR_LOG(function, 4, VANTOR_LOG_WARNING, "Refused: a write is running.");
        return false;
    }
    data.list_lines_.clear();
    data.b_bom_written_ = append;
    data.str_file_path_ = path;
    data.b_append_ = append;
    data.b_closed_ = false;
    data.b_write_error_ = false;
    data.ptr_stream_ = Nim::Base::FileSystem::OpenShared(path, append ? "ab+" : "wb");
    if (data.ptr_stream_ && append && data.b_rfc4180_)
        data.b_bom_written_ = !IsEmptyFile(data.ptr_stream_);
    return data.ptr_stream_ != nullptr;
}

QString JoinFields(const QStringList &fields, bool guarded, bool rfc4180)
{
    const CsvLine separator = GetLocalListSperator().toStdU16String();
    CsvLine line;
    for (int i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += u',';
        if (rfc4180)
            AppendRfc4180Field(line, fields.at(i), guarded);
        else
            AppendField(line, fields.at(i), guarded, separator);
    }
    return FinishLine(line);
}

QStringList HeaderTexts(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    return texts;
}

void WriteMarkAtOnce(CCSVParserDataPtr &data)
{
    // Four bytes: the zero behind the mark is part of the files that importers of these lists know.
    constexpr char kMark[] = "\xEF\xBB\xBF";
    const size_t length = data.b_rfc4180_ ? sizeof kMark - 1 : sizeof kMark;
    data.b_bom_written_ = true;
    if (data.Stream() && std::fwrite(kMark, 1, length, data.Stream()) != length)
        ReportWriteError(data, "Vantor::CCSVParser::PrepareSourceData", errno);
}

void CollectRows(CCSVParserDataPtr &data, const QAbstractItemModel &model)
{
    const CsvLine separator = GetLocalListSperator().toStdU16String();
    const int columns = model.columnCount();
    const int rows = model.rowCount();
    CsvLine line; // reused, so that a row costs one allocation: its own copy
    for (int row = 0; row < rows; ++row) {
        line.clear();
        for (int column = 0; column < columns; ++column) {
            if (column > 0)
                line += u',';
            const QString cell = model.index(row, column).data(Qt::DisplayRole).toString();
            if (data.b_rfc4180_)
                AppendRfc4180Field(line, cell, true);
            else
                AppendModelCell(line, cell, separator);
        }
        data.list_lines_.append(FinishLine(line));
    }
}

CsvJob TakeJob(CCSVParserDataPtr &data)
{
    CsvJob job;
    job.lines = data.list_lines_;
    job.stream = data.Stream();
    job.has_mark = !data.b_bom_written_;
    job.is_appending = data.b_append_;
    job.is_rfc4180 = data.b_rfc4180_;
    data.b_bom_written_ = true;
    return job;
}

// The write task. Its result says nothing: hosts ask HasWriteError().
bool DoParserTask(CCSVParserDataPtr &data, const CsvJob &job)
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::DoParserTask";
    const bool is_done = RunGuarded(kFunction, [&data, &job] {
        const CsvOutcome outcome = WriteCsvJob(data.parser_, job);
        if (!outcome.is_parsed)
            VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "csvparse_parse Error parsing file.");
        if (outcome.write_errno != 0)
            ReportWriteError(data, kFunction, outcome.write_errno);
    });
    if (!is_done)
        data.b_write_error_ = true; // RunGuarded() has logged the cause
    return true;
}

// Holds the data, not the parser: the event loop runs, and the parser may be deleted before this
// returns.
void WriteBehindDialog(const std::shared_ptr<CCSVParserDataPtr> &data)
{
    Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance();
    const QString movie = QStringLiteral(":/Express/Public/Gif/Images/Public/Gif/Waiting_M_4.gif");
    const QPointer<Ravel::CChaseDialog> dialog(
        new Ravel::CChaseDialog(data->ptr_parent_, movie, Translate(QString()), false));
    QFutureWatcher<bool> watcher;
    // Before the future is set: a task that is done at once must not end unheard.
    QObject::connect(&watcher, &QFutureWatcher<bool>::finished, dialog.data(),
                     &Ravel::CChaseDialog::OnStopChaseByAccept);
    data->future_ =
        QtConcurrent::run([data, job = TakeJob(*data)] { return DoParserTask(*data, job); });
    watcher.setFuture(data->future_);
    dialog->exec();
    // The dialog may have gone with its parent or the application's end while the task still
    // writes.
    watcher.waitForFinished();
    delete dialog.data();
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
    QString separator = QStringLiteral(",");
    static_cast<void>(Nim::Base::OS::GetListSeparator(separator)); // keeps "," when there is none
    return separator;
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
    if (!model)
        return;
    RunGuarded("Vantor::CCSVParser::PrepareSourceData", [this, model] {
        if (!d_ptr_->b_bom_written_) {
            WriteMarkAtOnce(*d_ptr_);
            AppendLine(HeaderTexts(*model));
        }
        CollectRows(*d_ptr_, *model);
    });
}

void CCSVParser::AppendLine(QStringList fields)
{
    RunGuarded("Vantor::CCSVParser::AppendLine", [this, &fields] {
        d_ptr_->list_lines_.append(JoinFields(fields, true, d_ptr_->b_rfc4180_));
    });
}

void CCSVParser::AppendLineWithoutCheckSpecChar(QStringList fields)
{
    RunGuarded("Vantor::CCSVParser::AppendLineWithoutCheckSpecChar", [this, &fields] {
        d_ptr_->list_lines_.append(JoinFields(fields, false, d_ptr_->b_rfc4180_));
    });
}

void CCSVParser::WriteCSVFile()
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::WriteCSVFile";
    if (d_ptr_->IsWriting()) {
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "Refused: a write is running.");
        return;
    }
    RunGuarded(kFunction, [this] {
        DoParserTask(*d_ptr_, TakeJob(*d_ptr_));
        d_ptr_->list_lines_.clear();
    });
}

void CCSVParser::WriteCSVFileWithChase()
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::WriteCSVFileWithChase";
    if (d_ptr_->IsWriting()) {
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "Refused: a write is running.");
        return;
    }
    RunGuarded(kFunction, [data = d_ptr_] { WriteBehindDialog(data); });
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
            ReportWriteError(*data, "Vantor::CCSVParser::CloseFile", errno);
    }
    Q_EMIT SignalWriteOver();
}

bool CCSVParser::HasWriteError() const
{
    return d_ptr_->b_write_error_;
}

void CCSVParser::SetRfc4180(bool on)
{
    d_ptr_->b_rfc4180_ = on;
}

bool CCSVParser::IsRfc4180() const
{
    return d_ptr_->b_rfc4180_;
}

bool CCSVParser::event(QEvent *event)
{
    return QObject::event(event);
}

bool CCSVParser::eventFilter(QObject *watched, QEvent *event)
{
    return QObject::eventFilter(watched, event);
}

} // namespace Vantor
