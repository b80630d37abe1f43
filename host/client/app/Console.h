// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

namespace Client {

/// Exit statuses of the program.
enum ExitStatus : int {
    kExitDone = 0,
    kExitFileFailed = 1, ///< a file could not be read or written
    kExitBadUsage = 2,   ///< the command line is wrong
};

/// \brief Write one line to the standard output.
void PrintLine(const QString &text);
/// \brief Write one line to the standard error output, after the name of the program.
void PrintError(const QString &text);

/// \brief While it lives, only PrintError() and CProgressLine reach the standard error output: what
/// libraries print there is dropped. One at a time; nothing changes when the system refuses.
class COwnErrors
{
public:
    COwnErrors();
    ~COwnErrors();
    COwnErrors(const COwnErrors &) = delete;
    COwnErrors &operator=(const COwnErrors &) = delete;
};

/// \brief A line on the standard error output that shows the progress of long work.
///
/// On a terminal the line is overwritten, and erased at the end. Elsewhere a line is written every
/// few seconds, so that short work leaves nothing in a log.
class CProgressLine
{
public:
    CProgressLine();
    ~CProgressLine();
    CProgressLine(const CProgressLine &) = delete;
    CProgressLine &operator=(const CProgressLine &) = delete;

    /// \brief Show \a text now, unless it was shown a moment ago.
    void Show(const QString &text);

private:
    const bool is_terminal_;
    bool is_shown_ = false;
    QElapsedTimer since_shown_;
};

/// \brief \a done of \a total in percent, as the language writes it.
[[nodiscard]] QString Percent(qint64 done, qint64 total);

} // namespace Client
