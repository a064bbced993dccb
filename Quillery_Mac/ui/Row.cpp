// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Row.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/PointerMotion.h"
#include "Quillery_Mac/ui/RowAccessible.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

// A tooltip is as large as its text: more than this does not fit on a screen.
constexpr qsizetype kLongestHelp = 4000;

// Plain text whatever it looks like, wrapped, with its own line breaks.
QString plainToolTip(const QString &text)
{
    QString shown = text.left(kLongestHelp);
    if (shown.size() < text.size())
        shown.append(u'\u2026');
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(shown.toHtmlEscaped());
}

} // namespace

Row::Row(PointerMotion &motion, QWidget *parent)
    : QWidget(parent)
    , m_motion(motion)
{
    installRowAccessibility();
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

void Row::refreshHighlight()
{
    if (m_wasHighlighted == isHighlighted())
        return;
    m_wasHighlighted = isHighlighted();
    update();
    notifyRowStateChanged(*this);
}

bool Row::isTarget(QPointF position) const
{
    return QRectF(rect()).contains(position);
}

void Row::forgetPointer()
{
    hover = false;
    setPressed(false);
}

void Row::drawGround(QPainter &painter, const QRectF &rect) const
{
    if (!isHighlighted())
        return;
    if (!isEnabled()) {
        // The arrow keys stop here too, but the accent would promise an action.
        drawing::fillHighlight(painter, rect, paletteColors::hoverGround(palette()));
        return;
    }
    drawing::fillHighlight(painter, rect,
                           m_isPressed ? paletteColors::pressedHighlight(palette())
                                       : paletteColors::highlight(palette()));
}

QColor Row::textColor() const
{
    if (!isEnabled())
        return paletteColors::disabledText(palette());
    return isHighlighted() ? paletteColors::highlightedText(palette())
                           : paletteColors::text(palette());
}

QColor Row::quietColor() const
{
    if (!isEnabled() || isHighlighted())
        return textColor();
    return paletteColors::quietText(palette());
}

bool Row::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Enter:
        pointerAt(static_cast<QEnterEvent *>(event)->globalPosition());
        break;
    case QEvent::MouseMove:
        pointerAt(static_cast<QMouseEvent *>(event)->globalPosition());
        break;
    case QEvent::Leave:
        if (hover.value()) {
            hover = false;
            pointerLeft();
        }
        break;
    case QEvent::ToolTip:
        showHelp(static_cast<QHelpEvent *>(event)->globalPos());
        return true;
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::FontChange:
        updateGeometry();
        update();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void Row::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && isTarget(event->position()))
        setPressed(true);
}

void Row::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_isPressed)
        return;
    setPressed(false);
    if (isTarget(event->position()))
        activate();
}

void Row::pointerAt(QPointF global)
{
    const bool hasMoved = m_motion.hasMovedTo(global);
    if (!hasMoved || hover.value() || !QRectF(rect()).contains(mapFromGlobal(global)))
        return;
    hover = true;
    pointerEntered();
}

void Row::showHelp(const QPoint &global)
{
    // While the arrow keys are in use a tooltip would only cover the rows.
    const QString text = m_motion.isInUse() ? help() : QString();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, plainToolTip(text), this, rect());
}

void Row::setPressed(bool pressed)
{
    if (m_isPressed == pressed)
        return;
    m_isPressed = pressed;
    update();
}
