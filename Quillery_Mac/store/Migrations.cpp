// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/Migrations.h"

#include <QFile>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>

#include <string>
#include <vector>

static void initializeResources()
{
    Q_INIT_RESOURCE(store);
}

namespace {

// The SQL texts that lead from one version to the next; the first entry leads to version 1. Only
// ever added to: files of every version are about.
using Steps = std::vector<std::vector<QString>>;

const Steps &steps(StoreKind kind)
{
    static const Steps kClips{{QStringLiteral("clips-001"), QStringLiteral("history-001")}};
    static const Steps kSnippets{{QStringLiteral("snippets-001"), QStringLiteral("history-001")}};
    return kind == StoreKind::Clips ? kClips : kSnippets;
}

std::string sqlText(const QString &name)
{
    QFile file(QStringLiteral(":/store/migrations/%1.sql").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        throw SQLite::Exception("missing migration " + name.toStdString());
    return file.readAll().toStdString();
}

} // namespace

int newestVersion(StoreKind kind)
{
    return static_cast<int>(steps(kind).size());
}

void migrate(SQLite::Database &database, StoreKind kind)
{
    initializeResources();
    int version = database.execAndGet("PRAGMA user_version").getInt();
    for (; version < newestVersion(kind); ++version) {
        SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
        for (const QString &name : steps(kind).at(static_cast<std::size_t>(version)))
            database.exec(sqlText(name));
        database.exec("PRAGMA user_version = " + std::to_string(version + 1));
        transaction.commit();
    }
}
