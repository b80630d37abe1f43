// SPDX-License-Identifier: MIT
#include "IncidentWalk.h"

#include "IncidentTable.h"
#include "Message.h"
#include "Store.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace Server {
namespace {

// Not null, which would be NULL.
QVariant Text(const IncidentKey &key)
{
    return key.text.isEmpty() ? QLatin1String("") : QString::fromUtf8(key.text);
}

bool IsSameGroup(const IncidentKey &left, const IncidentKey &right)
{
    return left.number == right.number && left.text == right.text;
}

IncidentKey KeyIn(const CRows &rows)
{
    return {rows.Value(0).toDouble(), rows.Value(1).toString().toUtf8(),
            rows.Value(2).toLongLong()};
}

} // namespace

bool operator<(const IncidentKey &left, const IncidentKey &right)
{
    return std::tie(left.number, left.text, left.id) < std::tie(right.number, right.text, right.id);
}

CIncidentWalk::CIncidentWalk(CStore &store, IncidentOrder order, qint64 moment,
                             IncidentFilter filter)
    : store_(store), order_(order), moment_(moment), filter_(std::move(filter)),
      number_(order.column < 0 ? QStringLiteral("0") : IncidentNumber(store.Kind(), order.column)),
      text_(order.column < 0 ? QStringLiteral("''") : IncidentText(store.Kind(), order.column))
{}

// The plus keeps SQLite from choosing the numbers of rows as its index.
IncidentKeys CIncidentWalk::Select(const Piece &piece, qint64 count, qint64 offset)
{
    CRows rows = store_.Run(
        QStringLiteral("SELECT %1, %2, id FROM incident WHERE +id <= ?%3%4 ORDER BY %5 LIMIT ? "
                       "OFFSET ?")
            .arg(number_, text_, piece.condition, filter_.condition, piece.order),
        QVariantList{moment_} + piece.values + filter_.values + QVariantList{count, offset});
    IncidentKeys keys;
    while (rows.Next())
        keys.push_back(KeyIn(rows));
    return keys;
}

qint64 CIncidentWalk::CountOf(const Piece &piece)
{
    return store_
        .Value(
            QStringLiteral("SELECT count(*) FROM incident WHERE +id <= ?%1").arg(piece.condition),
            QVariantList{moment_} + piece.values)
        .toLongLong();
}

CIncidentWalk::Piece CIncidentWalk::Equal(const IncidentKey &from) const
{
    return {QStringLiteral(" AND %1 = ? AND %2 = ? AND id > ?").arg(number_, text_),
            {from.number, Text(from), from.id},
            QStringLiteral("id")};
}

std::vector<CIncidentWalk::Piece> CIncidentWalk::Above(const IncidentKey &from) const
{
    return {{QStringLiteral(" AND %1 = ? AND %2 > ?").arg(number_, text_),
             {from.number, Text(from)},
             QStringLiteral("%1, id").arg(text_)},
            {QStringLiteral(" AND %1 > ?").arg(number_),
             {from.number},
             QStringLiteral("%1, %2, id").arg(number_, text_)}};
}

IncidentKey CIncidentWalk::KeyOf(qint64 id)
{
    CRows rows = store_.Run(
        QStringLiteral("SELECT %1, %2, id FROM incident WHERE id = ?").arg(number_, text_), {id});
    if (!rows.Next())
        throw Refused(kBadRequest);
    return KeyIn(rows);
}

IncidentKeys CIncidentWalk::Stored(qint64 after, qint64 until)
{
    CRows rows =
        store_.Run(QStringLiteral("SELECT %1, %2, id FROM incident WHERE id > ? AND id <= ?")
                       .arg(number_, text_),
                   {after, until});
    IncidentKeys keys;
    while (rows.Next())
        keys.push_back(KeyIn(rows));
    return keys;
}

// Candidates of SQLite's text index come by the numbers of rows, too.
IncidentKeys CIncidentWalk::NextStored(qint64 from, int count)
{
    const bool has_index = !filter_.trigrams.isEmpty();
    const QString source = has_index ? QStringLiteral("incident_text CROSS JOIN incident ON "
                                                      "incident.id = incident_text.rowid")
                                     : QStringLiteral("incident");
    const QString id =
        has_index ? QStringLiteral("incident_text.rowid") : QStringLiteral("incident.id");
    QVariantList values;
    if (has_index)
        values.append(filter_.trigrams);
    values << (order_.is_descending ? 0 : from) << (order_.is_descending ? from - 1 : moment_);
    CRows rows = store_.Run(
        QStringLiteral("SELECT %1 FROM %2 WHERE %3%1 > ? AND %1 <= ?%4 ORDER BY %1 %5 LIMIT ?")
            .arg(id, source, has_index ? QStringLiteral("incident_text MATCH ? AND ") : QString(),
                 filter_.condition,
                 order_.is_descending ? QStringLiteral("DESC") : QStringLiteral("ASC")),
        values + filter_.values + QVariantList{count});
    IncidentKeys keys;
    while (rows.Next())
        keys.push_back({0, {}, rows.Value(0).toLongLong()});
    return keys;
}

IncidentKeys CIncidentWalk::Next(const std::optional<IncidentKey> &from, int count)
{
    if (order_.column < 0)
        return NextStored(from ? from->id : order_.is_descending ? moment_ + 1 : 0, count);
    IncidentKeys keys;
    const auto wanted = size_t(count);
    if (from)
        AppendEqual(*from, wanted, keys);
    if (order_.is_descending) {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        // No text sorts behind the last code point.
        AppendBelow(from.value_or(IncidentKey{kInfinity, QByteArray("\xF4\x8F\xBF\xBF"), 0}),
                    wanted, keys);
        return keys;
    }
    if (!from)
        return Select({{}, {}, QStringLiteral("%1, %2, id").arg(number_, text_)}, count);
    for (const Piece &piece : Above(*from)) {
        if (keys.size() == wanted)
            break;
        const IncidentKeys more = Select(piece, qint64(wanted - keys.size()));
        keys.insert(keys.end(), more.begin(), more.end());
    }
    return keys;
}

void CIncidentWalk::AppendEqual(const IncidentKey &from, size_t count, IncidentKeys &keys)
{
    const IncidentKeys more = Select(Equal(from), qint64(count - keys.size()));
    keys.insert(keys.end(), more.begin(), more.end());
}

// Read backwards, the index gives equal rows in reverse. So each group of equal rows is reversed
// again; the last group, which the limit may have cut, is read again from its beginning.
void CIncidentWalk::AppendBelow(const IncidentKey &from, size_t count, IncidentKeys &keys)
{
    IncidentKey group = from;
    while (keys.size() < count) {
        const auto wanted = qint64(count - keys.size());
        IncidentKeys more = Select({QStringLiteral(" AND %1 = ? AND %2 < ?").arg(number_, text_),
                                    {group.number, Text(group)},
                                    QStringLiteral("%1 DESC, id DESC").arg(text_)},
                                   wanted);
        if (qint64(more.size()) < wanted) {
            const IncidentKeys others =
                Select({QStringLiteral(" AND %1 < ?").arg(number_),
                        {group.number},
                        QStringLiteral("%1 DESC, %2 DESC, id DESC").arg(number_, text_)},
                       wanted - qint64(more.size()));
            more.insert(more.end(), others.begin(), others.end());
        }
        const bool is_end = qint64(more.size()) < wanted;
        for (auto begin = more.begin(); begin != more.end();) {
            const auto end = std::find_if(begin, more.end(), [begin](const IncidentKey &key) {
                return !IsSameGroup(key, *begin);
            });
            std::reverse(begin, end);
            if (end == more.end() && !is_end) {
                group = {begin->number, begin->text, 0};
                more.erase(begin, end);
                break;
            }
            begin = end;
        }
        keys.insert(keys.end(), more.begin(), more.end());
        if (is_end)
            break;
        AppendEqual(group, count, keys);
    }
}

std::optional<IncidentKey> CIncidentWalk::Skip(const IncidentKey &from, qint64 offset)
{
    const IncidentKey before{from.number, from.text, from.id - 1};
    std::vector<Piece> pieces = Above(from);
    pieces.insert(pieces.begin(), Equal(before));
    for (const Piece &piece : pieces) {
        const IncidentKeys found = Select(piece, 1, offset);
        if (!found.empty())
            return found.front();
        offset -= CountOf(piece);
    }
    return std::nullopt;
}

qint64 CIncidentWalk::Count(const IncidentKey &from, const IncidentKey &to)
{
    if (!(from < to))
        return 0;
    const QString &number = number_;
    const QString &text = text_;
    if (IsSameGroup(from, to))
        return CountOf(
            {QStringLiteral(" AND %1 = ? AND %2 = ? AND id >= ? AND id < ?").arg(number, text),
             {from.number, Text(from), from.id, to.id},
             {}});
    qint64 count = CountOf(Equal({from.number, from.text, from.id - 1}));
    if (from.number == to.number) {
        count += CountOf({QStringLiteral(" AND %1 = ? AND %2 > ? AND %2 < ?").arg(number, text),
                          {from.number, Text(from), Text(to)},
                          {}});
    } else {
        count += CountOf(Above(from).front());
        count += CountOf(
            {QStringLiteral(" AND %1 > ? AND %1 < ?").arg(number), {from.number, to.number}, {}});
        count += CountOf({QStringLiteral(" AND %1 = ? AND %2 < ?").arg(number, text),
                          {to.number, Text(to)},
                          {}});
    }
    return count
           + CountOf({QStringLiteral(" AND %1 = ? AND %2 = ? AND id < ?").arg(number, text),
                      {to.number, Text(to), to.id},
                      {}});
}

std::optional<IncidentKey> CIncidentWalk::NextGroup(const IncidentKey &key)
{
    for (const Piece &piece : Above(key)) {
        CRows rows = store_.Run(
            QStringLiteral("SELECT %1, %2, 0 FROM incident WHERE +id > 0%3 ORDER BY %4 LIMIT 1")
                .arg(number_, text_, piece.condition, piece.order),
            piece.values);
        if (rows.Next())
            return KeyIn(rows);
    }
    return std::nullopt;
}

} // namespace Server
