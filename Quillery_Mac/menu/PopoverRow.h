// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/MenuRow.h"

#include <functional>

/// A row of the menu that has a popover: "History" and "Snippets".
class PopoverRow : public MenuRow
{
    Q_OBJECT

public:
    /// @param count how many things the popover's list would hold now
    PopoverRow(MenuState &state, PointerMotion &motion, const QString &label, const QString &word,
               std::function<qsizetype()> count, QWidget *parent);

    bool isExpandable() const override { return true; }
    bool isExpanded() const override;
    void activate() override;

protected:
    void pointerEntered() override;

private:
    std::function<qsizetype()> m_count;
};
