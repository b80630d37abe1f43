// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

namespace Ravel {

/// The role that column 0 of a row carries its page under.
constexpr int kPageTagRole = Qt::UserRole + 100;

/// \brief "Page" and \a page in decimal with at least 3 digits: "Page001", "Page1234".
[[nodiscard]] VANTOR_PLATFORM_EXPORT QString PageTag(int page);

/// \brief The page that \a tag stands for, or 0 when PageTag() writes \a tag for no page from 1 up.
[[nodiscard]] VANTOR_PLATFORM_EXPORT int PageOfTag(const QString &tag);

} // namespace Ravel
