// SPDX-License-Identifier: MIT
#include "platform/keyboard/TerminalClasses.h"
#include "tests/platform/KeyEventPosterFixture.h"

#include <QProcess>

namespace {

using Key = ForeignWindow::Key;
using platform::ChordStyle;
using platform::chordStyleOf;
using platform::TerminalClass;

constexpr quint16 kPaste = 9; // key codes as posted
constexpr quint16 kCopy = 8;
constexpr quint8 kKeyV = UserInput::kV;
constexpr quint8 kKeyC = UserInput::kC;

class ChordStyleFixture : public KeyEventPosterFixture
{
protected:
    Key chordInto(const QByteArray &windowClass, quint16 keyCode = kPaste)
    {
        ForeignWindow window(windowClass);
        EXPECT_TRUE(window.showFocused());
        postChord(keyCode);
        EXPECT_TRUE(isSent());
        const auto typed = typedInto(window, 1);
        return typed.size() == 1 ? typed.front() : Key{};
    }

    bool isPrimaryOffered() const
    {
        return std::count(pasteboard.writes.begin(), pasteboard.writes.end(),
                          FakePasteboard::Write::PrimaryOffered) == 1;
    }
};

/// Every terminal of the table, with a window of its class.
class ChordInTerminal : public ::testing::TestWithParam<TerminalClass>
{
};

std::string nameOf(const ::testing::TestParamInfo<TerminalClass> &row)
{
    std::string name = row.param.windowClass;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, ChordInTerminal, ::testing::ValuesIn(platform::kTerminalClasses),
                         nameOf);

/// Spelled out here a second time: a row that is changed by mistake does not agree any more.
ChordStyle expectedStyle(const QByteArray &windowClass)
{
    const QList<QByteArray> primary{"XTerm", "UXTerm", "URxvt"};
    const QList<QByteArray> controlShift{
        "Xfce4-terminal", "Gnome-terminal", "Mate-terminal", "Lxterminal", "Terminator",  "Tilix",
        "konsole",        "qterminal",      "kitty",         "Alacritty",  "st-256color", "foot"};
    if (primary.contains(windowClass))
        return ChordStyle::Primary;
    return controlShift.contains(windowClass) ? ChordStyle::ControlShift : ChordStyle::Control;
}

TEST_P(ChordInTerminal, isTheOneThatItUnderstands)
{
    const QByteArray name = GetParam().windowClass;

    EXPECT_EQ(chordStyleOf(name), expectedStyle(name));
    EXPECT_EQ(chordStyleOf(name.toUpper()), expectedStyle(name));
    EXPECT_EQ(chordStyleOf(QByteArray(name + "x")), ChordStyle::Control);
}

TEST(ChordStyle, isControlForAnyOtherProgram)
{
    EXPECT_EQ(chordStyleOf("firefox"), ChordStyle::Control);
    EXPECT_EQ(chordStyleOf(""), ChordStyle::Control);
}

class ChordStyleOnScreen : public ChordStyleFixture
{
};
INSTANTIATE_TEST_SUITE_P(On, ChordStyleOnScreen, kAllWindowManagers,
                         ::testing::PrintToStringParamName());

TEST_P(ChordStyleOnScreen, everyTerminalGetsItsOwnChord)
{
    for (const TerminalClass &terminal : platform::kTerminalClasses) {
        pasteboard.writes.clear();
        const Key pasted = chordInto(terminal.windowClass);
        if (terminal.style == ChordStyle::Primary)
            EXPECT_EQ(pasted, (Key{true, UserInput::kInsert, kShiftDown})) << terminal.windowClass;
        else
            EXPECT_EQ(pasted, (Key{true, kKeyV, kControlDown | kShiftDown}))
                << terminal.windowClass;
        EXPECT_EQ(isPrimaryOffered(), terminal.style == ChordStyle::Primary);
    }
}

TEST_P(ChordStyleOnScreen, copyInATerminalIsControlShiftC)
{
    EXPECT_EQ(chordInto("Xfce4-terminal", kCopy), (Key{true, kKeyC, kControlDown | kShiftDown}));
}

TEST_P(ChordStyleOnScreen, copyInXtermTakesTheSelectionOver)
{
    ForeignWindow window("XTerm");
    ASSERT_TRUE(window.showFocused());

    postCopy();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(pasteboard.adoptions, 1);
    EXPECT_TRUE(window.typed().empty());
}

TEST_P(ChordStyleOnScreen, theClassIsThatOfTheTopLevelAboveTheFocus)
{
    ForeignWindow terminal("Tilix");
    ASSERT_TRUE(terminal.showFocused());
    const xcb_window_t child = terminal.addChild();
    terminal.setFocus(child);
    ASSERT_TRUE(waitFor([&] { return terminal.focusedWindow() == child; }));

    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(terminal, 1), (std::vector<Key>{{true, kKeyV, kControlDown | kShiftDown}}));
}

TEST_P(ChordStyleOnScreen, windowsWithoutAClassGetTheCommonChord)
{
    EXPECT_EQ(chordInto(""), (Key{true, kKeyV, kControlDown}));
}

/// Keys are found by what they type, in the layout that is active.
class ChordInLayout : public ChordStyleFixture
{
protected:
    ~ChordInLayout() override { setLayout({QStringLiteral("us")}); }

    void setLayout(const QStringList &arguments)
    {
        QProcess setxkbmap;
        setxkbmap.start(QStringLiteral("setxkbmap"), arguments);
        ASSERT_TRUE(setxkbmap.waitForFinished(kPatience));
        ASSERT_EQ(setxkbmap.exitCode(), 0);
    }

    void expectPasteBy(quint8 key)
    {
        // The poster hears of a layout by an event; the answer to the chord may come first.
        EXPECT_TRUE(waitFor([&] { return chordInto("Target") == Key{true, key, kControlDown}; }));
    }
};
INSTANTIATE_TEST_SUITE_P(On, ChordInLayout, ::testing::Values(WindowManager::Kind::None),
                         ::testing::PrintToStringParamName());

TEST_P(ChordInLayout, dvorakHasItsOwnV)
{
    setLayout({QStringLiteral("us"), QStringLiteral("-variant"), QStringLiteral("dvorak")});

    expectPasteBy(60); // the key of the full stop on a US keyboard
}

TEST_P(ChordInLayout, aLayoutWithoutVUsesThePosition)
{
    setLayout({QStringLiteral("ru")});

    expectPasteBy(kKeyV);
}

TEST_P(ChordInLayout, aSecondLayoutWithVIsFoundToo)
{
    setLayout({QStringLiteral("ru,us"), QStringLiteral("-variant"), QStringLiteral(",dvorak")});

    expectPasteBy(60);
}

} // namespace
