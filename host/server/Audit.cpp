// SPDX-License-Identifier: MIT
#include "Audit.h"

#include <QtCore/QChar>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace Server {
namespace {

constexpr int kLinesPerMinute = 600;
constexpr qint64 kSecondsPerMinute = 60;
constexpr size_t kMaximumValue = 256;

bool IsPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
           || std::string_view(".:-_/").find(c) != std::string_view::npos;
}

// Not so: control characters of a terminal, characters that change the direction of the text, line
// breaks.
bool IsVisible(uint c)
{
    return QChar::isPrint(c) && QChar::category(c) != QChar::Separator_Line
           && QChar::category(c) != QChar::Separator_Paragraph && c != '"' && c != '\\';
}

// Nothing in a value may look like another value or another line.
std::string Quoted(const std::string &text)
{
    if (!text.empty() && text.size() <= kMaximumValue
        && std::all_of(text.begin(), text.end(), IsPlain))
        return text;
    std::string quoted = "\"";
    const QVector<uint> characters = QString::fromStdString(text.substr(0, kMaximumValue)).toUcs4();
    for (const uint c : characters) {
        char escaped[sizeof "\\u{10ffff}"];
        std::snprintf(escaped, sizeof escaped, "\\u{%x}", c);
        quoted += IsVisible(c) ? QString::fromUcs4(&c, 1).toStdString() : escaped;
    }
    return quoted + (text.size() > kMaximumValue ? "…\"" : "\"");
}

std::string LineOf(std::string_view event, std::initializer_list<CAudit::Value> values)
{
    std::string line(event);
    for (const CAudit::Value &value : values)
        line += std::string(" ") + value.name + '=' + Quoted(value.text);
    return line;
}

} // namespace

CAudit::CAudit(Sink sink, std::function<qint64()> clock)
    : sink_(std::move(sink)),
      clock_(clock ? std::move(clock) : [] { return QDateTime::currentSecsSinceEpoch(); })
{}

void CAudit::Write(AuditLevel level, std::string_view event, std::initializer_list<Value> values)
{
    if (!sink_)
        return;
    const std::lock_guard<std::mutex> lock(mutex_);
    sink_(level, LineOf(event, values));
}

void CAudit::WriteLimited(AuditLevel level, std::string_view event,
                          std::initializer_list<Value> values)
{
    if (!sink_)
        return;
    const std::lock_guard<std::mutex> lock(mutex_);
    if (const qint64 minute = clock_() / kSecondsPerMinute; minute != minute_) {
        minute_ = minute;
        written_ = 0;
        if (const int count = std::exchange(left_out_, 0); count > 0)
            sink_(kAuditWarning, LineOf("lines-left-out", {{"count", std::to_string(count)}}));
    }
    if (written_ >= kLinesPerMinute) {
        ++left_out_;
        return;
    }
    ++written_;
    sink_(level, LineOf(event, values));
}

} // namespace Server
