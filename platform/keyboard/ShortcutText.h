// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/Modifiers.h"

#include <QString>

#include <array>
#include <optional>

namespace platform {

class KeyboardLayout;

struct SpecialKey
{
    qint64 keyCode;
    const char16_t *text;
};

/// The keys whose text does not depend on the layout. Keypad texts carry the combining enclosing
/// keycap (U+20E3), help the enclosing circle (U+20DD).
inline constexpr auto kSpecialKeys = std::to_array<SpecialKey>({
    {36, u"↩"},        {51, u"⌫"},       {117, u"⌦"},      {119, u"↘"},      {53, u"⎋"},
    {114, u"?\u20DD"}, {115, u"↖"},      {49, u"Space"},   {48, u"⇥"},       {116, u"⇞"},
    {121, u"⇟"},       {126, u"↑"},      {124, u"→"},      {125, u"↓"},      {123, u"←"},
    {122, u"F1"},      {120, u"F2"},     {99, u"F3"},      {118, u"F4"},     {96, u"F5"},
    {97, u"F6"},       {98, u"F7"},      {100, u"F8"},     {101, u"F9"},     {109, u"F10"},
    {103, u"F11"},     {111, u"F12"},    {105, u"F13"},    {107, u"F14"},    {113, u"F15"},
    {106, u"F16"},     {64, u"F17"},     {79, u"F18"},     {80, u"F19"},     {90, u"F20"},
    {82, u"0\u20E3"},  {83, u"1\u20E3"}, {84, u"2\u20E3"}, {85, u"3\u20E3"}, {86, u"4\u20E3"},
    {87, u"5\u20E3"},  {88, u"6\u20E3"}, {89, u"7\u20E3"}, {91, u"8\u20E3"}, {92, u"9\u20E3"},
    {71, u"☒\u20E3"},  {65, u".\u20E3"}, {75, u"/\u20E3"}, {76, u"↩\u20E3"}, {81, u"=\u20E3"},
    {78, u"-\u20E3"},  {67, u"*\u20E3"}, {69, u"+\u20E3"},
});

/// The symbols of a set of modifiers, in their fixed order.
QString modifierSymbols(Modifiers modifiers);

/// The key's own text: from the table above, else what the layout prints on it, as it stands.
/// None without a layout or when the layout has nothing there.
///
/// @param layout may be null
std::optional<QString> keyText(qint64 keyCode, KeyboardLayout *layout);

/// What the layout prints on the key, also for the keys of the table above.
///
/// @param layout may be null
std::optional<QString> layoutText(qint64 keyCode, KeyboardLayout *layout);

/// The key's text as shown: capitalised, a word in the user's language, "�" when there is none.
QString displayedKeyText(qint64 keyCode, KeyboardLayout *layout);

/// The first letter of each word in upper case, the rest as it stands.
QString capitalised(const QString &text);

} // namespace platform
