// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/MissingHere.h"

#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"
#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/app/DesktopServices.h"
#include "platform/hotkeys/HotkeyService.h"
#include "platform/keyboard/KeyEventPoster.h"
#include "platform/tray/TrayItem.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using KeyboardShortcuts::Name;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(MissingHere)
};

bool isHeld(const KeyboardShortcuts::Shortcut &shortcut)
{
    const auto &hotKeys = CarbonKeyboardShortcuts::hotKeys();
    return std::any_of(hotKeys.begin(), hotKeys.end(), [&shortcut](const auto &entry) {
        return entry.second->shortcut == shortcut;
    });
}

QString refusedShortcut()
{
    for (const Name &name : {Name::contextHotKey(), Name::addHotKey()}) {
        const auto shortcut = KeyboardShortcuts::getShortcut(name);
        if (shortcut && !isHeld(*shortcut))
            return shortcut->description();
    }
    return {};
}

} // namespace

DesktopAbilities abilitiesOf(const DesktopServices &services)
{
    DesktopAbilities abilities;
    abilities.hasShortcuts = services.hotkeys->availability().isAvailable;
    abilities.canType = services.keyEventPoster->availability().isAvailable;
    abilities.hasTray = services.tray->hasHost();
    if (abilities.hasShortcuts)
        abilities.refusedShortcut = refusedShortcut();
    return abilities;
}

QString missingHere(const DesktopAbilities &abilities)
{
    if (!abilities.hasShortcuts && !abilities.hasTray) {
        return Text::tr(
            "This desktop grants neither shortcuts nor a tray icon: start Quillery again to "
            "open its menu.");
    }
    if (!abilities.hasShortcuts)
        return Text::tr("This desktop grants no shortcuts: open the menu by the tray icon.");
    if (!abilities.canType) {
        return Text::tr(
            "This desktop does not let Quillery type: paste what you picked by yourself, with "
            "Ctrl+V.");
    }
    if (!abilities.refusedShortcut.isEmpty()) {
        return Text::tr("Another program holds %1: choose another shortcut on the next pages.")
            .arg(abilities.refusedShortcut);
    }
    if (!abilities.hasTray)
        return Text::tr("This desktop shows no tray icons: open the menu by its shortcut.");
    return {};
}
