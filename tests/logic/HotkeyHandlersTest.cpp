// SPDX-License-Identifier: MIT
#include "platform/hotkeys/HotkeyHandlers.h"

#include "platform/hotkeys/NullHotkeys.h"

#include <gtest/gtest.h>

#include <array>

using platform::HotkeyEvent;
using platform::HotkeyEventType;
using platform::HotkeyHandlers;

namespace {

constexpr std::array kPressed = {
    HotkeyEventType{HotkeyEventType::kKeyboardClass, HotkeyEventType::kHotkeyPressed}};

HotkeyEvent pressedEvent()
{
    HotkeyEvent event;
    event.type = kPressed.front();
    return event;
}

} // namespace

TEST(HotkeyHandlers, aHandlerHearsOfNothingUntilTypesAreAdded)
{
    HotkeyHandlers handlers;
    int calls = 0;
    const auto ref = handlers.install([&calls](const HotkeyEvent *) { return ++calls, 0; });

    EXPECT_FALSE(handlers.deliver(pressedEvent()));
    handlers.addTypes(ref, kPressed);
    EXPECT_TRUE(handlers.deliver(pressedEvent()));
    handlers.removeTypes(ref, kPressed);
    EXPECT_FALSE(handlers.deliver(pressedEvent()));

    EXPECT_EQ(calls, 1);
}

TEST(HotkeyHandlers, aTypeThatIsAddedTwiceIsDeliveredOnce)
{
    HotkeyHandlers handlers;
    int calls = 0;
    const auto ref = handlers.install([&calls](const HotkeyEvent *) { return ++calls, 1; });
    handlers.addTypes(ref, kPressed);
    handlers.addTypes(ref, kPressed);

    handlers.deliver(pressedEvent());

    EXPECT_EQ(calls, 1);
}

TEST(HotkeyHandlers, theLatestIsAskedFirstAndPassesOnWhatItDoesNotTake)
{
    HotkeyHandlers handlers;
    QString order;
    qint32 answer = -9874;
    const auto first = handlers.install([&order](const HotkeyEvent *) {
        order += u'1';
        return 0;
    });
    const auto second = handlers.install([&order, &answer](const HotkeyEvent *) {
        order += u'2';
        return answer;
    });
    handlers.addTypes(first, kPressed);
    handlers.addTypes(second, kPressed);

    EXPECT_TRUE(handlers.deliver(pressedEvent()));
    EXPECT_EQ(order, QStringLiteral("21"));

    answer = 0;
    order.clear();
    EXPECT_TRUE(handlers.deliver(pressedEvent()));
    EXPECT_EQ(order, QStringLiteral("2"));
}

TEST(NullHotkeys, neverReportsSuccess)
{
    platform::NullHotkeys hotkeys(QStringLiteral("No keys here."));

    EXPECT_FALSE(hotkeys.availability().isAvailable);
    EXPECT_EQ(hotkeys.availability().reason, QStringLiteral("No keys here."));
    const auto registered = hotkeys.registerHotkey(9, 768, {1, 1});
    ASSERT_FALSE(registered.has_value());
    EXPECT_EQ(registered.error().kind, platform::Error::Kind::Unavailable);
    const auto handler = hotkeys.installHandler([](const HotkeyEvent *) { return 0; });
    ASSERT_FALSE(handler.has_value());
    EXPECT_EQ(handler.error().kind, platform::Error::Kind::Unavailable);
    EXPECT_EQ(hotkeys.lastEventTime(), 0U);
}
