// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/HotkeyService.h"
#include "platform/hotkeys/SystemShortcuts.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

/// The chords of a desktop that calls itself as a test wants it; its services are real ones.
class SystemShortcutsFixture : public ::testing::Test
{
protected:
    static constexpr quint32 kSuper = platform::HotkeyModifier::kCommand;
    static constexpr quint32 kShift = platform::HotkeyModifier::kShift;
    static constexpr quint32 kAlt = platform::HotkeyModifier::kOption;
    static constexpr quint32 kControl = platform::HotkeyModifier::kControl;

    // Virtual key codes.
    static constexpr quint32 kKeyZ = 6;
    static constexpr quint32 kKeyV = 9;
    static constexpr quint32 kKeyY = 16;
    static constexpr quint32 kKeyT = 17;
    static constexpr quint32 kKeyAboveTab = 50;
    static constexpr quint32 kKeyMute = 74;
    static constexpr quint32 kKeyF4 = 118;

    SystemShortcutsFixture();
    ~SystemShortcutsFixture() override;

    /// What the session calls itself from now on, as in $XDG_CURRENT_DESKTOP.
    static void beDesktop(const char *names);

    /// Asks all sources and waits until they have answered or been given up.
    void refresh();
    bool has(quint32 keyCode, quint32 modifiers) const;

    /// Runs a program to its end; fails the test unless it succeeds.
    static void run(const QString &program, const QStringList &arguments);

    std::unique_ptr<platform::HotkeyService> hotkeys;
    std::unique_ptr<platform::SystemShortcuts> shortcuts;
};
