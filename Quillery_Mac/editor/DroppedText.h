// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class QMimeData;

/// Whether a drag from another program carries plain text.
bool hasDroppedText(const QMimeData &data);
/// The plain text of a drag from another program as UTF-8, byte for byte where it offers UTF-8.
QByteArray droppedText(const QMimeData &data);
