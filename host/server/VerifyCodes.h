// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <deque>
#include <functional>

namespace Server {

/// \brief The verification codes that have been shown and not used. Used by the database thread.
///
/// A user at one address has a few of them, and an address some more: a new one then takes the
/// place of the oldest there, so that a stranger drives out only his own.
class CVerifyCodes
{
public:
    enum class Outcome { Right, Wrong, Unknown };

    /// \brief A code of one user at one address, and the mark that belongs to it.
    struct Code
    {
        QString address;
        QString user;
        QString mark;
        QString text;
        qint64 expires = 0; ///< seconds since 1970
    };

    /// \param text the text of the picture; empty: a random text.
    [[nodiscard]] Code Make(const QString &address, const QString &user, qint64 now,
                            const QString &text);

    /// \brief Use the code with \a mark up. Upper and lower case are the same.
    /// \return Unknown when there is none of this user, or it has expired.
    [[nodiscard]] Outcome Take(const QString &user, const QString &mark, const QString &text,
                               qint64 now);

private:
    // The oldest that are alike go, until \a count of them are left.
    void DropBeyond(int count, const std::function<bool(const Code &)> &is_alike);

    std::deque<Code> codes_; // oldest first
};

} // namespace Server
