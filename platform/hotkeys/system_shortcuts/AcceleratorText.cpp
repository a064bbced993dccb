// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/AcceleratorText.h"

#include "platform/hotkeys/HotkeyService.h"
#include "platform/keyboard/KeyCodes.h"

#include <QByteArray>
#include <QLatin1StringView>

#include <algorithm>
#include <array>

#include <xkbcommon/xkbcommon.h>

namespace platform {

namespace {

struct ModifierName
{
    QLatin1StringView name;
    quint32 bit;
};

/// Mod1 and Mod4 stand at their usual places. "Release" says when the chord acts, not which it is.
constexpr auto kModifierNames = std::to_array<ModifierName>({
    {QLatin1StringView("shift"), HotkeyModifier::kShift},
    {QLatin1StringView("shft"), HotkeyModifier::kShift},
    {QLatin1StringView("primary"), HotkeyModifier::kControl},
    {QLatin1StringView("control"), HotkeyModifier::kControl},
    {QLatin1StringView("ctrl"), HotkeyModifier::kControl},
    {QLatin1StringView("ctl"), HotkeyModifier::kControl},
    {QLatin1StringView("alt"), HotkeyModifier::kOption},
    {QLatin1StringView("mod1"), HotkeyModifier::kOption},
    {QLatin1StringView("super"), HotkeyModifier::kCommand},
    {QLatin1StringView("mod4"), HotkeyModifier::kCommand},
    {QLatin1StringView("release"), 0},
});

/// The key above Tab, whatever it types.
constexpr quint32 kAboveTab = 50;

std::optional<quint32> modifierOf(QStringView name)
{
    const auto found = std::ranges::find_if(kModifierNames, [name](const ModifierName &known) {
        return name.compare(known.name, Qt::CaseInsensitive) == 0;
    });
    return found == kModifierNames.end() ? std::nullopt : std::optional(found->bit);
}

/// Takes the modifiers away from the front of `text`.
std::optional<quint32> takeModifiers(QStringView &text)
{
    quint32 modifiers = 0;
    while (text.startsWith(u'<')) {
        const qsizetype end = text.indexOf(u'>');
        if (end < 0)
            return std::nullopt;
        const std::optional<quint32> modifier = modifierOf(text.sliced(1, end - 1));
        if (!modifier)
            return std::nullopt;
        modifiers |= *modifier;
        text = text.sliced(end + 1);
    }
    return modifiers;
}

constexpr QLatin1StringView kKeycodePrefix("0x");

std::optional<quint32> keyCodeOf(QStringView keycode)
{
    bool isNumber = false;
    const quint32 number = keycode.toUInt(&isNumber, 16);
    const std::optional<int> carbon = isNumber ? carbonFromX11Keycode(number) : std::nullopt;
    return carbon ? std::optional(static_cast<quint32>(*carbon)) : std::nullopt;
}

quint32 symbolOf(QStringView name)
{
    const QByteArray utf8 = name.toUtf8();
    return xkb_keysym_to_lower(xkb_keysym_from_name(utf8.constData(), XKB_KEYSYM_NO_FLAGS));
}

} // namespace

std::optional<SymbolChord> chordOfAccelerator(QStringView text)
{
    const std::optional<quint32> modifiers = takeModifiers(text);
    if (!modifiers)
        return std::nullopt;
    SymbolChord chord;
    chord.modifiers = *modifiers;
    if (text == QLatin1StringView("Above_Tab"))
        chord.keyCode = kAboveTab;
    else if (text.startsWith(kKeycodePrefix))
        chord.keyCode = keyCodeOf(text.sliced(kKeycodePrefix.size()));
    else
        chord.symbol = symbolOf(text);
    const bool hasKey = chord.keyCode || chord.symbol != XKB_KEY_NoSymbol;
    return hasKey ? std::optional(chord) : std::nullopt;
}

} // namespace platform
