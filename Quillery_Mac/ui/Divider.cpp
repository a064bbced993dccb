// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Divider.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QPainter>

Divider::Divider(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize Divider::sizeHint() const
{
    return {tokens::kMenuWidth, qRound(paletteColors::lineWidth(palette()))};
}

void Divider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const qreal thickness =
        drawing::hairline(paletteColors::lineWidth(palette()), devicePixelRatioF());
    const QRectF line(tokens::kMenuRowPadding, 0, width() - 2 * tokens::kMenuRowPadding,
                      std::min(thickness, qreal(height())));
    painter.fillRect(drawing::snapped(line, devicePixelRatioF()),
                     paletteColors::divider(palette()));
}

void Divider::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        updateGeometry();
        update();
    }
}
