// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class PersistentContainer;

namespace platform {
class Defaults;
class Pasteboard;
} // namespace platform

/// The running task that watches the pasteboard and records every new text in the history. The
/// object is the task's handle: whoever holds it cancels it, and destroying it cancels it too.
///
/// Main thread. A poll compares a number and looks at a text that the pasteboard already holds; the
/// recording itself runs in a background context of the container.
class ClipboardMonitor : public QObject
{
    Q_OBJECT

public:
    /// How long the task sleeps from one poll to the next.
    static constexpr std::chrono::nanoseconds kSleep{1'000'000'000};

    /// Starts the task. What is on the pasteboard now is never recorded.
    /// @param pasteboard, defaults, container must outlive the task
    static std::unique_ptr<ClipboardMonitor> start(platform::Pasteboard &pasteboard,
                                                   platform::Defaults &defaults,
                                                   PersistentContainer &container);

    /// Ends the task for good. A recording that has begun is completed.
    void cancel();
    bool isCancelled() const { return m_isCancelled; }

    /// One turn of the loop, as after every sleep.
    void poll();

private:
    ClipboardMonitor(platform::Pasteboard &pasteboard, platform::Defaults &defaults,
                     PersistentContainer &container);

    void record(const QByteArray &content);

    platform::Pasteboard &m_pasteboard;
    platform::Defaults &m_defaults;
    PersistentContainer &m_container;
    qint64 lastCount;
    bool m_isCancelled = false;
    QTimer m_sleep;
};
