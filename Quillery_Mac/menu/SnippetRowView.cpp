// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/SnippetRowView.h"

#include "Quillery_Mac/menu/SnippetMenuState.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QPainter>

SnippetRowView::SnippetRowView(SnippetMenuState &state, PointerMotion &motion, QWidget *parent)
    : Row(motion, parent)
    , m_state(state)
{
}

void SnippetRowView::setRow(std::optional<SnippetRow> row)
{
    if (m_row != row)
        forgetPointer();
    m_row = row;
    m_text = {};
    if (row) {
        const QString title = row->snippet->title().value_or(QString());
        const bool hasTitle = !oneLine(title).isEmpty();
        m_text = titleRowText(title, hasTitle ? TextPreview() : row->snippet->preview());
    }
    refreshHighlight();
    update();
}

bool SnippetRowView::isHighlighted() const
{
    return m_row && m_state.isSelected.value() == m_row;
}

void SnippetRowView::pointerEntered()
{
    m_state.highlight(m_row);
}

void SnippetRowView::drawSlot(QPainter &, QPointF) const {}

void SnippetRowView::paintEvent(QPaintEvent *)
{
    if (!m_row)
        return;
    QPainter painter(this);
    drawGround(painter, rect());
    const Qt::LayoutDirection reading = layoutDirection();
    const int indent = m_row->folder != nullptr ? tokens::kMemberIndent : 0;
    const qreal slot = tokens::kListRowPadding + indent;
    const int image = tokens::kMenuChevron;
    const QRectF box(slot, (height() - image) / 2.0, image, image);
    drawSlot(painter, drawing::mirrored(box, rect(), reading).topLeft());
    const qreal start = slot + tokens::kListSlot + tokens::kListSlotGap;
    const QRectF text(start, 0, width() - tokens::kListRowPadding - start, height());
    drawing::drawLine(
        painter, drawing::mirrored(text, rect(), reading),
        {m_text.text, font(), m_text.isQuiet ? quietColor() : textColor(), {}, reading});
}
