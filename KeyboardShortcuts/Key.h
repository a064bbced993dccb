// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/VirtualKey.h"

#include <QtGlobal>

#include <compare>

namespace KeyboardShortcuts {

/// A position on the keyboard by its virtual key code. The type is open: any integer is a key, the
/// constants name the usual ones by what a US keyboard has there. Two names end in an underscore
/// because the bare word belongs to the language.
struct Key
{
    qint64 rawValue = 0;

    static constexpr Key of(platform::VirtualKey key) { return {static_cast<qint64>(key)}; }

    friend constexpr auto operator<=>(const Key &, const Key &) = default;

    // Letters.
    static const Key a;
    static const Key b;
    static const Key c;
    static const Key d;
    static const Key e;
    static const Key f;
    static const Key g;
    static const Key h;
    static const Key i;
    static const Key j;
    static const Key k;
    static const Key l;
    static const Key m;
    static const Key n;
    static const Key o;
    static const Key p;
    static const Key q;
    static const Key r;
    static const Key s;
    static const Key t;
    static const Key u;
    static const Key v;
    static const Key w;
    static const Key x;
    static const Key y;
    static const Key z;

    // Digits.
    static const Key zero;
    static const Key one;
    static const Key two;
    static const Key three;
    static const Key four;
    static const Key five;
    static const Key six;
    static const Key seven;
    static const Key eight;
    static const Key nine;

    // Punctuation.
    static const Key return_;
    static const Key backslash;
    static const Key grave;
    static const Key comma;
    static const Key equal;
    static const Key minus;
    static const Key period;
    static const Key quote;
    static const Key semicolon;
    static const Key slash;
    static const Key space;
    static const Key tab;
    static const Key leftBracket;
    static const Key rightBracket;

    // Navigation and editing.
    static const Key pageUp;
    static const Key pageDown;
    static const Key home;
    static const Key end;
    static const Key upArrow;
    static const Key rightArrow;
    static const Key downArrow;
    static const Key leftArrow;
    static const Key escape;
    static const Key delete_;
    static const Key forwardDelete;
    static const Key help;

    // Media.
    static const Key mute;
    static const Key volumeUp;
    static const Key volumeDown;

    // Modifier keys.
    static const Key capsLock;
    static const Key shift;
    static const Key function;
    static const Key control;
    static const Key option;
    static const Key command;
    static const Key rightCommand;
    static const Key rightOption;
    static const Key rightControl;
    static const Key rightShift;

    // Function keys.
    static const Key f1;
    static const Key f2;
    static const Key f3;
    static const Key f4;
    static const Key f5;
    static const Key f6;
    static const Key f7;
    static const Key f8;
    static const Key f9;
    static const Key f10;
    static const Key f11;
    static const Key f12;
    static const Key f13;
    static const Key f14;
    static const Key f15;
    static const Key f16;
    static const Key f17;
    static const Key f18;
    static const Key f19;
    static const Key f20;

    // Keypad.
    static const Key keypad0;
    static const Key keypad1;
    static const Key keypad2;
    static const Key keypad3;
    static const Key keypad4;
    static const Key keypad5;
    static const Key keypad6;
    static const Key keypad7;
    static const Key keypad8;
    static const Key keypad9;
    static const Key keypadClear;
    static const Key keypadDecimal;
    static const Key keypadDivide;
    static const Key keypadEnter;
    static const Key keypadEquals;
    static const Key keypadMinus;
    static const Key keypadMultiply;
    static const Key keypadPlus;
};

inline constexpr Key Key::a = of(platform::VirtualKey::a);
inline constexpr Key Key::b = of(platform::VirtualKey::b);
inline constexpr Key Key::c = of(platform::VirtualKey::c);
inline constexpr Key Key::d = of(platform::VirtualKey::d);
inline constexpr Key Key::e = of(platform::VirtualKey::e);
inline constexpr Key Key::f = of(platform::VirtualKey::f);
inline constexpr Key Key::g = of(platform::VirtualKey::g);
inline constexpr Key Key::h = of(platform::VirtualKey::h);
inline constexpr Key Key::i = of(platform::VirtualKey::i);
inline constexpr Key Key::j = of(platform::VirtualKey::j);
inline constexpr Key Key::k = of(platform::VirtualKey::k);
inline constexpr Key Key::l = of(platform::VirtualKey::l);
inline constexpr Key Key::m = of(platform::VirtualKey::m);
inline constexpr Key Key::n = of(platform::VirtualKey::n);
inline constexpr Key Key::o = of(platform::VirtualKey::o);
inline constexpr Key Key::p = of(platform::VirtualKey::p);
inline constexpr Key Key::q = of(platform::VirtualKey::q);
inline constexpr Key Key::r = of(platform::VirtualKey::r);
inline constexpr Key Key::s = of(platform::VirtualKey::s);
inline constexpr Key Key::t = of(platform::VirtualKey::t);
inline constexpr Key Key::u = of(platform::VirtualKey::u);
inline constexpr Key Key::v = of(platform::VirtualKey::v);
inline constexpr Key Key::w = of(platform::VirtualKey::w);
inline constexpr Key Key::x = of(platform::VirtualKey::x);
inline constexpr Key Key::y = of(platform::VirtualKey::y);
inline constexpr Key Key::z = of(platform::VirtualKey::z);
inline constexpr Key Key::zero = of(platform::VirtualKey::zero);
inline constexpr Key Key::one = of(platform::VirtualKey::one);
inline constexpr Key Key::two = of(platform::VirtualKey::two);
inline constexpr Key Key::three = of(platform::VirtualKey::three);
inline constexpr Key Key::four = of(platform::VirtualKey::four);
inline constexpr Key Key::five = of(platform::VirtualKey::five);
inline constexpr Key Key::six = of(platform::VirtualKey::six);
inline constexpr Key Key::seven = of(platform::VirtualKey::seven);
inline constexpr Key Key::eight = of(platform::VirtualKey::eight);
inline constexpr Key Key::nine = of(platform::VirtualKey::nine);
inline constexpr Key Key::return_ = of(platform::VirtualKey::return_);
inline constexpr Key Key::backslash = of(platform::VirtualKey::backslash);
inline constexpr Key Key::grave = of(platform::VirtualKey::grave);
inline constexpr Key Key::comma = of(platform::VirtualKey::comma);
inline constexpr Key Key::equal = of(platform::VirtualKey::equal);
inline constexpr Key Key::minus = of(platform::VirtualKey::minus);
inline constexpr Key Key::period = of(platform::VirtualKey::period);
inline constexpr Key Key::quote = of(platform::VirtualKey::quote);
inline constexpr Key Key::semicolon = of(platform::VirtualKey::semicolon);
inline constexpr Key Key::slash = of(platform::VirtualKey::slash);
inline constexpr Key Key::space = of(platform::VirtualKey::space);
inline constexpr Key Key::tab = of(platform::VirtualKey::tab);
inline constexpr Key Key::leftBracket = of(platform::VirtualKey::leftBracket);
inline constexpr Key Key::rightBracket = of(platform::VirtualKey::rightBracket);
inline constexpr Key Key::pageUp = of(platform::VirtualKey::pageUp);
inline constexpr Key Key::pageDown = of(platform::VirtualKey::pageDown);
inline constexpr Key Key::home = of(platform::VirtualKey::home);
inline constexpr Key Key::end = of(platform::VirtualKey::end);
inline constexpr Key Key::upArrow = of(platform::VirtualKey::upArrow);
inline constexpr Key Key::rightArrow = of(platform::VirtualKey::rightArrow);
inline constexpr Key Key::downArrow = of(platform::VirtualKey::downArrow);
inline constexpr Key Key::leftArrow = of(platform::VirtualKey::leftArrow);
inline constexpr Key Key::escape = of(platform::VirtualKey::escape);
inline constexpr Key Key::delete_ = of(platform::VirtualKey::delete_);
inline constexpr Key Key::forwardDelete = of(platform::VirtualKey::forwardDelete);
inline constexpr Key Key::help = of(platform::VirtualKey::help);
inline constexpr Key Key::mute = of(platform::VirtualKey::mute);
inline constexpr Key Key::volumeUp = of(platform::VirtualKey::volumeUp);
inline constexpr Key Key::volumeDown = of(platform::VirtualKey::volumeDown);
inline constexpr Key Key::capsLock = of(platform::VirtualKey::capsLock);
inline constexpr Key Key::shift = of(platform::VirtualKey::shift);
inline constexpr Key Key::function = of(platform::VirtualKey::function);
inline constexpr Key Key::control = of(platform::VirtualKey::control);
inline constexpr Key Key::option = of(platform::VirtualKey::option);
inline constexpr Key Key::command = of(platform::VirtualKey::command);
inline constexpr Key Key::rightCommand = of(platform::VirtualKey::rightCommand);
inline constexpr Key Key::rightOption = of(platform::VirtualKey::rightOption);
inline constexpr Key Key::rightControl = of(platform::VirtualKey::rightControl);
inline constexpr Key Key::rightShift = of(platform::VirtualKey::rightShift);
inline constexpr Key Key::f1 = of(platform::VirtualKey::f1);
inline constexpr Key Key::f2 = of(platform::VirtualKey::f2);
inline constexpr Key Key::f3 = of(platform::VirtualKey::f3);
inline constexpr Key Key::f4 = of(platform::VirtualKey::f4);
inline constexpr Key Key::f5 = of(platform::VirtualKey::f5);
inline constexpr Key Key::f6 = of(platform::VirtualKey::f6);
inline constexpr Key Key::f7 = of(platform::VirtualKey::f7);
inline constexpr Key Key::f8 = of(platform::VirtualKey::f8);
inline constexpr Key Key::f9 = of(platform::VirtualKey::f9);
inline constexpr Key Key::f10 = of(platform::VirtualKey::f10);
inline constexpr Key Key::f11 = of(platform::VirtualKey::f11);
inline constexpr Key Key::f12 = of(platform::VirtualKey::f12);
inline constexpr Key Key::f13 = of(platform::VirtualKey::f13);
inline constexpr Key Key::f14 = of(platform::VirtualKey::f14);
inline constexpr Key Key::f15 = of(platform::VirtualKey::f15);
inline constexpr Key Key::f16 = of(platform::VirtualKey::f16);
inline constexpr Key Key::f17 = of(platform::VirtualKey::f17);
inline constexpr Key Key::f18 = of(platform::VirtualKey::f18);
inline constexpr Key Key::f19 = of(platform::VirtualKey::f19);
inline constexpr Key Key::f20 = of(platform::VirtualKey::f20);
inline constexpr Key Key::keypad0 = of(platform::VirtualKey::keypad0);
inline constexpr Key Key::keypad1 = of(platform::VirtualKey::keypad1);
inline constexpr Key Key::keypad2 = of(platform::VirtualKey::keypad2);
inline constexpr Key Key::keypad3 = of(platform::VirtualKey::keypad3);
inline constexpr Key Key::keypad4 = of(platform::VirtualKey::keypad4);
inline constexpr Key Key::keypad5 = of(platform::VirtualKey::keypad5);
inline constexpr Key Key::keypad6 = of(platform::VirtualKey::keypad6);
inline constexpr Key Key::keypad7 = of(platform::VirtualKey::keypad7);
inline constexpr Key Key::keypad8 = of(platform::VirtualKey::keypad8);
inline constexpr Key Key::keypad9 = of(platform::VirtualKey::keypad9);
inline constexpr Key Key::keypadClear = of(platform::VirtualKey::keypadClear);
inline constexpr Key Key::keypadDecimal = of(platform::VirtualKey::keypadDecimal);
inline constexpr Key Key::keypadDivide = of(platform::VirtualKey::keypadDivide);
inline constexpr Key Key::keypadEnter = of(platform::VirtualKey::keypadEnter);
inline constexpr Key Key::keypadEquals = of(platform::VirtualKey::keypadEquals);
inline constexpr Key Key::keypadMinus = of(platform::VirtualKey::keypadMinus);
inline constexpr Key Key::keypadMultiply = of(platform::VirtualKey::keypadMultiply);
inline constexpr Key Key::keypadPlus = of(platform::VirtualKey::keypadPlus);

} // namespace KeyboardShortcuts
