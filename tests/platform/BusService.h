// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <sys/types.h>

/// A desktop's service on the session bus, started as the bus would for any program that needs it,
/// and ended with the object.
class BusService
{
public:
    /// Returns when the service has its name; fails the test if it does not start.
    explicit BusService(const QString &name);
    ~BusService();
    Q_DISABLE_COPY_MOVE(BusService)

    /// Lets the service sleep, so that it takes questions and answers none, or wakes it up.
    void hang() const;
    void wake() const;

    /// Whether somebody on the bus has the name.
    static bool isRunning(const QString &name);

private:
    QString m_name;
    pid_t m_process = -1;
};
