// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/StoreDescription.h"

#include <functional>
#include <memory>
#include <vector>

class BackgroundQueue;
class MergeQueue;
class PersistentHistory;
class PersistentStore;

/// The stores, the context that all views share, and background work on the stores. Created, used
/// and destroyed on the main thread; destroying it waits for the background tasks.
///
/// A save of the view context that met a long write, or would be one, as it deletes long texts, is
/// put off. The container then sends a turn through the background thread, which deletes what the
/// save is to delete: when that comes up, behind the write, the main thread saves the rest.
/// Tasks given meanwhile are held back until then, so that a task sees what was saved before it was
/// given, also what was put off, and no stream of tasks can put the save off for ever. A file that
/// another program keeps locked makes that save fail.
class PersistentContainer : public QObject
{
    Q_OBJECT

public:
    using Task = std::function<void(ManagedObjectContext &context)>;

    /// @param descriptions the stores, each kind at most once; loaded in this order
    explicit PersistentContainer(const std::vector<StoreDescription> &descriptions);

    /// The stores as they were described, in that order, loaded or not.
    const std::vector<StoreDescription> &persistentStoreDescriptions() const
    {
        return m_descriptions;
    }
    ~PersistentContainer() override;

    /// The context of all views and live fetches. What background tasks save is merged into it by
    /// the event loop, or by waitForBackgroundTasks().
    ManagedObjectContext &viewContext() { return *m_viewContext; }

    /// Runs `task` on the container's one private thread, after all tasks given before, with a
    /// context of its own that ends with the task. The task saves the context itself.
    void performBackgroundTask(Task task);

    /// Runs `task` on a second private thread, after all readings given before, with a context that
    /// can only read: for long work that no recording should wait for. `done` is called afterwards
    /// by the event loop of the main thread.
    void performBackgroundReading(Task task, std::function<void()> done);

    /// Returns when all tasks and readings given so far have ended and what they saved is merged
    /// into the view context.
    void waitForBackgroundTasks();

    /// Whether the store of this kind was loaded and is in use.
    bool isLoaded(StoreKind kind) const;

    /// What was saved to a store, for those who carry it elsewhere. Main thread.
    PersistentHistory &history(StoreKind kind);

signals:
    /// A context's save reached the file of the store, and the disk; on the main thread.
    void didSave(StoreKind kind);

private:
    void load(const StoreDescription &description);
    void startTask(Task task);
    using ConnectionOf = StoreConnection *(PersistentStore::*)();
    void runTask(const Task &task, ConnectionOf connectionOf);
    void saveWhenWritable();
    /// Takes the rows out of the files that the main thread's saves, put off, are to delete.
    void deletePutOff();
    void writersAreDone(bool areDone);
    /// Ends the tasks given so far, those held back too.
    void finishTasks();
    bool waitForWriters();
    void wakeForMerge();
    void finishSave(StoreKind kind);
    void mergeQueued();
    /// On the background thread, so that no save of the main thread waits for it.
    void writeBackLogs();

    const std::vector<StoreDescription> m_descriptions;
    std::array<std::unique_ptr<PersistentStore>, kStoreCount> m_stores;
    std::array<std::unique_ptr<PersistentHistory>, kStoreCount> m_histories;
    std::unique_ptr<MergeQueue> m_mergeQueue;
    std::unique_ptr<ManagedObjectContext> m_viewContext;
    std::unique_ptr<BackgroundQueue> m_background;
    std::unique_ptr<BackgroundQueue> m_reading; ///< made for the first reading
    bool m_isWaitingForWriters = false;
    std::vector<Task> m_heldTasks; ///< given while m_isWaitingForWriters
};
