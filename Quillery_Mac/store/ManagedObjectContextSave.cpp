// SPDX-License-Identifier: MIT
// Saving, and taking over what others saved. How the two keep each other right stands in
// MergeQueue.h.
#include "Quillery_Mac/store/ChangeNotice.h"
#include "Quillery_Mac/store/HistoryWriter.h"
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/MergeQueue.h"
#include "Quillery_Mac/store/ObjectTable.h"
#include "Quillery_Mac/store/ObjectWriter.h"
#include "Quillery_Mac/store/StoreConnection.h"
#include "Quillery_Mac/store/TransactionCounter.h"

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Transaction.h>

using platform::Error;

platform::Result<void> ManagedObjectContext::save()
{
    platform::Result<void> result;
    for (const StoreKind kind : kStoreKinds) {
        if (m_tables[static_cast<std::size_t>(kind)]->changed().empty())
            continue;
        if (const auto saved = saveStore(kind); !saved && result)
            result = saved;
    }
    return result;
}

platform::Result<void> ManagedObjectContext::saveStore(StoreKind kind)
{
    ObjectTable &objects = *m_tables[static_cast<std::size_t>(kind)];
    StoreConnection *file = connection(kind);
    if (!file) {
        return platform::failure(Error::Kind::Unavailable,
                                 QStringLiteral("Save %1: store is not loaded")
                                     .arg(QLatin1String(objects.entity().name)));
    }
    try {
        writeStore(*file, objects);
    } catch (const SQLite::Exception &error) {
        return tl::unexpected(file->failed(error, QStringLiteral("Save")));
    }
    m_notice->keep(objects.takeDeleted());
    emit didSave(kind);
    return {};
}

void ManagedObjectContext::writeStore(StoreConnection &file, ObjectTable &objects)
{
    SQLite::Transaction transaction(file.database(), SQLite::TransactionBehavior::IMMEDIATE);
    if (m_role == Role::View) {
        m_mergeQueue.waitForCommit();
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
