// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryToolbar.h"

#include "Quillery_Mac/editor/LibraryActions.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QToolButton>

namespace {

constexpr int kImage = 16;

} // namespace

LibraryToolbar::LibraryToolbar(LibraryActions &actions, QWidget *parent)
    : QToolBar(parent)
{
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({kImage, kImage});
    setToolButtonStyle(Qt::ToolButtonFollowStyle);
    setMinimumHeight(tokens::kToolbarHeight);
    addAction(&actions.addSnippet());
    addAction(&actions.addFolder());
    addAction(&actions.deleteItem());
    // Reached by Tab like everything else.
    for (auto *button : findChildren<QToolButton *>())
        button->setFocusPolicy(Qt::TabFocus);
}
