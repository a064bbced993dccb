// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistentHistory.h"

#include "Quillery_Mac/store/StoreConnection.h"
#include "Quillery_Mac/store/TransactionCounter.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Transaction.h>

#include <type_traits>

using platform::Error;
using platform::Result;

namespace {

QString textOf(const SQLite::Column &column)
{
    return QString::fromUtf8(column.getText());
}

HistoryChange readChange(const SQLite::Statement &row)
{
    HistoryChange change;
    change.kind = static_cast<HistoryChange::Kind>(row.getColumn(0).getInt());
    const QString objects = textOf(row.getColumn(1));
    for (const QString &object : objects.split(u',', Qt::SkipEmptyParts))
        change.objects.push_back(object.toLongLong());
    change.attributes = textOf(row.getColumn(2)).split(u',', Qt::SkipEmptyParts);
    if (change.kind != HistoryChange::Kind::Deleted)
        return change;
    const QString ids = textOf(row.getColumn(3));
    for (const QString &text : ids.split(u',')) {
        const QUuid id = QUuid::fromString(text);
        change.ids.push_back(id.isNull() ? std::nullopt : std::optional(id));
    }
    // Nobody can tell then which id belongs to which object.
    if (change.ids.size() != change.objects.size())
        change.ids.assign(change.objects.size(), std::nullopt);
    return change;
}

} // namespace

PersistentHistory::PersistentHistory(StoreConnection *connection)
    : m_connection(connection)
{
}

template <class Action>
auto PersistentHistory::guarded(const char *what, Action action) -> Result<decltype(action())>
{
    if (!m_connection || !m_connection->isUsable()) {
        return platform::failure(
            Error::Kind::Unavailable,
            QStringLiteral("%1: store is not loaded").arg(QLatin1String(what)));
    }
    try {
        if constexpr (std::is_void_v<decltype(action())>) {
            action();
            return {};
        } else {
            return action();
        }
    } catch (const SQLite::Exception &error) {
        return tl::unexpected(m_connection->failed(error, QString::fromLatin1(what)));
    }
}

Result<void> PersistentHistory::addConsumer(const QString &name)
{
    return guarded("Add history consumer", [&] {
        SQLite::Statement &row = m_connection->statement(
            "INSERT INTO HistoryConsumer (name, lastRead)"
            " SELECT ?1, (SELECT max(number) FROM HistoryCounter)"
            " WHERE NOT EXISTS (SELECT 1 FROM HistoryConsumer WHERE name = ?1)");
        row.bind(1, name.toStdString());
        row.exec();
    });
}

Result<void> PersistentHistory::removeConsumer(const QString &name)
{
    return guarded("Remove history consumer", [&] {
        SQLite::Transaction transaction(m_connection->database(),
                                        SQLite::TransactionBehavior::IMMEDIATE);
        SQLite::Statement &row =
            m_connection->statement("DELETE FROM HistoryConsumer WHERE name = ?1");
        row.bind(1, name.toStdString());
        row.exec();
        trim();
        transaction.commit();
    });
}

Result<qint64> PersistentHistory::lastRead(const QString &name)
{
    const auto found = guarded("Read history consumer", [&]() -> std::optional<qint64> {
        SQLite::Statement &row =
            m_connection->statement("SELECT lastRead FROM HistoryConsumer WHERE name = ?1");
        row.bind(1, name.toStdString());
        std::optional<qint64> number;
        if (row.executeStep())
            number = row.getColumn(0).getInt64();
        row.reset();
        return number;
    });
    if (!found)
        return tl::unexpected(found.error());
    if (!*found)
        return platform::failure(Error::Kind::NotFound, QStringLiteral("no consumer ") + name);
    return **found;
}

Result<void> PersistentHistory::setLastRead(const QString &name, qint64 number)
{
    return guarded("Note history as read", [&] {
        SQLite::Transaction transaction(m_connection->database(),
                                        SQLite::TransactionBehavior::IMMEDIATE);
        SQLite::Statement &row = m_connection->statement(
            "UPDATE HistoryConsumer SET lastRead = max(lastRead, ?2) WHERE name = ?1");
        row.bind(1, name.toStdString());
        row.bind(2, int64_t{number});
        row.exec();
        trim();
        transaction.commit();
    });
}

Result<qint64> PersistentHistory::currentTransaction()
{
    return guarded("Read history", [&] { return lastTransaction(*m_connection); });
}

Result<std::vector<HistoryTransaction>> PersistentHistory::transactionsAfter(qint64 number,
                                                                             int limit)
{
    return guarded("Read history", [&] {
        // One transaction, so that nothing is trimmed between the two questions.
        SQLite::Transaction reading(m_connection->database());
        std::vector<HistoryTransaction> result;
        SQLite::Statement &rows =
            m_connection->statement("SELECT number, author, time FROM HistoryTransaction"
                                    " WHERE number > ?1 ORDER BY number LIMIT ?2");
        rows.bind(1, int64_t{number});
        rows.bind(2, limit);
        while (rows.executeStep()) {
            const auto time = static_cast<qint64>(rows.getColumn(2).getDouble() * 1000);
            result.push_back({rows.getColumn(0).getInt64(),
                              textOf(rows.getColumn(1)),
                              QDateTime::fromMSecsSinceEpoch(time, Qt::UTC),
                              {}});
        }
        rows.reset();
        for (HistoryTransaction &transaction : result)
            transaction.changes = changesOf(transaction.number);
        reading.commit();
        return result;
    });
}

std::vector<HistoryChange> PersistentHistory::changesOf(qint64 number)
{
    SQLite::Statement &rows =
        m_connection->statement("SELECT kind, objects, attributes, ids FROM HistoryChange"
                                " WHERE number = ?1 ORDER BY rowid");
    rows.bind(1, int64_t{number});
    std::vector<HistoryChange> changes;
    while (rows.executeStep())
        changes.push_back(readChange(rows));
    rows.reset();
    return changes;
}

void PersistentHistory::trim()
{
    // Without a consumer the least number read is none, and everything goes.
    for (const char *table : {"HistoryChange", "HistoryTransaction"}) {
        m_connection
            ->statement("DELETE FROM " + std::string(table) +
                        " WHERE number <= (SELECT coalesce(min(lastRead), 9223372036854775807)"
                        " FROM HistoryConsumer)")
            .exec();
    }
}
