// SPDX-License-Identifier: MIT
//
// A list counts where somebody acts on it. KDE's is kept by the very service that holds the keys,
// so it counts wherever that runs. GNOME's and Xfce's are settings that other programs bring along
// too: they count on the desktops that go by them.
#include "platform/hotkeys/system_shortcuts/SystemShortcutsFactory.h"

#include "platform/hotkeys/system_shortcuts/DesktopShortcuts.h"
#include "platform/hotkeys/system_shortcuts/GnomeShortcuts.h"
#include "platform/hotkeys/system_shortcuts/KdeShortcuts.h"
#include "platform/hotkeys/system_shortcuts/NullSystemShortcuts.h"
#include "platform/hotkeys/system_shortcuts/XfceShortcuts.h"
#include "platform/keyboard/X11Keyboard.h"
#include "platform/keyboard/X11Keymap.h"
#include "platform/x11/X11Connection.h"

#include <algorithm>

namespace platform {

namespace {

/// Whether the session calls itself one of these (Desktop Entry Specification 1.5,
/// $XDG_CURRENT_DESKTOP: names with colons between them).
bool isDesktop(const QStringList &names)
{
    const QStringList own = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return std::ranges::any_of(
        own, [&names](const QString &name) { return names.contains(name, Qt::CaseInsensitive); });
}

DesktopShortcuts::Sources sources()
{
    DesktopShortcuts::Sources sources;
    sources.push_back(std::make_unique<KdeShortcuts>());
    if (isDesktop({QStringLiteral("GNOME"), QStringLiteral("Unity"), QStringLiteral("Budgie"),
                   QStringLiteral("Pantheon")})) {
        sources.push_back(std::make_unique<GnomeShortcuts>());
    }
    if (isDesktop({QStringLiteral("XFCE")}))
        sources.push_back(std::make_unique<XfceShortcuts>());
    return sources;
}

KeyPositions positions()
{
    const std::unique_ptr<X11Connection> connection = X11Connection::create();
    const std::unique_ptr<X11Keyboard> keyboard =
        connection ? X11Keyboard::create(*connection) : nullptr;
    const XkbContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (!keyboard || !context)
        return {};
    const XkbKeymap keymap = readX11Keymap(context.get(), *connection, *keyboard);
    return keymap ? KeyPositions(keymap.get(), keyboard->group()) : KeyPositions();
}

} // namespace

std::unique_ptr<SystemShortcuts> makeSystemShortcuts(HotkeyService &hotkeys)
{
    if (X11Connection::toolkit() == nullptr)
        return std::make_unique<NullSystemShortcuts>();
    return std::make_unique<DesktopShortcuts>(hotkeys,
                                              DesktopShortcuts::Desktop{&sources, &positions});
}

} // namespace platform
