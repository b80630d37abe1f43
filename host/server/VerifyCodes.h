// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Server {

class CStore;
struct Trier;

// The verification codes that have been shown and not used, as hashes: who reads the store can
// neither read the pictures nor use the marks. Called within a transaction that holds the locks of
// the trier, see LockCounters().
//
// A user at one address has a few of them, and an address some more: a new one then takes the place
// of the oldest there, so that a stranger drives out only his own.

/// \brief A code: the text of its picture, and the mark that belongs to it.
struct VerifyCode
{
    QString mark;
    QString text;
};

enum class CodeOutcome { Right, Wrong, Unknown };

/// \param text the text of the picture; empty: a random text.
[[nodiscard]] VerifyCode MakeVerifyCode(CStore &store, const Trier &trier, qint64 now,
                                        const QString &text);

/// \brief Use the code with \a mark up. Upper and lower case are the same.
/// \return Unknown when this user has no code, or it has expired.
[[nodiscard]] CodeOutcome TakeVerifyCode(CStore &store, const QString &user, const QString &mark,
                                         const QString &text, qint64 now);

} // namespace Server
