// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/PanelWindow.h"
#include "Quillery_Mac/ui/PopoverPlacement.h"

/// The window beside a menu's row. Its upper edge stays where it opened; its height follows the
/// content downwards as far as the work area goes.
class Popover : public PanelWindow
{
    Q_OBJECT

public:
    /// Made by PanelWindow::popover().
    explicit Popover(PanelWindow &menu);

    /// Shows `content` beside the row; the keyboard stays where it is. Takes `content` over.
    void open(QWidget *content, const PopoverAnchor &anchor);
    /// Hides the window and lets the content go.
    void dismiss();

    bool isOpen() const { return m_isOpen; }

protected:
    void followContent() override;

private:
    QRect m_workArea;
    bool m_isOpen = false;
};
