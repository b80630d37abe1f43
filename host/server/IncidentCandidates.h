// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentFilter.h"

#include <QtCore/QByteArray>

#include <list>
#include <mutex>

namespace Server {

class CStore;

/// \brief Knows which rows may pass a filter, so that a walk over an order reads no others.
///
/// The text index is read once, and the result is kept as one bit for each row. Rows never change,
/// so the bits are right at every moment; bits of later rows are added on demand. The bits of ten
/// million rows take 1.25 MB, and only the last few texts have theirs kept. Used on several
/// threads.
class CIncidentCandidates
{
public:
    /// \brief Whether Narrowed() need not read the text index.
    [[nodiscard]] bool Knows(const IncidentFilter &filter, qint64 moment);

    /// \brief \a filter, with a condition in front of its own that needs only the number of a row,
    /// for rows up to \a moment; \a filter itself when there is no index for its text. When it
    /// throws because its time is up, the next call goes on from there.
    [[nodiscard]] IncidentFilter Narrowed(CStore &store, const IncidentFilter &filter,
                                          qint64 moment);

private:
    struct Candidates
    {
        QString text;
        QByteArray bits;
        qint64 rows = 0; // the bits of so many are known
    };

    Candidates Known(const QString &text);
    void Keep(const Candidates &candidates);

    std::mutex mutex_;
    std::list<Candidates> known_; // under the mutex; the last one used is first
};

} // namespace Server
