// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>

class QPainter;

/// Our own drawings of the system images, by name ("chevron.right", "multiply.circle.fill", ...),
/// recoloured and rendered at the exact device size. Main thread only.
namespace systemImage {

/// @param points edge length of the square image
/// @param ratio  device pixels per point
/// @return the image in `color`; a null pixmap if there is no image of that name. Kept, so asking
///         again costs a look-up.
QPixmap pixmap(const QString &name, int points, qreal ratio, const QColor &color);

/// Draws the image into a square at `topLeft`, moved to whole device pixels; `mirrored` flips it
/// for right-to-left reading.
void draw(QPainter &painter, const QString &name, QPointF topLeft, int points, const QColor &color,
          bool mirrored = false);

/// The program's icon in all usual sizes: the full drawing from 48 upwards, a simpler one below.
QIcon applicationIcon();

} // namespace systemImage
