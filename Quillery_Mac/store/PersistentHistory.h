// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QDateTime>
#include <QStringList>
#include <QUuid>

#include <optional>
#include <vector>

class StoreConnection;

/// Some objects of a store that a transaction changed in the same way.
struct HistoryChange
{
    /// These numbers stand in the file: never renumber.
    enum class Kind { Inserted = 1, Updated = 2, Deleted = 3 };

    Kind kind = Kind::Inserted;
    std::vector<qint64> objects;           ///< objectId of each
    QStringList attributes;                ///< of Updated: what changed
    std::vector<std::optional<QUuid>> ids; ///< of Deleted: the id that each object had
};

struct HistoryTransaction
{
    qint64 number = 0; ///< ascending by 1 or more from one saved transaction to the next
    QString author;    ///< ManagedObjectContext::setTransactionAuthor()
    QDateTime time;    ///< UTC
    std::vector<HistoryChange> changes;
};

/// What was saved to a store, transaction by transaction, for those who carry it elsewhere. A
/// transaction is kept until every consumer has read it; while no consumer is registered none is
/// kept. On the thread of its connection. All functions fail with Io if the file does not allow it,
/// with Unavailable if the store is not loaded, and those that write with TimedOut while somebody
/// else writes at length; the same call works once that is over.
class PersistentHistory
{
public:
    /// @param connection null if the store is not loaded
    explicit PersistentHistory(StoreConnection *connection);

    /// From now on transactions are kept for this consumer. Registering again changes nothing.
    platform::Result<void> addConsumer(const QString &name);
    platform::Result<void> removeConsumer(const QString &name);
    /// The last transaction that the consumer has dealt with. NotFound if it is not registered.
    platform::Result<qint64> lastRead(const QString &name);
    /// The consumer has dealt with everything up to this transaction.
    platform::Result<void> setLastRead(const QString &name, qint64 number);

    /// The number of the last transaction saved; 0 before the first.
    platform::Result<qint64> currentTransaction();
    /// The transactions after this number, oldest first, at most `limit` of them.
    platform::Result<std::vector<HistoryTransaction>> transactionsAfter(qint64 number,
                                                                        int limit = 1000);

private:
    template <class Action>
    auto guarded(const char *what, Action action) -> platform::Result<decltype(action())>;
    void trim();
    std::vector<HistoryChange> changesOf(qint64 number);

    StoreConnection *m_connection;
};
