// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/MainTypeMatch.h"

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kMostPieces = 1000; // each text is compared with each piece

bool IsPlain(const QString &text)
{
    return QRegExp::escape(text) == text;
}

} // namespace

CMainTypeMatch::CMainTypeMatch(const QStringList &types) : whole_(types.cbegin(), types.cend()) {}

CMainTypeMatch::CMainTypeMatch(const QString &field)
{
    const QStringList parts = field.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    whole_ = QSet<QString>(parts.cbegin(), parts.cend());
    if (parts.size() > kMostPieces)
        return;
    if (field.isEmpty()) {
        pieces_.append(QStringLiteral("NULL"));
    } else if (!parts.isEmpty() && std::all_of(parts.cbegin(), parts.cend(), IsPlain)) {
        pieces_ = parts;
    } else {
        is_expression_ = true;
        expression_ = QRegExp(parts.join(QLatin1Char('|')));
    }
}

bool CMainTypeMatch::Names(const QString &main_type) const
{
    if (is_expression_)
        return expression_.isValid() && expression_.indexIn(main_type) >= 0;
    return whole_.contains(main_type)
           || std::any_of(pieces_.cbegin(), pieces_.cend(),
                          [&main_type](const QString &piece) { return main_type.contains(piece); });
}

} // namespace Vantor
