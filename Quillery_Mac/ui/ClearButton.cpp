// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/ClearButton.h"

#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/SystemImage.h"

#include <QPainter>

ClearButton::ClearButton(const QString &name, QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setAccessibleName(name);
    setToolTip(name);
}

void ClearButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor color = isDown() || underMouse() ? paletteColors::text(palette())
                                                  : paletteColors::quietText(palette());
    const QPointF topLeft((width() - kImage) / 2.0, (height() - kImage) / 2.0);
    systemImage::draw(painter, QStringLiteral("multiply.circle.fill"), topLeft, kImage, color);
}
