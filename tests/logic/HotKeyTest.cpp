// SPDX-License-Identifier: MIT
#include "hotkey/HotKey.h"

#include "hotkey/HotKeysController.h"
#include "tests/fakes/FakeHotkeyService.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace HotKeysController = hotkey::HotKeysController;
using hotkey::HotKey;
using hotkey::KeyCombo;
using platform::HotkeyEvent;
using platform::HotkeyEventType;

namespace {

constexpr KeyCombo kCombo(40, 0x900);
constexpr KeyCombo kOther(9, 0x300);

class HotKeyTest : public ::testing::Test
{
protected:
    HotKeyTest() { HotKeysController::setUp(service); }
    ~HotKeyTest() override { HotKeysController::tearDown(); }

    HotKey::Handler logged(const char *text)
    {
        return [this, text] { calls += QString::fromLatin1(text); };
    }

    bool holds(const KeyCombo &combo) const
    {
        return service.holds(combo.carbonKeyCode, combo.carbonModifiers);
    }

    bool press(const KeyCombo &combo)
    {
        return service.press(combo.carbonKeyCode, combo.carbonModifiers);
    }

    bool release(const KeyCombo &combo)
    {
        return service.release(combo.carbonKeyCode, combo.carbonModifiers);
    }

    static qint32 answer(quint32 kind, std::optional<platform::HotkeyId> id)
    {
        HotkeyEvent event;
        event.type.kind = kind;
        event.hotkeyId = id;
        return HotKeysController::handleEvent(&event);
    }

    FakeHotkeyService service;
    QStringList calls;
};

constexpr qint32 kTaken = 0;
constexpr qint32 kPassedOn = -9874;
constexpr quint32 kMark = 0x5256486B;

} // namespace

TEST_F(HotKeyTest, lastsFromItsCreationToItsEnd)
{
    {
        const HotKey hotKey(kCombo);
        EXPECT_TRUE(holds(kCombo));
        EXPECT_EQ(HotKeysController::hotKeys().size(), 1U);
    }

    EXPECT_FALSE(holds(kCombo));
    EXPECT_TRUE(HotKeysController::hotKeys().empty());
}

TEST_F(HotKeyTest, pressAndReleaseReachTheirHandlers)
{
    const HotKey hotKey(kCombo, logged("down"), logged("up"));

    EXPECT_TRUE(press(kCombo));
    EXPECT_EQ(calls.join(u' '), QStringLiteral("down"));
    EXPECT_TRUE(release(kCombo));
    EXPECT_EQ(calls.join(u' '), QStringLiteral("down up"));
}

TEST_F(HotKeyTest, eachHotKeyHearsOfItsOwnComboOnly)
{
    const HotKey first(kCombo, logged("first"));
    const HotKey second(kOther, logged("second"));

    press(kOther);

    EXPECT_EQ(calls, QStringList{QStringLiteral("second")});
}

TEST_F(HotKeyTest, withoutHandlersItStillTakesItsKey)
{
    const HotKey hotKey(kCombo);

    EXPECT_TRUE(press(kCombo));
    EXPECT_TRUE(release(kCombo));
}

TEST_F(HotKeyTest, handlersCanBePutInLater)
{
    HotKey hotKey(kCombo);
    hotKey.keyDownHandler = logged("down");
    hotKey.keyUpHandler = logged("up");

    press(kCombo);
    release(kCombo);

    EXPECT_EQ(calls.join(u' '), QStringLiteral("down up"));
}

TEST_F(HotKeyTest, pausingGivesTheComboBackAndResumingTakesItAgain)
{
    HotKey hotKey(kCombo, logged("down"));
    EXPECT_FALSE(hotKey.isPaused());

    hotKey.setPaused(true);
    EXPECT_TRUE(hotKey.isPaused());
    EXPECT_FALSE(holds(kCombo));
    EXPECT_FALSE(press(kCombo));

    hotKey.setPaused(false);
    EXPECT_FALSE(hotKey.isPaused());
    EXPECT_TRUE(press(kCombo));
    EXPECT_EQ(calls.size(), 1);
}

TEST_F(HotKeyTest, pausingTwiceOrResumingWhatRunsDoesNothing)
{
    HotKey hotKey(kCombo);

    hotKey.setPaused(false);
    EXPECT_EQ(service.registrations, 1);
    hotKey.setPaused(true);
    hotKey.setPaused(true);

    EXPECT_EQ(service.unregistrations, 1);
}

TEST_F(HotKeyTest, endingAPausedOneGivesNothingBackTwice)
{
    {
        HotKey hotKey(kCombo);
        hotKey.setPaused(true);
    }

    EXPECT_EQ(service.unregistrations, 1);
}

TEST_F(HotKeyTest, identifiersDiffer)
{
    const HotKey first(kCombo);
    const HotKey second(kCombo);

    EXPECT_FALSE(first.identifier().isNull());
    EXPECT_NE(first.identifier(), second.identifier());
}

TEST_F(HotKeyTest, theFirstIdIsOneAndIdsAreNeverUsedAgain)
{
    HotKey first(kCombo);
    const HotKey second(kOther);
    EXPECT_TRUE(HotKeysController::hotKeys().contains(1));
    EXPECT_TRUE(HotKeysController::hotKeys().contains(2));

    first.setPaused(true);
    first.setPaused(false);

    EXPECT_FALSE(HotKeysController::hotKeys().contains(1));
    EXPECT_TRUE(HotKeysController::hotKeys().contains(3));
}

TEST_F(HotKeyTest, aRegistrationKnowsItsHotKeyAndTheDesktopsNumber)
{
    const HotKey hotKey(kCombo);

    const auto &box = HotKeysController::hotKeys().at(1);
    EXPECT_EQ(box.identifier, hotKey.identifier());
    EXPECT_EQ(box.hotKey, &hotKey);
    EXPECT_EQ(box.carbonHotKeyID, 1U);
    ASSERT_EQ(service.held.size(), 1U);
    EXPECT_EQ(box.carbonEventHotKey, service.held.begin()->first);
    EXPECT_EQ(service.held.begin()->second.id, (platform::HotkeyId{kMark, 1}));
}

TEST_F(HotKeyTest, aRegisteredOneIsNotRegisteredTwice)
{
    HotKey hotKey(kCombo);

    HotKeysController::registerHotKey(hotKey);

    EXPECT_EQ(service.registrations, 1);
    EXPECT_EQ(HotKeysController::hotKeyId(), 1U);
}

TEST_F(HotKeyTest, aRefusedComboSilentlyDoesNothingAndUsesUpItsId)
{
    service.taken = {{kCombo.carbonKeyCode, kCombo.carbonModifiers}};

    HotKey hotKey(kCombo, logged("down"));

    EXPECT_TRUE(HotKeysController::hotKeys().empty());
    EXPECT_EQ(HotKeysController::hotKeyId(), 1U);
    EXPECT_EQ(service.handlerInstallations, 0);
    EXPECT_FALSE(HotKeysController::eventHandler().has_value());
    EXPECT_FALSE(hotKey.isPaused());
}

TEST_F(HotKeyTest, aRefusedComboIsAskedForAgainAfterAPause)
{
    service.taken = {{kCombo.carbonKeyCode, kCombo.carbonModifiers}};
    HotKey hotKey(kCombo, logged("down"));
    service.taken.clear();

    hotKey.setPaused(true);
    hotKey.setPaused(false);

    EXPECT_TRUE(press(kCombo));
    EXPECT_EQ(calls.size(), 1);
}

TEST_F(HotKeyTest, oneHandlerIsInstalledForAll)
{
    const HotKey first(kCombo);
    const HotKey second(kOther);

    EXPECT_EQ(service.handlerInstallations, 1);
    EXPECT_TRUE(HotKeysController::eventHandler().has_value());
}

TEST_F(HotKeyTest, withoutAHandlerTheComboIsHeldAndTheNextHotKeyTriesAgain)
{
    service.isRefusingHandlers = true;
    const HotKey first(kCombo, logged("down"));
    EXPECT_TRUE(holds(kCombo));
    EXPECT_FALSE(press(kCombo));
    service.isRefusingHandlers = false;

    const HotKey second(kOther);

    EXPECT_TRUE(press(kCombo));
    EXPECT_EQ(calls.size(), 1);
}

TEST_F(HotKeyTest, ofAnEventOnlyItsOwnKindsSignatureAndIdsAreTaken)
{
    const HotKey hotKey(kCombo, logged("down"), logged("up"));

    EXPECT_EQ(answer(HotkeyEventType::kHotkeyPressed, platform::HotkeyId{kMark, 1}), kTaken);
    EXPECT_EQ(answer(HotkeyEventType::kHotkeyReleased, platform::HotkeyId{kMark, 1}), kTaken);
    EXPECT_EQ(calls.join(u' '), QStringLiteral("down up"));

    EXPECT_EQ(HotKeysController::handleEvent(nullptr), kPassedOn);
    EXPECT_EQ(answer(HotkeyEventType::kHotkeyPressed, std::nullopt), kPassedOn);
    EXPECT_EQ(answer(HotkeyEventType::kHotkeyPressed, platform::HotkeyId{0x54574B53, 1}),
              kPassedOn);
    EXPECT_EQ(answer(HotkeyEventType::kHotkeyPressed, platform::HotkeyId{kMark, 2}), kPassedOn);
    EXPECT_EQ(answer(HotkeyEventType::kHotkeyPressed, platform::HotkeyId{kMark, 0}), kPassedOn);
    for (const quint32 kind : {HotkeyEventType::kRawKeyDown, HotkeyEventType::kRawKeyRepeat,
                               HotkeyEventType::kRawKeyUp, 0U, 7U}) {
        EXPECT_EQ(answer(kind, platform::HotkeyId{kMark, 1}), kPassedOn) << kind;
    }
    HotkeyEvent foreign;
    foreign.type = {0x6D6F7573, HotkeyEventType::kHotkeyPressed};
    foreign.hotkeyId = platform::HotkeyId{kMark, 1};
    EXPECT_EQ(HotKeysController::handleEvent(&foreign), kPassedOn);
    EXPECT_EQ(calls.size(), 2);
}

TEST_F(HotKeyTest, aHandlerMayEndItsOwnHotKey)
{
    auto hotKey = std::make_unique<HotKey>(kCombo);
    hotKey->keyDownHandler = [this, &hotKey] {
        hotKey.reset();
        calls += QStringLiteral("ended");
    };

    EXPECT_TRUE(press(kCombo));

    EXPECT_EQ(calls, QStringList{QStringLiteral("ended")});
    EXPECT_FALSE(holds(kCombo));
}

TEST_F(HotKeyTest, aHandlerMayPauseItsOwnHotKeyAndMakeAnother)
{
    HotKey hotKey(kCombo);
    std::unique_ptr<HotKey> second;
    hotKey.keyDownHandler = [this, &hotKey, &second] {
        hotKey.setPaused(true);
        second = std::make_unique<HotKey>(kOther, logged("second"));
    };

    EXPECT_TRUE(press(kCombo));
    EXPECT_TRUE(press(kOther));

    EXPECT_FALSE(holds(kCombo));
    EXPECT_EQ(calls, QStringList{QStringLiteral("second")});
}

TEST_F(HotKeyTest, afterTheTearDownWhatIsLeftDoesNothing)
{
    HotKey hotKey(kCombo, logged("down"));

    HotKeysController::tearDown();

    EXPECT_FALSE(holds(kCombo));
    hotKey.setPaused(true);
    hotKey.setPaused(false);
    EXPECT_EQ(service.registrations, 1);
    EXPECT_EQ(service.unregistrations, 1);
}
