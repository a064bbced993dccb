// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/KeyPanel.h"

#include <QProperty>

#include <functional>

/// The window of the paste menu at the pointer. It floats above other programs' windows, has no
/// frame, title or buttons, cannot be moved or resized by the user, takes the keyboard without
/// bringing the program forward, and goes as soon as it loses it. One object for the whole run,
/// summoned again and again. Main thread only.
class FloatingPanel : public KeyPanel
{
    Q_OBJECT

public:
    /// Builds a hosted view; null for an empty panel.
    using ViewBuilder = std::function<QWidget *()>;

    /// @param isPresented the presenter's cell; false is written into it when the panel closes
    /// @param contentRect where the panel stands and how large it is until it is summoned, in
    /// points
    FloatingPanel(const ViewBuilder &view, QProperty<bool> &isPresented, const QRect &contentRect,
                  platform::MenuWindows &windows, WindowNotifications &notifications);

    /// Called when the panel ceases to be the main window, which it never is; closes it.
    void resignMain();

    bool canBecomeKey() const { return true; }
    bool canBecomeMain() const { return false; }

    QProperty<bool> &isPresented;

protected:
    void closeEvent(QCloseEvent *event) override;
};

/// How a hosted view reaches the panel it is shown in.
struct FloatingPanelKey
{
    static constexpr FloatingPanel *defaultValue = nullptr;

    /// The panel that holds `view`; defaultValue if none does.
    static FloatingPanel *panelOf(const QWidget &view);
};
