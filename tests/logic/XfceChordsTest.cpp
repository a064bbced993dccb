// SPDX-License-Identifier: MIT
#include "platform/hotkeys/HotkeyService.h"
#include "platform/hotkeys/system_shortcuts/XfceShortcuts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using platform::SymbolChord;
using platform::xfceChordsIn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr quint32 kSuper = platform::HotkeyModifier::kCommand;

const QString kDefault = QStringLiteral("/commands/default/<Super>v");
const QString kCustom = QStringLiteral("/commands/custom/<Super>z");
const QString kOverride = QStringLiteral("/commands/custom/override");
const QString kAction = QStringLiteral("xterm");

} // namespace

TEST(XfceChords, theDefaultListCountsUntilTheUsersIsSwitchedOn)
{
    EXPECT_THAT(xfceChordsIn({{kDefault, kAction}, {kCustom, kAction}}),
                ElementsAre(SymbolChord{XKB_KEY_v, kSuper}));
    EXPECT_THAT(xfceChordsIn({{kDefault, kAction}, {kCustom, kAction}, {kOverride, false}}),
                ElementsAre(SymbolChord{XKB_KEY_v, kSuper}));
    EXPECT_THAT(xfceChordsIn({{kDefault, kAction}, {kCustom, kAction}, {kOverride, true}}),
                ElementsAre(SymbolChord{XKB_KEY_z, kSuper}));
}

TEST(XfceChords, entriesThatAreMistypedOrSwitchedOffAreSkipped)
{
    for (const QVariant &value : {QVariant(), QVariant(7), QVariant(true), QVariant(QString()),
                                  QVariant(QStringList{kAction})}) {
        EXPECT_THAT(xfceChordsIn({{kDefault, value}}), IsEmpty()) << value.typeName();
    }
    EXPECT_THAT(xfceChordsIn({{kDefault, kAction}, {kOverride, QStringLiteral("true")}}),
                ElementsAre(SymbolChord{XKB_KEY_v, kSuper}));
}

TEST(XfceChords, whatIsNoAcceleratorIsSkipped)
{
    EXPECT_THAT(xfceChordsIn({{QStringLiteral("/providers"), kAction},
                              {QStringLiteral("/commands/default/"), kAction},
                              {QStringLiteral("/commands/default/nonsense"), kAction},
                              {QStringLiteral("/other/default/<Super>v"), kAction},
                              {kDefault + QStringLiteral("/startup-notify"), kAction}}),
                IsEmpty());
    EXPECT_THAT(xfceChordsIn({}), IsEmpty());
}

TEST(XfceChords, keysThatOnlyMoveAWindowAreSkipped)
{
    EXPECT_THAT(xfceChordsIn({{QStringLiteral("/xfwm4/default/Left"), QStringLiteral("left_key")},
                              {QStringLiteral("/xfwm4/default/<Super>v"),
                               QStringLiteral("close_window_key")}}),
                ElementsAre(SymbolChord{XKB_KEY_v, kSuper}));
}
