// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace platform {

namespace localSocket {
class Listener;
}

/// The single instance of a display, with a bus or without: a lock for each display in the private
/// runtime folder, and a socket beside it by which a second start reaches the first.
///
/// The lock belongs to the open file, so the kernel gives it back however the process ends. Main
/// thread only.
class LockedInstance : public QObject
{
    Q_OBJECT

public:
    /// Tries to take the lock. Null when there is no place for one, or none can be had there.
    static std::unique_ptr<LockedInstance> create();
    ~LockedInstance() override;

    bool isFirst() const { return m_isFirst; }

    /// Lets further starts reach this one. For the first instance.
    void listen();

    /// Asks the first instance to activate; waits for its answer for a second at most.
    void activateFirst();

signals:
    void activated();

private:
    LockedInstance(int descriptor, bool isFirst, const QString &socketPath);

    int m_descriptor;
    bool m_isFirst;
    QString m_socketPath;
    std::unique_ptr<localSocket::Listener> m_listener;
};

} // namespace platform
