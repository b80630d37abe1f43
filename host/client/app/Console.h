// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

namespace Client {

/// Exit statuses of the program.
enum ExitStatus : int {
    kExitDone = 0,
    kExitFileFailed = 1, ///< a file could not be read or written
    kExitBadUsage = 2,   ///< the command line makes no sense
};

/// \brief One line on the standard output, for what the user asked for.
void PrintLine(const QString &text);
/// \brief One line on the standard error output, after the program's name.
void PrintError(const QString &text);

/// \brief One line of the standard error output that tells how far a long work is.
///
/// On a terminal the line is written over and over and is gone at the end; elsewhere there is a
/// line every few seconds, so that a short work leaves no trace in a log.
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
