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

void VisualEffect::setBlurred(bool blurred)
{
    if (m_isBlurred == blurred)
        return;
    m_isBlurred = blurred;
    update();
}

QColor VisualEffect::ground() const
{
    QColor color = paletteColors::window(palette());
    if (m_isBlurred && !paletteColors::isHighContrast(palette()))
        color.setAlphaF(tokens::kBlurredGround);
    return color;
}

void VisualEffect::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const qreal radius = m_isComposited ? tokens::kWindowRadius : 0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground());
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
