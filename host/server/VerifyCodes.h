// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <deque>

namespace Server {

/// \brief The verification codes that have been shown and not used. Used by the database thread.
class CVerifyCodes
{
public:
    enum class Outcome { Right, Wrong, Unknown };

    /// \brief A new code of \a user, and the mark that belongs to it.
    struct Code
    {
        QString user;
        QString mark;
        QString text;
        qint64 expires = 0; ///< seconds since 1970
    };

    /// \param text what the picture is to show; empty: a random text.
    [[nodiscard]] Code Make(const QString &user, qint64 now, const QString &text);

    /// \brief Use the code with \a mark up. Upper and lower case are the same.
    /// \return Unknown when there is none of this user, or it has expired.
    [[nodiscard]] Outcome Take(const QString &user, const QString &mark, const QString &text,
                               qint64 now);

private:
    std::deque<Code> codes_; // oldest first
};

} // namespace Server
