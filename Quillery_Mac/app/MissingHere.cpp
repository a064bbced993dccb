// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/MissingHere.h"

#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"
#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/app/DesktopServices.h"
#include "platform/hotkeys/HotkeyService.h"
#include "platform/keyboard/KeyEventPoster.h"
#include "platform/session/SessionKind.h"
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

QStringList refusedShortcuts()
{
    QStringList refused;
    for (const Name &name : {Name::contextHotKey(), Name::addHotKey()}) {
        const auto shortcut = KeyboardShortcuts::getShortcut(name);
        if (shortcut && !isHeld(*shortcut))
            refused.append(shortcut->description());
    }
    return refused;
}

} // namespace

DesktopAbilities abilitiesOf(const DesktopServices &services)
{
    // What X grants, it grants among its own windows only where a compositor shows the others.
    const bool isWayland = platform::isWaylandSession();
    DesktopAbilities abilities;
    abilities.hasShortcuts = !isWayland && services.hotkeys->availability().isAvailable;
    abilities.canType = !isWayland && services.keyEventPoster->availability().isAvailable;
    abilities.hasTray = services.tray->hasHost();
    if (abilities.hasShortcuts)
        abilities.refusedShortcuts = refusedShortcuts();
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
    const QStringList &refused = abilities.refusedShortcuts;
    if (refused.size() > 1) {
        return Text::tr("Other programs hold %1 and %2: choose other shortcuts on the next pages.")
            .arg(refused.at(0), refused.at(1));
    }
    if (refused.size() == 1) {
        return Text::tr("Another program holds %1: choose another shortcut on the next pages.")
            .arg(refused.at(0));
    }
    if (!abilities.hasTray)
        return Text::tr("This desktop shows no tray icons: open the menu by its shortcut.");
    return {};
}
