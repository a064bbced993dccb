// SPDX-License-Identifier: MIT
#include "tests/logic/KeyboardShortcutsTest.h"

#include <QFile>
#include <QStringList>

#include <limits>

using namespace KeyboardShortcuts;

namespace {

const QString kPlain = QStringLiteral("plain");
const Shortcut kShortcut(40, cmdKey | optionKey);

class ShortcutNamesTest : public KeyboardShortcutsTest
{
protected:
    ShortcutNamesTest()
    {
        QObject::connect(&notifications(), &Notifications::shortcutByNameDidChange, &listener,
                         [this](const Name &name) { changes += name.rawValue(); });
    }

    QObject listener;
    QStringList changes; ///< the names announced
};

} // namespace

TEST_F(ShortcutNamesTest, firstLaunchStoresBothDefaults)
{
    const Name context = Name::contextHotKey();
    const Name add = Name::addHotKey();

    EXPECT_EQ(context.rawValue(), QStringLiteral("contextHotKey"));
    EXPECT_EQ(add.rawValue(), QStringLiteral("addHotKey"));
    EXPECT_EQ(Shortcut::fromJson(stored("contextHotKey").value()), Shortcut(9, 768));
    EXPECT_EQ(Shortcut::fromJson(stored("addHotKey").value()), Shortcut(8, 768));
    EXPECT_EQ(getShortcut(context), Shortcut(9, 768));
    EXPECT_EQ(getShortcut(add), Shortcut(8, 768));
}

TEST_F(ShortcutNamesTest, aDefaultIsRegisteredAndAnnounced)
{
    const Name name = Name::contextHotKey();

    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.last(), name.rawValue());
    EXPECT_TRUE(service->holds(9, 768));
    EXPECT_TRUE(registeredShortcuts().contains(Shortcut(9, 768)));
}

TEST_F(ShortcutNamesTest, aNameIsCreatedOnce)
{
    const Name *first = &Name::contextHotKey();
    const Name *second = &Name::contextHotKey();

    EXPECT_EQ(first, second);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ShortcutNamesTest, aListenerMayAskForTheNameThatIsBeingCreated)
{
    QObject context;
    QString seen;
    QObject::connect(&notifications(), &Notifications::shortcutByNameDidChange, &context,
                     [&seen](const Name &) { seen = Name::contextHotKey().rawValue(); });

    Name::contextHotKey();

    EXPECT_EQ(seen, QStringLiteral("contextHotKey"));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ShortcutNamesTest, theNotificationHasItsName)
{
    EXPECT_STREQ(KeyboardShortcuts_shortcutByNameDidChange,
                 "KeyboardShortcuts_shortcutByNameDidChange");
}

TEST_F(ShortcutNamesTest, theDefaultsShowAsTheirChords)
{
    EXPECT_EQ(getShortcut(Name::contextHotKey())->description(), QStringLiteral("⇧⌘V"));
    EXPECT_EQ(getShortcut(Name::addHotKey())->description(), QStringLiteral("⇧⌘C"));
}

TEST_F(ShortcutNamesTest, aKeyWithoutLayoutTextShowsModifiersAndReplacementCharacter)
{
    EXPECT_EQ(Shortcut(200, cmdKey | shiftKey).description(), QStringLiteral("⇧⌘\uFFFD"));
}

TEST_F(ShortcutNamesTest, namesAreEqualByTheirTextOnly)
{
    const Name plain(kPlain);
    const Name withDefault(kPlain, kShortcut);

    EXPECT_EQ(plain, withDefault);
    EXPECT_EQ(qHash(plain), qHash(withDefault));
    EXPECT_NE(plain, Name(QStringLiteral("other")));
}

TEST_F(ShortcutNamesTest, aNameWithoutDefaultStoresNothing)
{
    const Name name(kPlain);

    EXPECT_EQ(stored("plain"), std::nullopt);
    EXPECT_EQ(getShortcut(name), std::nullopt);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(ShortcutNamesTest, aStoredShortcutIsKeptAtTheNextStart)
{
    setShortcut(kShortcut, Name::contextHotKey());

    start();

    EXPECT_EQ(getShortcut(Name::contextHotKey()), kShortcut);
}

TEST_F(ShortcutNamesTest, aClearedDefaultIsFalseAndDoesNotComeBack)
{
    setShortcut(std::nullopt, Name::contextHotKey());
    EXPECT_EQ(stored("contextHotKey"), QStringLiteral("false"));
    EXPECT_EQ(getShortcut(Name::contextHotKey()), std::nullopt);

    start();

    EXPECT_EQ(getShortcut(Name::contextHotKey()), std::nullopt);
    EXPECT_EQ(stored("contextHotKey"), QStringLiteral("false"));
    EXPECT_FALSE(service->holds(9, 768));
}

TEST_F(ShortcutNamesTest, clearingANameWithoutDefaultRemovesItsKey)
{
    const Name name(kPlain);
    setShortcut(kShortcut, name);
    changes.clear();

    setShortcut(std::nullopt, name);

    EXPECT_FALSE(hasStoredObject(name));
    EXPECT_FALSE(service->holds(40, 0x900));
    EXPECT_FALSE(registeredShortcuts().contains(kShortcut));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ShortcutNamesTest, clearingANameWithoutStoredShortcutPostsNothing)
{
    const Name name(kPlain);
    setShortcut(std::nullopt, Name::contextHotKey());
    changes.clear();

    setShortcut(std::nullopt, name);
    setShortcut(std::nullopt, Name::contextHotKey());

    EXPECT_EQ(changes.size(), 0);
    EXPECT_EQ(stored("contextHotKey"), QStringLiteral("false"));
}

TEST_F(ShortcutNamesTest, settingTheStoredShortcutAgainRegistersAnewAndIsAnnounced)
{
    const Name name(kPlain);
    setShortcut(kShortcut, name);
    const int registrations = service->registrations;
    const int unregistrations = service->unregistrations;
    changes.clear();

    setShortcut(kShortcut, name);

    EXPECT_EQ(service->registrations, registrations + 1);
    EXPECT_EQ(service->unregistrations, unregistrations + 1);
    EXPECT_TRUE(service->holds(40, 0x900));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.last(), kPlain);
}

TEST_F(ShortcutNamesTest, aNewShortcutReplacesTheOldOne)
{
    const Name &name = Name::contextHotKey();

    setShortcut(kShortcut, name);

    EXPECT_FALSE(service->holds(9, 768));
    EXPECT_TRUE(service->holds(40, 0x900));
    EXPECT_EQ(registeredShortcuts(), QSet<Shortcut>{kShortcut});
    EXPECT_EQ(getShortcut(name), kShortcut);
}

TEST_F(ShortcutNamesTest, theStoreHoldsTheNewShortcutWhenTheChangeIsAnnounced)
{
    const Name name(kPlain);
    QObject context;
    std::optional<Shortcut> seen;
    QObject::connect(&notifications(), &Notifications::shortcutByNameDidChange, &context,
                     [&seen](const Name &changed) { seen = getShortcut(changed); });

    setShortcut(kShortcut, name);

    EXPECT_EQ(seen, kShortcut);
}

TEST_F(ShortcutNamesTest, aShortcutOfTwoNamesIsRegisteredOnce)
{
    const Name first(kPlain);
    const Name second(QStringLiteral("second"));

    setShortcut(kShortcut, first);
    setShortcut(kShortcut, second);

    EXPECT_EQ(service->held.size(), 1U);
}

TEST_F(ShortcutNamesTest, resettingBringsTheDefaultBack)
{
    const Name &name = Name::contextHotKey();
    setShortcut(std::nullopt, name);
    changes.clear();

    reset({name});

    EXPECT_EQ(getShortcut(name), Shortcut(9, 768));
    EXPECT_TRUE(service->holds(9, 768));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ShortcutNamesTest, resettingANameWithoutDefaultClearsIt)
{
    const Name name(kPlain);
    const Name &withDefault = Name::addHotKey();
    setShortcut(kShortcut, name);
    changes.clear();

    reset({name, withDefault});

    EXPECT_FALSE(hasStoredObject(name));
    EXPECT_FALSE(registeredShortcuts().contains(kShortcut));
    EXPECT_FALSE(service->holds(40, 0x900));
    EXPECT_EQ(changes.first(), kPlain);
    EXPECT_EQ(changes.last(), QStringLiteral("addHotKey"));
}

TEST_F(ShortcutNamesTest, resettingANameWithNeitherDefaultNorShortcutIsAnnouncedAndChangesNothing)
{
    const Name name(kPlain);
    setShortcut(kShortcut, Name::addHotKey());
    const int unregistrations = service->unregistrations;
    changes.clear();

    reset({name});

    EXPECT_EQ(changes.join(u' '), kPlain);
    EXPECT_FALSE(hasStoredObject(name));
    EXPECT_EQ(service->unregistrations, unregistrations);
    EXPECT_EQ(registeredShortcuts(), QSet<Shortcut>{kShortcut});
}

TEST_F(ShortcutNamesTest, resettingANameWithoutDefaultRemovesWhatIsNoShortcutToo)
{
    const Name name(kPlain);
    storeText("plain", QStringLiteral("not JSON"));

    reset({name});

    EXPECT_FALSE(hasStoredObject(name));
    EXPECT_EQ(changes.join(u' '), kPlain);
}

TEST_F(ShortcutNamesTest, anythingElseUnderTheKeyReadsAsNoneAndIsLeftAlone)
{
    for (const char *text : {"not JSON", "true", "17", "[]", "{\"carbonKeyCode\":\"9\"}"}) {
        storeText("contextHotKey", QString::fromLatin1(text));

        start();

        EXPECT_EQ(getShortcut(Name::contextHotKey()), std::nullopt) << text;
        EXPECT_EQ(stored("contextHotKey"), QString::fromLatin1(text));
    }
}

TEST_F(ShortcutNamesTest, anEntryOfAnotherTypeReadsAsNoneAndIsLeftAlone)
{
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write("[General]\nKeyboardShortcuts_contextHotKey=1, 2, 3\n");
    out.close();

    start();

    EXPECT_EQ(getShortcut(Name::contextHotKey()), std::nullopt);
    EXPECT_TRUE(hasStoredObject(Name::contextHotKey()));
    EXPECT_EQ(service->registrations, 0);
}

TEST_F(ShortcutNamesTest, numbersThatNoHotKeyCanHaveAreReadableAndSilentlyNotRegistered)
{
    for (const qint64 code :
         {qint64(-1), qint64(0x10000), qint64(1) << 40, std::numeric_limits<qint64>::min(),
          std::numeric_limits<qint64>::max()}) {
        const Shortcut wild(code, cmdKey);
        storeText("contextHotKey", wild.toJson());
        start();
        const Name &name = Name::contextHotKey();

        onKeyDown(name, [] {});

        EXPECT_EQ(getShortcut(name), wild);
        EXPECT_EQ(wild.description(), QStringLiteral("⌘\uFFFD"));
        EXPECT_EQ(service->registrations, 0) << code;
        EXPECT_TRUE(CarbonKeyboardShortcuts::hotKeys().empty());
        EXPECT_TRUE(registeredShortcuts().contains(wild));
    }
}

TEST_F(ShortcutNamesTest, modifiersThatDoNotFitAreSilentlyNotRegistered)
{
    const Name name(kPlain);
    for (const qint64 modifiers : {qint64(-1), qint64(1) << 32}) {
        setShortcut(Shortcut(9, modifiers), name);

        EXPECT_EQ(getShortcut(name), Shortcut(9, modifiers));
        EXPECT_EQ(service->registrations, 0);
    }
}
