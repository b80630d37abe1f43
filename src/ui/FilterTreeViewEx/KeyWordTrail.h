// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/RowSet.h>

#include <QtCore/QString>

#include <vector>

namespace Vantor {

/// \brief The rows that passed the last keywords, because users type and delete key by key.
///
/// A row that fails a keyword fails each longer one, and a keyword that comes back after a key is
/// deleted has its rows already.
class CKeyWordTrail
{
public:
    /// \brief Forget everything unless it is of \a version of the texts.
    void SetVersion(quint64 version);

    /// \return the rows of \a keyword, or null when they are not known.
    [[nodiscard]] const Ravel::CRowSet *Find(const QString &keyword) const;
    /// \return the fewest rows that are known to hold all rows of \a keyword; null: any may.
    [[nodiscard]] const Ravel::CRowSet *Within(const QString &keyword) const;
    const Ravel::CRowSet &Add(const QString &keyword, Ravel::CRowSet rows);

private:
    struct CStep
    {
        QString keyword;
        Ravel::CRowSet rows;
    };

    quint64 version_ = 0;
    std::vector<CStep> steps_; // the latest at the end
};

} // namespace Vantor
