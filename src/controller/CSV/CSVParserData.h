// SPDX-License-Identifier: MIT
#pragma once

#include <CsvParse/CsvParse.h>

#include <QtCore/QFuture>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <atomic>
#include <cstdio>

namespace Vantor {

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

    // Whether a write behind a waiting dialog is under way: its task, or the dialog after it.
    [[nodiscard]] bool IsWriting() const { return b_waiting_ || future_.isRunning(); }
    // The stream, or null unless it is open; a closed stream keeps its pointer.
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
    bool b_waiting_ = false; // the waiting dialog's event loop runs
    QFuture<bool> future_;   // of the write behind it
    std::atomic<int> write_errno_{
        0}; // first failure; set by the writing thread and the object's own
};

// In place of an errno: the host's model threw while its rows were collected.
constexpr int kModelThrew = -1;

// For the user; empty for 0.
QString WriteErrorTextOf(int error);

// Keeps `error` (of errno or kModelThrew, never 0) as the cause unless there was one before; that
// first one is logged for `function` when `is_logged` is false.
void KeepWriteError(CCSVParserDataPtr &data, const char *function, int error,
                    bool is_logged = false);

} // namespace Vantor
