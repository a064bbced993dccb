// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ChildProcess.h"

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>

#include <memory>

/// An X server of a test's own, on a free number, gone with the object. Tests that take selections
/// over use it, so that they disturb nobody and nobody disturbs them.
class PrivateDisplay
{
public:
    /// Fails the running test if the server does not start.
    PrivateDisplay();

    /// As in $DISPLAY; empty if the server did not start.
    const QByteArray &name() const { return m_name; }

    /// Ends the server; its clients lose their connections.
    void stop() { m_server.reset(); }

    /// The environment for a program that is to run here.
    QProcessEnvironment environment() const;

    /// Starts a program here. It is killed with the process object.
    std::unique_ptr<QProcess> start(const QString &program, const QStringList &arguments) const;

    /// Runs a program here to its end, feeding it `input`; fails the test unless it exits with 0.
    /// The event loop goes on meanwhile.
    /// @return what it wrote to its standard output
    QByteArray run(const QString &program, const QStringList &arguments,
                   const QByteArray &input = {}) const;

private:
    std::unique_ptr<ChildProcess> m_server;
    QByteArray m_name;
};
