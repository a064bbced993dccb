// SPDX-License-Identifier: MIT
// What the desktop's own programs make of our entry: it is started by GLib and turned into a unit
// by systemd's generator, and a process knows who started it.
#include "platform/login/LaunchSigns.h"
#include "tests/logic/LoginItemFixture.h"
#include "tests/support/ChildProcess.h"

#include <QProcess>
#include <QScopeGuard>

#include <sys/stat.h>
#include <unistd.h>

using platform::XdgLoginItem;

namespace {

constexpr auto kGenerator = "/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator";

class LoginSessionTest : public LoginItemFixture
{
protected:
    /// A program that writes its own path and the number of its arguments into a pipe.
    QString makeProgram(const QString &folderName) const
    {
        const QString path = root.filePath(folderName + QStringLiteral("/program"));
        write(path,
              "#!/bin/sh\nprintf '%s %s\\0\\n' \"$0\" \"$#\" >'" + QFile::encodeName(pipe) + "'\n");
        EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner));
        return path;
    }

    /// Lets systemd make units of the user's entries; answers with their names.
    QStringList makeUnits() const
    {
        const QString units = root.filePath(QStringLiteral("units"));
        QDir().mkpath(units);
        QProcess generator;
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config);
        environment.insert(QStringLiteral("XDG_CONFIG_DIRS"),
                           root.filePath(QStringLiteral("none")));
        environment.insert(QStringLiteral("HOME"), root.path());
        generator.setProcessEnvironment(environment);
        generator.start(QString::fromLatin1(kGenerator), {units, units, units});
        EXPECT_TRUE(generator.waitForFinished()) << generator.errorString().toStdString();
        EXPECT_EQ(generator.exitCode(), 0);
        return QDir(units).entryList(QDir::Files);
    }

    const QString pipe = root.filePath(QStringLiteral("pipe"));
};

class StartedPathTest : public LoginSessionTest, public ::testing::WithParamInterface<const char *>
{
};

} // namespace

TEST_P(StartedPathTest, theEntryStartsThisVeryProgramWithoutArguments)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString path = makeProgram(QString::fromUtf8(GetParam()));
    XdgLoginItem item(path, folders);
    ASSERT_TRUE(item.registerItem().has_value());
    ASSERT_TRUE(item.isEnabled());

    ChildProcess reader({"cat", QFile::encodeName(pipe)});
    ChildProcess session({"/usr/bin/python3", START_ENTRY, QFile::encodeName(entry)});

    ASSERT_EQ(session.waitForEnd(), 0);
    EXPECT_EQ(reader.readAll(), QFile::encodeName(path) + QByteArray(" 0\0\n", 4));
}

INSTANTIATE_TEST_SUITE_P(Paths, StartedPathTest,
                         ::testing::Values("plain", "with blanks  in it ", " leading",
                                           "Schöne Dinge", "quote\"mark", "apostrophe's",
                                           "back\\slash", "back\\\\slashes\\n", "$HOME", "`id`",
                                           "$(id)", "100%", "%f %U", "a=b", "#~*?", "&;|<>",
                                           "tab\tline\nend", "\\$\"`%%", "[]{}!^,"));

TEST_F(LoginSessionTest, systemdMakesTheUnitByWhichAProcessKnowsItsStart)
{
    XdgLoginItem item(makeProgram(QStringLiteral("with blank 100%")), folders);
    ASSERT_TRUE(item.registerItem().has_value());

    const QStringList units = makeUnits();

    ASSERT_EQ(units.size(), 1);
    platform::LaunchSigns signs;
    signs.controlGroups = "0::/user.slice/app.slice/" + units.constFirst().toUtf8() + "\n";
    signs.unitProcess = "1234";
    signs.process = 1234;
    EXPECT_TRUE(platform::isStartedFromEntry(signs)) << units.constFirst().toStdString();
}

TEST_F(LoginSessionTest, systemdMakesNoUnitOfAnEntryThatIsOff)
{
    write(systemEntry, goodEntry);
    XdgLoginItem item(program, folders);
    ASSERT_TRUE(item.unregisterItem().has_value());
    ASSERT_TRUE(QFileInfo::exists(entry));

    EXPECT_TRUE(makeUnits().isEmpty());
}

TEST_F(LoginSessionTest, aProcessThatTheSessionManagerStartsKnowsIt)
{
    const auto restore = qScopeGuard([] {
        qunsetenv("SESSION_MANAGER");
        qunsetenv("DESKTOP_AUTOSTART_ID");
        qunsetenv("XDG_CONFIG_HOME");
    });
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config));
    qputenv("SESSION_MANAGER", "local/host:@/tmp/.ICE-unix/" + QByteArray::number(getpid()));
    qputenv("DESKTOP_AUTOSTART_ID", "10d8c4f2a3");

    EXPECT_EQ(ChildProcess({LOGIN_ITEM_USER}).readLine(), "off launched at login");
    // Started by a program that the session manager started.
    EXPECT_EQ(ChildProcess({"sh", "-c", LOGIN_ITEM_USER "; true"}).readLine(),
              "off launched otherwise");
    qunsetenv("DESKTOP_AUTOSTART_ID");
    EXPECT_EQ(ChildProcess({LOGIN_ITEM_USER}).readLine(), "off launched otherwise");
}

TEST_F(LoginSessionTest, theEntryStandsInTheUsersFolderForEveryLaterProcess)
{
    const auto restore = qScopeGuard([] { qunsetenv("XDG_CONFIG_HOME"); });
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config));

    EXPECT_TRUE(ChildProcess({LOGIN_ITEM_USER, "on", "/bin/sh"}).readLine().startsWith("on "));
    EXPECT_TRUE(QFileInfo::exists(entry));
    EXPECT_TRUE(ChildProcess({LOGIN_ITEM_USER}).readLine().startsWith("on "));
    EXPECT_TRUE(ChildProcess({LOGIN_ITEM_USER, "off", "/bin/sh"}).readLine().startsWith("off "));
    EXPECT_FALSE(QFileInfo::exists(entry));
}
