// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

namespace Ravel {

/// The role that column 0 of a row carries its page under.
constexpr int kPageTagRole = Qt::UserRole + 100;

/// \brief "Page" and \a page in decimal with at least 3 digits: "Page001", "Page1234".
[[nodiscard]] VANTOR_PLATFORM_EXPORT QString PageTag(int page);

/// \brief The page for which PageTag() returns \a tag, or 0 if there is no such page.
[[nodiscard]] VANTOR_PLATFORM_EXPORT int PageOfTag(const QString &tag);

} // namespace Ravel
