// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

class ManagedObjectContext;

/// One copied text on its way into the history, with the settings as they were when it was seen. A
/// value: made on the main thread, carried out in a background context.
class ClipRecorder
{
public:
    /// @param content     the copied text, UTF-8, not empty
    /// @param device      the setting "device" of this machine
    /// @param historySize the setting "historySize", an index into the history limits; read, and
    ///                    fatal out of its range, once there is an older clip to compare with it
    ClipRecorder(const QByteArray &content, const QString &device, double historySize)
        : m_content(content)
        , m_device(device)
        , m_historySize(historySize)
    {
    }

    /// Renumbers the older clips from 2 on, deletes those beyond the limit, puts the text at
    /// position 1, and saves. A save that fails is dropped: nothing is reported, nothing retried.
    /// More than 32,765 clips are fatal.
    void record(ManagedObjectContext &context) const;

private:
    void makeRoom(ManagedObjectContext &context) const;
    void insertClip(ManagedObjectContext &context) const;

    QByteArray m_content;
    QString m_device;
    double m_historySize;
};
