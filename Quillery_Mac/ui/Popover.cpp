// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Popover.h"

#include "Quillery_Mac/ui/Tokens.h"

Popover::Popover(PanelWindow &menu)
    : PanelWindow(menu.menuWindows(), &menu)
{
    setMargin(tokens::kPopoverMargin);
}

void Popover::open(QWidget *content, const PopoverAnchor &anchor)
{
    m_workArea = {};
    setContent(content);
    m_workArea = anchor.workArea;
    setGeometry(popoverFrame(anchor, sizeHint()));
    m_isOpen = true;
    menuWindows().showPopover(*this);
}

void Popover::dismiss()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    menuWindows().hidePopover(*this);
    setContent(nullptr);
}

void Popover::followContent()
{
    QSize wanted = sizeHint();
    if (m_isOpen && !m_workArea.isNull())
        wanted.setHeight(popoverHeight(y(), wanted.height(), m_workArea));
    resize(wanted);
}
