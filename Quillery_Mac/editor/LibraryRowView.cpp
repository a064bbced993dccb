// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryRowView.h"

#include "Quillery_Mac/editor/LibraryList.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/RowAccessible.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPainter>

namespace {

constexpr qreal kDraggedOpacity = 0.7;

} // namespace

LibraryRowView::LibraryRowView(LibraryList &list, PointerMotion &motion, QWidget *parent)
    : Row(motion, parent)
    , m_list(list)
{
}

void LibraryRowView::setRow(const ShownRow &row)
{
    const RowText text = row.row != nullptr ? libraryRowText(*row.row) : RowText();
    const bool isRenamed = m_row.row != nullptr && row.row != nullptr && text.text != m_text.text;
    m_row = row;
    m_text = text;
    m_isFolder = row.row != nullptr && row.row->isFolder;
    const bool isExpanded = row.row != nullptr && row.row->expanded;
    if (isExpanded != m_isExpanded) {
        m_isExpanded = isExpanded;
        notifyRowStateChanged(*this);
    }
    if (isRenamed)
        notifyRowNameChanged(*this);
    refreshHighlight();
    update();
}

bool LibraryRowView::isHighlighted() const
{
    return m_list.isSelected(m_row);
}

void LibraryRowView::activate()
{
    m_list.choose(m_row);
}

int LibraryRowView::slotOffset(bool isMember)
{
    return tokens::kListRowPadding + (isMember ? tokens::kMemberIndent : 0);
}

bool LibraryRowView::isOnChevron(QPointF position) const
{
    const QRectF slot(0, 0, slotOffset(false) + tokens::kListSlot, height());
    return m_isFolder && drawing::mirrored(slot, rect(), layoutDirection()).contains(position);
}

void LibraryRowView::paintEvent(QPaintEvent *)
{
    if (m_row.row == nullptr)
        return;
    QPainter painter(this);
    if (m_list.isDragged(m_row))
        painter.setOpacity(kDraggedOpacity);
    drawGround(painter, rect());
    const Qt::LayoutDirection reading = layoutDirection();
    const qreal slot = slotOffset(m_row.folder != nullptr);
    const int image = tokens::kMenuChevron;
    if (m_isFolder) {
        const QRectF box(slot, (height() - image) / 2.0, image, image);
        systemImage::draw(painter,
                          m_isExpanded ? QStringLiteral("chevron.down")
                                       : QStringLiteral("chevron.right"),
                          drawing::mirrored(box, rect(), reading).topLeft(), image, quietColor(),
                          reading == Qt::RightToLeft && !m_isExpanded);
    }
    const qreal start = slot + tokens::kListSlot + tokens::kListSlotGap;
    const QRectF text(start, 0, width() - tokens::kListRowPadding - start, height());
    drawing::drawLine(
        painter, drawing::mirrored(text, rect(), reading),
        {m_text.text, font(), m_text.isQuiet ? quietColor() : textColor(), {}, reading});
}

void LibraryRowView::mousePressEvent(QMouseEvent *event)
{
    m_pressedAt = event->position();
    if (event->button() == Qt::LeftButton && isOnChevron(event->position()))
        m_list.toggle(m_row);
    else
        Row::mousePressEvent(event);
}

void LibraryRowView::mouseMoveEvent(QMouseEvent *event)
{
    const qreal way = (event->position() - m_pressedAt).manhattanLength();
    if (!isPressed() || way < QApplication::startDragDistance()) {
        Row::mouseMoveEvent(event);
        return;
    }
    forgetPointer();
    m_list.drag(m_row, *this);
}

void LibraryRowView::mouseReleaseEvent(QMouseEvent *event)
{
    Row::mouseReleaseEvent(event);
}

void LibraryRowView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_isFolder && !isOnChevron(event->position()))
        m_list.toggle(m_row);
    else
        mousePressEvent(event);
}

void LibraryRowView::contextMenuEvent(QContextMenuEvent *event)
{
    m_list.choose(m_row);
    emit m_list.menuRequested(event->globalPos());
}
