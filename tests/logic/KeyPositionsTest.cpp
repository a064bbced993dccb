// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyPositions.h"

#include "tests/support/Keymaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using platform::KeyPosition;
using platform::KeyPositions;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace platform {

void PrintTo(const KeyPosition &position, std::ostream *out)
{
    *out << position.keyCode << (position.isShifted ? " shifted" : "");
}

} // namespace platform

namespace {

KeyPositions positionsOn(const char *layout, int group = 0)
{
    return KeyPositions(keymapOf(layout).get(), group);
}

} // namespace

TEST(KeyPositions, aSymbolIsFoundWhereTheLayoutHasIt)
{
    EXPECT_THAT(positionsOn("us").of(XKB_KEY_z), ElementsAre(KeyPosition{6, false}));
    EXPECT_THAT(positionsOn("de").of(XKB_KEY_z), ElementsAre(KeyPosition{16, false}));
    EXPECT_THAT(positionsOn("us").of(XKB_KEY_Escape), ElementsAre(KeyPosition{53, false}));
    EXPECT_THAT(positionsOn("us").of(XKB_KEY_XF86AudioMute), ElementsAre(KeyPosition{74, false}));
}

TEST(KeyPositions, anUpperSymbolIsToldFromALowerOne)
{
    EXPECT_THAT(positionsOn("us").of(XKB_KEY_plus), ElementsAre(KeyPosition{24, true}));
    EXPECT_THAT(positionsOn("de").of(XKB_KEY_plus), ElementsAre(KeyPosition{30, false}));
    EXPECT_THAT(positionsOn("fr").of(XKB_KEY_1), ElementsAre(KeyPosition{18, true}));
}

TEST(KeyPositions, theGroupInUseGoesBeforeTheOthers)
{
    EXPECT_THAT(positionsOn("us,de", 0).of(XKB_KEY_z), ElementsAre(KeyPosition{6, false}));
    EXPECT_THAT(positionsOn("us,de", 1).of(XKB_KEY_z), ElementsAre(KeyPosition{16, false}));
}

TEST(KeyPositions, aSymbolThatTheGroupInUseLacksIsTakenFromAnother)
{
    EXPECT_THAT(positionsOn("ru,us", 0).of(XKB_KEY_v), ElementsAre(KeyPosition{9, false}));
    EXPECT_THAT(positionsOn("ru").of(XKB_KEY_v), IsEmpty());
}

TEST(KeyPositions, aSymbolOfNoKeyWithANumberStandsNowhere)
{
    EXPECT_THAT(positionsOn("us").of(XKB_KEY_Print), IsEmpty());
    EXPECT_THAT(positionsOn("us").of(XKB_KEY_NoSymbol), IsEmpty());
    EXPECT_THAT(KeyPositions().of(XKB_KEY_v), IsEmpty());
}
