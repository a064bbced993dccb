// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/SnippetButton.h"

#include "Quillery_Mac/menu/SnippetMenuState.h"
#include "Quillery_Mac/store/Snippet.h"

SnippetButton::SnippetButton(SnippetMenuState &state, Funcs &funcsToUse, PointerMotion &motion,
                             QWidget *parent)
    : SnippetRowView(state, motion, parent)
    , funcs(funcsToUse)
    , doPaste(state.doPaste)
    , openItems(state.openItems)
    , isSelected(state.isSelected)
{
}

void SnippetButton::setRow(std::optional<SnippetRow> row)
{
    snippet = row ? row->snippet : nullptr;
    SnippetRowView::setRow(row);
}

QString SnippetButton::help() const
{
    if (snippet == nullptr)
        return {};
    const TextPreview preview = snippet->preview();
    return preview.isLineCountExact ? preview.start : preview.start + u'\u2026';
}

void SnippetButton::activate()
{
    if (snippet != nullptr)
        state().paste(*snippet);
}
