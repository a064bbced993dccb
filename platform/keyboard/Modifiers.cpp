// SPDX-License-Identifier: MIT
#include "platform/keyboard/Modifiers.h"

#include <array>

namespace platform {

namespace {

struct ModifierRow
{
    Modifier flag;
    qint64 carbon;
    Qt::KeyboardModifier desktop;
};

constexpr auto kModifiers = std::to_array<ModifierRow>({
    {Modifier::Command, cmdKey, Qt::MetaModifier},
    {Modifier::Shift, shiftKey, Qt::ShiftModifier},
    {Modifier::Option, optionKey, Qt::AltModifier},
    {Modifier::Control, controlKey, Qt::ControlModifier},
});

} // namespace

qint64 carbonModifiers(Modifiers modifiers)
{
    qint64 carbon = 0;
    for (const ModifierRow &row : kModifiers) {
        if (modifiers.testFlag(row.flag))
            carbon |= row.carbon;
    }
    return carbon;
}

Modifiers eventModifiers(qint64 carbonModifiers)
{
    Modifiers modifiers;
    for (const ModifierRow &row : kModifiers)
        modifiers.setFlag(row.flag, (carbonModifiers & row.carbon) != 0);
    return modifiers;
}

Modifiers desktopModifiers(Qt::KeyboardModifiers modifiers)
{
    Modifiers result;
    for (const ModifierRow &row : kModifiers)
        result.setFlag(row.flag, modifiers.testFlag(row.desktop));
    return result;
}

} // namespace platform
