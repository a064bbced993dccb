// SPDX-License-Identifier: MIT
// One instance per session, however its starts reach each other.
#include "tests/platform/InstanceFixture.h"

namespace {

class SingleInstance : public InstanceFixture
{
};

TEST_F(SingleInstance, aSecondStartOnTheBusActivatesTheFirst)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::With);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, aSecondStartWithoutABusActivatesTheFirst)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::Without);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, aStartWithoutTheBusActivatesTheFirstThatHasIt)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::Without);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, aStartWithTheBusActivatesTheFirstThatLacksIt)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::With);

    expectSecond(*second, *first);
    // The one that left has not kept the name.
    const auto onOtherDisplay = start(Bus::With, QStringLiteral(":8"));
    EXPECT_EQ(lineOf(*onOtherDisplay), "first");
}

TEST_F(SingleInstance, theBusMakesOneSessionOfTwoDisplays)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::With, QStringLiteral(":8"));

    expectSecond(*second, *first);
    // The one that left has not kept the lock of its display.
    const auto withoutBus = start(Bus::Without, QStringLiteral(":8"));
    EXPECT_EQ(lineOf(*withoutBus), "first");
}

TEST_F(SingleInstance, withoutABusEachDisplayIsASession)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto onOtherDisplay = start(Bus::Without, QStringLiteral(":8"));

    EXPECT_EQ(lineOf(*onOtherDisplay), "first");
}

TEST_F(SingleInstance, theScreensOfADisplayAreOneSession)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::Without, QStringLiteral(":7.0"));

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, afterAFirstThatWasKilledTheNextStartIsTheFirst)
{
    const auto killed = start(Bus::With);
    ASSERT_EQ(lineOf(*killed), "first");
    killed->kill();
    ASSERT_TRUE(killed->waitForFinished(kPatience));

    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");
    const auto second = start(Bus::Without);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, everyStartActivatesTheFirstOnce)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");
    const auto second = start(Bus::With);
    expectSecond(*second, *first);
    const auto third = start(Bus::Without);
    expectSecond(*third, *first);

    first->closeWriteChannel();

    ASSERT_TRUE(first->waitForFinished(kPatience));
    EXPECT_EQ(first->readAll(), "");
}

} // namespace
