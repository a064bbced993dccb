// SPDX-License-Identifier: MIT
// What happens to the file while the program runs, and files that cannot be read or written.
#include "platform/defaults/Defaults.h"

#include "tests/logic/FullDisk.h"
#include "tests/logic/OrdinaryUser.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileSystemWatcher>
#include <QSignalSpy>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include <sys/stat.h>

using platform::Defaults;

namespace {

class DefaultsFileTest : public ::testing::Test
{
protected:
    void writeTo(const QString &path, const QByteArray &bytes) const
    {
        QFile out(path);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(out.write(bytes), bytes.size());
    }

    QByteArray readFile() const
    {
        QFile in(file);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly));
        return in.readAll();
    }

    /// A store that has read the usual file, and tells what changes.
    std::unique_ptr<Defaults> started()
    {
        writeTo(file, kBytes);
        auto defaults = std::make_unique<Defaults>(file);
        listen(*defaults);
        return defaults;
    }

    void listen(Defaults &defaults)
    {
        QObject::connect(&defaults, &Defaults::changed, &defaults,
                         [this](const QString &key) { changes += key; });
    }

    /// Does something to the file, and lets the store hear of it.
    void seen(const std::function<void()> &action) const
    {
        QFileSystemWatcher watcher({file, folder.path()});
        QSignalSpy fileChanges(&watcher, &QFileSystemWatcher::fileChanged);
        action();
        ASSERT_TRUE(fileChanges.count() > 0 || fileChanges.wait());
        QCoreApplication::processEvents();
    }

    const QByteArray kBytes = "# mine\n[General]\nstays=1\nunknown=a, \xFF\nfirst=one\n";
    const QString kFirst = QStringLiteral("first");
    const QString kStays = QStringLiteral("stays");
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Quillery.conf"));
    QStringList changes;
};

} // namespace

TEST_F(DefaultsFileTest, anEmptyFileAnswersWithTheFallbacksAndCanBeWritten)
{
    writeTo(file, "");
    Defaults defaults(file);
    EXPECT_FALSE(defaults.contains(kFirst));

    defaults.setNumber(kFirst, 3);

    EXPECT_EQ(readFile(), "[General]\nfirst=3\n");
}

TEST_F(DefaultsFileTest, aFileThatIsRenamedOverItIsReadAndAnnounced)
{
    const auto defaults = started();
    const QString other = folder.filePath(QStringLiteral("other"));
    writeTo(other, "[General]\nstays=1\nfirst=two\nmore=3\n");

    ASSERT_EQ(::rename(QFile::encodeName(other).constData(), QFile::encodeName(file).constData()),
              0);

    ASSERT_TRUE(QTest::qWaitFor([this] { return changes.size() >= 3; }));
    changes.sort();
    EXPECT_EQ(changes, (QStringList{kFirst, QStringLiteral("more"), QStringLiteral("unknown")}));
    EXPECT_EQ(defaults->string(kFirst), QStringLiteral("two"));
    EXPECT_FALSE(defaults->contains(QStringLiteral("unknown")));
}

TEST_F(DefaultsFileTest, aReplacementIsNoticedAgainAndAgain)
{
    const auto defaults = started();
    for (int i = 0; i < 5; ++i) {
        const QString other = folder.filePath(QStringLiteral("other"));
        writeTo(other, "[General]\nfirst=" + QByteArray::number(i) + '\n');
        ASSERT_EQ(
            ::rename(QFile::encodeName(other).constData(), QFile::encodeName(file).constData()), 0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return defaults->number(kFirst, -1) == i; })) << i;
    }
}

TEST_F(DefaultsFileTest, whenTheFileIsDeletedItsSettingsHoldAndTheNextWriteBringsThemBack)
{
    const auto defaults = started();

    seen([this] { ASSERT_TRUE(QFile::remove(file)); });
    EXPECT_EQ(defaults->string(kFirst), QStringLiteral("one"));
    EXPECT_EQ(changes, QStringList());
    defaults->setString(kFirst, QStringLiteral("two"));

    EXPECT_EQ(readFile(), QByteArray(kBytes).replace("first=one", "first=two"));
    EXPECT_EQ(changes, QStringList{kFirst});
}

TEST_F(DefaultsFileTest, whenTheFolderIsDeletedTheNextWriteBringsItBack)
{
    const QString inner = folder.filePath(QStringLiteral("a/b/Quillery.conf"));
    Defaults defaults(inner);
    defaults.setString(kFirst, QStringLiteral("one"));

    ASSERT_TRUE(QDir(folder.filePath(QStringLiteral("a"))).removeRecursively());
    defaults.setString(kStays, QStringLiteral("1"));

    const Defaults again(inner);
    EXPECT_EQ(again.string(kFirst), QStringLiteral("one"));
    EXPECT_EQ(again.string(kStays), QStringLiteral("1"));
}

TEST_F(DefaultsFileTest, aFileThatIsEmptiedSaysNothingUntilSomethingStandsInIt)
{
    const auto defaults = started();

    // Many editors empty the file before they write it.
    seen([this] { writeTo(file, ""); });
    EXPECT_EQ(defaults->string(kFirst), QStringLiteral("one"));
    writeTo(file, kBytes + "more=1\n");

    ASSERT_TRUE(QTest::qWaitFor([this] { return !changes.isEmpty(); }));
    EXPECT_EQ(changes, QStringList{QStringLiteral("more")});
}

TEST_F(DefaultsFileTest, aWriteKeepsWhatSomebodyElseWroteAMomentAgo)
{
    const auto defaults = started();
    writeTo(file, "[General]\nfirst=one\ntheirs=7\n");

    defaults->setNumber(kStays, 2);

    EXPECT_EQ(readFile(), "[General]\nfirst=one\ntheirs=7\nstays=2\n");
    ASSERT_TRUE(QTest::qWaitFor([this] { return changes.contains(QStringLiteral("theirs")); }));
}

TEST_F(DefaultsFileTest, aFolderInItsPlaceIsLeftAloneAndTheSettingsStayInMemory)
{
    ASSERT_TRUE(QDir().mkpath(file + QStringLiteral("/inside")));
    Defaults defaults(file);
    EXPECT_FALSE(defaults.contains(kFirst));

    defaults.setString(kFirst, QStringLiteral("one"));
    EXPECT_EQ(defaults.string(kFirst), QStringLiteral("one"));
    EXPECT_TRUE(QDir(file + QStringLiteral("/inside")).exists());

    ASSERT_TRUE(QDir(file).removeRecursively());
    defaults.setString(kStays, QStringLiteral("1"));
    EXPECT_EQ(Defaults(file).string(kFirst), QStringLiteral("one"));
}

TEST_F(DefaultsFileTest, aFolderThatTakesItsPlaceChangesNothing)
{
    const auto defaults = started();
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QDir().mkdir(file));

    defaults->setNumber(kStays, 2);
    EXPECT_EQ(defaults->string(kFirst), QStringLiteral("one"));

    ASSERT_TRUE(QDir().rmdir(file));
    defaults->setNumber(kStays, 3);
    EXPECT_EQ(readFile(), QByteArray(kBytes).replace("stays=1", "stays=3"));
}

TEST_F(DefaultsFileTest, aPipeInItsPlaceIsNotWaitedFor)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);

    Defaults defaults(file);
    defaults.setNumber(kFirst, 1);

    EXPECT_EQ(defaults.number(kFirst, 0), 1);
}

TEST_F(DefaultsFileTest, aReadOnlyFileIsLeftAloneUntilItCanBeWritten)
{
    const auto defaults = started();
    OrdinaryUser::give(folder.path());
    OrdinaryUser::give(file);
    const OrdinaryUser user;
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));

    defaults->setString(kFirst, QStringLiteral("two"));
    EXPECT_EQ(defaults->string(kFirst), QStringLiteral("two"));
    EXPECT_TRUE(readFile() == kBytes) << readFile().constData();
    EXPECT_EQ(changes, QStringList{kFirst});

    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    defaults->setNumber(kStays, 2);
    EXPECT_EQ(readFile(),
              QByteArray(kBytes).replace("first=one", "first=two").replace("stays=1", "stays=2"));
}

TEST_F(DefaultsFileTest, whatCouldNotBeWrittenOutlivesAnEditByHand)
{
    const auto defaults = started();
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QDir().mkdir(file));
    defaults->setString(kFirst, QStringLiteral("mine"));
    ASSERT_TRUE(QDir().rmdir(file));

    writeTo(file, "[General]\nfirst=theirs\nstays=5\n");

    ASSERT_TRUE(QTest::qWaitFor([&] { return defaults->number(kStays, 0) == 5; }));
    EXPECT_EQ(defaults->string(kFirst), QStringLiteral("mine"));
    defaults->setNumber(kStays, 6);
    EXPECT_EQ(readFile(), "[General]\nfirst=mine\nstays=6\n");
}

TEST_F(DefaultsFileTest, aFileThatCannotBeReadIsNotReplaced)
{
    writeTo(file, kBytes);
    OrdinaryUser::give(folder.path());
    OrdinaryUser::give(file);
    const OrdinaryUser user;
    ASSERT_TRUE(QFile::setPermissions(file, QFile::WriteOwner));

    Defaults defaults(file);
    EXPECT_FALSE(defaults.contains(kFirst));
    defaults.setNumber(kStays, 2);

    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_TRUE(readFile() == kBytes) << readFile().constData();
    EXPECT_EQ(defaults.number(kStays, 0), 2);
}

TEST_F(DefaultsFileTest, aFullDiskLeavesTheFileAsItWas)
{
    const auto defaults = started();
    {
        const FullDisk full;
        defaults->setString(kFirst, QStringLiteral("two"));
        EXPECT_EQ(defaults->string(kFirst), QStringLiteral("two"));
    }
    EXPECT_TRUE(readFile() == kBytes) << readFile().constData();

    defaults->setNumber(kStays, 2);
    EXPECT_TRUE(readFile().contains("first=two"));
}
