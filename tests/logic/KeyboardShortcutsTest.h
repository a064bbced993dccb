// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"
#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "platform/defaults/Defaults.h"
#include "tests/fakes/FakeHotkeyService.h"
#include "tests/fakes/FakeKeyboardLayout.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// The shortcut library on an empty defaults store and a desktop without a keyboard.
class KeyboardShortcutsTest : public ::testing::Test
{
protected:
    KeyboardShortcutsTest() { start(); }
    ~KeyboardShortcutsTest() override { KeyboardShortcuts::tearDown(); }

    /// As the start of the program does; called again it is the next start.
    void start()
    {
        KeyboardShortcuts::tearDown();
        defaults = std::make_unique<platform::Defaults>(file);
        service = std::make_unique<FakeHotkeyService>();
        KeyboardShortcuts::setUp(*defaults, *service, layout);
    }

    std::optional<QString> stored(const char *name) const
    {
        return defaults->string(QStringLiteral("KeyboardShortcuts_") + QString::fromLatin1(name));
    }

    void storeText(const char *name, const QString &text)
    {
        defaults->setString(QStringLiteral("KeyboardShortcuts_") + QString::fromLatin1(name), text);
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Quillery.conf"));
    std::unique_ptr<platform::Defaults> defaults;
    std::unique_ptr<FakeHotkeyService> service;
    FakeKeyboardLayout layout;
};
