// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <compare>

namespace KeyboardShortcuts {

/// A position on the keyboard by its virtual key code. The type is open: any integer is a key, the
/// constants name the usual ones by what a US keyboard has there. Two names end in an underscore
/// because the bare word belongs to the language.
struct Key
{
    qint64 rawValue = 0;

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

inline constexpr Key Key::a{0};
inline constexpr Key Key::b{11};
inline constexpr Key Key::c{8};
inline constexpr Key Key::d{2};
inline constexpr Key Key::e{14};
inline constexpr Key Key::f{3};
inline constexpr Key Key::g{5};
inline constexpr Key Key::h{4};
inline constexpr Key Key::i{34};
inline constexpr Key Key::j{38};
inline constexpr Key Key::k{40};
inline constexpr Key Key::l{37};
inline constexpr Key Key::m{46};
inline constexpr Key Key::n{45};
inline constexpr Key Key::o{31};
inline constexpr Key Key::p{35};
inline constexpr Key Key::q{12};
inline constexpr Key Key::r{15};
inline constexpr Key Key::s{1};
inline constexpr Key Key::t{17};
inline constexpr Key Key::u{32};
inline constexpr Key Key::v{9};
inline constexpr Key Key::w{13};
inline constexpr Key Key::x{7};
inline constexpr Key Key::y{16};
inline constexpr Key Key::z{6};
inline constexpr Key Key::zero{29};
inline constexpr Key Key::one{18};
inline constexpr Key Key::two{19};
inline constexpr Key Key::three{20};
inline constexpr Key Key::four{21};
inline constexpr Key Key::five{23};
inline constexpr Key Key::six{22};
inline constexpr Key Key::seven{26};
inline constexpr Key Key::eight{28};
inline constexpr Key Key::nine{25};
inline constexpr Key Key::return_{36};
inline constexpr Key Key::backslash{42};
inline constexpr Key Key::grave{50};
inline constexpr Key Key::comma{43};
inline constexpr Key Key::equal{24};
inline constexpr Key Key::minus{27};
inline constexpr Key Key::period{47};
inline constexpr Key Key::quote{39};
inline constexpr Key Key::semicolon{41};
inline constexpr Key Key::slash{44};
inline constexpr Key Key::space{49};
inline constexpr Key Key::tab{48};
inline constexpr Key Key::leftBracket{33};
inline constexpr Key Key::rightBracket{30};
inline constexpr Key Key::pageUp{116};
inline constexpr Key Key::pageDown{121};
inline constexpr Key Key::home{115};
inline constexpr Key Key::end{119};
inline constexpr Key Key::upArrow{126};
inline constexpr Key Key::rightArrow{124};
inline constexpr Key Key::downArrow{125};
inline constexpr Key Key::leftArrow{123};
inline constexpr Key Key::escape{53};
inline constexpr Key Key::delete_{51};
inline constexpr Key Key::forwardDelete{117};
inline constexpr Key Key::help{114};
inline constexpr Key Key::mute{74};
inline constexpr Key Key::volumeUp{72};
inline constexpr Key Key::volumeDown{73};
inline constexpr Key Key::capsLock{57};
inline constexpr Key Key::shift{56};
inline constexpr Key Key::function{63};
inline constexpr Key Key::control{59};
inline constexpr Key Key::option{58};
inline constexpr Key Key::command{55};
inline constexpr Key Key::rightCommand{54};
inline constexpr Key Key::rightOption{61};
inline constexpr Key Key::rightControl{62};
inline constexpr Key Key::rightShift{60};
inline constexpr Key Key::f1{122};
inline constexpr Key Key::f2{120};
inline constexpr Key Key::f3{99};
inline constexpr Key Key::f4{118};
inline constexpr Key Key::f5{96};
inline constexpr Key Key::f6{97};
inline constexpr Key Key::f7{98};
inline constexpr Key Key::f8{100};
inline constexpr Key Key::f9{101};
inline constexpr Key Key::f10{109};
inline constexpr Key Key::f11{103};
inline constexpr Key Key::f12{111};
inline constexpr Key Key::f13{105};
inline constexpr Key Key::f14{107};
inline constexpr Key Key::f15{113};
inline constexpr Key Key::f16{106};
inline constexpr Key Key::f17{64};
inline constexpr Key Key::f18{79};
inline constexpr Key Key::f19{80};
inline constexpr Key Key::f20{90};
inline constexpr Key Key::keypad0{82};
inline constexpr Key Key::keypad1{83};
inline constexpr Key Key::keypad2{84};
inline constexpr Key Key::keypad3{85};
inline constexpr Key Key::keypad4{86};
inline constexpr Key Key::keypad5{87};
inline constexpr Key Key::keypad6{88};
inline constexpr Key Key::keypad7{89};
inline constexpr Key Key::keypad8{91};
inline constexpr Key Key::keypad9{92};
inline constexpr Key Key::keypadClear{71};
inline constexpr Key Key::keypadDecimal{65};
inline constexpr Key Key::keypadDivide{75};
inline constexpr Key Key::keypadEnter{76};
inline constexpr Key Key::keypadEquals{81};
inline constexpr Key Key::keypadMinus{78};
inline constexpr Key Key::keypadMultiply{67};
inline constexpr Key Key::keypadPlus{69};

} // namespace KeyboardShortcuts
