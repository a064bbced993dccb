// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/DesktopServices.h"

#include "platform/hotkeys/HotkeyFactory.h"
#include "platform/hotkeys/system_shortcuts/SystemShortcutsFactory.h"
#include "platform/keyboard/KeyEventPosterFactory.h"
#include "platform/keyboard/KeyboardLayoutFactory.h"
#include "platform/login/LoginItemFactory.h"
#include "platform/pasteboard/PasteboardFactory.h"
#include "platform/tray/TrayItemFactory.h"
#include "platform/windows/DesktopFactory.h"
#include "platform/windows/MenuWindowsFactory.h"

#include <QCoreApplication>

DesktopServices::DesktopServices() = default;

DesktopServices::~DesktopServices() = default;

void connectDesktop(DesktopServices &services)
{
    services.desktop = platform::makeDesktop();
    services.pasteboard = platform::makePasteboard();
    services.keyEventPoster = platform::makeKeyEventPoster(*services.pasteboard);
    services.keyboardLayout = platform::makeKeyboardLayout();
    services.hotkeys = platform::makeHotkeyService();
    services.systemShortcuts = platform::makeSystemShortcuts(*services.hotkeys);
    services.panelWindows = platform::makeMenuWindows();
    services.menuBarWindows = platform::makeMenuWindows();
    services.tray = platform::makeTrayItem();
    services.loginItem = platform::makeLoginItem(QCoreApplication::applicationFilePath());
}
