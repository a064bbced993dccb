// SPDX-License-Identifier: MIT
#include "tests/logic/KeyboardShortcutsTest.h"

#include <QKeyEvent>
#include <QStringList>

using namespace KeyboardShortcuts;
using platform::HotkeyEvent;
using platform::HotkeyEventType;

namespace {

const Shortcut kShortcut(40, cmdKey | optionKey);
constexpr quint32 kKey = 40;
constexpr quint32 kModifiers = 0x900;

class GlobalShortcutsTest : public KeyboardShortcutsTest
{
protected:
    Action logged(const char *text)
    {
        return [this, text] { calls += QString::fromLatin1(text); };
    }

    static HotkeyEvent hotKeyEvent(quint32 kind, quint32 signature, quint32 id)
    {
        HotkeyEvent event;
        event.type.kind = kind;
        event.hotkeyId = platform::HotkeyId{signature, id};
        return event;
    }

    static HotkeyEvent rawEvent(quint32 kind, std::optional<quint32> keyCode,
                                std::optional<quint32> modifiers)
    {
        HotkeyEvent event;
        event.type.kind = kind;
        event.keyCode = keyCode;
        event.modifiers = modifiers;
        return event;
    }

    static qint32 handle(const HotkeyEvent &event)
    {
        return CarbonKeyboardShortcuts::handleEvent(&event);
    }

    Name name{QStringLiteral("plain")};
    QStringList calls;
};

} // namespace

TEST_F(GlobalShortcutsTest, theFirstRegistrationGetsIdOneAndTheSecondIdTwo)
{
    setShortcut(kShortcut, name);
    setShortcut(Shortcut(9, 768), Name(QStringLiteral("other")));

    const auto &hotKeys = CarbonKeyboardShortcuts::hotKeys();
    ASSERT_EQ(hotKeys.size(), 2U);
    EXPECT_EQ(hotKeys.at(1)->shortcut, kShortcut);
    EXPECT_EQ(hotKeys.at(1)->carbonHotKeyId, 1);
    EXPECT_EQ(hotKeys.at(2)->shortcut, Shortcut(9, 768));
}

TEST_F(GlobalShortcutsTest, idsAreNeverUsedAgain)
{
    setShortcut(kShortcut, name);
    setShortcut(kShortcut, name);

    const auto &hotKeys = CarbonKeyboardShortcuts::hotKeys();
    EXPECT_FALSE(hotKeys.contains(1));
    EXPECT_TRUE(hotKeys.contains(2));
}

TEST_F(GlobalShortcutsTest, theDesktopGetsTheSignatureAndTheId)
{
    setShortcut(kShortcut, name);

    ASSERT_EQ(service->held.size(), 1U);
    const platform::HotkeyId id = service->held.begin()->second.id;
    EXPECT_EQ(id, (platform::HotkeyId{0x54574B53, 1}));
}

TEST_F(GlobalShortcutsTest, aRefusedShortcutIsSilentlyNotRecorded)
{
    service->taken = {{kKey, kModifiers}};

    setShortcut(kShortcut, name);

    EXPECT_TRUE(CarbonKeyboardShortcuts::hotKeys().empty());
    EXPECT_EQ(CarbonKeyboardShortcuts::hotKeyId(), 1);
    EXPECT_EQ(getShortcut(name), kShortcut);
}

TEST_F(GlobalShortcutsTest, aRefusedShortcutJoinsTheRegisteredSetAndIsNotRetriedUntilSetAgain)
{
    service->taken = {{kKey, kModifiers}};
    setShortcut(kShortcut, name);
    EXPECT_TRUE(registeredShortcuts().contains(kShortcut));
    service->taken.clear();

    onKeyDown(name, logged("down"));
    EXPECT_EQ(service->registrations, 1);
    setShortcut(kShortcut, name);

    EXPECT_TRUE(service->press(kKey, kModifiers));
    EXPECT_EQ(calls, QStringList{QStringLiteral("down")});
}

TEST_F(GlobalShortcutsTest, theHandlerIsInstalledByTheFirstSuccessfulRegistration)
{
    service->taken = {{kKey, kModifiers}};
    setShortcut(kShortcut, name);
    EXPECT_EQ(service->handlerInstallations, 0);
    EXPECT_FALSE(CarbonKeyboardShortcuts::eventHandler().has_value());

    setShortcut(Shortcut(9, 768), name);
    setShortcut(Shortcut(8, 768), name);

    EXPECT_EQ(service->handlerInstallations, 1);
    EXPECT_TRUE(CarbonKeyboardShortcuts::eventHandler().has_value());
}

TEST_F(GlobalShortcutsTest, withoutAHandlerTheHotKeyStaysRegisteredButNothingDispatchesIt)
{
    service->isRefusingHandlers = true;
    onKeyDown(name, logged("down"));

    setShortcut(kShortcut, name);

    EXPECT_TRUE(service->holds(kKey, kModifiers));
    EXPECT_FALSE(service->press(kKey, kModifiers));
    EXPECT_TRUE(calls.isEmpty());
}

TEST_F(GlobalShortcutsTest, pressAndReleaseReachTheirOwnHandlersInTheOrderAdded)
{
    setShortcut(kShortcut, name);
    onKeyDown(name, logged("down 1"));
    onKeyUp(name, logged("up"));
    onKeyDown(name, logged("down 2"));

    EXPECT_TRUE(service->press(kKey, kModifiers));
    EXPECT_EQ(calls, (QStringList{QStringLiteral("down 1"), QStringLiteral("down 2")}));

    calls.clear();
    EXPECT_TRUE(service->release(kKey, kModifiers));
    EXPECT_EQ(calls, QStringList{QStringLiteral("up")});
}

TEST_F(GlobalShortcutsTest, attachingAHandlerRegistersAStoredShortcutOnce)
{
    defaults->setString(name.defaultsKey(), kShortcut.toJson());

    onKeyDown(name, logged("down"));
    onKeyUp(name, logged("up"));

    EXPECT_EQ(service->registrations, 1);
    EXPECT_TRUE(registeredShortcuts().contains(kShortcut));
    EXPECT_EQ(keyDownHandlers().value(name).size(), 1U);
    EXPECT_EQ(keyUpHandlers().value(name).size(), 1U);
}

TEST_F(GlobalShortcutsTest, attachingAHandlerToANameWithoutShortcutRegistersNothing)
{
    onKeyDown(name, logged("down"));

    EXPECT_EQ(service->registrations, 0);
    EXPECT_TRUE(keyDownHandlers().contains(name));
}

TEST_F(GlobalShortcutsTest, everyNameWithTheShortcutIsCalled)
{
    const Name other(QStringLiteral("other"));
    const Name third(QStringLiteral("third"));
    setShortcut(kShortcut, name);
    setShortcut(kShortcut, other);
    setShortcut(Shortcut(9, 768), third);
    onKeyDown(name, logged("plain"));
    onKeyDown(other, logged("other"));
    onKeyDown(third, logged("third"));

    service->press(kKey, kModifiers);

    calls.sort();
    EXPECT_EQ(calls, (QStringList{QStringLiteral("other"), QStringLiteral("plain")}));
}

TEST_F(GlobalShortcutsTest, theStoredShortcutDecidesAtTheMomentOfTheKey)
{
    const Name other(QStringLiteral("other"), kShortcut);
    setShortcut(kShortcut, name);
    onKeyDown(name, logged("down"));
    onKeyDown(other, logged("other"));
    defaults->setString(name.defaultsKey(), Shortcut(9, 768).toJson());

    EXPECT_TRUE(service->press(kKey, kModifiers));

    EXPECT_EQ(calls, QStringList{QStringLiteral("other")});
}

TEST_F(GlobalShortcutsTest, aHandlerMayChangeItsOwnShortcut)
{
    setShortcut(kShortcut, name);
    onKeyDown(name, [this] {
        calls += QStringLiteral("down");
        setShortcut(Shortcut(9, 768), name);
        onKeyDown(name, logged("later"));
    });

    EXPECT_TRUE(service->press(kKey, kModifiers));

    EXPECT_EQ(calls, QStringList{QStringLiteral("down")});
    EXPECT_FALSE(service->holds(kKey, kModifiers));
    EXPECT_TRUE(service->holds(9, 768));
}

TEST_F(GlobalShortcutsTest, unregisteringRemovesEveryHotKeyWithTheShortcut)
{
    const auto ignore = [](const Shortcut &) {};
    CarbonKeyboardShortcuts::registerShortcut(kShortcut, ignore, ignore);
    CarbonKeyboardShortcuts::registerShortcut(Shortcut(9, 768), ignore, ignore);
    CarbonKeyboardShortcuts::registerShortcut(kShortcut, ignore, ignore);

    CarbonKeyboardShortcuts::unregister(kShortcut);

    EXPECT_EQ(CarbonKeyboardShortcuts::hotKeys().size(), 1U);
    EXPECT_EQ(service->held.size(), 1U);
    EXPECT_TRUE(service->holds(9, 768));
}

TEST_F(GlobalShortcutsTest, aForeignSignatureIsPassedOn)
{
    setShortcut(kShortcut, name);
    onKeyDown(name, logged("down"));

    EXPECT_EQ(handle(hotKeyEvent(5, 0x5256486B, 1)), -9874);
    EXPECT_EQ(handle(hotKeyEvent(5, 0x54574B53, 1)), 0);
    EXPECT_EQ(calls.size(), 1);
}

TEST_F(GlobalShortcutsTest, anUnknownIdIsPassedOn)
{
    setShortcut(kShortcut, name);

    EXPECT_EQ(handle(hotKeyEvent(5, 0x54574B53, 2)), -9874);
    EXPECT_EQ(handle(hotKeyEvent(6, 0x54574B53, 0)), -9874);
}

TEST_F(GlobalShortcutsTest, noEventAndOtherKindsArePassedOn)
{
    setShortcut(kShortcut, name);

    EXPECT_EQ(CarbonKeyboardShortcuts::handleEvent(nullptr), -9874);
    EXPECT_EQ(handle(rawEvent(2, kKey, kModifiers)), -9874);
    EXPECT_EQ(handle(hotKeyEvent(4, 0x54574B53, 1)), -9874);
    HotkeyEvent otherClass = hotKeyEvent(5, 0x54574B53, 1);
    otherClass.type.eventClass = 0;
    EXPECT_EQ(handle(otherClass), -9874);
}

TEST_F(GlobalShortcutsTest, anEventWithoutItsParametersAnswersTheReadingError)
{
    setShortcut(kShortcut, name);

    EXPECT_EQ(handle(rawEvent(5, std::nullopt, std::nullopt)), -9870);
    EXPECT_EQ(handle(rawEvent(1, kKey, std::nullopt)), -9870);
    EXPECT_EQ(handle(rawEvent(3, std::nullopt, kModifiers)), -9870);
}

TEST_F(GlobalShortcutsTest, rawKeysReachTheHandlersByCodeAndReducedModifiers)
{
    setShortcut(kShortcut, name);
    onKeyDown(name, logged("down"));
    onKeyUp(name, logged("up"));

    EXPECT_EQ(handle(rawEvent(1, kKey, kModifiers | 0x400 | 0x10000)), 0);
    EXPECT_EQ(handle(rawEvent(3, kKey, kModifiers)), 0);
    EXPECT_EQ(handle(rawEvent(1, kKey, cmdKey)), -9874);
    EXPECT_EQ(handle(rawEvent(1, kKey + 1, kModifiers)), -9874);

    EXPECT_EQ(calls, (QStringList{QStringLiteral("down"), QStringLiteral("up")}));
}

TEST_F(GlobalShortcutsTest, hotKeysAndRawKeysArriveAsPairsOfPressAndRelease)
{
    using CarbonKeyboardShortcuts::hotKeyEventTypes;
    using CarbonKeyboardShortcuts::rawKeyEventTypes;
    constexpr quint32 kKeyb = 0x6B657962;

    ASSERT_EQ(hotKeyEventTypes.size(), 2U);
    EXPECT_EQ(hotKeyEventTypes[0], (HotkeyEventType{kKeyb, 5}));
    EXPECT_EQ(hotKeyEventTypes[1], (HotkeyEventType{kKeyb, 6}));
    ASSERT_EQ(rawKeyEventTypes.size(), 2U);
    EXPECT_EQ(rawKeyEventTypes[0], (HotkeyEventType{kKeyb, 1}));
    EXPECT_EQ(rawKeyEventTypes[1], (HotkeyEventType{kKeyb, 3}));
}

TEST_F(GlobalShortcutsTest, whilePausedNoHandlerIsCalledButTheKeyIsConsumed)
{
    setShortcut(kShortcut, name);
    onKeyDown(name, logged("down"));
    onKeyUp(name, logged("up"));

    setPaused(true);
    EXPECT_TRUE(service->holds(kKey, kModifiers));
    EXPECT_TRUE(service->press(kKey, kModifiers));
    EXPECT_TRUE(service->release(kKey, kModifiers));
    EXPECT_TRUE(calls.isEmpty());

    setPaused(false);
    service->press(kKey, kModifiers);
    EXPECT_EQ(calls, QStringList{QStringLiteral("down")});
}

TEST_F(GlobalShortcutsTest, aPressWhilePausedIsAnnounced)
{
    setShortcut(kShortcut, name);
    QList<Shortcut> pressed;
    const QObject listener;
    QObject::connect(&notifications(), &Notifications::didPressWhilePaused, &listener,
                     [&pressed](const Shortcut &shortcut) { pressed += shortcut; });

    service->press(kKey, kModifiers);
    service->release(kKey, kModifiers);
    EXPECT_TRUE(pressed.isEmpty());

    setPaused(true);
    service->press(kKey, kModifiers);
    EXPECT_EQ(pressed, QList<Shortcut>{kShortcut});
    service->release(kKey, kModifiers);
    EXPECT_EQ(pressed.size(), 1);
}

TEST_F(GlobalShortcutsTest, lettingGoOfAKeyPressedWhilePausedCallsNoHandler)
{
    setShortcut(kShortcut, name);
    onKeyUp(name, logged("up"));
    setPaused(true);
    service->press(kKey, kModifiers);
    setPaused(false);

    service->release(kKey, kModifiers);
    EXPECT_TRUE(calls.isEmpty());

    service->press(kKey, kModifiers);
    service->release(kKey, kModifiers);
    EXPECT_EQ(calls, QStringList{QStringLiteral("up")});
}

TEST_F(GlobalShortcutsTest, aReleaseThatNeverCameDoesNotSilenceTheNextOne)
{
    setShortcut(kShortcut, name);
    onKeyUp(name, logged("up"));
    setPaused(true);
    service->press(kKey, kModifiers);
    setPaused(false);

    service->press(kKey, kModifiers);
    service->release(kKey, kModifiers);

    EXPECT_EQ(calls, QStringList{QStringLiteral("up")});
}

TEST_F(GlobalShortcutsTest, disablingGivesTheKeysBackAndKeepsTheEntries)
{
    setShortcut(kShortcut, name);

    setEnabled(false);

    EXPECT_TRUE(service->held.empty());
    ASSERT_EQ(CarbonKeyboardShortcuts::hotKeys().size(), 1U);
    EXPECT_EQ(CarbonKeyboardShortcuts::hotKeys().at(1)->carbonHotKey, std::nullopt);
    EXPECT_FALSE(CarbonKeyboardShortcuts::keyEventMonitor().isStarted());
}

TEST_F(GlobalShortcutsTest, enablingRegistersAnewWithTheOldId)
{
    setShortcut(kShortcut, name);
    onKeyDown(name, logged("down"));
    setEnabled(false);

    setEnabled(true);

    ASSERT_EQ(service->held.size(), 1U);
    EXPECT_EQ(service->held.begin()->second.id.id, 1U);
    EXPECT_TRUE(service->press(kKey, kModifiers));
    EXPECT_EQ(calls.size(), 1);
}

TEST_F(GlobalShortcutsTest, settingTheFlagToItsValueDoesNothing)
{
    setShortcut(kShortcut, name);
    service->unregisterHotkey(service->held.begin()->first);
    const int registrations = service->registrations;
    const int unregistrations = service->unregistrations;

    setEnabled(true);
    setMenuOpen(false);

    EXPECT_EQ(service->registrations, registrations);
    EXPECT_EQ(service->unregistrations, unregistrations);
}

TEST_F(GlobalShortcutsTest, theFlagsStartEnabledNotPausedWithoutMenu)
{
    EXPECT_TRUE(isEnabled());
    EXPECT_FALSE(isPaused());
    EXPECT_FALSE(isMenuOpen());
}

TEST_F(GlobalShortcutsTest, anOpenMenuGivesTheKeysBackAndStartsTheMonitor)
{
    setShortcut(kShortcut, name);

    setMenuOpen(true);

    EXPECT_TRUE(service->held.empty());
    EXPECT_EQ(CarbonKeyboardShortcuts::hotKeys().size(), 1U);
    EXPECT_TRUE(CarbonKeyboardShortcuts::keyEventMonitor().isStarted());
    const HotkeyEvent event = hotKeyEvent(5, 0x54574B53, 1);
    EXPECT_FALSE(service->handlers.deliver(event));
}

TEST_F(GlobalShortcutsTest, registrationAfterAMenuClosesKeepsTheOldId)
{
    setShortcut(kShortcut, name);
    setMenuOpen(true);

    setMenuOpen(false);

    ASSERT_EQ(service->held.size(), 1U);
    EXPECT_EQ(service->held.begin()->second.id.id, 1U);
    EXPECT_FALSE(CarbonKeyboardShortcuts::keyEventMonitor().isStarted());
    EXPECT_TRUE(service->press(kKey, kModifiers));
}

TEST_F(GlobalShortcutsTest, aHotKeyThatCannotComeBackIsDroppedUntilSetAgain)
{
    setShortcut(kShortcut, name);
    setMenuOpen(true);
    service->taken = {{kKey, kModifiers}};

    setMenuOpen(false);
    EXPECT_TRUE(CarbonKeyboardShortcuts::hotKeys().empty());
    service->taken.clear();
    setMenuOpen(true);
    setMenuOpen(false);
    EXPECT_TRUE(service->held.empty());

    setShortcut(kShortcut, name);
    EXPECT_TRUE(service->holds(kKey, kModifiers));
}

TEST_F(GlobalShortcutsTest, aMenuWhileDisabledStartsNoMonitor)
{
    setShortcut(kShortcut, name);
    setEnabled(false);

    setMenuOpen(true);
    EXPECT_FALSE(CarbonKeyboardShortcuts::keyEventMonitor().isStarted());
    setEnabled(true);
    EXPECT_TRUE(CarbonKeyboardShortcuts::keyEventMonitor().isStarted());
    EXPECT_TRUE(service->held.empty());
}

TEST_F(GlobalShortcutsTest, theUpdateDoesNothingBeforeTheHandlerIsInstalled)
{
    setEnabled(false);
    setMenuOpen(true);

    EXPECT_FALSE(CarbonKeyboardShortcuts::keyEventMonitor().isStarted());
}

TEST_F(GlobalShortcutsTest, tearingDownGivesEveryKeyBack)
{
    setShortcut(kShortcut, name);
    setShortcut(Shortcut(9, 768), Name(QStringLiteral("other")));

    tearDown();

    EXPECT_TRUE(service->held.empty());
}
