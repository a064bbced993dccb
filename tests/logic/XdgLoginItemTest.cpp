// SPDX-License-Identifier: MIT
#include "tests/logic/LoginItemFixture.h"

#include "platform/login/NullLoginItem.h"

#include <QScopeGuard>

#include <algorithm>
#include <array>

#include <sys/stat.h>

using platform::Error;
using platform::XdgLoginItem;

namespace {

using XdgLoginItemTest = LoginItemFixture;

} // namespace

TEST_F(XdgLoginItemTest, withoutAnEntryItIsOff)
{
    EXPECT_FALSE(makeItem().isEnabled());
    EXPECT_FALSE(QFileInfo::exists(folder));
}

TEST_F(XdgLoginItemTest, registeringWritesAnEntryAndUnregisteringTakesItAway)
{
    XdgLoginItem item(program, folders);

    ASSERT_TRUE(item.registerItem().has_value());
    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(read(entry).contains("\nExec=/bin/sh\n"));
    EXPECT_EQ(filesInFolder(), QStringList{QFileInfo(entry).fileName()});

    ASSERT_TRUE(item.unregisterItem().has_value());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(filesInFolder().isEmpty());
}

TEST_F(XdgLoginItemTest, theEntryIsAllThatIsRemembered)
{
    XdgLoginItem first(program, folders);
    ASSERT_TRUE(first.registerItem().has_value());
    XdgLoginItem second(program, folders);
    EXPECT_TRUE(second.isEnabled());

    ASSERT_TRUE(second.unregisterItem().has_value());

    EXPECT_FALSE(first.isEnabled());
}

TEST_F(XdgLoginItemTest, unregisteringWhatIsNotThereSucceeds)
{
    XdgLoginItem item(program, folders);

    EXPECT_TRUE(item.unregisterItem().has_value());
    EXPECT_FALSE(QFileInfo::exists(folder));
}

TEST_F(XdgLoginItemTest, missingFoldersAreMadeForTheUserAlone)
{
    QDir(config).removeRecursively();
    XdgLoginItem item(program, folders);

    ASSERT_TRUE(item.registerItem().has_value());

    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(folder).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);
}

TEST_F(XdgLoginItemTest, theEntryIsAnOrdinaryFileThatOnlyTheUserWrites)
{
    const mode_t before = ::umask(022);
    const auto restore = qScopeGuard([before] { ::umask(before); });
    XdgLoginItem item(program, folders);

    ASSERT_TRUE(item.registerItem().has_value());

    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(entry).constData(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0644U);
}

TEST_F(XdgLoginItemTest, registeringReplacesAnEntryThatIsSwitchedOff)
{
    write(entry, hiddenEntry);
    XdgLoginItem item(program, folders);
    ASSERT_FALSE(item.isEnabled());

    ASSERT_TRUE(item.registerItem().has_value());

    EXPECT_TRUE(item.isEnabled());
    EXPECT_FALSE(read(entry).contains("Hidden"));
}

TEST_F(XdgLoginItemTest, aReaderOfTheOldEntryNeverSeesAPartOfTheNewOne)
{
    write(entry, hiddenEntry);
    QFile old(entry);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));

    XdgLoginItem item(program, folders);
    ASSERT_TRUE(item.registerItem().has_value());

    // The old file is whole: the new one took its place.
    EXPECT_EQ(old.readAll(), hiddenEntry);
    EXPECT_NE(read(entry), hiddenEntry);
}

TEST_F(XdgLoginItemTest, aFolderBehindALinkWorks)
{
    const QString elsewhere = root.filePath(QStringLiteral("elsewhere"));
    QDir().mkpath(elsewhere);
    ASSERT_TRUE(QFile::link(elsewhere, folder));
    XdgLoginItem item(program, folders);

    ASSERT_TRUE(item.registerItem().has_value());

    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(QFileInfo(folder).isSymLink());
    EXPECT_TRUE(QFileInfo::exists(elsewhere + QStringLiteral("/com.tarnwick.Quillery.desktop")));
    ASSERT_TRUE(item.unregisterItem().has_value());
    EXPECT_FALSE(item.isEnabled());
}

TEST_F(XdgLoginItemTest, aLinkInTheEntrysPlaceIsReplacedAndNotFollowed)
{
    const QString target = root.filePath(QStringLiteral("target"));
    for (const QString &end :
         {QStringLiteral("/dev/null"), target, root.filePath(QStringLiteral("gone"))}) {
        QFile::remove(entry);
        write(target, hiddenEntry);
        QDir().mkpath(folder);
        ASSERT_TRUE(QFile::link(end, entry));
        XdgLoginItem item(program, folders);
        EXPECT_FALSE(item.isEnabled());

        ASSERT_TRUE(item.registerItem().has_value());

        EXPECT_TRUE(item.isEnabled());
        EXPECT_FALSE(QFileInfo(entry).isSymLink());
        EXPECT_EQ(read(target), hiddenEntry);
    }
    EXPECT_FALSE(QFileInfo::exists(root.filePath(QStringLiteral("gone"))));
}

TEST_F(XdgLoginItemTest, unregisteringTakesALinkAwayAndLeavesWhereItLeads)
{
    const QString target = root.filePath(QStringLiteral("target"));
    write(target, goodEntry);
    QDir().mkpath(folder);
    ASSERT_TRUE(QFile::link(target, entry));
    XdgLoginItem item(program, folders);
    ASSERT_TRUE(item.isEnabled());

    ASSERT_TRUE(item.unregisterItem().has_value());

    EXPECT_FALSE(QFileInfo(entry).isSymLink());
    EXPECT_EQ(read(target), goodEntry);
}

TEST_F(XdgLoginItemTest, anEntryOfTheWholeSystemCountsWhileTheUserHasNone)
{
    write(systemEntry, goodEntry);
    EXPECT_TRUE(makeItem().isEnabled());

    write(entry, hiddenEntry);
    EXPECT_FALSE(makeItem().isEnabled());
}

TEST_F(XdgLoginItemTest, anEntryOfTheWholeSystemIsHiddenByOneOfTheUser)
{
    write(systemEntry, goodEntry);
    XdgLoginItem item(program, folders);

    ASSERT_TRUE(item.unregisterItem().has_value());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_EQ(read(systemEntry), goodEntry);
    // Again, now with the hiding entry in place.
    ASSERT_TRUE(item.unregisterItem().has_value());
    EXPECT_FALSE(item.isEnabled());

    ASSERT_TRUE(item.registerItem().has_value());
    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(read(entry).contains("Exec=/bin/sh"));
}

TEST_F(XdgLoginItemTest, anEntryForAnotherDesktopIsOffHere)
{
    write(entry, goodEntry + "OnlyShowIn=GNOME;\n");
    const auto restore = qScopeGuard([] { qunsetenv("XDG_CURRENT_DESKTOP"); });

    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_TRUE(makeItem().isEnabled());
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    EXPECT_FALSE(makeItem().isEnabled());
}

TEST(StandardLoginItem, theUsersOwnFolderComesFirst)
{
    const std::array variables{"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"};
    std::array<QByteArray, 2> before;
    std::transform(variables.begin(), variables.end(), before.begin(),
                   [](const char *name) { return qgetenv(name); });
    const auto restore = qScopeGuard([&] {
        for (size_t i = 0; i < variables.size(); ++i)
            before.at(i).isNull() ? qunsetenv(variables.at(i))
                                  : qputenv(variables.at(i), before.at(i));
    });
    qputenv("XDG_CONFIG_HOME", "/home/someone/settings");
    qputenv("XDG_CONFIG_DIRS", "/etc/xdg/special:/etc/xdg");

    EXPECT_EQ(XdgLoginItem::standardFolders(),
              (QStringList{QStringLiteral("/home/someone/settings/autostart"),
                           QStringLiteral("/etc/xdg/special/autostart"),
                           QStringLiteral("/etc/xdg/autostart")}));
}

TEST(NullLoginItem, isOffAndSaysWhyItCannotBeChanged)
{
    const QString reason = QStringLiteral("No list here.");
    platform::NullLoginItem item(reason);

    EXPECT_FALSE(item.availability().isAvailable);
    EXPECT_EQ(item.availability().reason, reason);
    EXPECT_EQ(item.registerItem().error().kind, Error::Kind::Unavailable);
    EXPECT_EQ(item.unregisterItem().error().text, reason);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_FALSE(item.hasStartedThisProcess());
}
