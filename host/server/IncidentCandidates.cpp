// SPDX-License-Identifier: MIT
#include "IncidentCandidates.h"

#include "Store.h"

#include <algorithm>

namespace Server {
namespace {

constexpr qint64 kRowsAtOnce = 250'000;
constexpr size_t kMostTexts = 4;
constexpr int kBitsPerByte = 8;

} // namespace

bool CIncidentCandidates::Knows(const IncidentFilter &filter, qint64 moment)
{
    return Known(filter.text).rows >= moment;
}

IncidentFilter CIncidentCandidates::Narrowed(CStore &store, const IncidentFilter &filter,
                                             qint64 moment)
{
    if (!filter.is_indexed)
        return filter;
    const QString statement =
        store.Kind() == Engine::Sqlite
            ? QStringLiteral("SELECT rowid FROM incident_text WHERE incident_text MATCH ? AND "
                             "rowid > ? AND rowid <= ? ORDER BY rowid")
            : QStringLiteral("SELECT id FROM incident WHERE TRUE%1 AND id > ? AND id <= ? ORDER "
                             "BY id")
                  .arg(filter.condition);
    const QVariantList values =
        store.Kind() == Engine::Sqlite ? QVariantList{filter.trigrams} : filter.values;
    Candidates candidates = Known(filter.text);
    try {
        while (candidates.rows < moment) {
            const qint64 until = std::min(moment, candidates.rows + kRowsAtOnce);
            candidates.bits.append(int(until / kBitsPerByte) + 1 - candidates.bits.size(), '\0');
            CRows rows = store.Run(statement, values + QVariantList{candidates.rows, until});
            while (rows.Next()) {
                const qint64 id = rows.Value(0).toLongLong();
                char &byte = candidates.bits.data()[id / kBitsPerByte];
                byte = char(byte | 1 << id % kBitsPerByte);
                candidates.rows = id;
            }
            candidates.rows = until;
        }
    } catch (...) {
        Keep(candidates);
        throw;
    }
    Keep(candidates);
    IncidentFilter narrowed = filter;
    narrowed.condition = QStringLiteral(" AND {has bit}") + filter.condition;
    narrowed.values = QVariantList{candidates.rows, candidates.bits} + filter.values;
    return narrowed;
}

CIncidentCandidates::Candidates CIncidentCandidates::Known(const QString &text)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found =
        std::find_if(known_.begin(), known_.end(),
                     [&text](const Candidates &candidates) { return candidates.text == text; });
    if (found == known_.end())
        return {text, {}, 0};
    known_.splice(known_.begin(), known_, found);
    return known_.front();
}

// Another thread may know more by now.
void CIncidentCandidates::Keep(const Candidates &candidates)
{
    if (Known(candidates.text).rows >= candidates.rows)
        return;
    const std::lock_guard<std::mutex> lock(mutex_);
    known_.remove_if([&](const Candidates &other) { return other.text == candidates.text; });
    known_.push_front(candidates);
    if (known_.size() > kMostTexts)
        known_.pop_back();
}

} // namespace Server
