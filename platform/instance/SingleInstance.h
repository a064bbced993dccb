// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

namespace platform {

class LockedInstance;

/// Makes sure that one instance of the program runs per session, and is how others reach it.
///
/// On the session bus the program is com.tarnwick.Quillery and offers, at /com/tarnwick/Quillery,
/// the interface org.freedesktop.Application (Desktop Entry Specification 1.5, "D-Bus Activation").
/// A lock in the runtime folder does the same for one display, among starts with and without the
/// bus; without the bus no actions can be asked for. One object per process, created with the
/// application object, main thread only.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    SingleInstance();
    ~SingleInstance() override;

    /// The actions that others may ask for.
    static QStringList actionNames();

    /// Becomes the one instance, or asks the running one to activate. Waits for a few seconds at
    /// most, and only when the bus or the running instance does not answer.
    /// @return false if another instance runs: this process has nothing more to do
    bool acquire();

signals:
    /// Sent before each of the others. `serverTime` is when the user did what led to it, in the
    /// display server's milliseconds; 0 if nobody tells, then it was just now.
    void userActed(quint32 serverTime);
    /// Somebody started the program again.
    void activated();
    /// Somebody asked for one of actionNames().
    void actionActivated(const QString &name);

private:
    enum class Claim { Won, Lost, NoBus };

    Claim claimName();
    /// @return false if another instance has the lock, which is then asked to activate
    bool acquireLock();

    std::unique_ptr<LockedInstance> m_lock;
};

} // namespace platform
