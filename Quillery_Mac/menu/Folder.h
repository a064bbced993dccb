// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/SnippetRowView.h"

#include <QVariantAnimation>

/// A folder in the snippet menu: a click opens or closes it. Its members are rows of their own,
/// made only when they come into view.
class Folder : public SnippetRowView
{
    Q_OBJECT

public:
    Folder(SnippetMenuState &state, PointerMotion &motion, QWidget *parent);

    Snippet *item = nullptr;
    QProperty<bool> showPopover{false};
    /// Always what `openItems` says for this folder.
    QProperty<bool> isOpen{false};
    QProperty<bool> &doPaste;
    QProperty<QMap<QUuid, bool>> &openItems;
    QProperty<std::optional<SnippetRow>> &isSelected;
    QProperty<std::vector<Snippets>> &openItemsList;

    void setRow(std::optional<SnippetRow> row) override;
    bool isExpandable() const override { return true; }
    bool isExpanded() const override { return isOpen.value(); }
    void activate() override;

protected:
    void drawSlot(QPainter &painter, QPointF topLeft) const override;

private:
    enum class Turn { Slowly, AtOnce };

    void followOpenItems(Turn turn);

    QVariantAnimation m_turn; ///< the chevron's, from 0 (closed) to 1 (open)
    QPropertyNotifier m_openObserver;
};
