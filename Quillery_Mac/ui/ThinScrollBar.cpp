// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/ThinScrollBar.h"

#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr qreal kShortestHandle = 24; // points: what a pointer still hits

} // namespace

ThinScrollBar::ThinScrollBar(QWidget *parent)
    : QScrollBar(Qt::Vertical, parent)
{
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

QSize ThinScrollBar::sizeHint() const
{
    return {tokens::kScrollGutter, 2 * tokens::kScrollGutter};
}

QRectF ThinScrollBar::handle() const
{
    const qreal inset = tokens::kScrollBarInset;
    const qreal track = height() - 2 * inset;
    const qreal whole = maximum() - minimum() + pageStep();
    const qreal length = std::clamp(track * pageStep() / std::max(whole, 1.0),
                                    std::min(kShortestHandle, track), track);
    const qreal range = std::max(1, maximum() - minimum());
    const qreal top = inset + (track - length) * (value() - minimum()) / range;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const qreal left = isMirrored ? inset : width() - inset - tokens::kScrollBar;
    return {left, top, qreal(tokens::kScrollBar), length};
}

void ThinScrollBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_grip >= 0 ? paletteColors::quietText(palette())
                                 : paletteColors::controlEdge(palette()));
    constexpr qreal kRadius = tokens::kScrollBar / 2.0;
    painter.drawRoundedRect(handle(), kRadius, kRadius);
}

void ThinScrollBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QRectF bar = handle();
    const qreal y = event->position().y();
    if (y < bar.top() || y > bar.bottom()) {
        triggerAction(y < bar.top() ? SliderPageStepSub : SliderPageStepAdd);
        return;
    }
    m_grip = y - bar.top();
    setSliderDown(true);
    update();
}

void ThinScrollBar::mouseMoveEvent(QMouseEvent *event)
{
    if (m_grip < 0)
        return;
    const qreal inset = tokens::kScrollBarInset;
    const qreal room = height() - 2 * inset - handle().height();
    if (room <= 0)
        return;
    const qreal part = (event->position().y() - m_grip - inset) / room;
    setValue(minimum() + qRound(std::clamp(part, 0.0, 1.0) * (maximum() - minimum())));
}

void ThinScrollBar::mouseReleaseEvent(QMouseEvent *)
{
    m_grip = -1;
    setSliderDown(false);
    update();
}
