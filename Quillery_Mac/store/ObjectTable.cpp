// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ObjectTable.h"

#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreChanges.h"
#include "Quillery_Mac/store/StoreConnection.h"
#include "Quillery_Mac/store/TransactionCounter.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Transaction.h>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace {

// Greater than the number of any row.
constexpr qint64 kFirstPreliminaryId = qint64{1} << 62;

RowChange readRow(const Entity &entity, const SQLite::Statement &rows)
{
    RowChange row;
    row.objectId = rows.getColumn(0).getInt64();
    int column = 0;
    for (std::size_t index = 0; index < entity.attributes.size(); ++index) {
        const Attribute &attribute = entity.attributes[index];
        if (attribute.kind == AttributeKind::Content)
            continue;
        row.values[index] = readValue(attribute, rows.getColumn(++column));
        row.attributes |= static_cast<AttributeSet>(1U << index);
    }
    return row;
}

} // namespace

ObjectTable::ObjectTable(const Entity &entity, ManagedObjectContext &context)
    : m_entity(entity)
    , m_context(context)
    , m_nextPreliminaryId(kFirstPreliminaryId)
{
}

ObjectTable::~ObjectTable() = default;

void ObjectTable::load(StoreConnection &connection)
{
    // One transaction, so that the number and the rows are of the same moment.
    SQLite::Transaction reading(connection.database());
    m_loadedTransaction = lastTransaction(connection);
    SQLite::Statement &rows = connection.statement(selectAllText(m_entity));
    while (rows.executeStep()) {
        if (!isDeletedHere(rows.getColumn(0).getInt64()))
            put(readRow(m_entity, rows));
    }
    rows.reset();
    reading.commit();
    m_isLoaded = true;
    bumpRevision();
}

bool ObjectTable::isDeletedHere(qint64 objectId) const
{
    return std::ranges::any_of(
        m_deleted, [objectId](const auto &object) { return object->m_objectId == objectId; });
}

const std::vector<ManagedObject *> &ObjectTable::sorted()
{
    if (m_sortedRevision == m_revision)
        return m_sorted;
    m_sorted.clear();
    m_sorted.reserve(m_live.size());
    for (const auto &[objectId, object] : m_live)
        m_sorted.push_back(object.get());
    const auto key = [this](const ManagedObject *object) {
        const auto *place = std::get_if<qint16>(&object->value(m_entity.sortAttribute));
        return std::tuple(place ? *place : qint16{0}, object->objectId());
    };
    std::sort(m_sorted.begin(), m_sorted.end(),
              [&key](const auto *left, const auto *right) { return key(left) < key(right); });
    m_sortedRevision = m_revision;
    return m_sorted;
}

ManagedObject *ObjectTable::find(qint64 objectId) const
{
    const auto found = m_live.find(objectId);
    return found == m_live.end() ? nullptr : found->second.get();
}

ManagedObject &ObjectTable::insertNew()
{
    RowChange row;
    row.objectId = m_nextPreliminaryId++;
    ManagedObject &object = put(row);
    object.m_isInserted = true;
    listChanged(object);
    return object;
}

void ObjectTable::remove(ManagedObject &object)
{
    const auto found = m_live.find(object.m_objectId);
    m_deleted.push_back(std::move(found->second));
    m_live.erase(found);
    object.m_isDeleted = true;
    bumpRevision();
}

ManagedObject &ObjectTable::put(const RowChange &row)
{
    std::unique_ptr<ManagedObject> &slot = m_live[row.objectId];
    if (!slot) {
        slot = m_entity.create();
        slot->m_context = &m_context;
        slot->m_objectId = row.objectId;
    }
    assignClean(*slot, row);
    return *slot;
}

void ObjectTable::assignClean(ManagedObject &object, const RowChange &row)
{
    const auto clean = static_cast<AttributeSet>(row.attributes & ~object.m_dirty);
    forEachAttribute(clean, [&](int attribute) {
        if (attribute == m_entity.contentAttribute)
            m_contents.remove(object.m_objectId);
        object.assign(attribute, row.values[static_cast<std::size_t>(attribute)]);
    });
    bumpRevision();
}

void ObjectTable::listChanged(ManagedObject &object)
{
    if (!std::exchange(object.m_isChangeListed, true))
        m_changed.push_back(&object);
}

void ObjectTable::unlistChanged(ManagedObject &object)
{
    if (std::exchange(object.m_isChangeListed, false))
        std::erase(m_changed, &object);
}

void ObjectTable::setSaved(ManagedObject &object, qint64 objectId)
{
    if (object.m_objectId != objectId) {
        auto node = m_live.extract(object.m_objectId);
        node.key() = objectId;
        m_live.insert(std::move(node));
        object.m_objectId = objectId;
    }
    AttributeValue &content = object.m_values[static_cast<std::size_t>(m_entity.contentAttribute)];
    if (object.m_dirty & (1U << m_entity.contentAttribute)) {
        m_contents.remove(objectId);
        if (const auto *bytes = std::get_if<QByteArray>(&content))
            m_contents.setContent(objectId, *bytes);
        content = {};
    }
    object.m_dirty = 0;
    object.m_isInserted = false;
    object.m_isDeletePending = false;
    object.m_isChangeListed = false;
}

std::vector<std::unique_ptr<ManagedObject>> ObjectTable::takeDeleted()
{
    const auto inFile =
        std::stable_partition(m_deleted.begin(), m_deleted.end(),
                              [](const auto &object) { return object->m_isDeletePending; });
    std::vector<std::unique_ptr<ManagedObject>> result(std::make_move_iterator(inFile),
                                                       std::make_move_iterator(m_deleted.end()));
    m_deleted.erase(inFile, m_deleted.end());
    return result;
}
