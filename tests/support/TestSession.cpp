// SPDX-License-Identifier: MIT
#include "tests/support/TestSession.h"

#include <QDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TestSession *theSession = nullptr;

void makeFolder(const QByteArray &variable, const QByteArray &path)
{
    QDir().mkpath(QString::fromLocal8Bit(path));
    qputenv(variable.constData(), path);
}

QByteArray displayFrom(ChildProcess &server, const char *name)
{
    const QByteArray number = server.readLine();
    if (number.isEmpty()) {
        std::fprintf(stderr, "%s does not start\n", name);
        std::exit(EXIT_FAILURE);
    }
    return ":" + number;
}

/// This process's children, also those that it has taken in.
std::vector<pid_t> children()
{
    QFile list(QStringLiteral("/proc/self/task/%1/children").arg(gettid()));
    std::vector<pid_t> children;
    if (!list.open(QFile::ReadOnly))
        return children;
    for (const QByteArray &child : list.readAll().simplified().split(' ')) {
        if (!child.isEmpty())
            children.push_back(child.toInt());
    }
    return children;
}

} // namespace

TestSession::TestSession()
{
    theSession = this;
    // What the bus starts is ours when the bus has ended.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    makeFolder("HOME", folder() + "/home");
    makeFolder("XDG_CONFIG_HOME", folder() + "/config");
    makeFolder("XDG_DATA_HOME", folder() + "/data");
    makeFolder("XDG_CACHE_HOME", folder() + "/cache");
    makeFolder("XDG_RUNTIME_DIR", folder() + "/runtime");
    QFile::setPermissions(QString::fromLocal8Bit(folder() + "/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray size = QByteArray::number(kWidth) + 'x' + QByteArray::number(kHeight);
    m_outer = std::make_unique<ChildProcess>(QList<QByteArray>{
        "Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-noreset", "-screen", "0", size + "x24"});
    m_outerDisplay = displayFrom(*m_outer, "Xvfb");
    qputenv("DISPLAY", m_outerDisplay);
    m_inner = std::make_unique<ChildProcess>(
        QList<QByteArray>{"Xephyr", "-displayfd", "1", "-nolisten", "tcp", "-noreset", "-screen",
                          size + "x24", "-no-host-grab"});
    m_display = displayFrom(*m_inner, "Xephyr");
    qputenv("DISPLAY", m_display);
    m_bus = std::make_unique<ChildProcess>(
        QList<QByteArray>{"dbus-daemon", "--session", "--nofork", "--print-address=1"});
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus->readLine());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("NO_AT_BRIDGE", "1");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("SESSION_MANAGER");
}

TestSession::~TestSession()
{
    theSession = nullptr;
    m_bus.reset();
    m_inner.reset();
    m_outer.reset();
    endServices();
}

// They would notice later that the bus has ended, and write into our folders before that.
void TestSession::endServices() const
{
    for (const pid_t child : children()) {
        if (child == m_folder.remover())
            continue;
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
}

TestSession &TestSession::current()
{
    return *theSession;
}
