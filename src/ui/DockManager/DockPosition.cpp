// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockPosition.h"

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kUsualWidthPx = 400;
constexpr int kTitleBarPx = 41;
constexpr int kHeightOfBarsPx = 42;

} // namespace

std::optional<QPoint> DockPosition(const DockSituation &situation)
{
    const int top = situation.top_left.y();
    const int right = situation.bottom_right.x() - situation.width;
    if (!situation.is_parent_found)
        return QPoint(right - 1, top + kTitleBarPx);
    if (IsLeftDocked(situation))
        return QPoint(situation.top_left.x() + 1, top);
    if (situation.content_type == kCommonContent)
        return QPoint(right + 1, top);
    if (situation.content_type == kExportContent)
        return QPoint(right + 1, top + kTitleBarPx);
    return std::nullopt;
}

bool IsLeftDocked(const DockSituation &situation)
{
    return situation.is_parent_found && situation.content_type == kCommonContent
           && situation.direction == Qt::RightToLeft;
}

bool HasFixedHeight(int content_type)
{
    return content_type == kCommonContent || content_type == kExportContent;
}

int DockHeight(int parent_height)
{
    return std::max(parent_height - kHeightOfBarsPx, 0);
}

int DockWidth(int width)
{
    return width < 0 ? kUsualWidthPx : width;
}

} // namespace Vantor
