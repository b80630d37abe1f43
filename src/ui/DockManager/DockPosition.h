// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPoint>
#include <QtCore/qnamespace.h>

#include <optional>

namespace Vantor {

constexpr int kCommonContent = 1;
constexpr int kExportContent = 2;

// A dock's place and width at the moment. Pixels, global coordinates.
struct DockSituation
{
    QPoint top_left;     // of the parent widget, without its window frame
    QPoint bottom_right; // its last pixel
    int width = 0;       // the present one; the edge at the window's border does not move while
                         // the dock slides
    bool is_parent_found = false; // the host asked for the window to be looked for
    int content_type = kCommonContent;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

// The dock's top left corner; nothing where it is left alone. The odd pixels and the drop below
// the title bar differ from case to case: hosts' windows are drawn for them.
std::optional<QPoint> DockPosition(const DockSituation &situation);

// Whether the edge that does not move is the left one.
bool IsLeftDocked(const DockSituation &situation);

bool HasFixedHeight(int content_type);

// Of a dock beside a parent widget of that height.
int DockHeight(int parent_height);

// A negative width means the usual one.
int DockWidth(int width);

} // namespace Vantor
