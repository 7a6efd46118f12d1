#pragma once

#include <vector>

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tesselo {

// The places of the frame's windows in its workspace. Every window keeps the
// size it is given, so that a page window always shows the whole remote;
// where they do not fit the workspace's visible part, they go on to the
// right or below, and the workspace scrolls. Places are in the workspace's
// coordinates with its scrolling at the origin; windows are given in their
// order (documents first, then their pages as they were opened).
namespace arrangement {

inline constexpr int gap = 2;

// Cascade: each window a title bar's height (`step`) below and right of the
// one before; a window that would pass the bottom starts a new cascade at the
// top, right of the widest window of the one before.
std::vector<QRect> cascade(const std::vector<QSize>& sizes, const QSize& visible, int step);

// Tile Horizontally: windows side by side in rows, a row full when the next
// window would pass the right edge; rows one below the other.
std::vector<QRect> rows(const std::vector<QSize>& sizes, const QSize& visible);

// Tile Vertically: windows one below the other in columns, a column full
// when the next window would pass the bottom; columns side by side.
std::vector<QRect> columns(const std::vector<QSize>& sizes, const QSize& visible);

// The place of a new window: the first free spot, top rows first, that lies
// in the visible part and overlaps no window there is; else right of every
// window, at the top.
QPoint free_place(const QSize& size, const std::vector<QRect>& taken, const QSize& visible);

}  // namespace arrangement

}  // namespace tesselo
