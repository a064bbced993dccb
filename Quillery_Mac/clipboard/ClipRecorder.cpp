// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipRecorder.h"

#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/SixteenBit.h"

#include <QUuid>

namespace {

constexpr qint16 kNewestPosition = 1;

} // namespace

void ClipRecorder::record(ManagedObjectContext &context) const
{
    makeRoom(context);
    insertClip(context);
    // A full disk loses this copy, not the program; the next copy is saved again when it can be.
    static_cast<void>(context.save());
}

// The counter is already one ahead of the clip's position when it meets the limit. So a limit of 3
// or more leaves that many less two, with the new clip: that is how the history limit behaves.
void ClipRecorder::makeRoom(ManagedObjectContext &context) const
{
    qint16 counter = kNewestPosition + 1;
    for (Clip *clip : context.fetch<Clip>()) {
        clip->setPosition(counter);
        const int limit = historyLimit(m_historySize);
        counter = toSixteenBit(qint64(counter) + 1, "position");
        if (limit <= counter)
            context.deleteObject(*clip);
    }
}

void ClipRecorder::insertClip(ManagedObjectContext &context) const
{
    Clip *clip = context.insert<Clip>();
    clip->setId(QUuid::createUuid());
    clip->setContent(m_content);
    clip->setPosition(kNewestPosition);
    clip->setDevice(m_device);
}
