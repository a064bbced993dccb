// SPDX-License-Identifier: MIT
#include "platform/keyboard/ShortcutText.h"

#include "platform/keyboard/KeyboardLayout.h"
#include "platform/keyboard/VirtualKey.h"

#include <QCoreApplication>

#include <algorithm>

namespace platform {

namespace {

/// Key codes have 16 bits; the layout is not asked about other numbers.
constexpr qint64 kLastKeyCode = 0xFFFF;

struct Symbol
{
    Modifier modifier;
    const char16_t *text;
};

/// The last one is a globe in text presentation (U+FE0E). Stored shortcuts never have it.
constexpr auto kSymbols = std::to_array<Symbol>({
    {Modifier::Control, u"⌃"},
    {Modifier::Option, u"⌥"},
    {Modifier::Shift, u"⇧"},
    {Modifier::Command, u"⌘"},
    {Modifier::Function, u"\U0001F310\uFE0E"},
});

} // namespace

QString modifierSymbols(Modifiers modifiers)
{
    QString symbols;
    for (const Symbol &symbol : kSymbols) {
        if (modifiers.testFlag(symbol.modifier))
            symbols += QStringView(symbol.text);
    }
    return symbols;
}

std::optional<QString> keyText(qint64 keyCode, KeyboardLayout *layout)
{
    const auto special = std::ranges::find(kSpecialKeys, keyCode, &SpecialKey::keyCode);
    if (special != kSpecialKeys.end())
        return QString::fromUtf16(special->text);
    return layoutText(keyCode, layout);
}

std::optional<QString> layoutText(qint64 keyCode, KeyboardLayout *layout)
{
    if (layout == nullptr || keyCode < 0 || keyCode > kLastKeyCode)
        return std::nullopt;
    return layout->keyText(static_cast<int>(keyCode));
}

QString displayedKeyText(qint64 keyCode, KeyboardLayout *layout)
{
    // The only key whose text is a word, and not a sign or what the layout prints on it.
    if (keyCode == static_cast<qint64>(VirtualKey::space))
        return QCoreApplication::translate("KeyboardShortcuts", "Space", "the space bar");
    const std::optional<QString> text = keyText(keyCode, layout);
    return text ? capitalised(*text) : QString(QChar(QChar::ReplacementCharacter));
}

QString capitalised(const QString &text)
{
    QString result;
    bool isWordStart = true;
    for (const char32_t character : text.toUcs4()) {
        const char32_t shown = isWordStart ? QChar::toTitleCase(character) : character;
        result += QString::fromUcs4(&shown, 1);
        isWordStart = QChar::isSpace(character);
    }
    return result;
}

} // namespace platform
