// SPDX-License-Identifier: MIT
// Saving, and taking over what others saved. How the two keep each other right stands in
// MergeQueue.h; when what was put off is saved, in PersistentContainer.h.
#include "Quillery_Mac/store/ChangeNotice.h"
#include "Quillery_Mac/store/HistoryWriter.h"
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/MergeQueue.h"
#include "Quillery_Mac/store/ObjectTable.h"
#include "Quillery_Mac/store/ObjectWriter.h"
#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreConnection.h"
#include "Quillery_Mac/store/TransactionCounter.h"
#include "platform/log/Log.h"

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Transaction.h>

#include <utility>

using platform::Error;

namespace {

// In bytes, all texts that one save deletes. The file gives up some 600 MB a second (measured with
// 50 MB: 80 ms), so that less than this keeps nobody.
constexpr qsizetype kLongDeletion = 1 << 20;

} // namespace

platform::Result<Saved> ManagedObjectContext::save()
{
    platform::Result<Saved> result = Saved::Now;
    for (const StoreKind kind : kStoreKinds) {
        const platform::Result<Saved> saved = saveOrPutOff(kind);
        // The first error counts, and any error for more than a save that was put off.
        if (result && (!saved || *saved == Saved::Later))
            result = saved;
    }
    return result;
}

platform::Result<Saved> ManagedObjectContext::saveOrPutOff(StoreKind kind)
{
    if (m_role == Role::Background)
        return saveStore(kind, WhenBusy::Fail);
    // The container saves it; another try would only keep the main thread.
    if (m_isPutOff[static_cast<std::size_t>(kind)])
        return Saved::Later;
    return deletesLongTexts(kind) ? putOff(kind) : saveStore(kind, WhenBusy::PutOff);
}

Saved ManagedObjectContext::putOff(StoreKind kind)
{
    m_isPutOff[static_cast<std::size_t>(kind)] = true;
    emit saveWasPutOff();
    return Saved::Later;
}

bool ManagedObjectContext::deletesLongTexts(StoreKind kind) const
{
    qsizetype bytes = 0;
    for (const ManagedObject *object : m_tables[static_cast<std::size_t>(kind)]->changed()) {
        if (object->m_isDeletePending)
            bytes += sizeInFile(*object);
        if (bytes >= kLongDeletion)
            return true;
    }
    return false;
}

std::vector<qint64> ManagedObjectContext::putOffDeletions(StoreKind kind) const
{
    std::vector<qint64> objectIds;
    if (!m_isPutOff[static_cast<std::size_t>(kind)])
        return objectIds;
    for (const ManagedObject *object : m_tables[static_cast<std::size_t>(kind)]->changed()) {
        if (object->m_isDeletePending)
            objectIds.push_back(object->m_objectId);
    }
    return objectIds;
}

void ManagedObjectContext::deleteAndSave(StoreKind kind, const std::vector<qint64> &objectIds)
{
    for (const qint64 objectId : objectIds) {
        if (ManagedObject *object = findObject(entityOf(kind), objectId))
            deleteObject(*object);
    }
    // What fails here the main thread tries again, and tells.
    if (const auto saved = save(); !saved)
        qCWarning(logStore) << saved.error().text;
}

void ManagedObjectContext::savePutOff(WhenBusy whenBusy)
{
    for (const StoreKind kind : kStoreKinds) {
        if (!std::exchange(m_isPutOff[static_cast<std::size_t>(kind)], false))
            continue;
        const auto saved = saveStore(kind, whenBusy);
        if (!saved) {
            qCWarning(logStore) << saved.error().text;
            emit putOffSaveFailed(saved.error());
        }
    }
}

platform::Result<Saved> ManagedObjectContext::saveStore(StoreKind kind, WhenBusy whenBusy)
{
    ObjectTable &objects = *m_tables[static_cast<std::size_t>(kind)];
    if (objects.changed().empty())
        return Saved::Now;
    StoreConnection *file = connection(kind);
    if (!file) {
        return platform::failure(Error::Kind::Unavailable,
                                 QStringLiteral("Save %1: store is not loaded")
                                     .arg(QLatin1String(objects.entity().name)));
    }
    try {
        writeStore(*file, objects);
    } catch (const SQLite::Exception &error) {
        if (whenBusy == WhenBusy::Fail || !StoreConnection::isBusy(error))
            return tl::unexpected(file->failed(error, QStringLiteral("Save")));
        return putOff(kind);
    }
    m_notice->keep(objects.takeDeleted());
    emit didSave(kind);
    return Saved::Now;
}

void ManagedObjectContext::writeStore(StoreConnection &file, ObjectTable &objects)
{
    SQLite::Transaction transaction(file.database(), SQLite::TransactionBehavior::IMMEDIATE);
    if (m_role == Role::View) {
        m_mergeQueue.waitForCommit(objects.entity().store);
        mergeQueued();
    }
    ObjectWriter writer(file, objects);
    writer.write();
    StoreChanges changes = writer.changes();
    changes.transaction = countTransaction(file);
    writeHistory(file, changes, m_author);
    if (m_role == Role::View)
        transaction.commit();
    else
        m_mergeQueue.commitAndQueue([&transaction] { transaction.commit(); }, std::move(changes));
    for (ManagedObject *vanished : writer.finish()) {
        objects.remove(*vanished);
        m_notice->addChanged(*vanished);
    }
}

void ManagedObjectContext::mergeQueued()
{
    for (const StoreChanges &changes : m_mergeQueue.takeAll()) {
        merge(changes);
        emit didSave(changes.store);
    }
}

void ManagedObjectContext::merge(const StoreChanges &changes)
{
    ObjectTable &objects = *m_tables[static_cast<std::size_t>(changes.store)];
    // The objects were read from the file after this transaction: there is nothing to learn from
    // it.
    if (changes.transaction <= objects.loadedTransaction())
        return;
    for (const RowChange &row : changes.inserted) {
        if (objects.isLoaded() && !objects.find(row.objectId))
            m_notice->addInserted(objects.put(row));
    }
    for (const RowChange &row : changes.updated) {
        if (ManagedObject *object = objects.find(row.objectId)) {
            objects.assignClean(*object, row);
            m_notice->addChanged(*object);
        }
    }
    for (const RowDeletion &row : changes.deleted)
        mergeDeletion(objects, row.objectId);
    m_notice->keep(objects.takeDeleted());
    if (!m_notice->isEmpty())
        scheduleAnnouncement();
}

void ManagedObjectContext::mergeDeletion(ObjectTable &objects, qint64 objectId)
{
    ManagedObject *object = objects.find(objectId);
    if (!object)
        return;
    objects.unlistChanged(*object);
    objects.remove(*object);
    m_notice->addChanged(*object);
}
