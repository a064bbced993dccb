// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ManagedObjectContext.h"

#include "Quillery_Mac/store/ChangeNotice.h"
#include "Quillery_Mac/store/ContentReader.h"
#include "Quillery_Mac/store/MergeQueue.h"
#include "Quillery_Mac/store/ObjectTable.h"
#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreConnection.h"
#include "platform/log/Log.h"

#include <SQLiteCpp/Exception.h>

#include <utility>

ManagedObjectContext::ManagedObjectContext(Role role, const StoreConnections &connections,
                                           MergeQueue &mergeQueue)
    : m_role(role)
    , m_connections(connections)
    , m_mergeQueue(mergeQueue)
    , m_notice(std::make_unique<ChangeNotice>())
{
    for (const StoreKind kind : kStoreKinds) {
        m_tables[static_cast<std::size_t>(kind)] =
            std::make_unique<ObjectTable>(entityOf(kind), *this);
    }
}

ManagedObjectContext::~ManagedObjectContext() = default;

bool ManagedObjectContext::hasChanges() const
{
    return std::ranges::any_of(m_tables,
                               [](const auto &table) { return !table->changed().empty(); });
}

quint64 ManagedObjectContext::revision(const Entity &entity) const
{
    return table(entity).revision();
}

ObjectTable &ManagedObjectContext::table(const Entity &entity) const
{
    return *m_tables[static_cast<std::size_t>(entity.store)];
}

StoreConnection *ManagedObjectContext::connection(StoreKind kind) const
{
    StoreConnection *connection = m_connections[static_cast<std::size_t>(kind)];
    return connection && connection->isUsable() ? connection : nullptr;
}

ObjectTable &ManagedObjectContext::loadedTable(const Entity &entity)
{
    ObjectTable &objects = table(entity);
    if (objects.isLoaded())
        return objects;
    StoreConnection *file = connection(entity.store);
    if (!file) {
        objects.setLoadedWithoutFile();
        return objects;
    }
    try {
        objects.load(*file);
    } catch (const SQLite::Exception &error) {
        qCWarning(logStore) << file->failed(error, QStringLiteral("Fetch from")).text;
    }
    return objects;
}

const std::vector<ManagedObject *> &ManagedObjectContext::fetchObjects(const Entity &entity)
{
    return loadedTable(entity).sorted();
}

qsizetype ManagedObjectContext::countObjects(const Entity &entity)
{
    return loadedTable(entity).count();
}

ManagedObject *ManagedObjectContext::findObject(const Entity &entity, qint64 objectId)
{
    return loadedTable(entity).find(objectId);
}

ManagedObject *ManagedObjectContext::insertObject(const Entity &entity)
{
    ManagedObject &object = table(entity).insertNew();
    m_notice->addInserted(object);
    noteChange(object);
    return &object;
}

void ManagedObjectContext::deleteObject(ManagedObject &object)
{
    Q_ASSERT(object.managedObjectContext() == this);
    if (object.isDeleted())
        return;
    ObjectTable &objects = table(object.entity());
    objects.unlistChanged(object);
    objects.remove(object);
    noteChange(object);
    if (object.isInserted()) {
        m_notice->keep(objects.takeDeleted());
    } else {
        object.m_isDeletePending = true;
        objects.listChanged(object);
    }
}

std::optional<QByteArray> ManagedObjectContext::content(const ManagedObject &object) const
{
    const Entity &entity = object.entity();
    if (object.m_isInserted || (object.m_dirty & (1U << entity.contentAttribute)))
        return object.optionalValue<QByteArray>(entity.contentAttribute);
    ContentCache &contents = table(entity).contents();
    if (auto known = contents.content(object.objectId()))
        return known;
    StoreConnection *file = connection(entity.store);
    if (!file)
        return std::nullopt;
    try {
        auto content = readContent(*file, entity, object.objectId());
        if (content)
            contents.setContent(object.objectId(), *content);
        return content;
    } catch (const SQLite::Exception &error) {
        qCWarning(logStore) << file->failed(error, QStringLiteral("Read a text from")).text;
        return std::nullopt;
    }
}

TextPreview ManagedObjectContext::preview(const ManagedObject &object) const
{
    const Entity &entity = object.entity();
    if (object.m_isInserted || (object.m_dirty & (1U << entity.contentAttribute))) {
        const auto bytes = object.optionalValue<QByteArray>(entity.contentAttribute);
        return bytes ? makeTextPreview(*bytes, bytes->size()) : TextPreview();
    }
    ContentCache &contents = table(entity).contents();
    if (auto known = contents.preview(object.objectId()))
        return *known;
    StoreConnection *file = connection(entity.store);
    if (!file)
        return {};
    try {
        TextPreview preview = readPreview(*file, entity, object.objectId());
        contents.setPreview(object.objectId(), preview);
        return preview;
    } catch (const SQLite::Exception &error) {
        qCWarning(logStore) << file->failed(error, QStringLiteral("Read a text from")).text;
        return {};
    }
}

qsizetype ManagedObjectContext::contentSize(const ManagedObject &object) const
{
    const Entity &entity = object.entity();
    if (object.m_isInserted || (object.m_dirty & (1U << entity.contentAttribute)))
        return object.optionalValue<QByteArray>(entity.contentAttribute).value_or("").size();
    return sizeInFile(object);
}

qsizetype ManagedObjectContext::sizeInFile(const ManagedObject &object) const
{
    const Entity &entity = object.entity();
    StoreConnection *file = connection(entity.store);
    if (!file)
        return 0;
    try {
        return readContentSize(*file, entity, object.objectId());
    } catch (const SQLite::Exception &error) {
        qCWarning(logStore) << file->failed(error, QStringLiteral("Read a text from")).text;
        return 0;
    }
}

void ManagedObjectContext::noteChange(ManagedObject &object)
{
    ObjectTable &objects = table(object.entity());
    objects.bumpRevision();
    if (!object.isDeleted())
        objects.listChanged(object);
    m_notice->addChanged(object);
    scheduleAnnouncement();
}

void ManagedObjectContext::scheduleAnnouncement()
{
    if (m_role == Role::View && !std::exchange(m_isAnnouncementScheduled, true))
        QMetaObject::invokeMethod(this, &ManagedObjectContext::announce, Qt::QueuedConnection);
}

void ManagedObjectContext::announce()
{
    m_isAnnouncementScheduled = false;
    if (m_notice->isEmpty())
        return;
    const ObjectChanges changes = m_notice->take();
    auto kept = std::make_shared<std::vector<std::unique_ptr<ManagedObject>>>(m_notice->takeKept());
    if (!changes.isEmpty())
        emit objectsDidChange(changes);
    // Freed with the closure, in the next turn of the event loop.
    QMetaObject::invokeMethod(
        this, [kept] {}, Qt::QueuedConnection);
}
