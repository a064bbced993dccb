// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/DesktopShortcuts.h"

#include "tests/fakes/FakeHotkeyService.h"
#include "tests/support/Keymaps.h"

#include <QPointer>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using platform::ShortcutSource;
using platform::SymbolChord;
using platform::SystemShortcut;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr quint32 kSuper = platform::HotkeyModifier::kCommand;
constexpr SymbolChord kSuperV{XKB_KEY_v, kSuper};
constexpr SymbolChord kSuperZ{XKB_KEY_z, kSuper};
constexpr SystemShortcut kPositionV{9, kSuper};
constexpr SystemShortcut kPositionZ{6, kSuper};

/// Answers when the test says so.
class LateSource : public ShortcutSource
{
public:
    void ask() override { wasAsked = true; }

    bool wasAsked = false;
};

/// Answers while it is asked.
class QuickSource : public ShortcutSource
{
public:
    void ask() override { emit answered({kSuperV}); }
};

class DesktopShortcuts : public ::testing::Test
{
protected:
    /// A source of the next refresh.
    template <typename Source>
    QPointer<Source> add()
    {
        auto source = std::make_unique<Source>();
        QPointer<Source> added = source.get();
        next.push_back(std::move(source));
        return added;
    }

    FakeHotkeyService hotkeys;
    platform::DesktopShortcuts::Sources next;
    platform::DesktopShortcuts shortcuts{
        hotkeys,
        {[this] { return std::move(next); },
         [] { return platform::KeyPositions(keymapOf("us").get(), 0); }}};
    QSignalSpy refreshed{&shortcuts, &platform::SystemShortcuts::refreshed};
};

} // namespace

TEST_F(DesktopShortcuts, anAnswerIsThereBeforeTheOthersHaveCome)
{
    const auto first = add<LateSource>();
    const auto second = add<LateSource>();
    EXPECT_FALSE(first->wasAsked);
    shortcuts.refresh();
    ASSERT_TRUE(first->wasAsked && second->wasAsked);
    EXPECT_THAT(shortcuts.enabledShortcuts(), IsEmpty());

    emit first->answered({kSuperV});
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionV));
    EXPECT_TRUE(refreshed.isEmpty());

    emit second->answered({kSuperZ, kSuperV});
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionV, kPositionZ));
    EXPECT_TRUE(refreshed.wait());
    EXPECT_EQ(refreshed.size(), 1);
    EXPECT_TRUE(first.isNull()) << "a source that has answered is kept";
}

TEST_F(DesktopShortcuts, theEndIsToldByTheEventLoopOnly)
{
    add<QuickSource>();
    shortcuts.refresh();
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionV));
    EXPECT_TRUE(refreshed.isEmpty());
    EXPECT_TRUE(refreshed.wait());

    shortcuts.refresh();
    EXPECT_EQ(refreshed.size(), 1);
    EXPECT_TRUE(refreshed.wait());
    EXPECT_THAT(shortcuts.enabledShortcuts(), IsEmpty());
}

TEST_F(DesktopShortcuts, whatWasAnsweredBeforeCountsUntilAllHaveAnsweredAgain)
{
    add<QuickSource>();
    shortcuts.refresh();
    ASSERT_TRUE(refreshed.wait());
    add<LateSource>();
    shortcuts.refresh();
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionV));

    const auto late = add<LateSource>();
    shortcuts.refresh();
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionV)) << "asked twice in a row";

    emit late->answered({});
    EXPECT_TRUE(refreshed.wait());
    EXPECT_THAT(shortcuts.enabledShortcuts(), IsEmpty());
}

TEST_F(DesktopShortcuts, askingAnewForgetsWhatWasAskedBefore)
{
    const auto former = add<LateSource>();
    shortcuts.refresh();
    emit former->answered({kSuperV});
    const auto later = add<LateSource>();

    shortcuts.refresh();

    EXPECT_TRUE(former.isNull());
    emit later->answered({kSuperZ});
    EXPECT_TRUE(refreshed.wait());
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionZ));
    EXPECT_EQ(refreshed.size(), 1);
}

TEST_F(DesktopShortcuts, aSourceThatNeverAnswersIsGivenUp)
{
    const auto silent = add<LateSource>();
    add<QuickSource>();
    shortcuts.refresh();

    EXPECT_TRUE(refreshed.wait(10000));

    EXPECT_TRUE(silent.isNull());
    EXPECT_THAT(shortcuts.enabledShortcuts(), ElementsAre(kPositionV));
}

TEST_F(DesktopShortcuts, theHotKeysSayWhatAnotherProgramHolds)
{
    hotkeys.taken.insert({9, kSuper});

    EXPECT_TRUE(shortcuts.isHeldElsewhere(9, kSuper));
    EXPECT_FALSE(shortcuts.isHeldElsewhere(6, kSuper));
}
