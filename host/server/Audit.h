// SPDX-License-Identifier: MIT
#pragma once

#include "ServerOptions.h"

#include <initializer_list>
#include <mutex>
#include <string>
#include <string_view>

namespace Server {

/// \brief Writes the audit log: an event and named values, one line each. Any thread.
class CAudit
{
public:
    using Sink = decltype(ServerOptions::audit);

    struct Value
    {
        const char *name;
        std::string
            text; ///< quoted in the line when it holds more than letters, digits and ".:-_/"
    };

    /// \param clock seconds since 1970; empty: the system's.
    explicit CAudit(Sink sink, std::function<qint64()> clock = {});

    void Write(AuditLevel level, std::string_view event, std::initializer_list<Value> values);

    /// \brief The same for lines that a stranger can cause as often as he likes. Of one minute
    /// a limited number is written, then the number that was left out.
    void WriteLimited(AuditLevel level, std::string_view event,
                      std::initializer_list<Value> values);

private:
    const Sink sink_;
    const std::function<qint64()> clock_;
    std::mutex mutex_;
    qint64 minute_ = 0; // the next three are under the mutex
    int written_ = 0;   // limited lines of that minute
    int left_out_ = 0;
};

} // namespace Server
