// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/WindowPlacement.h"

#include <gtest/gtest.h>

namespace {

constexpr QRect kFrame(0, 24, 1920, 1056);
constexpr QSize kMenu(250, 300);

} // namespace

TEST(PanelPlacement, standsFivePointsRightOfThePointerAtItsHeight)
{
    EXPECT_EQ(panelOrigin(QPoint(400, 300), kFrame), QPoint(405, 300));
}

TEST(PanelPlacement, isPinnedWithin245PointsOfTheRightEdge)
{
    EXPECT_EQ(panelOrigin(QPoint(1665, 300), kFrame).x(), 1670);
    EXPECT_EQ(panelOrigin(QPoint(1666, 300), kFrame).x(), 1670);
    EXPECT_EQ(panelOrigin(QPoint(1919, 300), kFrame).x(), 1670);
}

TEST(PanelPlacement, isNotClampedAtTheLowerEdge)
{
    EXPECT_EQ(panelOrigin(QPoint(10, 1079), kFrame), QPoint(15, 1079));
}

TEST(PanelPlacement, usesTheFrameOfASecondScreen)
{
    const QRect second(1920, 0, 1280, 1024);

    EXPECT_EQ(panelOrigin(QPoint(2000, 50), second), QPoint(2005, 50));
    EXPECT_EQ(panelOrigin(QPoint(3190, 50), second), QPoint(2950, 50));
}

TEST(MenuBarWindowPlacement, standsFourBelowAnIconInABarOnTop)
{
    EXPECT_EQ(menuBarWindowOrigin(QRect(1000, 0, 24, 24), QPoint(), kMenu, kFrame),
              QPoint(1000, 28));
}

TEST(MenuBarWindowPlacement, standsFourAboveAnIconInABarAtTheBottom)
{
    const QRect frame(0, 0, 1920, 1056);

    EXPECT_EQ(menuBarWindowOrigin(QRect(1000, 1056, 24, 24), QPoint(), kMenu, frame),
              QPoint(1000, 752));
}

TEST(MenuBarWindowPlacement, isPushedInsideTheWorkArea)
{
    EXPECT_EQ(menuBarWindowOrigin(QRect(1890, 0, 24, 24), QPoint(), kMenu, kFrame).x(), 1670);
    EXPECT_EQ(menuBarWindowOrigin(QRect(-30, 0, 24, 24), QPoint(), kMenu, kFrame).x(), 0);
}

TEST(MenuBarWindowPlacement, isAtThePointerWhereTheDesktopGivesNoIcon)
{
    EXPECT_EQ(menuBarWindowOrigin(QRect(), QPoint(700, 100), kMenu, kFrame), QPoint(700, 105));
}
