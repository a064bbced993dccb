// SPDX-License-Identifier: MIT
#include "platform/pasteboard/PasteboardFactory.h"

#include "tests/platform/PasteboardFixture.h"

// These tests themselves run on the toolkit's offscreen platform.
TEST(PasteboardFactory, withoutADisplayThePasteboardSaysThatThereIsNone)
{
    const std::unique_ptr<platform::Pasteboard> pasteboard = platform::makePasteboard();

    ASSERT_NE(pasteboard, nullptr);
    EXPECT_EQ(pasteboard->backendId(), QStringLiteral("null"));
    EXPECT_FALSE(pasteboard->availability().isAvailable);
    EXPECT_FALSE(pasteboard->setString("text"));
}

TEST(PasteboardFactory, aServerThatCannotBeReachedGivesNoPasteboard)
{
    EXPECT_EQ(platform::X11Pasteboard::create(":65000"), nullptr);
}
