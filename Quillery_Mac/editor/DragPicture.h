// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPixmap>
#include <QPoint>

#include <functional>

class LibraryRowView;
class QDropEvent;
class QMimeData;
class QObject;

/// What the pointer carries while a row is dragged: the row's title, for a folder with its members
/// their number, itself included.
QPixmap dragPicture(const LibraryRowView &row, int count);

/// Where the pointer is in the picture, in points: outside of it, so that it covers no strip.
QPoint dragHotSpot();

/// Whether a drag from another program carries plain text.
bool hasDroppedText(const QMimeData &data);
/// Calls `command` when the drag that a drop event belongs to is over: at once for one of another
/// program; for a text of ours after its field is done with it, as the field may go by the command.
/// Not called if the receiver of the event is gone by then.
void afterDrag(const QDropEvent &event, QObject &receiver, std::function<void()> command);
/// The plain text of a drag from another program as UTF-8, byte for byte where it offers UTF-8.
QByteArray droppedText(const QMimeData &data);
