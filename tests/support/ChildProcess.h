// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <sys/types.h>

/// A program that a test needs beside it. It ends with the object, and with the test program
/// however that ends. Works without an application object.
class ChildProcess
{
public:
    /// Starts `command`, a program from PATH and its arguments, with the environment of this
    /// process. Its standard output can be read with readLine(); its standard error is dropped.
    explicit ChildProcess(const QList<QByteArray> &command);
    ~ChildProcess();
    Q_DISABLE_COPY_MOVE(ChildProcess)

    /// The next line that the program writes, without its end; empty if it ended or wrote none
    /// within half a minute.
    QByteArray readLine();

    /// Everything that the program writes until it ends.
    QByteArray readAll();

    /// Waits until the program has ended by itself.
    /// @return its exit status, -1 if a signal ended it
    int waitForEnd();

    void sendSignal(int number) const;

    /// Called in a process that was just forked: it is killed when this one ends, however it does.
    static void endWithParent();

private:
    bool endsWithin(int milliseconds) const;

    pid_t m_process = -1;
    int m_output = -1;
};
