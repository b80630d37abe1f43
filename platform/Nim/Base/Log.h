// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <functional>
#include <string>

#if defined(__GNUC__)
#define NIM_PRINTF_FORMAT(format_index, first_argument)                                            \
    __attribute__((format(printf, format_index, first_argument)))
#else
#define NIM_PRINTF_FORMAT(format_index, first_argument)
#endif

namespace Nim::Base::Log {

/// \brief Levels of a log line; a sink receives these numbers.
enum Level : int {
    kInformation = 3,
    kWarning = 4,
    kError = 5,
};

/// Receives every log line. May be called from any thread, and from several at once.
using Sink =
    std::function<void(int level, const std::string &category, const std::string &message)>;

/// \brief Send all log lines to \a sink from now on; an empty function restores the default.
///
/// The default hands each line to Qt's logging category of that name: level 3 as information, 4 as
/// a warning, 5 and above as critical, so QT_LOGGING_RULES and a host's message handler filter and
/// route them. Safe while other threads log: a line that is being written still goes to the old
/// sink. An exception of a sink is caught.
VANTOR_BASE_EXPORT void SetSink(Sink sink);

/// \brief Write one line. \a format and its arguments are those of printf; pass text from outside
/// through "%s" only.
///
/// The text is UTF-8 of any length. Control characters in it are written as escapes ("\n" as a
/// backslash and an n), so that no user name or server reply can forge a log line. Never throws.
VANTOR_BASE_EXPORT void Write(int level, const char *category, const char *format, ...)
    NIM_PRINTF_FORMAT(3, 4);

/// \brief Write one line in the frame that all code of the client uses:
/// "[function]message[file(line)]".
///
/// \param function qualified name of the function that the line is about.
/// \param file     path of the source file; only its last part is written.
VANTOR_BASE_EXPORT void WriteFramed(const char *function, const char *file, int line, int level,
                                    const char *category, const char *format, ...)
    NIM_PRINTF_FORMAT(6, 7);

} // namespace Nim::Base::Log
