// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

struct CCSVParserDataPtr;

/// \brief The list separator of the user's locale, which separates the columns of a CSV file
/// there.
///
/// "," when the system has no separator. Asked of Nim::Base::OS::GetListSeparator() at each call.
/// Any thread.
[[nodiscard]] VANTOR_EXPORT QString GetLocalListSperator();

/// \brief Writes result lists to CSV files (UTF-8, CR LF, every field quoted) and searches a line
/// in one.
///
/// An export is: OpenFile() or OpenFileWithAppendMode(); PrepareSourceData() and any number of
/// AppendLine(); then WriteCSVFile() or WriteCSVFileWithChase(); then CloseFile(), without which
/// the last bytes may never reach the file. The object can then be opened for another file.
///
/// By default cells are written as hosts have always had them, which damages cells that hold the
/// list separator or one line break and keeps some formulas; SetRfc4180() turns the safe way on
/// (docs/known-behaviour.md).
///
/// All members belong to the thread of the object, the GUI thread for WriteCSVFileWithChase(). No
/// member throws: what a host's model throws is logged and shows in HasWriteError().
class VANTOR_EXPORT CCSVParser : public QObject // clazy:exclude=ctor-missing-parent-argument
{
    Q_OBJECT

public:
    /// \param parent owns the parser and is the window in front of which the waiting dialog opens; may
    /// be null.
    explicit CCSVParser(QWidget *parent);
    /// Does not close the file. A write that is still running on the pool goes on to its end.
    ~CCSVParser() override;

    /// \brief Create or empty the file \a path and forget the collected lines.
    ///
    /// A file still open from an earlier call is not closed.
    ///
    /// \return false when \a path is empty (nothing changes then), when a write is running, or when
    /// the file cannot be opened (errno and one log line say why; lines that are written now go
    /// nowhere).
    bool OpenFile(const QString &path);

    /// \brief The same, but go on at the end of \a path: no byte-order mark and no header line is
    /// written.
    bool OpenFileWithAppendMode(const QString &path);

    /// \brief Collect every row of \a model, the display role as text, after a header line.
    ///
    /// On a file that has no byte-order mark yet, the mark and a zero byte are written at once and
    /// the horizontal headers become the first line. A cell is put between =" and ", which
    /// AppendLine()'s rule for "=" then puts an apostrophe in front of; a cell that holds a comma
    /// only between quotes. In a cell with two or more line breaks these become blanks and every
    /// "=" is taken out. A null model does nothing.
    void PrepareSourceData(QAbstractItemModel *model);

    /// \brief Collect one line; no fields leave no row.
    ///
    /// A field that begins with "=" or "@" gets an apostrophe in front; one that holds the list
    /// separator is enclosed in quotes.
    void AppendLine(QStringList fields);

    /// \brief The same without the apostrophe.
    void AppendLineWithoutCheckSpecChar(QStringList fields);

    /// \brief Write the collected lines on the calling thread, then forget them.
    ///
    /// Without an open file nothing is written, and HasWriteError() says so.
    void WriteCSVFile();

    /// \brief Write the collected lines on a pool thread behind a modal waiting dialog.
    ///
    /// Returns when the lines are written and the dialog has closed; a write of less than 250 ms
    /// shows no dialog. The event loop runs meanwhile, so the parser or its parent may be gone by
    /// then. A call before that is refused. The lines are *not* forgotten.
    void WriteCSVFileWithChase();

    /// \brief Read on from the current position until a line holds \a key (case-sensitive) and
    /// store it in \a line.
    ///
    /// For a file opened by OpenFileWithAppendMode(): from its start, after a write from its end. A
    /// file opened by OpenFile() can only be written. Lines are read in pieces of at most 255 bytes
    /// in the local 8-bit encoding, each tested by itself; the line break is part of \a line. At
    /// the end of the file \a line stays as it is.
    void ReadOneline(QString &line, const QString &key);

    /// \brief Close the file, if one is open, and emit SignalWriteOver() in any case. Waits for a
    /// running write.
    void CloseFile();

    /// \brief Whether data was lost since the file was opened: disk full,
    /// device gone, out of memory, a line that the CSV library refused, a model that threw.
    ///
    /// Complete only after CloseFile(), because closing writes the last bytes. One log line at
    /// level 5 names the first cause.
    [[nodiscard]] bool HasWriteError() const;

    /// \brief The system's text for the first cause, for the user, or an empty text.
    [[nodiscard]] QString WriteErrorText() const;
    /// \return the first cause as errno, such as ENOSPC for a full disk; 0 when nothing failed, -1
    /// when it was an exception of the model's.
    [[nodiscard]] int WriteErrno() const;

    /// \brief Write cells as RFC 4180 wants them, so that every reader gets back the same texts.
    ///
    /// Each field is quoted once with its inner quotes doubled, line breaks and leading blanks are
    /// kept, and there is no ="text" form. The one thing added is an apostrophe in front of a field
    /// whose first visible character is one of = + - @ (full-width too), or a tab or CR, so that no
    /// spreadsheet runs it as a formula; it becomes part of the cell. Plain numbers ("-5") get
    /// no apostrophe, and AppendLineWithoutCheckSpecChar() never adds one. Fields are separated by
    /// the list separator and rows end with CR LF also when appending and on a pipe; the mark is
    /// three bytes, and a file that OpenFileWithAppendMode() finds empty gets mark and header.
    ///
    /// Off by default. Lines that are collected already keep the form they have, so set it before
    /// OpenFile().
    void SetRfc4180(bool on);
    /// \brief Whether SetRfc4180() is on.
    [[nodiscard]] bool IsRfc4180() const;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The file is closed, if one was open. Emitted by every CloseFile(); HasWriteError() is
    /// complete.
    void SignalWriteOver();

private:
    const std::shared_ptr<CCSVParserDataPtr> d_ptr_;
};

} // namespace Vantor
