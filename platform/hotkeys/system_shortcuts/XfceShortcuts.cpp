// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/XfceShortcuts.h"

#include "platform/hotkeys/system_shortcuts/AcceleratorText.h"
#include "platform/hotkeys/system_shortcuts/BusQuestion.h"

#include <QDBusArgument>
#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::array kLists = {u"/commands", u"/xfwm4"};

/// Keys by which a window is moved that has been picked up already.
constexpr auto kWhileMoving = std::to_array<QLatin1StringView>(
    {QLatin1StringView("cancel_key"), QLatin1StringView("up_key"), QLatin1StringView("down_key"),
     QLatin1StringView("left_key"), QLatin1StringView("right_key")});

bool actsWhileMovingOnly(const QString &action)
{
    return std::ranges::find(kWhileMoving, action) != kWhileMoving.end();
}

/// What a property's value does; empty for an option of a shortcut, which is no string.
QString actionIn(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

QString listInForce(QStringView list, const QVariantMap &properties)
{
    const QString custom = list + QStringLiteral("/custom/");
    const QVariant isInForce = properties.value(custom + QStringLiteral("override"));
    return isInForce.typeId() == QMetaType::Bool && isInForce.toBool()
               ? custom
               : list + QStringLiteral("/default/");
}

} // namespace

void XfceShortcuts::ask()
{
    askBus({QStringLiteral("org.xfce.Xfconf"),
            QStringLiteral("/org/xfce/Xfconf"),
            QStringLiteral("org.xfce.Xfconf"),
            QStringLiteral("GetAllProperties"),
            {QStringLiteral("xfce4-keyboard-shortcuts"), QStringLiteral("/")}},
           QStringLiteral("a{sv}"), *this, [this](const QVariant &answer) {
               emit answered(xfceChordsIn(qdbus_cast<QVariantMap>(answer)));
           });
}

std::vector<SymbolChord> xfceChordsIn(const QVariantMap &properties)
{
    std::vector<SymbolChord> chords;
    for (const char16_t *list : kLists) {
        const QString prefix = listInForce(list, properties);
        for (auto property = properties.cbegin(); property != properties.cend(); ++property) {
            const QString action = actionIn(property.value());
            if (!property.key().startsWith(prefix) || action.isEmpty() ||
                actsWhileMovingOnly(action)) {
                continue;
            }
            const auto chord =
                chordOfAccelerator(QStringView(property.key()).sliced(prefix.size()));
            if (chord)
                chords.push_back(*chord);
        }
    }
    return chords;
}

} // namespace platform
