// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuRow.h"

#include "Quillery_Mac/menu/MenuState.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QFontMetricsF>
#include <QPainter>

MenuRow::MenuRow(MenuState &state, PointerMotion &motion, const QString &label, const QString &word,
                 Ending ending, QWidget *parent)
    : Row(motion, parent)
    , m_state(state)
    , m_label(label)
    , m_word(word)
    , m_ending(ending)
{
    setObjectName(word);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void MenuRow::setHint(const QString &hint)
{
    m_hint = hint;
    update();
}

bool MenuRow::isHighlighted() const
{
    return m_state.isHighlighted(m_word);
}

QSize MenuRow::sizeHint() const
{
    return {tokens::kMenuWidth, fontMetrics().height() + 2 * tokens::kMenuRowPadding};
}

qreal MenuRow::labelEnd() const
{
    const qreal end = width() - tokens::kMenuRowPadding;
    if (m_ending == Ending::Chevron)
        return end - tokens::kMenuChevron - tokens::kTextGap;
    return m_hint.isEmpty() ? end : end - hintWidth() - tokens::kTextGap;
}

qreal MenuRow::hintWidth() const
{
    return QFontMetricsF(drawing::scaled(font(), tokens::kHintFont)).horizontalAdvance(m_hint);
}

void MenuRow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int inset = tokens::kMenuHighlightInset;
    drawGround(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset));
    const Qt::LayoutDirection reading = layoutDirection();
    const QRectF label(tokens::kMenuRowPadding, 0, labelEnd() - tokens::kMenuRowPadding, height());
    drawing::drawLine(painter, drawing::mirrored(label, rect(), reading),
                      {m_label, font(), textColor(), {}, reading});
    if (m_ending == Ending::Chevron) {
        const int size = tokens::kMenuChevron;
        const QRectF box(width() - tokens::kMenuRowPadding - size, (height() - size) / 2.0, size,
                         size);
        systemImage::draw(painter, QStringLiteral("chevron.right"),
                          drawing::mirrored(box, rect(), reading).topLeft(), size, quietColor(),
                          reading == Qt::RightToLeft);
    } else if (!m_hint.isEmpty()) {
        drawHint(painter);
    }
}

void MenuRow::drawHint(QPainter &painter) const
{
    const Qt::LayoutDirection reading = layoutDirection();
    const qreal width = hintWidth();
    const QRectF box(this->width() - tokens::kMenuRowPadding - width, 0, width + 1, height());
    drawing::drawLine(
        painter, drawing::mirrored(box, rect(), reading),
        {m_hint, drawing::scaled(font(), tokens::kHintFont), quietColor(), {}, Qt::LeftToRight});
}
