// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObject.h"
#include "platform/Result.h"

#include <QObject>

#include <memory>
#include <vector>

class ChangeNotice;
class MergeQueue;
class ObjectTable;
class StoreConnection;
struct StoreChanges;

/// The connections that a context reads and writes by, one per store kind; null where a store is
/// not loaded.
using StoreConnections = std::array<StoreConnection *, kStoreCount>;

/// What changed in a context since the last notice. Every object is in one list only; the deleted
/// ones are still readable.
struct ObjectChanges
{
    std::vector<ManagedObject *> inserted;
    std::vector<ManagedObject *> updated;
    std::vector<ManagedObject *> deleted;

    bool isEmpty() const { return inserted.empty() && updated.empty() && deleted.empty(); }
    bool concerns(const Entity &entity) const;
};

/// What became of a save: the changes are in the files, or will be as soon as a long write in the
/// background is over.
enum class Saved { Now, Later };

/// A scratch pad over the stores: unique objects, changes that stay here until save(). Made by the
/// PersistentContainer; used on one thread only (the view context on the main thread, others inside
/// their background task).
class ManagedObjectContext : public QObject
{
    Q_OBJECT

public:
    enum class Role { View, Background };

    ManagedObjectContext(Role role, const StoreConnections &connections, MergeQueue &mergeQueue);
    ~ManagedObjectContext() override;

    /// All objects of class E, unsaved ones included, deleted ones not: sorted by `order` or
    /// `position` ascending, ties by objectId(). Empty when the store is not loaded.
    template <class E>
    std::vector<E *> fetch()
    {
        const std::vector<ManagedObject *> &objects = fetchObjects(E::staticEntity());
        std::vector<E *> result(objects.size());
        for (std::size_t i = 0; i < objects.size(); ++i)
            result[i] = static_cast<E *>(objects[i]);
        return result;
    }
    /// How many objects fetch() would answer with.
    template <class E>
    qsizetype count()
    {
        return countObjects(E::staticEntity());
    }
    /// The object with this number; null when there is none (any more).
    template <class E>
    E *object(qint64 objectId)
    {
        return static_cast<E *>(findObject(E::staticEntity(), objectId));
    }
    /// A new object with all attributes missing, zero or false. It reaches the file by save().
    template <class E>
    E *insert()
    {
        return static_cast<E *>(insertObject(E::staticEntity()));
    }
    /// Takes the object out of all fetches at once and, by save(), out of the file.
    void deleteObject(ManagedObject &object);

    /// Writes what changed, one transaction per store, only the attributes that changed. Where
    /// another context changed the same attribute meanwhile, ours stays; an object that was deleted
    /// meanwhile stays deleted, which is no error.
    ///
    /// The view context does not keep the main thread waiting for a long write of another context,
    /// nor for long texts that leave the file: it answers Saved::Later, the objects stay changed,
    /// and the container saves them, with what has changed since, when that write is over;
    /// didSave() or putOffSaveFailed() tells. A background context waits and always answers
    /// Saved::Now.
    /// Errors: Unavailable if a changed object's store is not loaded, Io if the file cannot be
    /// written, TimedOut if another program keeps it locked. What was not written stays changed,
    /// and a later save writes it.
    platform::Result<Saved> save();
    bool hasChanges() const;

    /// Whose changes these are, for the persistent history; empty for the program itself.
    void setTransactionAuthor(const QString &author) { m_author = author; }

    /// Another number after every change of the objects of an entity.
    quint64 revision(const Entity &entity) const;

signals:
    /// What changed here or was merged, coalesced: once per merge, and once per turn of the event
    /// loop for the changes of this context.
    void objectsDidChange(const ObjectChanges &changes);
    /// A save of this context, or one that was merged into it, is in the file of the store: the end
    /// of the program does not harm it any more. PersistentContainer tells when it is on the disk.
    void didSave(StoreKind kind);
    /// A save answered Saved::Later.
    void saveWasPutOff();
    /// A save that answered Saved::Later came to nothing, with an error of save().
    void putOffSaveFailed(const platform::Error &error);

private:
    friend class ManagedObject;
    friend class PersistentContainer;

    const std::vector<ManagedObject *> &fetchObjects(const Entity &entity);
    qsizetype countObjects(const Entity &entity);
    ManagedObject *findObject(const Entity &entity, qint64 objectId);
    ManagedObject *insertObject(const Entity &entity);

    ObjectTable &table(const Entity &entity) const;
    ObjectTable &loadedTable(const Entity &entity);
    /// The store's connection; null if it cannot be used.
    StoreConnection *connection(StoreKind kind) const;

    std::optional<QByteArray> content(const ManagedObject &object) const;
    TextPreview preview(const ManagedObject &object) const;
    qsizetype contentSize(const ManagedObject &object) const;
    /// The length of the content that the file holds, whatever stands here.
    qsizetype sizeInFile(const ManagedObject &object) const;
    /// A setter changed an attribute of an object of ours.
    void noteChange(ManagedObject &object);

    enum class WhenBusy { PutOff, Fail };

    platform::Result<Saved> saveOrPutOff(StoreKind kind);
    platform::Result<Saved> saveStore(StoreKind kind, WhenBusy whenBusy);
    Saved putOff(StoreKind kind);
    bool deletesLongTexts(StoreKind kind) const;
    /// The rows that a save of this store deletes, which was put off; empty if none was. A
    /// background context takes them out of the file by deleteAndSave().
    std::vector<qint64> putOffDeletions(StoreKind kind) const;
    void deleteAndSave(StoreKind kind, const std::vector<qint64> &objectIds);
    /// Saves what was put off.
    void savePutOff(WhenBusy whenBusy);
    void writeStore(StoreConnection &file, ObjectTable &objects);

    /// Takes over what other contexts saved; the notice comes with announce().
    void mergeQueued();
    void merge(const StoreChanges &changes);
    void mergeDeletion(ObjectTable &objects, qint64 objectId);

    void scheduleAnnouncement();
    void announce();

    const Role m_role;
    StoreConnections m_connections;
    MergeQueue &m_mergeQueue;
    QString m_author;
    std::array<std::unique_ptr<ObjectTable>, kStoreCount> m_tables;
    std::unique_ptr<ChangeNotice> m_notice;
    std::array<bool, kStoreCount> m_isPutOff{}; ///< the container will call savePutOff()
    bool m_isAnnouncementScheduled = false;
};
