// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/SnippetRowView.h"

class Funcs;

/// A snippet in the snippet menu: a click pastes it.
class SnippetButton : public SnippetRowView
{
    Q_OBJECT

public:
    SnippetButton(SnippetMenuState &state, Funcs &funcs, PointerMotion &motion, QWidget *parent);

    Funcs &funcs;
    Snippet *snippet = nullptr;
    QProperty<bool> &doPaste;
    QProperty<QMap<QUuid, bool>> &openItems;
    QProperty<std::optional<SnippetRow>> &isSelected;

    void setRow(std::optional<SnippetRow> row) override;
    QString help() const override;
    void activate() override;
};
