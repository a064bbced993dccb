// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/TransactionCounter.h"

#include "Quillery_Mac/store/StoreConnection.h"

#include <SQLiteCpp/Column.h>

qint64 lastTransaction(StoreConnection &connection)
{
    SQLite::Statement &query = connection.statement("SELECT max(number) FROM HistoryCounter");
    query.executeStep();
    const qint64 number = query.getColumn(0).getInt64();
    query.reset();
    return number;
}

qint64 countTransaction(StoreConnection &connection)
{
    connection.statement("UPDATE HistoryCounter SET number = number + 1").exec();
    return lastTransaction(connection);
}
