// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace platform {

/// Turns the signals by which a session or a user ends a program (SIGTERM, SIGINT, SIGHUP) into a
/// Qt signal on the main thread, so that the program quits as if the user had chosen Quit. One
/// object per process, created before any thread.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    /// Keeps the signals from ending the process until an object reads them. Called first thing in
    /// main(): threads inherit this, and a thread that does not, such as one of the toolkit's,
    /// would end the process.
    static void block();

    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

signals:
    void received();

private:
    void readSignal();

    int m_descriptor = -1;
    QSocketNotifier m_notifier;
};

} // namespace platform
