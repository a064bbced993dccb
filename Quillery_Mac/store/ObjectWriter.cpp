// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ObjectWriter.h"

#include "Quillery_Mac/store/ObjectTable.h"
#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreConnection.h"

#include <SQLiteCpp/Column.h>

namespace {

AttributeSet allAttributes(const Entity &entity)
{
    return static_cast<AttributeSet>((1U << entity.attributes.size()) - 1);
}

} // namespace

ObjectWriter::ObjectWriter(StoreConnection &connection, ObjectTable &table)
    : m_connection(connection)
    , m_table(table)
{
    m_changes.store = table.entity().store;
}

void ObjectWriter::write()
{
    m_written.reserve(m_table.changed().size());
    for (ManagedObject *object : m_table.changed()) {
        m_written.push_back({object, object->m_objectId});
        if (object->m_isDeletePending)
            deleteRow(*object);
        else if (object->m_isInserted)
            insertRow(*object);
        else if (object->m_dirty != 0)
            updateRow(*object);
    }
}

void ObjectWriter::insertRow(ManagedObject &object)
{
    const Entity &entity = m_table.entity();
    SQLite::Statement &insertion = m_connection.statement(insertText(entity, object.m_dirty));
    int parameter = 0;
    forEachAttribute(object.m_dirty, [&](int attribute) {
        bindValue(insertion, ++parameter, object.value(attribute));
    });
    insertion.exec();
    m_written.back().objectId = m_connection.database().getLastInsertRowid();
    RowChange row = rowOf(object, allAttributes(entity));
    row.objectId = m_written.back().objectId;
    m_changes.inserted.push_back(std::move(row));
}

void ObjectWriter::updateRow(ManagedObject &object)
{
    SQLite::Statement &update =
        m_connection.statement(updateText(m_table.entity(), object.m_dirty));
    int parameter = 0;
    forEachAttribute(object.m_dirty, [&](int attribute) {
        bindValue(update, ++parameter, object.value(attribute));
    });
    update.bind(parameter + 1, int64_t{object.m_objectId});
    if (update.exec() == 0)
        m_vanished.push_back(&object);
    else
        m_changes.updated.push_back(rowOf(object, object.m_dirty));
}

void ObjectWriter::deleteRow(const ManagedObject &object)
{
    SQLite::Statement &deletion = m_connection.statement(deleteText(m_table.entity()));
    deletion.bind(1, int64_t{object.m_objectId});
    // No row: somebody else deleted it, which is as well.
    if (deletion.executeStep()) {
        // Another program may have put any text there; only a UUID is one.
        const QUuid id = QUuid::fromString(QString::fromUtf8(deletion.getColumn(0).getText()));
        m_changes.deleted.push_back({object.m_objectId, id.isNull() ? QString() : idText(id)});
        deletion.executeStep();
    }
    deletion.reset();
}

RowChange ObjectWriter::rowOf(const ManagedObject &object, AttributeSet attributes) const
{
    RowChange row{object.m_objectId, attributes, object.m_values};
    row.values[static_cast<std::size_t>(m_table.entity().contentAttribute)] = {};
    return row;
}

std::vector<ManagedObject *> ObjectWriter::finish()
{
    for (const Written &written : m_written)
        m_table.setSaved(*written.object, written.objectId);
    m_table.clearChanged();
    return m_vanished;
}
