// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/DropLine.h"

#include "Quillery_Mac/ui/PaletteColors.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kThickness = 2;
constexpr qreal kDash = 6;
constexpr qreal kGap = 4;

} // namespace

DropLine::DropLine(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("drop-line"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropLine::showAt(int y, int left, int right)
{
    // At the ends of the list half of it would be outside.
    const int top = std::clamp(y - kThickness / 2, 0, parentWidget()->height() - kThickness);
    setGeometry(left, top, right - left, kThickness);
    raise();
    show();
}

void DropLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Dashes are counted in widths of the pen.
    QPen pen(paletteColors::highlight(palette()), kThickness, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({kDash / kThickness, kGap / kThickness});
    painter.setPen(pen);
    const qreal middle = kThickness / 2.0;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QPointF start(isMirrored ? width() : 0, middle);
    const QPointF end(isMirrored ? 0 : width(), middle);
    painter.drawLine(start, end);
}
