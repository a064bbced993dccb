// SPDX-License-Identifier: MIT
#include "hotkey/Key.h"

#include <QString>

#include <algorithm>
#include <array>

namespace hotkey {

namespace {

struct NamedKey
{
    const char16_t *name;
    Key key;
};

/// Every case with its name in lower case.
constexpr auto kNames = std::to_array<NamedKey>({
    {u"a", Key::a},
    {u"b", Key::b},
    {u"c", Key::c},
    {u"d", Key::d},
    {u"e", Key::e},
    {u"f", Key::f},
    {u"g", Key::g},
    {u"h", Key::h},
    {u"i", Key::i},
    {u"j", Key::j},
    {u"k", Key::k},
    {u"l", Key::l},
    {u"m", Key::m},
    {u"n", Key::n},
    {u"o", Key::o},
    {u"p", Key::p},
    {u"q", Key::q},
    {u"r", Key::r},
    {u"s", Key::s},
    {u"t", Key::t},
    {u"u", Key::u},
    {u"v", Key::v},
    {u"w", Key::w},
    {u"x", Key::x},
    {u"y", Key::y},
    {u"z", Key::z},
    {u"zero", Key::zero},
    {u"one", Key::one},
    {u"two", Key::two},
    {u"three", Key::three},
    {u"four", Key::four},
    {u"five", Key::five},
    {u"six", Key::six},
    {u"seven", Key::seven},
    {u"eight", Key::eight},
    {u"nine", Key::nine},
    {u"return", Key::return_},
    {u"backslash", Key::backslash},
    {u"grave", Key::grave},
    {u"comma", Key::comma},
    {u"equal", Key::equal},
    {u"minus", Key::minus},
    {u"period", Key::period},
    {u"quote", Key::quote},
    {u"semicolon", Key::semicolon},
    {u"slash", Key::slash},
    {u"space", Key::space},
    {u"tab", Key::tab},
    {u"leftbracket", Key::leftBracket},
    {u"rightbracket", Key::rightBracket},
    {u"pageup", Key::pageUp},
    {u"pagedown", Key::pageDown},
    {u"home", Key::home},
    {u"end", Key::end},
    {u"uparrow", Key::upArrow},
    {u"rightarrow", Key::rightArrow},
    {u"downarrow", Key::downArrow},
    {u"leftarrow", Key::leftArrow},
    {u"escape", Key::escape},
    {u"delete", Key::delete_},
    {u"forwarddelete", Key::forwardDelete},
    {u"help", Key::help},
    {u"mute", Key::mute},
    {u"volumeup", Key::volumeUp},
    {u"volumedown", Key::volumeDown},
    {u"capslock", Key::capsLock},
    {u"shift", Key::shift},
    {u"function", Key::function},
    {u"control", Key::control},
    {u"option", Key::option},
    {u"command", Key::command},
    {u"rightcommand", Key::rightCommand},
    {u"rightoption", Key::rightOption},
    {u"rightcontrol", Key::rightControl},
    {u"rightshift", Key::rightShift},
    {u"f1", Key::f1},
    {u"f2", Key::f2},
    {u"f3", Key::f3},
    {u"f4", Key::f4},
    {u"f5", Key::f5},
    {u"f6", Key::f6},
    {u"f7", Key::f7},
    {u"f8", Key::f8},
    {u"f9", Key::f9},
    {u"f10", Key::f10},
    {u"f11", Key::f11},
    {u"f12", Key::f12},
    {u"f13", Key::f13},
    {u"f14", Key::f14},
    {u"f15", Key::f15},
    {u"f16", Key::f16},
    {u"f17", Key::f17},
    {u"f18", Key::f18},
    {u"f19", Key::f19},
    {u"f20", Key::f20},
    {u"keypad0", Key::keypad0},
    {u"keypad1", Key::keypad1},
    {u"keypad2", Key::keypad2},
    {u"keypad3", Key::keypad3},
    {u"keypad4", Key::keypad4},
    {u"keypad5", Key::keypad5},
    {u"keypad6", Key::keypad6},
    {u"keypad7", Key::keypad7},
    {u"keypad8", Key::keypad8},
    {u"keypad9", Key::keypad9},
    {u"keypadclear", Key::keypadClear},
    {u"keypaddecimal", Key::keypadDecimal},
    {u"keypaddivide", Key::keypadDivide},
    {u"keypadenter", Key::keypadEnter},
    {u"keypadequals", Key::keypadEquals},
    {u"keypadminus", Key::keypadMinus},
    {u"keypadmultiply", Key::keypadMultiply},
    {u"keypadplus", Key::keypadPlus},
});
static_assert(kNames.size() == 113, "every named position");

constexpr auto kSynonyms = std::to_array<NamedKey>({
    {u"1", Key::one},
    {u"2", Key::two},
    {u"3", Key::three},
    {u"4", Key::four},
    {u"5", Key::five},
    {u"6", Key::six},
    {u"7", Key::seven},
    {u"8", Key::eight},
    {u"9", Key::nine},
    {u"0", Key::zero},
    {u"\\", Key::backslash},
    {u"`", Key::grave},
    {u",", Key::comma},
    {u"=", Key::equal},
    {u"-", Key::minus},
    {u".", Key::period},
    {u"'", Key::quote},
    {u";", Key::semicolon},
    {u"/", Key::slash},
    {u" ", Key::space},
    {u"[", Key::leftBracket},
    {u"]", Key::rightBracket},
    {u"enter", Key::return_},
    {u"esc", Key::escape},
    {u"backspace", Key::delete_},
    {u"del", Key::forwardDelete},
    {u"insert", Key::help},
    {u"up", Key::upArrow},
    {u"down", Key::downArrow},
    {u"left", Key::leftArrow},
    {u"right", Key::rightArrow},
    {u"pgup", Key::pageUp},
    {u"pgdn", Key::pageDown},
    {u"spacebar", Key::space},
    {u"backtick", Key::grave},
    {u"hyphen", Key::minus},
    {u"apostrophe", Key::quote},
    {u"numlock", Key::keypadClear},
    {u"fn", Key::function},
    {u"cmd", Key::command},
    {u"super", Key::command},
    {u"meta", Key::command},
    {u"alt", Key::option},
    {u"ctrl", Key::control},
});

template <typename Table>
std::optional<Key> find(const Table &table, const QString &name)
{
    const auto found = std::ranges::find_if(
        table, [&name](const NamedKey &row) { return name == QStringView(row.name); });
    return found == table.end() ? std::nullopt : std::optional(found->key);
}

} // namespace

std::optional<Key> Key::fromCarbonKeyCode(quint32 carbonKeyCode)
{
    const auto found = std::ranges::find(
        kNames, carbonKeyCode, [](const NamedKey &row) { return row.key.carbonKeyCode(); });
    return found == kNames.end() ? std::nullopt : std::optional(found->key);
}

std::optional<Key> Key::fromString(QStringView string)
{
    const QString name = string.toString().toLower();
    const std::optional<Key> key = find(kNames, name);
    return key ? key : find(kSynonyms, name);
}

} // namespace hotkey
