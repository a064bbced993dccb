// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/PopoverPlacement.h"

#include <gtest/gtest.h>

namespace {

constexpr QRect kWorkArea(0, 0, 1280, 800);
constexpr QSize kSize(308, 408);

PopoverAnchor anchorAt(QPoint menu, int row = 0)
{
    return {QRect(menu, QSize(250, 145)), QRect(menu + QPoint(0, row), QSize(250, 36)), kWorkArea,
            Qt::LeftToRight};
}

} // namespace

TEST(PopoverPlacement, onTheRightLevelWithItsRow)
{
    EXPECT_EQ(popoverFrame(anchorAt({100, 100}, 73), kSize), QRect(354, 173, 308, 408));
}

TEST(PopoverPlacement, exactlyFittingOnTheRightStaysThere)
{
    const int menu = 1280 - 4 - 308 - 4 - 250;
    EXPECT_EQ(popoverFrame(anchorAt({menu, 100}), kSize).x(), menu + 254);
    EXPECT_EQ(popoverFrame(anchorAt({menu + 1, 100}), kSize).x(), menu + 1 - 312);
}

TEST(PopoverPlacement, withoutRoomOnTheRightOnTheLeft)
{
    EXPECT_EQ(popoverFrame(anchorAt({1000, 100}), kSize), QRect(688, 100, 308, 408));
}

TEST(PopoverPlacement, whenNeitherSideFitsTheRoomierOnePushedIn)
{
    PopoverAnchor anchor = anchorAt({100, 100});
    anchor.workArea = QRect(0, 0, 500, 800);
    EXPECT_EQ(popoverFrame(anchor, kSize).x(), 500 - 4 - 308);
    anchor.menu.moveLeft(200);
    EXPECT_EQ(popoverFrame(anchor, kSize).x(), 4);
}

TEST(PopoverPlacement, tooLowItIsPushedUpUntilItEndsAboveTheEdge)
{
    const QRect frame = popoverFrame(anchorAt({100, 700}), kSize);
    EXPECT_EQ(frame.y() + frame.height(), 796);
    EXPECT_EQ(frame.height(), 408);
}

TEST(PopoverPlacement, higherThanTheWorkAreaItIsCut)
{
    PopoverAnchor anchor = anchorAt({100, 100});
    anchor.workArea = QRect(0, 20, 1280, 300);
    EXPECT_EQ(popoverFrame(anchor, kSize), QRect(354, 24, 308, 292));
}

TEST(PopoverPlacement, inRightToLeftReadingTheLeftComesFirst)
{
    PopoverAnchor anchor = anchorAt({600, 100});
    anchor.direction = Qt::RightToLeft;
    EXPECT_EQ(popoverFrame(anchor, kSize).x(), 600 - 312);
    anchor.menu.moveLeft(100);
    EXPECT_EQ(popoverFrame(anchor, kSize).x(), 354);
}

TEST(PopoverPlacement, theWorkAreaOfAScreenBesideTheFirstIsRespected)
{
    PopoverAnchor anchor = anchorAt({1290, 700});
    anchor.workArea = QRect(1280, 30, 1920, 770);
    const QRect frame = popoverFrame(anchor, kSize);
    EXPECT_TRUE(anchor.workArea.contains(frame));
    EXPECT_EQ(frame.x(), 1544);
}

TEST(PopoverPlacement, theHeightFollowsTheRowsDownwardsOnly)
{
    EXPECT_EQ(popoverHeight(100, 408, kWorkArea), 408);
    EXPECT_EQ(popoverHeight(600, 408, kWorkArea), 196);
    EXPECT_EQ(popoverHeight(600, 100, kWorkArea), 100);
}
