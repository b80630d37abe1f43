// SPDX-License-Identifier: MIT
#include "app/Console.h"

#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>

#include <cstdio>

namespace Client {
namespace {

constexpr qint64 kTerminalIntervalMs = 100;
constexpr qint64 kLogIntervalMs = 5000;
constexpr char kEraseLine[] = "\r\033[K";

} // namespace

void PrintLine(const QString &text)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(text));
}

void PrintError(const QString &text)
{
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(QCoreApplication::applicationName()),
                 qUtf8Printable(text));
}

CProgressLine::CProgressLine() : is_terminal_(isatty(STDERR_FILENO) != 0)
{
    since_shown_.start();
}

CProgressLine::~CProgressLine()
{
    if (is_terminal_ && is_shown_)
        std::fputs(kEraseLine, stderr);
}

void CProgressLine::Show(const QString &text)
{
    if (since_shown_.elapsed() < (is_terminal_ ? kTerminalIntervalMs : kLogIntervalMs))
        return;
    since_shown_.restart();
    is_shown_ = true;
    if (is_terminal_)
        std::fprintf(stderr, "%s%s", kEraseLine, qUtf8Printable(text));
    else
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    std::fflush(stderr);
}

QString Percent(qint64 done, qint64 total)
{
    const qint64 percent = total > 0 ? done * 100 / total : 0;
    return QLocale().toString(percent) + QLatin1Char(' ') + QLocale().percent();
}

} // namespace Client
