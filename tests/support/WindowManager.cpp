// SPDX-License-Identifier: MIT
#include "tests/support/WindowManager.h"

#include "platform/x11/X11Connection.h"
#include "tests/support/ForeignWindow.h"
#include "tests/support/TestSession.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int kStartDeadline = 30000; // milliseconds

/// Without a configuration i3 starts a wizard that takes the focus. No bar: one that comes up late
/// would take room.
QByteArray i3Configuration()
{
    const QByteArray path = TestSession::current().folder() + "/i3";
    QFile file(QString::fromLocal8Bit(path));
    if (file.open(QFile::WriteOnly))
        file.write("# i3 config file (v4)\nfont pango:monospace 8\nfocus_follows_mouse no\n");
    return path;
}

QList<QByteArray> commandOf(WindowManager::Kind kind)
{
    switch (kind) {
    case WindowManager::Kind::None:
        return {};
    case WindowManager::Kind::Openbox:
        return {"openbox", "--sm-disable", "--config-file", "/etc/xdg/openbox/rc.xml"};
    case WindowManager::Kind::Xfwm4:
        return {"xfwm4", "--compositor=off"};
    case WindowManager::Kind::I3:
        return {"i3", "-c", i3Configuration()};
    }
    return {};
}

/// openbox makes itself known before it listens: what is mapped in between it overlooks.
bool waitUntilItManages()
{
    ForeignWindow probe("Probe");
    return QTest::qWaitFor(
        [&probe] {
            probe.map();
            return probe.isManaged();
        },
        kStartDeadline);
}

bool waitForWindowManager(bool isRunning)
{
    const auto connection = platform::X11Connection::create();
    return QTest::qWaitFor([&] { return (connection->windowManager() != XCB_NONE) == isRunning; },
                           kStartDeadline);
}

} // namespace

WindowManager::WindowManager(Kind kind)
{
    if (kind == Kind::None)
        return;
    m_process = std::make_unique<ChildProcess>(commandOf(kind));
    EXPECT_TRUE(waitForWindowManager(true) && waitUntilItManages());
}

WindowManager::~WindowManager()
{
    if (m_process == nullptr)
        return;
    m_process.reset();
    EXPECT_TRUE(waitForWindowManager(false));
    ForeignWindow().forgetActiveWindow();
}

void PrintTo(WindowManager::Kind kind, std::ostream *out)
{
    switch (kind) {
    case WindowManager::Kind::None:
        *out << "none";
        break;
    case WindowManager::Kind::Openbox:
        *out << "openbox";
        break;
    case WindowManager::Kind::Xfwm4:
        *out << "xfwm4";
        break;
    case WindowManager::Kind::I3:
        *out << "i3";
        break;
    }
}
