// SPDX-License-Identifier: MIT
#include "Audit.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <utility>

namespace Server {
namespace {

constexpr int kLinesPerMinute = 600;
constexpr qint64 kSecondsPerMinute = 60;
constexpr size_t kMaximumValue = 256;

// Nothing in a value may look like another value or another line.
std::string Quoted(const std::string &text)
{
    const auto is_plain = [](unsigned char c) {
        return std::isalnum(c) != 0 || std::string_view(".:-_/").find(char(c)) != std::string::npos;
    };
    const std::string cut = text.substr(0, kMaximumValue);
    if (!cut.empty() && cut.size() == text.size() && std::all_of(cut.begin(), cut.end(), is_plain))
        return cut;
    std::string quoted = "\"";
    for (const char c : cut) {
        const auto byte = static_cast<unsigned char>(c);
        char escaped[5] = {c};
        if (byte < ' ' || byte == 0x7f || c == '"' || c == '\\')
            std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
        quoted += escaped;
    }
    return quoted + (cut.size() < text.size() ? "…\"" : "\"");
}

std::string LineOf(std::string_view event, std::initializer_list<CAudit::Value> values)
{
    std::string line(event);
    for (const CAudit::Value &value : values)
        line += std::string(" ") + value.name + '=' + Quoted(value.text);
    return line;
}

} // namespace

CAudit::CAudit(Sink sink) : sink_(std::move(sink)) {}

void CAudit::Write(AuditLevel level, std::string_view event, std::initializer_list<Value> values)
{
    if (!sink_)
        return;
    const std::lock_guard<std::mutex> lock(mutex_);
    sink_(level, LineOf(event, values));
}

void CAudit::WriteLimited(qint64 now_s, AuditLevel level, std::string_view event,
                          std::initializer_list<Value> values)
{
    if (!sink_)
        return;
    const std::lock_guard<std::mutex> lock(mutex_);
    if (now_s / kSecondsPerMinute != minute_) {
        minute_ = now_s / kSecondsPerMinute;
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
