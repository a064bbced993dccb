// SPDX-License-Identifier: MIT
// The part of the menu that opens and closes its popovers.
#include "Quillery_Mac/clipboard/ClipHistoryView.h"
#include "Quillery_Mac/menu/MenuRow.h"
#include "Quillery_Mac/menu/MenuView.h"
#include "Quillery_Mac/menu/SnippetMenuView.h"
#include "Quillery_Mac/ui/Popover.h"
#include "Quillery_Mac/ui/RowAccessible.h"
#include "platform/windows/Desktop.h"

SnippetMenuView *MenuView::snippetMenu() const
{
    return m_snippets;
}

ClipHistoryView *MenuView::clipHistoryView() const
{
    return m_history;
}

void MenuView::closePopover()
{
    // Destroyed only when the event loop runs: until then they must not act on commands any more.
    if (m_history != nullptr)
        m_history->release();
    if (m_snippets != nullptr)
        m_snippets->release();
    m_history = nullptr;
    m_snippets = nullptr;
    host()->popover().dismiss();
}

void MenuView::popoverChanged()
{
    PanelWindow *panel = host();
    if (panel == nullptr)
        return;
    const std::optional<QString> word = openPopover.value();
    m_showHistory = word == optionWords::kHistory;
    if (panel->popover().isOpen())
        closePopover();
    // A window that comes up, or goes, under the resting pointer is no move of the pointer.
    m_motion.restAt(m_environment.desktop.pointer());
    if (word == optionWords::kHistory)
        openHistory();
    else if (word == optionWords::kSnippets)
        openSnippets();
    else
        panel->menuWindows().giveKeyboardTo(*panel);
    for (const QString &row : {optionWords::kHistory, optionWords::kSnippets})
        notifyRowStateChanged(*rowOf(row));
}

void MenuView::openHistory()
{
    m_history = new ClipHistoryView(
        {viewContext, funcs, doPaste, controls, m_showHistory, m_environment.pasteboard, m_motion});
    connect(m_history, &ClipHistoryView::pointerInside, this,
            [this](bool inside) { overHistory = inside; });
    openBeside(optionWords::kHistory, m_history);
    m_environment.windows.giveKeyboardTo(*host());
}

void MenuView::openSnippets()
{
    m_environment.searchMayBegin();
    m_snippets = new SnippetMenuView({viewContext, funcs, doPaste, controls,
                                      m_environment.pasteboard, m_motion, m_environment.matcher},
                                     passedSearch.value());
    openBeside(optionWords::kSnippets, m_snippets);
    // The field has the focus of the desktop, so that input methods and dead keys work in it.
    m_environment.windows.giveKeyboardTo(host()->popover());
    m_snippets->searchField().setFocus();
    m_snippets->searchField().end(false);
}

void MenuView::openBeside(const QString &word, QWidget *content)
{
    PanelWindow &panel = *host();
    const MenuRow &row = *rowOf(word);
    const QRect menu(panel.mapToGlobal(QPoint(0, 0)), panel.size());
    const PopoverAnchor anchor{menu, QRect(row.mapToGlobal(QPoint(0, 0)), row.size()),
                               m_environment.desktop.visibleFrame(menu.center()),
                               layoutDirection()};
    panel.popover().open(content, anchor);
}
