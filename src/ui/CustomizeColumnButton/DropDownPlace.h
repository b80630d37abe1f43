// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRect>
#include <QtCore/Qt>

namespace Vantor {

/// \brief Where a drop-down of \a size opens for \a button so that it stays inside \a room; all in
/// the same coordinates.
///
/// It is below the button with their leading edges in line, or above it when only there it has
/// room; then it is shifted, and cut at last, until it is inside. An empty room puts no limit.
[[nodiscard]] QRect DropDownPlace(const QRect &button, const QSize &size, const QRect &room,
                                  Qt::LayoutDirection direction);

} // namespace Vantor
