// SPDX-License-Identifier: MIT
#include "platform/instance/LockedInstance.h"
#include "platform/instance/RuntimeFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Sets a variable of the environment, and puts the old value back in the end.
class Variable
{
public:
    Variable(const char *name, const QString &value)
        : m_name(name)
        , m_before(qgetenv(name))
        , m_wasSet(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, QFile::encodeName(value));
    }
    ~Variable()
    {
        if (m_wasSet)
            qputenv(m_name, m_before);
        else
            qunsetenv(m_name);
    }
    Q_DISABLE_COPY_MOVE(Variable)

private:
    const char *m_name;
    QByteArray m_before;
    bool m_wasSet;
};

/// Folders for the runtime and for temporary files, each of the test's own.
class RuntimeFolder : public ::testing::Test
{
protected:
    static void allow(const QString &path, mode_t mode)
    {
        ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
    }

    /// The folder that stands in for a runtime folder that cannot be used.
    QString ownFolder() const
    {
        return temporary.filePath(QStringLiteral("quillery-") + QString::number(getuid()));
    }

    /// The names of the sockets in the runtime folder.
    QStringList sockets() const
    {
        return QDir(runtime.path())
            .entryList({QStringLiteral("*.socket")}, QDir::System | QDir::Files);
    }

    QTemporaryDir runtime;
    QTemporaryDir temporary;
    Variable runtimeVariable{"XDG_RUNTIME_DIR", runtime.path()};
    Variable temporaryVariable{"TMPDIR", temporary.path()};
};
using LockedInstance = RuntimeFolder;

TEST_F(RuntimeFolder, aPrivateOneIsUsed)
{
    EXPECT_EQ(platform::privateRuntimeFolder(), runtime.path());
    EXPECT_FALSE(QFile::exists(ownFolder()));
}

TEST_F(RuntimeFolder, oneThatOthersMayWriteIntoIsRefused)
{
    allow(runtime.path(), 0777);

    EXPECT_EQ(platform::privateRuntimeFolder(), ownFolder());
}

TEST_F(RuntimeFolder, oneThatOthersMayReadIsRefused)
{
    allow(runtime.path(), 0750);

    EXPECT_EQ(platform::privateRuntimeFolder(), ownFolder());
}

TEST_F(RuntimeFolder, aLinkIsRefused)
{
    const QString link = temporary.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(runtime.path(), link));
    const Variable variable("XDG_RUNTIME_DIR", link);

    EXPECT_EQ(platform::privateRuntimeFolder(), ownFolder());
}

TEST_F(RuntimeFolder, aRelativePathIsRefused)
{
    const Variable variable("XDG_RUNTIME_DIR", QDir::current().relativeFilePath(runtime.path()));

    EXPECT_EQ(platform::privateRuntimeFolder(), ownFolder());
}

TEST_F(RuntimeFolder, theOneThatIsMadeInsteadIsPrivate)
{
    const Variable variable("XDG_RUNTIME_DIR", QString());

    ASSERT_EQ(platform::privateRuntimeFolder(), ownFolder());
    struct stat status = {};
    ASSERT_EQ(lstat(QFile::encodeName(ownFolder()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_EQ(platform::privateRuntimeFolder(), ownFolder()); // used again
}

TEST_F(RuntimeFolder, thereIsNoneIfOthersPreparedBoth)
{
    allow(runtime.path(), 0777);
    ASSERT_TRUE(QDir().mkdir(ownFolder()));
    allow(ownFolder(), 0777);

    EXPECT_EQ(platform::privateRuntimeFolder(), std::nullopt);
    EXPECT_EQ(platform::LockedInstance::create(), nullptr);
}

TEST_F(LockedInstance, onlyOneIsTheFirst)
{
    auto first = platform::LockedInstance::create();
    const auto second = platform::LockedInstance::create();

    ASSERT_TRUE(first && second);
    EXPECT_TRUE(first->isFirst());
    EXPECT_FALSE(second->isFirst());

    first.reset();
    const auto next = platform::LockedInstance::create();
    ASSERT_NE(next, nullptr);
    EXPECT_TRUE(next->isFirst());
}

TEST_F(LockedInstance, theSocketOfOneThatEndedIsReplaced)
{
    auto first = platform::LockedInstance::create();
    ASSERT_TRUE(first && first->isFirst());
    first->listen();
    const QStringList names = sockets();
    ASSERT_EQ(names.size(), 1);
    first.reset();
    QFile leftover(runtime.filePath(names.first()));
    ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));

    const auto next = platform::LockedInstance::create();
    ASSERT_TRUE(next && next->isFirst());
    next->listen();

    struct stat status = {};
    ASSERT_EQ(lstat(QFile::encodeName(leftover.fileName()).constData(), &status), 0);
    EXPECT_TRUE(S_ISSOCK(status.st_mode));
}

TEST_F(LockedInstance, aFirstThatDoesNotListenIsNotWaitedForLong)
{
    const auto first = platform::LockedInstance::create();
    const auto second = platform::LockedInstance::create();
    ASSERT_TRUE(first && second && !second->isFirst());
    ASSERT_TRUE(sockets().isEmpty());
    QElapsedTimer elapsed;
    elapsed.start();

    second->activateFirst();

    EXPECT_LT(elapsed.elapsed(), 5000);
}

} // namespace
