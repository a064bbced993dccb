// SPDX-License-Identifier: MIT
#include "hotkey/KeyCombo.h"

#include "platform/keyboard/ShortcutText.h"

namespace hotkey {

KeyCombo::KeyCombo(Key key, platform::Modifiers modifiers)
    : KeyCombo(key.carbonKeyCode(), static_cast<quint32>(platform::carbonModifiers(modifiers)))
{
}

QString KeyCombo::description(platform::KeyboardLayout *layout) const
{
    return platform::modifierSymbols(modifiers()) +
           platform::displayedKeyText(carbonKeyCode, layout);
}

} // namespace hotkey
