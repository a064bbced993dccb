// SPDX-License-Identifier: MIT
#include "platform/windows/ReservedEdges.h"

#include <gtest/gtest.h>

namespace {

using platform::freePart;
using platform::Strut;

constexpr QSize kDisplay(3200, 1200);
/// Two screens side by side, the right one lower and 200 pixels down.
constexpr QRect kLeftScreen(0, 0, 1600, 1200);
constexpr QRect kRightScreen(1600, 200, 1600, 1000);

Strut partial(const std::vector<quint32> &numbers)
{
    return Strut::fromProperty(numbers).value();
}

TEST(ReservedEdges, withoutStrutsTheWholeScreenIsFree)
{
    EXPECT_EQ(freePart(kLeftScreen, kDisplay, {}), kLeftScreen);
}

TEST(ReservedEdges, aBarOnTopTakesItsHeightFromItsScreenOnly)
{
    const Strut bar = partial({0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0});

    EXPECT_EQ(freePart(kLeftScreen, kDisplay, {bar}), QRect(0, 30, 1600, 1170));
    EXPECT_EQ(freePart(kRightScreen, kDisplay, {bar}), kRightScreen);
}

TEST(ReservedEdges, theDepthCountsFromTheEdgeOfTheWholeDisplay)
{
    const Strut bar = partial({0, 0, 240, 0, 0, 0, 0, 0, 1600, 3199, 0, 0});

    EXPECT_EQ(freePart(kRightScreen, kDisplay, {bar}), QRect(1600, 240, 1600, 960));
}

TEST(ReservedEdges, aBarOnTheBottomOfBothScreensCountsOnBoth)
{
    const Strut bar = partial({0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 3199});

    EXPECT_EQ(freePart(kLeftScreen, kDisplay, {bar}), QRect(0, 0, 1600, 1160));
    EXPECT_EQ(freePart(kRightScreen, kDisplay, {bar}), QRect(1600, 200, 1600, 960));
}

TEST(ReservedEdges, docksOnTheInnerEdgeDoNotTakeTheScreenThatTheyPassOver)
{
    const Strut dock = partial({1664, 0, 0, 0, 200, 1199, 0, 0, 0, 0, 0, 0});

    EXPECT_EQ(freePart(kLeftScreen, kDisplay, {dock}), kLeftScreen);
    EXPECT_EQ(freePart(kRightScreen, kDisplay, {dock}), QRect(1664, 200, 1536, 1000));
}

TEST(ReservedEdges, severalStrutsTakeTheDeepestOfEachEdge)
{
    const Strut thin = partial({0, 100, 0, 0, 0, 0, 0, 1199, 0, 0, 0, 0});
    const Strut thick = partial({0, 180, 0, 0, 0, 0, 0, 1199, 0, 0, 0, 0});

    EXPECT_EQ(freePart(kRightScreen, kDisplay, {thin, thick}), QRect(1600, 200, 1420, 1000));
    EXPECT_EQ(freePart(kRightScreen, kDisplay, {thick, thin}), QRect(1600, 200, 1420, 1000));
}

TEST(ReservedEdges, theOldKindOfStrutHoldsForTheWholeEdge)
{
    const Strut bar = partial({0, 0, 0, 50});

    EXPECT_EQ(freePart(kLeftScreen, kDisplay, {bar}), QRect(0, 0, 1600, 1150));
    EXPECT_EQ(freePart(kRightScreen, kDisplay, {bar}), QRect(1600, 200, 1600, 950));
}

TEST(ReservedEdges, strutsThatWouldLeaveNothingDoNotCount)
{
    const Strut left = partial({900, 0, 0, 0});
    const Strut right = partial({0, 2400, 0, 0});

    EXPECT_EQ(freePart(kLeftScreen, kDisplay, {left, right}), kLeftScreen);
}

TEST(ReservedEdges, propertiesOfAnotherLengthAreNoStruts)
{
    EXPECT_FALSE(Strut::fromProperty({}));
    EXPECT_FALSE(Strut::fromProperty({1, 2, 3}));
    EXPECT_FALSE(Strut::fromProperty({1, 2, 3, 4, 5}));
}

} // namespace
