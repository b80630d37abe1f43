// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Client {

/// \brief Estimates how long a work will still take, from how far it was when.
class CTimeLeft
{
public:
    /// \brief Note that \a share of the work, from 0 to 1, is done after \a elapsed_ms.
    void Note(qint64 elapsed_ms, double share);

    /// \return seconds; -1 during the first one and while nothing moves.
    [[nodiscard]] int Seconds() const;

private:
    qint64 noted_ms_ = 0;
    double noted_share_ = 0;
    double speed_ = 0; // share a millisecond, smoothed
};

/// \brief For the user: that about \a seconds are left; empty while they are unknown.
[[nodiscard]] QString TimeLeftText(int seconds);

} // namespace Client
