// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/Folder.h"

#include "Quillery_Mac/menu/SnippetMenuState.h"
#include "Quillery_Mac/ui/RowAccessible.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

Folder::Folder(SnippetMenuState &state, PointerMotion &motion, QWidget *parent)
    : SnippetRowView(state, motion, parent)
    , doPaste(state.doPaste)
    , openItems(state.openItems)
    , isSelected(state.isSelected)
    , openItemsList(state.openItemsList)
    , m_openObserver(openItems.addNotifier([this] { followOpenItems(); }))
{
}

void Folder::setRow(std::optional<SnippetRow> row)
{
    item = row ? row->snippet : nullptr;
    SnippetRowView::setRow(row);
    followOpenItems();
}

void Folder::activate()
{
    if (item != nullptr)
        state().toggle(*item);
}

void Folder::drawSlot(QPainter &painter, QPointF topLeft) const
{
    const bool isMirrored = !isOpen.value() && layoutDirection() == Qt::RightToLeft;
    systemImage::draw(
        painter, isOpen.value() ? QStringLiteral("chevron.down") : QStringLiteral("chevron.right"),
        topLeft, tokens::kMenuChevron, quietColor(), isMirrored);
}

void Folder::followOpenItems()
{
    const bool isOpenNow = item != nullptr && state().isFolderOpen(*item);
    if (isOpen.value() == isOpenNow)
        return;
    isOpen = isOpenNow;
    update();
    notifyRowStateChanged(*this);
}
