// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QPoint>

class LibraryRowView;

/// What the pointer carries while a row is dragged: the row's title, for a folder with its members
/// their number, itself included.
QPixmap dragPicture(const LibraryRowView &row, int count);

/// Where the pointer is in the picture, in points: outside of it, so that it covers no strip.
QPoint dragHotSpot();
