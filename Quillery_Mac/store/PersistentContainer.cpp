// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistentContainer.h"

#include "Quillery_Mac/store/BackgroundQueue.h"
#include "Quillery_Mac/store/MergeQueue.h"
#include "Quillery_Mac/store/PersistentHistory.h"
#include "Quillery_Mac/store/PersistentStore.h"

#include <utility>

PersistentContainer::PersistentContainer(const std::vector<StoreDescription> &descriptions)
    : m_descriptions(descriptions)
    , m_mergeQueue(std::make_unique<MergeQueue>([this] { wakeForMerge(); }))
    , m_background(std::make_unique<BackgroundQueue>())
{
    for (const StoreDescription &description : descriptions)
        load(description);
    StoreConnections connections{};
    for (const StoreKind kind : kStoreKinds) {
        const auto index = static_cast<std::size_t>(kind);
        connections[index] = m_stores[index] ? &m_stores[index]->viewConnection() : nullptr;
        m_histories[index] = std::make_unique<PersistentHistory>(connections[index]);
    }
    m_viewContext = std::make_unique<ManagedObjectContext>(ManagedObjectContext::Role::View,
                                                           connections, *m_mergeQueue);
    connect(m_viewContext.get(), &ManagedObjectContext::saveWasPutOff, this,
            &PersistentContainer::saveWhenWritable);
    connect(m_viewContext.get(), &ManagedObjectContext::didSave, this,
            &PersistentContainer::finishSave);
}

PersistentContainer::~PersistentContainer()
{
    m_reading.reset();
    finishTasks();
    m_background.reset();
}

void PersistentContainer::load(const StoreDescription &description)
{
    auto store = PersistentStore::load(description);
    if (store)
        m_stores[static_cast<std::size_t>(description.kind)] = std::move(*store);
    else
        printStoreError(store.error());
}

bool PersistentContainer::isLoaded(StoreKind kind) const
{
    const auto &store = m_stores[static_cast<std::size_t>(kind)];
    return store && store->isUsable();
}

PersistentHistory &PersistentContainer::history(StoreKind kind)
{
    return *m_histories[static_cast<std::size_t>(kind)];
}

void PersistentContainer::performBackgroundTask(Task task)
{
    if (m_isWaitingForWriters)
        m_heldTasks.push_back(std::move(task));
    else
        startTask(std::move(task));
}

void PersistentContainer::startTask(Task task)
{
    m_background->add([this, task = std::move(task)] {
        runTask(task, &PersistentStore::backgroundConnection);
        writeBackLogs();
    });
}

void PersistentContainer::performBackgroundReading(Task task, std::function<void()> done)
{
    if (!m_reading)
        m_reading = std::make_unique<BackgroundQueue>();
    m_reading->add([this, task = std::move(task), done = std::move(done)] {
        runTask(task, &PersistentStore::readingConnection);
        QMetaObject::invokeMethod(this, done, Qt::QueuedConnection);
    });
}

void PersistentContainer::runTask(const Task &task, ConnectionOf connectionOf)
{
    StoreConnections connections{};
    for (const StoreKind kind : kStoreKinds) {
        const auto index = static_cast<std::size_t>(kind);
        PersistentStore *store = m_stores[index].get();
        connections[index] = store ? (store->*connectionOf)() : nullptr;
    }
    ManagedObjectContext context(ManagedObjectContext::Role::Background, connections,
                                 *m_mergeQueue);
    task(context);
}

void PersistentContainer::waitForBackgroundTasks()
{
    if (m_reading)
        m_reading->wait();
    finishTasks();
    m_viewContext->mergeQueued();
}

void PersistentContainer::finishTasks()
{
    m_background->wait();
    if (!m_isWaitingForWriters)
        return;
    // No writer of our own is left.
    writersAreDone(false);
    m_background->wait();
}

void PersistentContainer::saveWhenWritable()
{
    deletePutOff();
    if (std::exchange(m_isWaitingForWriters, true))
        return;
    m_background->add([this] {
        const bool areDone = waitForWriters();
        QMetaObject::invokeMethod(
            this, [this, areDone] { writersAreDone(areDone); }, Qt::QueuedConnection);
    });
}

void PersistentContainer::deletePutOff()
{
    for (const StoreKind kind : kStoreKinds) {
        const std::vector<qint64> objectIds = m_viewContext->putOffDeletions(kind);
        if (objectIds.empty())
            continue;
        const auto deletion = [kind, objectIds,
                               author = m_viewContext->m_author](ManagedObjectContext &context) {
            context.setTransactionAuthor(author);
            context.deleteAndSave(kind, objectIds);
        };
        m_background->add(
            [this, deletion] { runTask(deletion, &PersistentStore::backgroundConnection); });
    }
}

bool PersistentContainer::waitForWriters()
{
    bool areDone = true;
    for (const auto &store : m_stores)
        areDone = (!store || store->waitForWriter()) && areDone;
    return areDone;
}

void PersistentContainer::writersAreDone(bool areDone)
{
    using WhenBusy = ManagedObjectContext::WhenBusy;
    // finishTasks() was here before.
    if (!std::exchange(m_isWaitingForWriters, false))
        return;
    m_viewContext->savePutOff(areDone ? WhenBusy::PutOff : WhenBusy::Fail);
    if (m_isWaitingForWriters)
        return;
    for (Task &task : std::exchange(m_heldTasks, {}))
        startTask(std::move(task));
}

void PersistentContainer::wakeForMerge()
{
    QMetaObject::invokeMethod(this, &PersistentContainer::mergeQueued, Qt::QueuedConnection);
}

void PersistentContainer::mergeQueued()
{
    m_viewContext->mergeQueued();
    m_viewContext->announce();
}

void PersistentContainer::finishSave(StoreKind kind)
{
    m_background->add([this, kind] {
        m_stores[static_cast<std::size_t>(kind)]->syncLog();
        QMetaObject::invokeMethod(
            this, [this, kind] { emit didSave(kind); }, Qt::QueuedConnection);
        writeBackLogs();
    });
}

void PersistentContainer::writeBackLogs()
{
    for (const auto &store : m_stores) {
        if (store && store->needsCheckpoint())
            store->checkpoint();
    }
}
