// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/RecordedKey.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace KeyboardShortcuts {

namespace {

using Kind = RecordedKey::Kind;

struct NamedKind
{
    int key; ///< a Qt::Key
    Kind kind;
};

constexpr auto kNamedKinds = std::to_array<NamedKind>({
    {Qt::Key_Tab, Kind::Tab},
    {Qt::Key_Backtab, Kind::Tab},
    {Qt::Key_Escape, Kind::Escape},
    {Qt::Key_Delete, Kind::Delete},
    {Qt::Key_Backspace, Kind::Delete},
    {Qt::Key_Shift, Kind::Modifier},
    {Qt::Key_Control, Kind::Modifier},
    {Qt::Key_Meta, Kind::Modifier},
    {Qt::Key_Alt, Kind::Modifier},
    {Qt::Key_AltGr, Kind::Modifier},
    {Qt::Key_Super_L, Kind::Modifier},
    {Qt::Key_Super_R, Kind::Modifier},
    {Qt::Key_Hyper_L, Kind::Modifier},
    {Qt::Key_Hyper_R, Kind::Modifier},
    {Qt::Key_Mode_switch, Kind::Modifier},
    {Qt::Key_CapsLock, Kind::Modifier},
    {Qt::Key_NumLock, Kind::Modifier},
    {Qt::Key_ScrollLock, Kind::Modifier},
});

struct PlacedKind
{
    Key key;
    Kind kind;
};

constexpr auto kPlacedKinds = std::to_array<PlacedKind>({
    {Key::tab, Kind::Tab},
    {Key::escape, Kind::Escape},
    {Key::delete_, Kind::Delete},
    {Key::forwardDelete, Kind::Delete},
    {Key::capsLock, Kind::Modifier},
    {Key::shift, Kind::Modifier},
    {Key::rightShift, Kind::Modifier},
    {Key::function, Kind::Modifier},
    {Key::control, Kind::Modifier},
    {Key::rightControl, Kind::Modifier},
    {Key::option, Kind::Modifier},
    {Key::rightOption, Kind::Modifier},
    {Key::command, Kind::Modifier},
    {Key::rightCommand, Kind::Modifier},
    {Key::f1, Kind::Function},
    {Key::f2, Kind::Function},
    {Key::f3, Kind::Function},
    {Key::f4, Kind::Function},
    {Key::f5, Kind::Function},
    {Key::f6, Kind::Function},
    {Key::f7, Kind::Function},
    {Key::f8, Kind::Function},
    {Key::f9, Kind::Function},
    {Key::f10, Kind::Function},
    {Key::f11, Kind::Function},
    {Key::f12, Kind::Function},
    {Key::f13, Kind::Function},
    {Key::f14, Kind::Function},
    {Key::f15, Kind::Function},
    {Key::f16, Kind::Function},
    {Key::f17, Kind::Function},
    {Key::f18, Kind::Function},
    {Key::f19, Kind::Function},
    {Key::f20, Kind::Function},
});

/// What the key's own name says; Other if nothing.
Kind kindByName(int key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return Kind::Function;
    const auto found = std::ranges::find(kNamedKinds, key, &NamedKind::key);
    return found == kNamedKinds.end() ? Kind::Other : found->kind;
}

Kind kindByPlace(const std::optional<Shortcut> &shortcut)
{
    if (!shortcut)
        return Kind::Other;
    const auto found = std::ranges::find(kPlacedKinds, shortcut->key(), &PlacedKind::key);
    return found == kPlacedKinds.end() ? Kind::Other : found->kind;
}

} // namespace

RecordedKey RecordedKey::fromEvent(const QKeyEvent &event)
{
    const auto shortcut = Shortcut::fromEvent(event);
    const Kind named = kindByName(event.key());
    return {named == Kind::Other ? kindByPlace(shortcut) : named,
            desktopModifiers(event.modifiers()), event.isAutoRepeat(), shortcut};
}

RecordedKey RecordedKey::fromShortcut(const Shortcut &shortcut)
{
    return {kindByPlace(shortcut), shortcut.modifiers(), false, shortcut};
}

} // namespace KeyboardShortcuts
