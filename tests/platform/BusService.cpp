// SPDX-License-Identifier: MIT
#include "tests/platform/BusService.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace {

constexpr int kEndDeadline = 10000; // milliseconds

QDBusConnectionInterface &bus()
{
    return *QDBusConnection::sessionBus().interface();
}

} // namespace

BusService::BusService(const QString &name)
    : m_name(name)
{
    EXPECT_TRUE(bus().startService(name).isValid()) << qPrintable(name) << " does not start";
    const QDBusReply<uint> process = bus().servicePid(name);
    if (process.isValid())
        m_process = static_cast<pid_t>(process.value());
}

BusService::~BusService()
{
    if (m_process <= 0)
        return;
    kill(m_process, SIGKILL);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isRunning(m_name); }, kEndDeadline));
}

void BusService::hang() const
{
    kill(m_process, SIGSTOP);
}

void BusService::wake() const
{
    kill(m_process, SIGCONT);
}

bool BusService::isRunning(const QString &name)
{
    return bus().isServiceRegistered(name).value();
}
