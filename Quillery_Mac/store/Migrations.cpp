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

// The names of the SQL texts that make up the steps. Only ever added to: files of every version are
// about.
using StepNames = std::vector<std::vector<QString>>;

const StepNames &stepNames(StoreKind kind)
{
    static const StepNames kClips{{QStringLiteral("clips-001"), QStringLiteral("history-001")}};
    static const StepNames kSnippets{
        {QStringLiteral("snippets-001"), QStringLiteral("history-001")}};
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
    return static_cast<int>(stepNames(kind).size());
}

void migrate(SQLite::Database &database, StoreKind kind)
{
    initializeResources();
    MigrationSteps steps;
    for (const std::vector<QString> &names : stepNames(kind)) {
        std::vector<std::string> &texts = steps.emplace_back();
        for (const QString &name : names)
            texts.push_back(sqlText(name));
    }
    takeSteps(database, steps);
}

void takeSteps(SQLite::Database &database, const MigrationSteps &steps)
{
    const int newest = static_cast<int>(steps.size());
    int version = database.execAndGet("PRAGMA user_version").getInt();
    for (; version < newest; ++version) {
        SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
        for (const std::string &text : steps.at(static_cast<std::size_t>(version)))
            database.exec(text);
        database.exec("PRAGMA user_version = " + std::to_string(version + 1));
        transaction.commit();
    }
}
