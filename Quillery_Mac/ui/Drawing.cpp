// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Drawing.h"

#include "Quillery_Mac/ui/LineBreakSign.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

QList<QTextLayout::FormatRange> markFormats(const QString &text, const QColor &color)
{
    QList<QTextLayout::FormatRange> ranges;
    QTextCharFormat format;
    format.setForeground(color);
    for (qsizetype at = text.indexOf(kLineBreakSign); at >= 0;
         at = text.indexOf(kLineBreakSign, at + 1))
        ranges.append({static_cast<int>(at), 1, format});
    return ranges;
}

// The elided text without a blank before its ellipsis.
QString elided(const QString &text, const QFontMetricsF &metrics, qreal width)
{
    constexpr QChar kEllipsis{u'\u2026'};
    QString shown = metrics.elidedText(text, Qt::ElideRight, width);
    if (shown == text || !shown.endsWith(kEllipsis))
        return shown;
    shown.chop(1);
    while (shown.endsWith(u' '))
        shown.chop(1);
    return shown.append(kEllipsis);
}

QTextOption lineOption(const Line &line, const QString &text)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(Qt::AlignAbsolute |
                        (line.reading == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft));
    return option;
}

} // namespace

QRectF snapped(const QRectF &rect, qreal ratio)
{
    const auto snap = [ratio](qreal value) { return std::round(value * ratio) / ratio; };
    return QRectF(QPointF(snap(rect.left()), snap(rect.top())),
                  QPointF(snap(rect.right()), snap(rect.bottom())));
}

qreal hairline(qreal points, qreal ratio)
{
    return points * std::max(1.0, std::round(ratio)) / ratio;
}

void fillHighlight(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(snapped(rect, ratio), tokens::kHighlightRadius,
                            tokens::kHighlightRadius);
    painter.restore();
}

void strokeInside(QPainter &painter, const QRectF &rect, qreal radius, qreal width,
                  const QColor &color)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    const qreal thickness = hairline(width, ratio);
    const QRectF outer = snapped(rect, ratio);
    const QRectF inner = outer.adjusted(thickness, thickness, -thickness, -thickness);
    const qreal innerRadius = std::max(0.0, radius - thickness);
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    ring.addRoundedRect(outer, radius, radius);
    ring.addRoundedRect(inner, innerRadius, innerRadius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(ring, color);
    painter.restore();
}

qreal drawLine(QPainter &painter, const QRectF &rect, const Line &line)
{
    const QFontMetricsF metrics(line.font, painter.device());
    const QString shown = elided(line.text, metrics, rect.width());
    QTextLayout layout(shown, line.font, painter.device());
    layout.setTextOption(lineOption(line, line.text));
    if (line.markColor.isValid())
        layout.setFormats(markFormats(shown, line.markColor));
    layout.beginLayout();
    QTextLine only = layout.createLine();
    if (only.isValid())
        only.setLineWidth(rect.width());
    layout.endLayout();
    if (!only.isValid())
        return 0;
    painter.setPen(line.color);
    const qreal height = std::round(metrics.height());
    const qreal top = rect.top() + std::floor((rect.height() - height) / 2);
    // A fallback font may make the line taller than the row's font; the base line stays the same.
    layout.draw(&painter, QPointF(rect.left(), top + metrics.ascent() - only.ascent()));
    return only.naturalTextWidth();
}

QFont scaled(const QFont &font, qreal factor)
{
    QFont result = font;
    if (font.pixelSize() > 0)
        result.setPixelSize(std::max(1, qRound(font.pixelSize() * factor)));
    else
        result.setPointSizeF(font.pointSizeF() * factor);
    return result;
}

QRectF mirrored(const QRectF &rect, const QRectF &whole, Qt::LayoutDirection direction)
{
    if (direction == Qt::LeftToRight)
        return rect;
    QRectF result = rect;
    result.moveRight(whole.left() + whole.right() - rect.left());
    return result;
}

} // namespace drawing
