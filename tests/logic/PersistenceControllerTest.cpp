// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistenceController.h"

#include "tests/logic/StoreTestSupport.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

class PersistenceControllerTest : public StoreTest
{
protected:
    void SetUp() override { qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path())); }
    void TearDown() override
    {
        if (m_dataHome.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", m_dataHome);
    }

    static unsigned modeOf(const QString &path)
    {
        struct stat status = {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0) << path.toStdString();
        return status.st_mode & 0777;
    }

private:
    QByteArray m_dataHome = qgetenv("XDG_DATA_HOME");
};

} // namespace

TEST_F(PersistenceControllerTest, withoutTheGroupsFolderTheStoresAreInTheProgramsOwn)
{
    EXPECT_EQ(PersistenceController::standardDataFolder(), folderPath());
}

TEST_F(PersistenceControllerTest, theGroupsFolderIsUsedIfItExists)
{
    const QString group = folder.filePath(QStringLiteral("group.QuilleryA.data"));
    ASSERT_TRUE(QDir().mkdir(group));
    EXPECT_EQ(PersistenceController::standardDataFolder(), group);

    const PersistenceController stores;

    EXPECT_TRUE(QFileInfo::exists(group + QStringLiteral("/clips.sqlite")));
    EXPECT_TRUE(QFileInfo::exists(group + QStringLiteral("/snippets.sqlite")));
}

TEST_F(PersistenceControllerTest, nobodyElseMayReadTheFolderAndTheFiles)
{
    const mode_t before = ::umask(0);
    open();
    view().insert<Clip>();
    ASSERT_TRUE(view().save());
    ::umask(before);

    EXPECT_EQ(modeOf(folderPath()), 0700U);
    for (const char *suffix : {"", "-wal", "-shm"}) {
        EXPECT_EQ(modeOf(clipsFile() + QLatin1String(suffix)), 0600U);
        EXPECT_EQ(modeOf(snippetsFile() + QLatin1String(suffix)), 0600U);
    }
}

TEST_F(PersistenceControllerTest, filesThatOthersCouldReadAreMadePrivate)
{
    open();
    close();
    ::chmod(QFile::encodeName(clipsFile()).constData(), 0644);

    open();

    EXPECT_EQ(modeOf(clipsFile()), 0600U);
    EXPECT_EQ(modeOf(clipsFile() + QStringLiteral("-wal")), 0600U);
}

TEST_F(PersistenceControllerTest, theFoldersAboveAreMadeToo)
{
    controller = std::make_unique<PersistenceController>(folder.filePath(QStringLiteral("a/b/c")));

    EXPECT_TRUE(container().isLoaded(StoreKind::Clips));
    EXPECT_TRUE(container().isLoaded(StoreKind::Snippets));
}

TEST_F(PersistenceControllerTest, theClipsStandBeforeTheSnippetsAndEachHasItsCloudContainer)
{
    open();

    const auto &described = container().persistentStoreDescriptions();

    ASSERT_EQ(described.size(), 2U);
    EXPECT_EQ(described[0].kind, StoreKind::Clips);
    EXPECT_EQ(described[0].file, clipsFile());
    EXPECT_EQ(described[0].cloudContainer, QStringLiteral("iCloud.Quillery.Clips"));
    EXPECT_EQ(described[1].kind, StoreKind::Snippets);
    EXPECT_EQ(described[1].file, snippetsFile());
    EXPECT_EQ(described[1].cloudContainer, QStringLiteral("iCloud.Quillery"));
}

TEST_F(PersistenceControllerTest, bothStoresCarryTheirVersionAndOnlyTheirOwnEntity)
{
    open();
    close();

    EXPECT_EQ(answer(clipsFile(), "PRAGMA user_version"), "1");
    EXPECT_EQ(answer(snippetsFile(), "PRAGMA user_version"), "1");
    const std::string question = "SELECT group_concat(name) FROM sqlite_master"
                                 " WHERE name IN ('Clip', 'Snippet')";
    EXPECT_EQ(answer(clipsFile(), question), "Clip");
    EXPECT_EQ(answer(snippetsFile(), question), "Snippet");
}
