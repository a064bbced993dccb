// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/Folder.h"

#include "Quillery_Mac/menu/SnippetMenuState.h"
#include "Quillery_Mac/ui/Motion.h"
#include "Quillery_Mac/ui/RowAccessible.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QPainter>

Folder::Folder(SnippetMenuState &state, PointerMotion &motion, QWidget *parent)
    : SnippetRowView(state, motion, parent)
    , doPaste(state.doPaste)
    , openItems(state.openItems)
    , isSelected(state.isSelected)
    , openItemsList(state.openItemsList)
    , m_openObserver(openItems.addNotifier([this] { followOpenItems(Turn::Slowly); }))
{
    m_turn.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_turn, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void Folder::setRow(std::optional<SnippetRow> row)
{
    Snippet *folder = row ? row->snippet : nullptr;
    const Turn turn = item == folder ? Turn::Slowly : Turn::AtOnce;
    item = folder;
    SnippetRowView::setRow(row);
    followOpenItems(turn);
}

void Folder::activate()
{
    if (item != nullptr)
        state().toggle(*item);
}

void Folder::drawSlot(QPainter &painter, QPointF topLeft) const
{
    const int size = tokens::kMenuChevron;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    if (m_turn.state() == QAbstractAnimation::Running) {
        const qreal quarter = isMirrored ? -90 : 90;
        const QPointF centre = topLeft + QPointF(size / 2.0, size / 2.0);
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.translate(centre);
        painter.rotate(quarter * m_turn.currentValue().toReal());
        systemImage::draw(painter, QStringLiteral("chevron.right"), topLeft - centre, size,
                          quietColor(), isMirrored);
        painter.restore();
        return;
    }
    systemImage::draw(
        painter, isOpen.value() ? QStringLiteral("chevron.down") : QStringLiteral("chevron.right"),
        topLeft, size, quietColor(), isMirrored && !isOpen.value());
}

void Folder::followOpenItems(Turn turn)
{
    const bool isOpenNow = item != nullptr && state().isFolderOpen(*item);
    if (turn == Turn::AtOnce)
        m_turn.stop();
    if (isOpen.value() == isOpenNow)
        return;
    isOpen = isOpenNow;
    const int duration = motion::duration(*this, tokens::kFolderMotion);
    if (turn == Turn::Slowly && duration > 0 && isVisible()) {
        m_turn.setDuration(duration);
        m_turn.setStartValue(isOpenNow ? 0.0 : 1.0);
        m_turn.setEndValue(isOpenNow ? 1.0 : 0.0);
        m_turn.start();
    }
    update();
    notifyRowStateChanged(*this);
}
