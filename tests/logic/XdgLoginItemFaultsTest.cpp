// SPDX-License-Identifier: MIT
// Folders, files and disks that stand in the way of an entry.
#include "tests/logic/FullDisk.h"
#include "tests/logic/LoginItemFixture.h"
#include "tests/logic/OrdinaryUser.h"

#include <QScopeGuard>

#include <sys/stat.h>

using platform::Error;
using platform::XdgLoginItem;

namespace {

class XdgLoginItemFaultsTest : public LoginItemFixture
{
protected:
    /// Checks that an operation failed on `path`, for the reason that the system gave.
    static void expectIoError(const platform::Result<void> &result, const QString &path,
                              const QString &reason)
    {
        ASSERT_FALSE(result.has_value());
        EXPECT_EQ(result.error().kind, Error::Kind::Io);
        EXPECT_TRUE(result.error().text.contains(path)) << result.error().text.toStdString();
        EXPECT_TRUE(result.error().text.contains(reason)) << result.error().text.toStdString();
    }

    /// The folders are those of the user who runs the tests; an ordinary user may look at them.
    void letOthersIn() const
    {
        EXPECT_EQ(::chmod(QFile::encodeName(root.path()).constData(), 0755), 0);
    }

    /// Lets nobody change what is in `path` until the answer is destroyed.
    static auto readOnly(const QString &path)
    {
        const QByteArray name = QFile::encodeName(path);
        EXPECT_EQ(::chmod(name.constData(), 0555), 0);
        return qScopeGuard([name] { EXPECT_EQ(::chmod(name.constData(), 0755), 0); });
    }
};

} // namespace

TEST_F(XdgLoginItemFaultsTest, aFullDiskLeavesTheOldEntry)
{
    write(entry, hiddenEntry);
    XdgLoginItem item(program, folders);

    platform::Result<void> result;
    {
        const FullDisk full;
        result = item.registerItem();
    }

    expectIoError(result, entry, QString());
    EXPECT_EQ(read(entry), hiddenEntry);
    EXPECT_EQ(filesInFolder(), QStringList{QFileInfo(entry).fileName()});
}

TEST_F(XdgLoginItemFaultsTest, aFolderThatMayNotBeWrittenIsAnError)
{
    write(entry, goodEntry);
    letOthersIn();
    const auto restore = readOnly(folder);
    const OrdinaryUser user;
    XdgLoginItem item(program, folders);

    expectIoError(item.unregisterItem(), entry, QStringLiteral("Permission denied"));
    EXPECT_TRUE(item.isEnabled());
    expectIoError(item.registerItem(), entry, QString());
    EXPECT_EQ(read(entry), goodEntry);
}

TEST_F(XdgLoginItemFaultsTest, aFolderThatCannotBeMadeIsAnError)
{
    letOthersIn();
    const auto restore = readOnly(config);
    const OrdinaryUser user;
    XdgLoginItem item(program, folders);

    expectIoError(item.registerItem(), folder, QStringLiteral("Permission denied"));
    EXPECT_FALSE(item.isEnabled());
}

TEST_F(XdgLoginItemFaultsTest, aFileInTheFoldersPlaceIsAnError)
{
    write(folder, "no folder");
    XdgLoginItem item(program, folders);

    expectIoError(item.registerItem(), folder, QStringLiteral("File exists"));
    EXPECT_FALSE(item.isEnabled());
    EXPECT_EQ(read(folder), "no folder");
}

TEST_F(XdgLoginItemFaultsTest, aFolderInTheEntrysPlaceIsAnErrorBothWays)
{
    QDir().mkpath(entry + QStringLiteral("/inside"));
    XdgLoginItem item(program, folders);

    EXPECT_FALSE(item.isEnabled());
    expectIoError(item.registerItem(), entry, QString());
    expectIoError(item.unregisterItem(), entry, QString());
    EXPECT_TRUE(QFileInfo::exists(entry + QStringLiteral("/inside")));
}

TEST_F(XdgLoginItemFaultsTest, anEntryThatMayNotBeReadIsOff)
{
    write(entry, goodEntry);
    ASSERT_EQ(::chmod(QFile::encodeName(entry).constData(), 0), 0);
    letOthersIn();
    const OrdinaryUser user;

    EXPECT_FALSE(makeItem().isEnabled());
}

TEST_F(XdgLoginItemFaultsTest, aPipeInTheEntrysPlaceKeepsNobodyWaiting)
{
    QDir().mkpath(folder);
    ASSERT_EQ(::mkfifo(QFile::encodeName(entry).constData(), 0600), 0);

    EXPECT_FALSE(makeItem().isEnabled());
}

TEST_F(XdgLoginItemFaultsTest, aHugeFileIsNoEntry)
{
    write(entry, goodEntry + "X=" + QByteArray(100'000, 'x') + "\n");

    EXPECT_FALSE(makeItem().isEnabled());
}

TEST_F(XdgLoginItemFaultsTest, aFolderBehindALinkThatLeadsNowhereIsAnError)
{
    ASSERT_TRUE(QFile::link(root.filePath(QStringLiteral("nowhere")), folder));
    XdgLoginItem item(program, folders);

    expectIoError(item.registerItem(), folder, QStringLiteral("File exists"));
    EXPECT_TRUE(QFileInfo(folder).isSymLink());
}

TEST_F(XdgLoginItemFaultsTest, aProgramThatIsGoneIsNotRegistered)
{
    const QString gone = root.filePath(QStringLiteral("gone"));
    XdgLoginItem item(gone, folders);

    const platform::Result<void> result = item.registerItem();

    ASSERT_FALSE(result.has_value());
    EXPECT_EQ(result.error().kind, Error::Kind::NotFound);
    EXPECT_TRUE(result.error().text.contains(gone));
    EXPECT_FALSE(QFileInfo::exists(entry));
}
