// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;
class QPalette;
class QWidget;

/// What the rows and windows draw by themselves.
namespace drawing {

/// `rect` with its edges on whole device pixels, so that they are sharp at 1.5x too.
QRectF snapped(const QRectF &rect, qreal ratio);
/// max(1, round(ratio)) device pixels for each point of `points`, in points.
qreal hairline(qreal points, qreal ratio);

/// The ground of a highlighted row.
void fillHighlight(QPainter &painter, const QRectF &rect, const QColor &color);
/// An outline of `width` points whose outer edge is `rect`.
void strokeInside(QPainter &painter, const QRectF &rect, qreal radius, qreal width,
                  const QColor &color);

/// One line of text as drawLine() shows it.
struct Line
{
    QString text;
    QFont font;
    QColor color;
    QColor markColor;                              ///< of the signs that stand for line breaks
    Qt::LayoutDirection reading = Qt::LeftToRight; ///< the side the text is aligned to
};

/// Draws one line, elided at its end, vertically centred. The text keeps its own direction.
/// @return how much of the width was used, in points
qreal drawLine(QPainter &painter, const QRectF &rect, const Line &line);

/// The font of `widget` times `factor`.
QFont scaled(const QFont &font, qreal factor);

/// `rect`, whose place is given for left-to-right reading within `whole`, where it belongs.
QRectF mirrored(const QRectF &rect, const QRectF &whole, Qt::LayoutDirection direction);

} // namespace drawing
