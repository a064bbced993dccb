// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/HistoryWriter.h"

#include "Quillery_Mac/store/PersistentHistory.h"
#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreConnection.h"

#include <QDateTime>
#include <QStringList>

#include <SQLiteCpp/Column.h>

#include <map>

namespace {

using Kind = HistoryChange::Kind;

bool hasConsumer(StoreConnection &connection)
{
    SQLite::Statement &query =
        connection.statement("SELECT EXISTS (SELECT 1 FROM HistoryConsumer)");
    query.executeStep();
    const bool result = query.getColumn(0).getInt() != 0;
    query.reset();
    return result;
}

QString attributeNames(const Entity &entity, AttributeSet attributes)
{
    QStringList names;
    forEachAttribute(attributes, [&](int index) {
        names.append(QString::fromLatin1(entity.attributes[static_cast<std::size_t>(index)].name));
    });
    return names.join(u',');
}

class ChangeRows
{
public:
    ChangeRows(StoreConnection &connection, qint64 number)
        : m_connection(connection)
        , m_number(number)
    {
    }

    void add(Kind kind, const QStringList &objects, const QString &attributes, const QString &ids)
    {
        if (objects.isEmpty())
            return;
        SQLite::Statement &row = m_connection.statement(
            "INSERT INTO HistoryChange (number, kind, objects, attributes, ids)"
            " VALUES (?1, ?2, ?3, nullif(?4, ''), ?5)");
        row.bind(1, int64_t{m_number});
        row.bind(2, static_cast<int>(kind));
        row.bind(3, objects.join(u',').toStdString());
        row.bind(4, attributes.toStdString());
        if (kind == Kind::Deleted)
            row.bind(5, ids.toStdString());
        row.exec();
    }

private:
    StoreConnection &m_connection;
    qint64 m_number;
};

template <class Rows>
QStringList numbersOf(const Rows &rows)
{
    QStringList numbers;
    for (const auto &row : rows)
        numbers.append(QString::number(row.objectId));
    return numbers;
}

} // namespace

void writeHistory(StoreConnection &connection, const StoreChanges &changes, const QString &author)
{
    if (!hasConsumer(connection))
        return;
    SQLite::Statement &transaction = connection.statement(
        "INSERT INTO HistoryTransaction (number, author, time) VALUES (?1, ?2, ?3)");
    transaction.bind(1, int64_t{changes.transaction});
    transaction.bind(2, author.toStdString());
    transaction.bind(3, static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000.0);
    transaction.exec();

    ChangeRows rows(connection, changes.transaction);
    rows.add(Kind::Inserted, numbersOf(changes.inserted), {}, {});
    std::map<AttributeSet, QStringList> updated;
    for (const RowChange &row : changes.updated)
        updated[row.attributes].append(QString::number(row.objectId));
    for (const auto &[attributes, objects] : updated)
        rows.add(Kind::Updated, objects, attributeNames(entityOf(changes.store), attributes), {});
    QStringList ids;
    for (const RowDeletion &row : changes.deleted)
        ids.append(row.id);
    rows.add(Kind::Deleted, numbersOf(changes.deleted), {}, ids.join(u','));
}
