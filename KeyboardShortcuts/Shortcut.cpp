// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Shortcut.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "KeyboardShortcuts/ShortcutText.h"
#include "platform/keyboard/KeyCodes.h"
#include "platform/keyboard/KeyboardLayout.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>

namespace KeyboardShortcuts {

namespace {

constexpr QLatin1String kCarbonKeyCode("carbonKeyCode");
constexpr QLatin1String kCarbonModifiers("carbonModifiers");

/// None unless the value is a whole number of 64 bits. toInteger() answers its argument for
/// anything else, so two arguments tell the two cases apart.
std::optional<qint64> integer(const QJsonValue &value)
{
    const qint64 number = value.toInteger(0);
    if (number != value.toInteger(1))
        return std::nullopt;
    return number;
}

} // namespace

Shortcut::Shortcut(Key key, Modifiers modifiers)
    : Shortcut(key.rawValue, KeyboardShortcuts::carbonModifiers(modifiers))
{
}

std::optional<Shortcut> Shortcut::fromEvent(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return std::nullopt;
    const auto &keyEvent = static_cast<const QKeyEvent &>(event);
    const auto keyCode = platform::carbonFromX11Keycode(keyEvent.nativeScanCode());
    if (!keyCode)
        return std::nullopt;
    return Shortcut(Key{*keyCode}, desktopModifiers(keyEvent.modifiers()));
}

std::optional<Shortcut> Shortcut::fromJson(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject())
        return std::nullopt;
    const std::optional<qint64> keyCode = integer(document[kCarbonKeyCode]);
    const std::optional<qint64> modifiers = integer(document[kCarbonModifiers]);
    if (!keyCode || !modifiers)
        return std::nullopt;
    return Shortcut(*keyCode, *modifiers);
}

QString Shortcut::toJson() const
{
    const QJsonObject object{{kCarbonKeyCode, carbonKeyCode}, {kCarbonModifiers, carbonModifiers}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString Shortcut::description() const
{
    return modifierSymbols(modifiers()) + displayedKeyText(carbonKeyCode, keyboardLayout());
}

} // namespace KeyboardShortcuts
