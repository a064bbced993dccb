// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/FloatingPanel.h"

FloatingPanel::FloatingPanel(const ViewBuilder &view, QProperty<bool> &isPresentedCell,
                             const QRect &contentRect, platform::MenuWindows &windows,
                             WindowNotifications &notifications)
    : KeyPanel(windows, notifications)
    , isPresented(isPresentedCell)
{
    setContent(view());
    setGeometry(contentRect);
}

void FloatingPanel::resignMain()
{
    close();
}

void FloatingPanel::closeEvent(QCloseEvent *event)
{
    KeyPanel::closeEvent(event);
    isPresented = false;
}

FloatingPanel *FloatingPanelKey::panelOf(const QWidget &view)
{
    const QWidget *window = view.window();
    // A popover is a window of its own whose parent is the panel.
    while (window != nullptr) {
        if (const auto *panel = qobject_cast<const FloatingPanel *>(window))
            return const_cast<FloatingPanel *>(panel);
        window = window->parentWidget() != nullptr ? window->parentWidget()->window() : nullptr;
    }
    return defaultValue;
}
