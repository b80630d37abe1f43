// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentFilter.h"

#include <QtCore/QByteArray>

#include <optional>
#include <vector>

namespace Server {

class CStore;

/// \brief An order of the list. Rows that are equal come as they were stored, in both directions.
struct IncidentOrder
{
    int column = -1; ///< -1: as they were stored
    bool is_descending = false;
};

/// \brief The place of a row in the order of a column.
struct IncidentKey
{
    double number = 0;
    QByteArray text; ///< UTF-8, which sorts like code points
    qint64 id = 0;
};

[[nodiscard]] bool operator<(const IncidentKey &left, const IncidentKey &right);

using IncidentKeys = std::vector<IncidentKey>;

/// \brief Reads the rows of one moment in one order, from any key on, at the cost of the rows that
/// it gives.
///
/// SQLite does not seek by a comparison of several expressions at once, so the rows behind a key
/// are read in pieces: the rest of the equal rows, the rest of the number, the other numbers.
class CIncidentWalk
{
public:
    /// \param moment the number of rows that the list had then
    CIncidentWalk(CStore &store, IncidentOrder order, qint64 moment, IncidentFilter filter = {});

    /// \brief The key of the row with the number \a id. Throws Refused for an unknown row.
    [[nodiscard]] IncidentKey KeyOf(qint64 id);

    /// \brief The first \a count keys behind \a from; without \a from the first ones of all.
    [[nodiscard]] IncidentKeys Next(const std::optional<IncidentKey> &from, int count);

    /// \brief In ascending order, the key \a offset rows behind \a from; nothing behind the last.
    [[nodiscard]] std::optional<IncidentKey> Skip(const IncidentKey &from, qint64 offset);
    /// \brief In ascending order, how many rows there are from \a from to before \a to.
    [[nodiscard]] qint64 Count(const IncidentKey &from, const IncidentKey &to);
    /// \brief The first key that differs in number or text from \a key, which it follows in
    /// ascending order. Rows of later moments count, too.
    [[nodiscard]] std::optional<IncidentKey> NextGroup(const IncidentKey &key);
    /// \brief The keys of the rows with numbers above \a after up to \a until, unsorted.
    [[nodiscard]] IncidentKeys Stored(qint64 after, qint64 until);

private:
    struct Piece
    {
        QString condition;
        QVariantList values;
        QString order;
    };

    IncidentKeys NextStored(qint64 from, int count);
    void AppendEqual(const IncidentKey &from, size_t count, IncidentKeys &keys);
    void AppendBelow(const IncidentKey &from, size_t count, IncidentKeys &keys);
    [[nodiscard]] std::vector<Piece> Above(const IncidentKey &from) const;
    [[nodiscard]] Piece Equal(const IncidentKey &from) const;
    [[nodiscard]] IncidentKeys Select(const Piece &piece, qint64 count, qint64 offset = 0);
    [[nodiscard]] qint64 CountOf(const Piece &piece);

    CStore &store_;
    const IncidentOrder order_;
    const qint64 moment_;
    const IncidentFilter filter_;
    const QString number_; // SQL
    const QString text_;   // SQL
};

} // namespace Server
