// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Divider.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QEvent>
#include <QPainter>

Divider::Divider(QWidget *parent, int inset)
    : QWidget(parent)
    , m_inset(inset)
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
    QRectF line = QRectF(contentsRect()).adjusted(m_inset, 0, -m_inset, 0);
    line.setHeight(std::min(thickness, line.height()));
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
