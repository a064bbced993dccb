// SPDX-License-Identifier: MIT
#include "platform/windows/GapCover.h"

#include <gtest/gtest.h>

using platform::gapBetween;

TEST(GapCover, theGapReachesAsFarAsBothNeighbours)
{
    const QRect menu(100, 200, 250, 150);

    EXPECT_EQ(gapBetween(menu, QRect(354, 220, 300, 400)), QRect(350, 220, 4, 130));
    EXPECT_EQ(gapBetween(menu, QRect(354, 100, 300, 120)), QRect(350, 200, 4, 20));
    EXPECT_EQ(gapBetween(menu, QRect(40, 200, 56, 150)), QRect(96, 200, 4, 150));
}

TEST(GapCover, windowsThatTouchOrOverlapHaveNone)
{
    const QRect menu(100, 200, 250, 150);

    EXPECT_TRUE(gapBetween(menu, QRect(350, 200, 300, 150)).isNull());
    EXPECT_TRUE(gapBetween(menu, QRect(340, 200, 300, 150)).isNull());
    EXPECT_TRUE(gapBetween(menu, QRect(354, 400, 300, 150)).isNull());
}
