// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/VisualEffect.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QPainter>

VisualEffect::VisualEffect(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void VisualEffect::setComposited(bool composited)
{
    if (m_isComposited == composited)
        return;
    m_isComposited = composited;
    update();
}

void VisualEffect::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const qreal radius = m_isComposited ? tokens::kWindowRadius : 0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paletteColors::window(palette()));
    painter.drawRoundedRect(rect(), radius, radius);
    drawing::strokeInside(painter, rect(), radius, paletteColors::lineWidth(palette()),
                          paletteColors::windowEdge(palette()));
}

void VisualEffect::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        update();
}
