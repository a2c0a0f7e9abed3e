#pragma once
// Where the windows of documents go in the document area: plain geometry in logical pixels, from
// the area's top left corner. No window is touched here.
#include "platform/Host.h"

#include <QList>
#include <QRect>

constexpr QSize SmallestWindow{360, 240};  // by hand and in a cascade
constexpr QSize SmallestTile{220, 120};    // caption, scales and some plot
constexpr QSize IconSize{220, 34};         // a minimised window: caption and border
constexpr int IconGap = 4;                 // around each of them

/// Places for `count` windows, the first one first. Tiles cover the area without hole or overlap:
/// up to three stand above each other (Horizontal) or side by side (Vertical), more in a grid.
/// Where tiles would be smaller than SmallestTile the grid gets more lines; where no grid helps,
/// tiles keep that size and overlap. Icons fill rows from the bottom left upwards.
QList<QRect> PlaceWindows(WindowArrangement kind, QSize area, int count);

/// Where a window must stand so that its caption can be grasped: as asked, or moved back into the
/// area.
QPoint KeepReachable(const QRect& window, QSize area);
