// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/PopoverRow.h"

#include "Quillery_Mac/menu/MenuState.h"

PopoverRow::PopoverRow(MenuState &state, PointerMotion &motion, const QString &label,
                       const QString &word, std::function<qsizetype()> count, QWidget *parent)
    : MenuRow(state, motion, label, word, Ending::Chevron, parent)
    , m_count(std::move(count))
{
}

bool PopoverRow::isExpanded() const
{
    return state().openPopover.value() == word();
}

void PopoverRow::activate()
{
    pointerEntered();
}

void PopoverRow::pointerEntered()
{
    state().popoverRowEntered(word(), m_count());
}
