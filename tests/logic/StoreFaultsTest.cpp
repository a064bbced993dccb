// SPDX-License-Identifier: MIT
#include "tests/logic/FullDisk.h"
#include "tests/logic/OrdinaryUser.h"
#include "tests/logic/StoreTestSupport.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

class StoreFaultsTest : public StoreTest
{
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        addSnippet(QStringLiteral("kept"), 1);
        view().insert<Clip>()->setContent("clip");
        ASSERT_TRUE(view().save());
        close();
    }

    static void writeBytes(const QString &file, const QByteArray &bytes)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(out.write(bytes), bytes.size());
    }

    // Opens the stores, and works with both; answers with what was printed.
    QString useAndClose()
    {
        ::testing::internal::CaptureStdout();
        open();
        const bool isClipsLoaded = container().isLoaded(StoreKind::Clips);
        view().insert<Clip>()->setContent("more");
        addSnippet(QStringLiteral("more"), 2);
        savedBoth = view().save().has_value();
        snippetCount = view().count<Snippet>();
        close();
        EXPECT_TRUE(isClipsLoaded);
        return QString::fromStdString(::testing::internal::GetCapturedStdout());
    }

    // The snippets' file is as `broken` says; it must stay so and the clips must work.
    void expectUntouched(const QByteArray &broken)
    {
        writeBytes(snippetsFile(), broken);
        const std::string countClips = "SELECT count(*) FROM Clip";
        const int clips = std::stoi(answer(clipsFile(), countClips));

        const QString printed = useAndClose();

        EXPECT_TRUE(printed.contains(snippetsFile())) << printed.toStdString();
        EXPECT_EQ(printed.count(u'\n'), 1) << printed.toStdString();
        EXPECT_FALSE(savedBoth);
        EXPECT_EQ(bytes(snippetsFile()), broken);
        EXPECT_EQ(std::stoi(answer(clipsFile(), countClips)), clips + 1);
    }

    bool savedBoth = false;
    qsizetype snippetCount = 0;
};

QByteArray damaged(QByteArray file)
{
    // Everything but the first page, which holds the header and the schema.
    constexpr qsizetype kPage = 16384;
    return file.replace(kPage, file.size() - kPage, QByteArray(file.size() - kPage, '\x5A'));
}

} // namespace

TEST_F(StoreFaultsTest, aFileThatIsNoDatabaseIsPrintedAndLeftAlone)
{
    expectUntouched("This is a letter, not a database.");
    expectUntouched(QByteArray(100000, 'x'));
}

TEST_F(StoreFaultsTest, aFileCutInHalfIsPrintedAndLeftAlone)
{
    const QByteArray whole = bytes(snippetsFile());
    expectUntouched(whole.first(whole.size() / 2));
    expectUntouched(whole.first(whole.size() - 16384));
    expectUntouched(whole.first(50));
}

TEST_F(StoreFaultsTest, aFileWithDamagedPagesIsPrintedAndLeftAlone)
{
    expectUntouched(damaged(bytes(snippetsFile())));
}

TEST_F(StoreFaultsTest, aFileNewerThanTheProgramIsPrintedAndLeftAlone)
{
    execute(snippetsFile(), "PRAGMA user_version = 99");
    expectUntouched(bytes(snippetsFile()));
}

TEST_F(StoreFaultsTest, aNewerFileWhoseVersionStandsInItsLogIsLeftAlone)
{
    // As a newer program leaves it that was killed: the log not written back.
    const QString log = snippetsFile() + QStringLiteral("-wal");
    QByteArray file;
    QByteArray logged;
    {
        SQLite::Database database(snippetsFile().toStdString(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA user_version = 99");
        file = bytes(snippetsFile());
        logged = bytes(log);
    }
    writeBytes(log, logged);

    expectUntouched(file);
    EXPECT_EQ(bytes(log), logged);
}

TEST_F(StoreFaultsTest, aDatabaseOfAnotherProgramIsPrintedAndLeftAlone)
{
    QFile::remove(snippetsFile());
    SQLite::Database(snippetsFile().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE Snippet (name TEXT)");
    expectUntouched(bytes(snippetsFile()));

    execute(snippetsFile(), "PRAGMA user_version = 1");
    expectUntouched(bytes(snippetsFile()));
}

TEST_F(StoreFaultsTest, aFolderInTheFilesPlaceIsPrinted)
{
    QFile::remove(snippetsFile());
    ASSERT_TRUE(QDir().mkdir(snippetsFile()));

    EXPECT_TRUE(useAndClose().contains(snippetsFile()));
}

TEST_F(StoreFaultsTest, whatIsInsertedWithoutAStoreStaysInTheContext)
{
    writeBytes(snippetsFile(), "broken");
    useAndClose();

    EXPECT_EQ(snippetCount, 1);
}

TEST_F(StoreFaultsTest, withoutAFolderBothStoresArePrinted)
{
    ::testing::internal::CaptureStdout();
    controller = std::make_unique<PersistenceController>(clipsFile() + QStringLiteral("/below"));
    const std::string printed = ::testing::internal::GetCapturedStdout();

    EXPECT_FALSE(container().isLoaded(StoreKind::Clips));
    EXPECT_FALSE(container().isLoaded(StoreKind::Snippets));
    EXPECT_NE(printed.find("clips.sqlite"), std::string::npos);
    EXPECT_NE(printed.find("snippets.sqlite"), std::string::npos);
}

TEST_F(StoreFaultsTest, aStoreThatDidNotLoadIsNotTriedAgainBeforeTheNextStart)
{
    QFile::remove(clipsFile());
    ASSERT_TRUE(QDir().mkdir(clipsFile()));
    ::testing::internal::CaptureStdout();
    open();
    ASSERT_TRUE(QDir().rmdir(clipsFile()));

    container().performBackgroundTask([](ManagedObjectContext &context) {
        context.insert<Clip>()->setContent("copied");
        const auto saved = context.save();
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().kind, platform::Error::Kind::Unavailable);
    });
    container().waitForBackgroundTasks();
    view().insert<Clip>()->setContent("kept in the context");
    EXPECT_FALSE(view().save());

    const QString printed = QString::fromStdString(::testing::internal::GetCapturedStdout());
    EXPECT_EQ(printed.count(u'\n'), 1) << printed.toStdString();
    EXPECT_FALSE(QFile::exists(clipsFile()));
    open();
    EXPECT_TRUE(container().isLoaded(StoreKind::Clips));
}

TEST_F(StoreFaultsTest, anEmptyFileIsANewStore)
{
    writeBytes(snippetsFile(), {});

    EXPECT_EQ(useAndClose(), QString());
    EXPECT_TRUE(savedBoth);
}

TEST_F(StoreFaultsTest, aFileDamagedWhileInUseIsPrintedOnceAndNotWrittenAnyMore)
{
    open();
    const QByteArray broken = damaged(bytes(snippetsFile()));
    writeBytes(snippetsFile(), broken);
    ::testing::internal::CaptureStdout();
    for (int turn = 0; turn < 2; ++turn) {
        container().performBackgroundTask([](ManagedObjectContext &context) {
            context.fetch<Snippet>();
            context.insert<Snippet>();
            EXPECT_FALSE(context.save());
        });
        container().waitForBackgroundTasks();
    }
    EXPECT_FALSE(container().isLoaded(StoreKind::Snippets));
    EXPECT_TRUE(container().isLoaded(StoreKind::Clips));
    addSnippet(QStringLiteral("more"), 2);
    EXPECT_FALSE(view().save());
    close();

    const QString printed = QString::fromStdString(::testing::internal::GetCapturedStdout());
    EXPECT_EQ(printed.count(u'\n'), 1) << printed.toStdString();
    EXPECT_EQ(bytes(snippetsFile()), broken);
}

TEST_F(StoreFaultsTest, aFullDiskFailsTheSaveAndALaterSaveWritesEverything)
{
    open();
    Snippet *kept = view().fetch<Snippet>().at(0);
    {
        const FullDisk disk;
        kept->setTitle(QStringLiteral("changed"));
        addSnippet(QStringLiteral("new"), 2, QByteArray(100000, 'x'));
        const auto saved = view().save();
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().kind, platform::Error::Kind::Io);
        EXPECT_TRUE(view().hasChanges());
        EXPECT_EQ(view().count<Snippet>(), 2);
    }

    ASSERT_TRUE(view().save());
    EXPECT_FALSE(view().hasChanges());

    open();
    EXPECT_EQ(titles(view().fetch<Snippet>()),
              (std::vector<QString>{QStringLiteral("changed"), QStringLiteral("new")}));
}

TEST_F(StoreFaultsTest, aDeletionThatCannotBeSavedStaysInTheContext)
{
    open();
    Snippet *kept = view().fetch<Snippet>().at(0);
    {
        const FullDisk disk;
        view().deleteObject(*kept);
        EXPECT_FALSE(view().save());
        QCoreApplication::processEvents();
        EXPECT_TRUE(kept->isDeleted());
        EXPECT_TRUE(view().fetch<Snippet>().empty());
        EXPECT_EQ(kept->title(), QStringLiteral("kept"));
    }

    ASSERT_TRUE(view().save());
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "0");
}

TEST_F(StoreFaultsTest, aFullDiskDropsARecordingAndTheNextOneWorks)
{
    open();
    const auto record = [this](const char *text) {
        container().performBackgroundTask([text](ManagedObjectContext &context) {
            context.insert<Clip>()->setContent(text);
            // Dropped silently, as a recording does it.
            static_cast<void>(context.save());
        });
        container().waitForBackgroundTasks();
    };
    {
        const FullDisk disk;
        record("lost");
    }
    record("recorded");

    EXPECT_EQ(answer(clipsFile(), "SELECT group_concat(content) FROM Clip"), "clip,recorded");
    EXPECT_EQ(view().count<Clip>(), 2);
}

TEST_F(StoreFaultsTest, aReadOnlyFolderIsPrintedAndTheProgramCarriesOn)
{
    const QString place = folderPath();
    OrdinaryUser::give(folder.path());
    for (const QString &path : {place, clipsFile(), snippetsFile()})
        OrdinaryUser::give(path);
    ASSERT_EQ(::chmod(QFile::encodeName(place).constData(), 0500), 0);
    const QByteArray before = bytes(snippetsFile());
    {
        const OrdinaryUser user;
        ::testing::internal::CaptureStdout();
        open();
        addSnippet(QStringLiteral("more"), 2);
        EXPECT_FALSE(view().save());
        close();
        EXPECT_NE(::testing::internal::GetCapturedStdout(), "");
    }
    ::chmod(QFile::encodeName(place).constData(), 0700);

    EXPECT_EQ(bytes(snippetsFile()), before);
    open();
    EXPECT_EQ(view().count<Snippet>(), 1);
}

TEST_F(StoreFaultsTest, aFileThatIsReadOnlyForAWhileIsWrittenAgainAfterwards)
{
    OrdinaryUser::give(folder.path());
    for (const QString &path : {folderPath(), clipsFile(), snippetsFile()})
        OrdinaryUser::give(path);
    const OrdinaryUser user;
    open();
    // As "chmod -R" does: a log that is empty takes over what holds for its file.
    const auto allow = [this](mode_t mode) {
        for (const char *suffix : {"", "-wal", "-shm"}) {
            const QByteArray path = QFile::encodeName(clipsFile()) + suffix;
            EXPECT_EQ(::chmod(path.constData(), mode), 0);
        }
    };
    const auto record = [this](const char *text) {
        bool isSaved = false;
        container().performBackgroundTask([text, &isSaved](ManagedObjectContext &context) {
            context.insert<Clip>()->setContent(text);
            isSaved = context.save().has_value();
        });
        container().waitForBackgroundTasks();
        return isSaved;
    };

    allow(0400);
    EXPECT_FALSE(record("lost"));
    allow(0600);
    EXPECT_TRUE(record("recorded"));

    view().insert<Clip>()->setContent("from the menu");
    EXPECT_TRUE(view().save());
    EXPECT_EQ(answer(clipsFile(), "SELECT group_concat(content) FROM Clip"),
              "clip,recorded,from the menu");
}

TEST_F(StoreFaultsTest, aReadOnlyFileShowsItsObjectsAndFailsTheSave)
{
    OrdinaryUser::give(folder.path());
    for (const QString &path : {folderPath(), clipsFile(), snippetsFile()})
        OrdinaryUser::give(path);
    ASSERT_EQ(::chmod(QFile::encodeName(snippetsFile()).constData(), 0400), 0);
    const QByteArray before = bytes(snippetsFile());

    const OrdinaryUser user;
    open();
    const auto snippets = view().fetch<Snippet>();
    ASSERT_EQ(snippets.size(), 1U);
    snippets[0]->setTitle(QStringLiteral("changed"));
    view().insert<Clip>()->setContent("saved");
    EXPECT_FALSE(view().save());
    EXPECT_TRUE(snippets[0]->hasChanges());
    close();

    EXPECT_EQ(bytes(snippetsFile()), before);
    EXPECT_EQ(answer(clipsFile(), "SELECT count(*) FROM Clip"), "2");
}
