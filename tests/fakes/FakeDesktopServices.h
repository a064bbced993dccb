// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/DesktopServices.h"

#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeHotkeyService.h"
#include "tests/fakes/FakeKeyEventPoster.h"
#include "tests/fakes/FakeKeyboardLayout.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeMenuWindows.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeSystemShortcuts.h"
#include "tests/fakes/FakeTrayItem.h"

/// A whole desktop of fakes for the entry type; the references are to what `services` owns.
struct FakeDesktopServices
{
    FakeDesktopServices()
        : desktop(put(services.desktop, new FakeDesktop))
        , pasteboard(put(services.pasteboard, new FakePasteboard))
        , keyEventPoster(put(services.keyEventPoster, new FakeKeyEventPoster))
        , keyboardLayout(put(services.keyboardLayout, new FakeKeyboardLayout))
        , hotkeys(put(services.hotkeys, new FakeHotkeyService))
        , panelWindows(put(services.panelWindows, new FakeMenuWindows))
        , menuBarWindows(put(services.menuBarWindows, new FakeMenuWindows))
        , tray(put(services.tray, new FakeTrayItem))
        , loginItem(put(services.loginItem, new FakeLoginItem))
        , systemShortcuts(put(services.systemShortcuts, new FakeSystemShortcuts))
    {
    }

    DesktopServices services;
    FakeDesktop &desktop;
    FakePasteboard &pasteboard;
    FakeKeyEventPoster &keyEventPoster;
    FakeKeyboardLayout &keyboardLayout;
    FakeHotkeyService &hotkeys;
    FakeMenuWindows &panelWindows;
    FakeMenuWindows &menuBarWindows;
    FakeTrayItem &tray;
    FakeLoginItem &loginItem;
    FakeSystemShortcuts &systemShortcuts;

private:
    template <typename Interface, typename Fake>
    static Fake &put(std::unique_ptr<Interface> &place, Fake *fake)
    {
        place.reset(fake);
        return *fake;
    }
};
