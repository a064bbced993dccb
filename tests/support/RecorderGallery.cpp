// SPDX-License-Identifier: MIT
// Renders the states of the field that records a shortcut to pictures, to be looked at beside the
// drawings it was built from: recorder_gallery <folder>, with QT_QPA_PLATFORM=offscreen and
// QT_SCALE_FACTOR for the scale.
#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/settings/Recorder.h"
#include "platform/defaults/Defaults.h"
#include "tests/fakes/FakeHotkeyService.h"
#include "tests/fakes/FakeKeyboardLayout.h"
#include "tests/fakes/FakeSystemShortcuts.h"
#include "tests/support/GalleryPalettes.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <cstdio>

namespace {

using KeyboardShortcuts::Key;
using KeyboardShortcuts::Modifier;
using KeyboardShortcuts::Name;
using KeyboardShortcuts::Recorder;
using KeyboardShortcuts::Shortcut;

struct State
{
    const char *label;
    std::optional<Shortcut> shortcut;
};

const State kStates[] = {
    {"Shortcut", Shortcut(Key::v, Modifier::Shift | Modifier::Command)},
    {"Empty", std::nullopt},
    {"Wide", Shortcut(Key::f12,
                      Modifier::Control | Modifier::Option | Modifier::Shift | Modifier::Command)},
    {"Key without text", Shortcut(Key{93}, Modifier::Command)},
};

/// All states below each other, the one of number `recording` with the keyboard.
void shoot(const QDir &folder, const QString &name, int recording, Qt::LayoutDirection direction)
{
    FakeSystemShortcuts system;
    QWidget window;
    window.setLayoutDirection(direction);
    auto *column = new QVBoxLayout(&window);
    std::vector<Recorder *> rows;
    for (const State &state : kStates) {
        const QString label = QString::fromLatin1(state.label);
        const Name shortcutName(label);
        KeyboardShortcuts::setShortcut(state.shortcut, shortcutName);
        rows.push_back(new Recorder(shortcutName, {system, {}}, label));
        column->addWidget(rows.back());
    }
    window.setMinimumWidth(420);
    window.show();
    window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window));
    QCoreApplication::processEvents();
    rows[static_cast<std::size_t>(recording)]->control().setFocus();
    window.grab().save(folder.filePath(name + QStringLiteral(".png")));
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: recorder_gallery <folder>\n", stderr);
        return 1;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QTemporaryDir settings;
    platform::Defaults defaults(settings.filePath(QStringLiteral("Quillery.conf")));
    FakeHotkeyService service;
    FakeKeyboardLayout layout;
    KeyboardShortcuts::setUp(defaults, service, layout);
    const std::pair<const char *, QPalette> palettes[] = {
        {"light", lightPalette()}, {"dark", darkPalette()}, {"contrast", contrastPalette()}};
    for (const auto &[name, palette] : palettes) {
        QApplication::setPalette(palette);
        const QString prefix = QString::fromLatin1(name);
        shoot(folder, prefix + QStringLiteral("-recording-over"), 0, Qt::LeftToRight);
        shoot(folder, prefix + QStringLiteral("-recording-empty"), 1, Qt::LeftToRight);
        shoot(folder, prefix + QStringLiteral("-right-to-left"), 1, Qt::RightToLeft);
    }
    KeyboardShortcuts::tearDown();
    return 0;
}
