// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/MenuRow.h"
#include "Quillery_Mac/ui/Controls.h"

#include <QStringList>

#include <functional>
#include <optional>

/// An action row of the menu: a click, or `isSelected` becoming its word, runs its function and
/// closes the menu.
class MenuButton : public MenuRow
{
    Q_OBJECT

public:
    /// @param text the option word; the label is its translation
    MenuButton(MenuState &state, PointerMotion &motion, const QString &text, const QString &label,
               std::function<void()> function, std::function<void()> dismiss, QWidget *parent);

    std::function<void()> dismiss;
    QString text;
    QProperty<OptionFlags> &hoverOver;
    QProperty<OptionFlags> &showPopover;
    QProperty<QStringList> &options;
    QProperty<std::optional<QString>> &isSelected;
    QProperty<bool> &passedSearchNoEntry;
    QProperty<std::optional<QString>> &currentActive;
    std::function<void()> function;

    void activate() override;

protected:
    void pointerEntered() override;
    void pointerLeft() override;

private:
    void selectionChanged();

    QPropertyNotifier m_selectionObserver;
};
