// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipboardMonitor.h"

#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/clipboard/ClipRecorder.h"
#include "Quillery_Mac/store/PersistentContainer.h"
#include "platform/pasteboard/Pasteboard.h"

std::unique_ptr<ClipboardMonitor> ClipboardMonitor::start(platform::Pasteboard &pasteboard,
                                                          platform::Defaults &defaults,
                                                          PersistentContainer &container)
{
    return std::unique_ptr<ClipboardMonitor>(new ClipboardMonitor(pasteboard, defaults, container));
}

ClipboardMonitor::ClipboardMonitor(platform::Pasteboard &pasteboard, platform::Defaults &defaults,
                                   PersistentContainer &container)
    : m_pasteboard(pasteboard)
    , m_defaults(defaults)
    , m_container(container)
    , lastCount(pasteboard.changeCount())
{
    connect(&m_sleep, &QTimer::timeout, this, &ClipboardMonitor::poll);
    m_sleep.start(std::chrono::duration_cast<std::chrono::milliseconds>(kSleep));
}

void ClipboardMonitor::cancel()
{
    m_isCancelled = true;
    m_sleep.stop();
}

// The order of the questions matters: a copy without text leaves lastCount alone, a copy of an
// empty text moves it on without being recorded.
void ClipboardMonitor::poll()
{
    if (m_isCancelled)
        return;
    const std::optional<QByteArray> string = m_pasteboard.string();
    if (!string)
        return;
    const qint64 count = m_pasteboard.changeCount();
    if (count == lastCount)
        return;
    if (!string->isEmpty())
        record(*string);
    lastCount = count;
}

void ClipboardMonitor::record(const QByteArray &content)
{
    const ClipRecorder recorder(content, readDefault(m_defaults, SettingsKeys::kDevice),
                                readDefault(m_defaults, SettingsKeys::kHistorySize));
    m_container.performBackgroundTask(
        [recorder](ManagedObjectContext &context) { recorder.record(context); });
}
