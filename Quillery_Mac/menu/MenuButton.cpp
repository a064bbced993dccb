// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuButton.h"

#include "Quillery_Mac/menu/MenuState.h"

MenuButton::MenuButton(MenuState &state, PointerMotion &motion, const QString &word,
                       const QString &label, std::function<void()> functionToRun,
                       std::function<void()> dismissMenu, QWidget *parent)
    : MenuRow(state, motion, label, word, Ending::None, parent)
    , dismiss(std::move(dismissMenu))
    , text(word)
    , hoverOver(state.hoverOver)
    , showPopover(state.showPopover)
    , options(state.options)
    , isSelected(state.isSelected)
    , passedSearchNoEntry(state.passedSearchNoEntry)
    , currentActive(state.currentActive)
    , function(std::move(functionToRun))
    , m_selectionObserver(isSelected.addNotifier([this] { selectionChanged(); }))
{
}

void MenuButton::activate()
{
    if (!isEnabled())
        return;
    // Closing may take this row away with its functions.
    const std::function<void()> close = dismiss;
    function();
    close();
}

void MenuButton::pointerEntered()
{
    state().actionRowHovered(text, true);
}

void MenuButton::pointerLeft()
{
    state().actionRowHovered(text, false);
}

void MenuButton::selectionChanged()
{
    if (isSelected.value() != text)
        return;
    isSelected = std::nullopt;
    activate();
}
