// SPDX-License-Identifier: MIT
#include "Ravel/PageTag.h"

namespace Ravel {
namespace {

constexpr int kDigits = 3;

QString Prefix()
{
    return QStringLiteral("Page");
}

} // namespace

QString PageTag(int page)
{
    return Prefix() + QString::number(page).rightJustified(kDigits, QLatin1Char('0'));
}

int PageOfTag(const QString &tag)
{
    if (!tag.startsWith(Prefix()))
        return 0;
    const int page = tag.midRef(Prefix().size()).toInt();
    // Written back, because "Page1", "Page+001" and "Page0001" are no tags.
    return page > 0 && PageTag(page) == tag ? page : 0;
}

} // namespace Ravel
