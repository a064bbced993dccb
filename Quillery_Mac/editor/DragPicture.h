// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPixmap>
#include <QPoint>

class LibraryRowView;
class QMimeData;

/// What the pointer carries while a row is dragged: the row's title, for a folder with its members
/// their number, itself included.
QPixmap dragPicture(const LibraryRowView &row, int count);

/// Where the pointer is in the picture, in points: outside of it, so that it covers no strip.
QPoint dragHotSpot();

/// Whether a drag from another program carries plain text.
bool hasDroppedText(const QMimeData &data);
/// The plain text of a drag from another program as UTF-8, byte for byte where it offers UTF-8.
QByteArray droppedText(const QMimeData &data);
