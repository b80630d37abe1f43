// SPDX-License-Identifier: MIT
#include "Nim/Base/Log.h"

#include "Nim/Base/Replaceable.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace Nim::Base::Log {
namespace {

// Categories live as long as the process: a thread may log while statics are destroyed.
const QLoggingCategory &CategoryOf(const std::string &name)
{
    static auto *const mutex = new std::mutex;
    static auto *const categories = new std::map<std::string, std::unique_ptr<QLoggingCategory>>;
    const std::lock_guard<std::mutex> lock(*mutex);
    const auto [entry, is_new] = categories->try_emplace(name);
    if (is_new)
        entry->second = std::make_unique<QLoggingCategory>(entry->first.c_str());
    return *entry->second;
}

void WriteToQt(int level, const std::string &category, const std::string &message)
{
    const QLoggingCategory &target = CategoryOf(category);
    const QMessageLogger logger(nullptr, 0, nullptr, target.categoryName());
    if (level >= kError && target.isCriticalEnabled())
        logger.critical("%s", message.c_str());
    else if (level == kWarning && target.isWarningEnabled())
        logger.warning("%s", message.c_str());
    else if (level < kWarning && target.isInfoEnabled())
        logger.info("%s", message.c_str());
}

using CSink = CReplaceable<void(int, const std::string &, const std::string &)>;

CSink &CurrentSink()
{
    static auto *const sink = new CSink(WriteToQt);
    return *sink;
}

constexpr size_t kUsualLength = 512; // in bytes; longer lines are formatted twice

NIM_PRINTF_FORMAT(2, 0)
void AppendText(std::string &line, const char *format, va_list arguments)
{
    char usual[kUsualLength];
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(usual, sizeof usual, format, measured);
    va_end(measured);
    if (length <= 0)
        return;
    const auto size = static_cast<size_t>(length);
    if (size < sizeof usual) {
        line.append(usual, size);
        return;
    }
    const size_t before = line.size();
    line.resize(before + size + 1);
    std::vsnprintf(line.data() + before, size + 1, format, arguments);
    line.pop_back();
}

bool IsControlCharacter(char c)
{
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr unsigned char kDelete = 0x7f;
    const auto code = static_cast<unsigned char>(c);
    return code < kFirstPrintable || code == kDelete;
}

std::string EscapeControlCharacters(const std::string &text)
{
    std::string line;
    line.reserve(text.size());
    for (const char c : text) {
        if (!IsControlCharacter(c)) {
            line += c;
        } else if (c == '\n') {
            line += "\\n";
        } else if (c == '\r') {
            line += "\\r";
        } else if (c == '\t') {
            line += "\\t";
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02x",
                          static_cast<unsigned>(static_cast<unsigned char>(c)));
            line += escape;
        }
    }
    return line;
}

const char *BaseName(const char *path)
{
    const char *const slash = std::strrchr(path, '/');
    const char *const name = slash ? slash + 1 : path;
    const char *const backslash = std::strrchr(name, '\\');
    return backslash ? backslash + 1 : name;
}

void Deliver(int level, const char *category, const std::string &text)
{
    const auto sink = CurrentSink().Get();
    if (std::none_of(text.begin(), text.end(), IsControlCharacter))
        (*sink)(level, category, text);
    else
        (*sink)(level, category, EscapeControlCharacters(text));
}

} // namespace

void SetSink(Sink sink)
{
    CurrentSink().Set(std::move(sink));
}

void Write(int level, const char *category, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    try {
        std::string text;
        AppendText(text, format, arguments);
        Deliver(level, category, text);
    } catch (...) { // out of memory, or the sink threw: logging must not stop its caller
    }
    va_end(arguments);
}

void WriteFramed(const char *function, const char *file, int line, int level, const char *category,
                 const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    try {
        std::string text;
        text.reserve(kUsualLength);
        text.append("[").append(function).append("]");
        AppendText(text, format, arguments);
        text.append("[")
            .append(BaseName(file))
            .append("(")
            .append(std::to_string(line))
            .append(")]");
        Deliver(level, category, text);
    } catch (...) { // as above
    }
    va_end(arguments);
}

} // namespace Nim::Base::Log
