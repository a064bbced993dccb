// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <array>

namespace platform {

/// Which keys mean "paste" and "copy" in a program.
enum class ChordStyle {
    Control,      ///< Control+V and Control+C, as in nearly every program
    ControlShift, ///< Control+Shift+V and +C: terminals keep Control+C for interrupting
    Primary,      ///< Shift+Insert pastes the primary selection; what is selected is copied already
};

struct TerminalClass
{
    const char *windowClass; ///< the second part of WM_CLASS, or a Wayland application identifier
    ChordStyle style;
};

/// The terminals that do not follow the common chords; the letter case of a class does not count.
/// Source: tried out on Debian 12, except where a row says otherwise.
inline constexpr std::array kTerminalClasses{
    TerminalClass{"XTerm", ChordStyle::Primary},
    TerminalClass{"UXTerm", ChordStyle::Primary}, // xterm under another class name, by its manual
    TerminalClass{"URxvt", ChordStyle::Primary},
    TerminalClass{"Xfce4-terminal", ChordStyle::ControlShift},
    TerminalClass{"Gnome-terminal", ChordStyle::ControlShift},
    TerminalClass{"Mate-terminal", ChordStyle::ControlShift},
    TerminalClass{"Lxterminal", ChordStyle::ControlShift},
    TerminalClass{"Terminator", ChordStyle::ControlShift},
    TerminalClass{"Tilix", ChordStyle::ControlShift},
    TerminalClass{"konsole", ChordStyle::ControlShift},
    TerminalClass{"qterminal", ChordStyle::ControlShift},
    TerminalClass{"kitty", ChordStyle::ControlShift},
    TerminalClass{"Alacritty", ChordStyle::ControlShift},
    TerminalClass{"st-256color", ChordStyle::ControlShift},
    TerminalClass{"foot", ChordStyle::ControlShift},
};

/// The chords of the program whose window has this class; an empty class is any program.
constexpr ChordStyle chordStyleOf(QByteArrayView windowClass)
{
    constexpr auto lower = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
    };
    for (const TerminalClass &terminal : kTerminalClasses) {
        const QByteArrayView name(terminal.windowClass);
        if (std::equal(name.begin(), name.end(), windowClass.begin(), windowClass.end(),
                       [lower](char one, char other) { return lower(one) == lower(other); })) {
            return terminal.style;
        }
    }
    return ChordStyle::Control;
}

} // namespace platform
