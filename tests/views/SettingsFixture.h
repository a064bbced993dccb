// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/settings/RecorderLinks.h"
#include "Quillery_Mac/ui/Switch.h"
#include "login_item/LaunchAtLogin.h"
#include "platform/defaults/Defaults.h"
#include "tests/fakes/FakeHotkeyService.h"
#include "tests/fakes/FakeKeyboardLayout.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeSystemShortcuts.h"
#include "tests/fakes/FakeUpdater.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

/// The settings of a user with a folder of its own, on a desktop of fakes.
class SettingsFixture : public ::testing::Test
{
protected:
    SettingsFixture()
    {
        KeyboardShortcuts::setUp(defaults, hotkeys, layout);
        LaunchAtLogin::setUp(login);
        KeyboardShortcuts::Name::contextHotKey();
        KeyboardShortcuts::Name::addHotKey();
    }
    ~SettingsFixture() override
    {
        LaunchAtLogin::tearDown();
        KeyboardShortcuts::tearDown();
    }

    KeyboardShortcuts::RecorderLinks recorderLinks()
    {
        return {systemShortcuts, [] { return QList<QAction *>(); }};
    }

    static void show(QWidget &window)
    {
        window.show();
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    static Switch &switchNamed(const QWidget &view, const char *name)
    {
        const auto switches = view.findChildren<Switch *>();
        const auto found =
            std::find_if(switches.begin(), switches.end(), [name](const Switch *one) {
                return one->accessibleName() == QLatin1String(name);
            });
        if (found == switches.end())
            throw std::runtime_error(name);
        return **found;
    }

    /// Those of `names` that a control which shows bears, from the top down.
    static QStringList namesFromTop(const QWidget &view, const QStringList &names)
    {
        std::vector<std::pair<int, QString>> found;
        for (const QWidget *widget : view.findChildren<QWidget *>()) {
            if (widget->isVisible() && names.contains(widget->accessibleName()))
                found.emplace_back(widget->mapTo(&view, QPoint()).y(), widget->accessibleName());
        }
        std::sort(found.begin(), found.end());
        QStringList result;
        for (const auto &[place, name] : found)
            result.append(name);
        result.removeDuplicates();
        return result;
    }

    /// What stands in the store under a key; none while its default is in force.
    std::optional<QString> stored(const auto &key) const { return defaults.string(key.key()); }

    QString path() const { return folder.filePath(QStringLiteral("Quillery.conf")); }
    QByteArray file() const
    {
        QFile in(path());
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    /// As somebody writes it by hand.
    void write(const QByteArray &text) const
    {
        QFile out(path());
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(text);
    }

    QTemporaryDir folder;
    platform::Defaults defaults{path()};
    FakeHotkeyService hotkeys;
    FakeKeyboardLayout layout;
    FakeLoginItem login;
    FakeSystemShortcuts systemShortcuts;
    FakeUpdater updater;
};
