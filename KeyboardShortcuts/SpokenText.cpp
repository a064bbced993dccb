// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/SpokenText.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "KeyboardShortcuts/Shortcut.h"
#include "KeyboardShortcuts/ShortcutText.h"
#include "platform/keyboard/KeyboardLayout.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace KeyboardShortcuts {

namespace {

struct ModifierName
{
    Modifier modifier;
    const char *name;
};

constexpr auto kModifierNames = std::to_array<ModifierName>({
    {Modifier::Control, QT_TRANSLATE_NOOP("ShortcutNames", "Ctrl")},
    {Modifier::Option, QT_TRANSLATE_NOOP("ShortcutNames", "Alt")},
    {Modifier::Shift, QT_TRANSLATE_NOOP("ShortcutNames", "Shift")},
    {Modifier::Command, QT_TRANSLATE_NOOP("ShortcutNames", "Super")},
});

struct KeyName
{
    Key key;
    const char *name;
};

/// The keys that show a symbol or nothing, by what PC keyboards have there: the place of help is
/// that of Insert, the keypad's clear is Num Lock.
constexpr auto kKeyNames = std::to_array<KeyName>({
    {Key::return_, QT_TRANSLATE_NOOP("ShortcutNames", "Return")},
    {Key::delete_, QT_TRANSLATE_NOOP("ShortcutNames", "Backspace")},
    {Key::forwardDelete, QT_TRANSLATE_NOOP("ShortcutNames", "Delete")},
    {Key::end, QT_TRANSLATE_NOOP("ShortcutNames", "End")},
    {Key::escape, QT_TRANSLATE_NOOP("ShortcutNames", "Escape")},
    {Key::help, QT_TRANSLATE_NOOP("ShortcutNames", "Insert")},
    {Key::home, QT_TRANSLATE_NOOP("ShortcutNames", "Home")},
    {Key::space, QT_TRANSLATE_NOOP("ShortcutNames", "Space")},
    {Key::tab, QT_TRANSLATE_NOOP("ShortcutNames", "Tab")},
    {Key::pageUp, QT_TRANSLATE_NOOP("ShortcutNames", "Page Up")},
    {Key::pageDown, QT_TRANSLATE_NOOP("ShortcutNames", "Page Down")},
    {Key::upArrow, QT_TRANSLATE_NOOP("ShortcutNames", "Up")},
    {Key::rightArrow, QT_TRANSLATE_NOOP("ShortcutNames", "Right")},
    {Key::downArrow, QT_TRANSLATE_NOOP("ShortcutNames", "Down")},
    {Key::leftArrow, QT_TRANSLATE_NOOP("ShortcutNames", "Left")},
    {Key::keypad0, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 0")},
    {Key::keypad1, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 1")},
    {Key::keypad2, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 2")},
    {Key::keypad3, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 3")},
    {Key::keypad4, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 4")},
    {Key::keypad5, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 5")},
    {Key::keypad6, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 6")},
    {Key::keypad7, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 7")},
    {Key::keypad8, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 8")},
    {Key::keypad9, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad 9")},
    {Key::keypadClear, QT_TRANSLATE_NOOP("ShortcutNames", "Num Lock")},
    {Key::keypadDecimal, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Decimal")},
    {Key::keypadDivide, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Divide")},
    {Key::keypadEnter, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Enter")},
    {Key::keypadEquals, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Equals")},
    {Key::keypadMinus, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Minus")},
    {Key::keypadMultiply, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Multiply")},
    {Key::keypadPlus, QT_TRANSLATE_NOOP("ShortcutNames", "Keypad Plus")},
    {Key::mute, QT_TRANSLATE_NOOP("ShortcutNames", "Mute")},
    {Key::volumeUp, QT_TRANSLATE_NOOP("ShortcutNames", "Volume Up")},
    {Key::volumeDown, QT_TRANSLATE_NOOP("ShortcutNames", "Volume Down")},
    {Key::capsLock, QT_TRANSLATE_NOOP("ShortcutNames", "Caps Lock")},
});

QString translated(const char *text)
{
    return QCoreApplication::translate("ShortcutNames", text);
}

} // namespace

QStringList spokenModifiers(Modifiers modifiers)
{
    QStringList names;
    for (const ModifierName &row : kModifierNames) {
        if (modifiers.testFlag(row.modifier))
            names += translated(row.name);
    }
    return names;
}

QString spokenKey(qint64 keyCode, platform::KeyboardLayout *layout)
{
    const auto named = std::ranges::find(kKeyNames, Key{keyCode}, &KeyName::key);
    if (named != kKeyNames.end())
        return translated(named->name);
    if (keyText(keyCode, layout))
        return displayedKeyText(keyCode, layout);
    return translated(QT_TRANSLATE_NOOP("ShortcutNames", "key %1")).arg(keyCode);
}

QString Shortcut::spokenDescription() const
{
    QStringList words = spokenModifiers(modifiers());
    words += spokenKey(carbonKeyCode, keyboardLayout());
    return words.join(u'+');
}

} // namespace KeyboardShortcuts
