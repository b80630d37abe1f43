// SPDX-License-Identifier: MIT
#include "app/Console.h"

#include "app/Descriptors.h"

#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>

#include <cstdio>

namespace Client {
namespace {

constexpr qint64 kTerminalIntervalMs = 100;
constexpr qint64 kLogIntervalMs = 5000;
constexpr char kEraseLine[] = "\r\033[K";

// Where our own errors go; not null while the descriptor of stderr leads nowhere.
std::FILE *own_errors = nullptr;

std::FILE *Errors()
{
    return own_errors ? own_errors : stderr;
}

} // namespace

COwnErrors::COwnErrors()
{
    std::fflush(stderr);
    const int copy = CopyDescriptor(STDERR_FILENO);
    const int nowhere = OpenNowhere();
    std::FILE *const errors = copy >= 0 && nowhere >= 0 ? fdopen(copy, "w") : nullptr;
    if (errors && dup2(nowhere, STDERR_FILENO) == STDERR_FILENO) {
        std::setvbuf(errors, nullptr, _IONBF, 0);
        own_errors = errors;
    } else if (copy >= 0) {
        close(copy);
    }
    if (nowhere >= 0)
        close(nowhere);
}

COwnErrors::~COwnErrors()
{
    if (!own_errors)
        return;
    std::fflush(stderr);
    dup2(fileno(own_errors), STDERR_FILENO);
    std::fclose(own_errors);
    own_errors = nullptr;
}

void PrintLine(const QString &text)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(text));
}

void PrintError(const QString &text)
{
    std::fprintf(Errors(), "%s: %s\n", qUtf8Printable(QCoreApplication::applicationName()),
                 qUtf8Printable(text));
}

CProgressLine::CProgressLine() : is_terminal_(isatty(fileno(Errors())) != 0)
{
    since_shown_.start();
}

CProgressLine::~CProgressLine()
{
    if (is_terminal_ && is_shown_)
        std::fputs(kEraseLine, Errors());
}

void CProgressLine::Show(const QString &text)
{
    if (since_shown_.elapsed() < (is_terminal_ ? kTerminalIntervalMs : kLogIntervalMs))
        return;
    since_shown_.restart();
    is_shown_ = true;
    if (is_terminal_)
        std::fprintf(Errors(), "%s%s", kEraseLine, qUtf8Printable(text));
    else
        std::fprintf(Errors(), "%s\n", qUtf8Printable(text));
    std::fflush(Errors());
}

QString Percent(qint64 done, qint64 total)
{
    const qint64 percent = total > 0 ? done * 100 / total : 0;
    return QLocale().toString(percent) + QLatin1Char(' ') + QLocale().percent();
}

} // namespace Client
