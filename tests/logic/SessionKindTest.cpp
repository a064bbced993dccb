// SPDX-License-Identifier: MIT
#include "platform/session/SessionKind.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

class SessionKindTest : public ::testing::Test
{
protected:
    SessionKindTest()
    {
        qunsetenv(kDisplay);
        qunsetenv(kType);
    }
    ~SessionKindTest() override
    {
        restore(kDisplay, m_display);
        restore(kType, m_type);
    }

    static constexpr auto kDisplay = "WAYLAND_DISPLAY";
    static constexpr auto kType = "XDG_SESSION_TYPE";

private:
    static void restore(const char *name, const QByteArray &value)
    {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }

    const QByteArray m_display = qgetenv(kDisplay);
    const QByteArray m_type = qgetenv(kType);
};

} // namespace

TEST_F(SessionKindTest, aSessionOfAnXServerIsNotWayland)
{
    EXPECT_FALSE(platform::isWaylandSession());
    qputenv(kType, "x11");
    qputenv(kDisplay, "");
    EXPECT_FALSE(platform::isWaylandSession());
}

TEST_F(SessionKindTest, aCompositorIsKnownByItsSocketOrByTheSessionsType)
{
    qputenv(kDisplay, "wayland-0");
    EXPECT_TRUE(platform::isWaylandSession());

    qunsetenv(kDisplay);
    qputenv(kType, "wayland");
    EXPECT_TRUE(platform::isWaylandSession());
}
