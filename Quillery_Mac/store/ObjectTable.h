// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ContentCache.h"
#include "Quillery_Mac/store/ManagedObject.h"

#include <memory>
#include <unordered_map>
#include <vector>

class StoreConnection;
struct RowChange;

/// The objects of one entity in one context, each row once. Knows nothing of notices and
/// transactions; that is the context's.
class ObjectTable
{
public:
    ObjectTable(const Entity &entity, ManagedObjectContext &context);
    ~ObjectTable();
    Q_DISABLE_COPY_MOVE(ObjectTable)

    const Entity &entity() const { return m_entity; }
    ContentCache &contents() { return m_contents; }

    /// Whether all rows of the file have their object here.
    bool isLoaded() const { return m_isLoaded; }
    /// The last transaction that load() saw in the file.
    qint64 loadedTransaction() const { return m_loadedTransaction; }
    /// Makes an object of every row. Throws SQLite::Exception; the rows read so far stay.
    void load(StoreConnection &connection);
    /// There is no file to load from: what is here is all.
    void setLoadedWithoutFile() { m_isLoaded = true; }

    qsizetype count() const { return static_cast<qsizetype>(m_live.size()); }
    /// Sorted by the sort attribute, ties by objectId; deleted ones are not among them.
    const std::vector<ManagedObject *> &sorted();
    ManagedObject *find(qint64 objectId) const;

    ManagedObject &insertNew();
    /// Takes an object out of the lists; it stays readable among the deleted ones.
    void remove(ManagedObject &object);
    /// The object for a row that was read or merged: new, or the known one with the attributes
    /// that are not changed here set to the row's.
    ManagedObject &put(const RowChange &row);
    /// Sets the attributes of the row that are not changed here.
    void assignClean(ManagedObject &object, const RowChange &row);

    /// The objects that wait for a save, deleted ones too, in the order of their first change.
    const std::vector<ManagedObject *> &changed() const { return m_changed; }
    void listChanged(ManagedObject &object);
    void unlistChanged(ManagedObject &object);
    /// The object's row is written, under this number: nothing of it is changed any more.
    void setSaved(ManagedObject &object, qint64 objectId);
    void clearChanged() { m_changed.clear(); }

    quint64 revision() const { return m_revision; }
    void bumpRevision() { ++m_revision; }

    /// Hands out the objects whose deletion is in the file, so that the caller frees them.
    std::vector<std::unique_ptr<ManagedObject>> takeDeleted();

private:
    bool isDeletedHere(qint64 objectId) const;

    const Entity &m_entity;
    ManagedObjectContext &m_context;
    std::unordered_map<qint64, std::unique_ptr<ManagedObject>> m_live;
    std::vector<std::unique_ptr<ManagedObject>> m_deleted;
    std::vector<ManagedObject *> m_changed;
    std::vector<ManagedObject *> m_sorted;
    ContentCache m_contents;
    quint64 m_revision = 1;
    quint64 m_sortedRevision = 0;
    qint64 m_nextPreliminaryId;
    qint64 m_loadedTransaction = 0;
    bool m_isLoaded = false;
};
