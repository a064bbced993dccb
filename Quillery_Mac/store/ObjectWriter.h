// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObject.h"
#include "Quillery_Mac/store/StoreChanges.h"

#include <vector>

class ObjectTable;
class StoreConnection;

/// One save of one table: writes the changed objects inside a transaction of the caller's, and,
/// once that is committed, lets the objects know. Without finish() the objects stay changed.
class ObjectWriter
{
public:
    ObjectWriter(StoreConnection &connection, ObjectTable &table);

    /// Writes every changed object of the table. Throws SQLite::Exception.
    void write();
    /// What write() wrote.
    const StoreChanges &changes() const { return m_changes; }
    /// The transaction is committed. Answers with the objects that turned out to be deleted from
    /// the file by somebody else.
    std::vector<ManagedObject *> finish();

private:
    struct Written
    {
        ManagedObject *object;
        qint64 objectId;
    };

    void insertRow(ManagedObject &object);
    void updateRow(ManagedObject &object);
    void deleteRow(const ManagedObject &object);
    RowChange rowOf(const ManagedObject &object, AttributeSet attributes) const;

    StoreConnection &m_connection;
    ObjectTable &m_table;
    StoreChanges m_changes;
    std::vector<Written> m_written;
    std::vector<ManagedObject *> m_vanished;
};
