// SPDX-License-Identifier: MIT
#include "platform/pasteboard/NullPasteboard.h"

#include <gtest/gtest.h>

TEST(NullPasteboard, saysThatItIsUnavailableAndWhy)
{
    const platform::NullPasteboard pasteboard(QStringLiteral("no display"));

    EXPECT_FALSE(pasteboard.availability().isAvailable);
    EXPECT_EQ(pasteboard.availability().reason, QStringLiteral("no display"));
}

TEST(NullPasteboard, neverReportsSuccess)
{
    platform::NullPasteboard pasteboard(QStringLiteral("no display"));
    const qint64 before = pasteboard.changeCount();

    pasteboard.clearContents();
    EXPECT_FALSE(pasteboard.setString("text"));
    pasteboard.offerAsPrimary();

    EXPECT_EQ(pasteboard.string(), std::nullopt);
    EXPECT_EQ(pasteboard.changeCount(), before);
}
