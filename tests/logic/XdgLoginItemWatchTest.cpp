// SPDX-License-Identifier: MIT
// What others do to the entry shows, without anybody asking.
#include "tests/logic/LoginItemFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using platform::LoginItem;
using platform::XdgLoginItem;

namespace {

constexpr int kDeadline = 5000; // milliseconds

class XdgLoginItemWatchTest : public LoginItemFixture
{
protected:
    void start()
    {
        item = std::make_unique<XdgLoginItem>(program, folders);
        spy = std::make_unique<QSignalSpy>(item.get(), &LoginItem::changed);
    }

    /// Waits until the item has told that it is on or off.
    void expectTold(bool isEnabled)
    {
        ASSERT_TRUE(spy->count() > 0 || spy->wait(kDeadline));
        EXPECT_EQ(item->isEnabled(), isEnabled);
        spy->clear();
    }

    std::unique_ptr<XdgLoginItem> item;
    std::unique_ptr<QSignalSpy> spy;
};

} // namespace

TEST_F(XdgLoginItemWatchTest, ownChangesAreToldAtOnceAndOnce)
{
    start();

    ASSERT_TRUE(item->registerItem().has_value());
    EXPECT_EQ(spy->count(), 1);
    ASSERT_TRUE(item->registerItem().has_value());
    EXPECT_EQ(spy->count(), 1);
    ASSERT_TRUE(item->unregisterItem().has_value());
    EXPECT_EQ(spy->count(), 2);
    ASSERT_TRUE(item->unregisterItem().has_value());
    EXPECT_EQ(spy->count(), 2);

    // The watch has seen all that, too. Its news arrive before those of a later change.
    write(entry, goodEntry);
    ASSERT_TRUE(spy->wait(kDeadline));
    EXPECT_EQ(spy->count(), 3);
}

TEST_F(XdgLoginItemWatchTest, aFolderAndAnEntryThatComeLaterAreSeen)
{
    start();

    write(entry, goodEntry);

    expectTold(true);
}

TEST_F(XdgLoginItemWatchTest, evenTheFolderOfAllSettingsMayComeLater)
{
    QDir(config).removeRecursively();
    start();

    write(entry, goodEntry);

    expectTold(true);
}

TEST_F(XdgLoginItemWatchTest, anEntryThatIsRemovedOrReplacedIsSeenEveryTime)
{
    start();
    ASSERT_TRUE(item->registerItem().has_value());
    spy->clear();

    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(QFile::remove(entry));
        expectTold(false);

        const QString draft = config + QStringLiteral("/draft");
        write(draft, goodEntry);
        ASSERT_TRUE(QFile::rename(draft, entry));
        expectTold(true);
    }
}

TEST_F(XdgLoginItemWatchTest, anEntryThatIsWrittenInPlaceIsSeenEveryTime)
{
    write(entry, goodEntry);
    start();

    for (int round = 0; round < 3; ++round) {
        write(entry, hiddenEntry);
        expectTold(false);
        write(entry, goodEntry);
        expectTold(true);
    }
}

TEST_F(XdgLoginItemWatchTest, aFolderThatIsMovedAwayAndBackIsSeen)
{
    const QString away = config + QStringLiteral("/put-away");
    write(entry, goodEntry);
    start();

    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(QDir().rename(folder, away));
        expectTold(false);
        ASSERT_TRUE(QDir().rename(away, folder));
        expectTold(true);
    }
}

TEST_F(XdgLoginItemWatchTest, theWatchIsOnTheFolderThatTookThePlaceOfAnother)
{
    write(entry, goodEntry);
    start();
    ASSERT_TRUE(QDir().rename(folder, config + QStringLiteral("/put-away")));
    expectTold(false);
    write(entry, goodEntry);
    expectTold(true);

    write(entry, hiddenEntry);

    expectTold(false);
}

TEST_F(XdgLoginItemWatchTest, aFolderThatIsRemovedAndMadeAgainIsSeen)
{
    write(entry, goodEntry);
    start();

    ASSERT_TRUE(QDir(folder).removeRecursively());
    expectTold(false);
    write(entry, goodEntry);
    expectTold(true);
}

TEST_F(XdgLoginItemWatchTest, aChangeBehindALinkedFolderIsSeen)
{
    const QString elsewhere = root.filePath(QStringLiteral("elsewhere"));
    QDir().mkpath(elsewhere);
    ASSERT_TRUE(QFile::link(elsewhere, folder));
    start();

    write(elsewhere + QStringLiteral("/com.tarnwick.Quillery.desktop"), goodEntry);

    expectTold(true);
}

TEST_F(XdgLoginItemWatchTest, anEntryOfTheWholeSystemIsSeen)
{
    QDir().mkpath(systemFolder);
    start();

    write(systemEntry, goodEntry);

    expectTold(true);
}

TEST_F(XdgLoginItemWatchTest, changesThatMakeNoDifferenceAreNotTold)
{
    write(entry, goodEntry);
    start();

    write(folder + QStringLiteral("/other.desktop"), goodEntry);
    write(entry, goodEntry + "Comment=Another text\n");
    // The news arrive in order: after those of a change that counts, the others are through.
    ASSERT_TRUE(QFile::remove(entry));
    ASSERT_TRUE(spy->wait(kDeadline));

    EXPECT_EQ(spy->count(), 1);
}
