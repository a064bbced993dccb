// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <memory>

namespace platform {
class Desktop;
class HotkeyService;
class KeyboardLayout;
class KeyEventPoster;
class LoginItem;
class MenuWindows;
class Pasteboard;
class SystemShortcuts;
class TrayItem;
} // namespace platform

/// Everything that the desktop does for the program, one object per capability. None is null while
/// the program runs: where the desktop lacks something, the object says so and does nothing. Main
/// thread only.
struct DesktopServices
{
    DesktopServices();
    ~DesktopServices();
    Q_DISABLE_COPY_MOVE(DesktopServices)

    // In this order, because some use those before them.
    std::unique_ptr<platform::Desktop> desktop;
    std::unique_ptr<platform::Pasteboard> pasteboard;
    std::unique_ptr<platform::KeyEventPoster> keyEventPoster;
    std::unique_ptr<platform::KeyboardLayout> keyboardLayout;
    std::unique_ptr<platform::HotkeyService> hotkeys;
    std::unique_ptr<platform::SystemShortcuts> systemShortcuts;
    std::unique_ptr<platform::MenuWindows> panelWindows;   ///< of the floating panel
    std::unique_ptr<platform::MenuWindows> menuBarWindows; ///< of the menu-bar window
    std::unique_ptr<platform::TrayItem> tray;
    std::unique_ptr<platform::LoginItem> loginItem;
};

/// Fills in the services of the desktop that this process runs on. Needs the application object.
void connectDesktop(DesktopServices &services);
