// SPDX-License-Identifier: MIT
#include "tests/platform/PrivateDisplay.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int kStartMilliseconds = 20000;
constexpr int kRunMilliseconds = 30000;

} // namespace

// The server chooses the number and writes it to the descriptor that -displayfd names.
PrivateDisplay::PrivateDisplay()
    : m_server(std::make_unique<ChildProcess>(QList<QByteArray>{
          "Xvfb", "-displayfd", "1", "-screen", "0", "800x600x24", "-nolisten", "tcp", "-noreset"}))
{
    const QByteArray number = m_server->readLine();
    if (number.isEmpty())
        ADD_FAILURE() << "Xvfb did not start";
    else
        m_name = ":" + number;
}

QProcessEnvironment PrivateDisplay::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(m_name));
    environment.insert(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    return environment;
}

std::unique_ptr<QProcess> PrivateDisplay::start(const QString &program,
                                                const QStringList &arguments) const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(program, arguments);
    EXPECT_TRUE(process->waitForStarted(kStartMilliseconds)) << qPrintable(program);
    return process;
}

QByteArray PrivateDisplay::run(const QString &program, const QStringList &arguments,
                               const QByteArray &input) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
    // xclip and xsel leave a child behind that would keep this pipe open.
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!input.isNull())
        process.setStandardOutputFile(QProcess::nullDevice());
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, kRunMilliseconds))
        << qPrintable(program);
    EXPECT_EQ(process.exitCode(), 0) << qPrintable(program);
    return input.isNull() ? process.readAllStandardOutput() : QByteArray();
}
