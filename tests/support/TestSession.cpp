// SPDX-License-Identifier: MIT
#include "tests/support/TestSession.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>

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

} // namespace

TestSession::TestSession()
{
    theSession = this;
    makeFolder("HOME", folder() + "/home");
    makeFolder("XDG_CONFIG_HOME", folder() + "/config");
    makeFolder("XDG_DATA_HOME", folder() + "/data");
    makeFolder("XDG_CACHE_HOME", folder() + "/cache");
    makeFolder("XDG_RUNTIME_DIR", folder() + "/runtime");
    QFile::setPermissions(m_folder.filePath(QStringLiteral("runtime")),
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
}

TestSession &TestSession::current()
{
    return *theSession;
}
