// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistenceController.h"

#include "Quillery_Mac/store/PersistentStore.h"
#include "Quillery_Mac/store/StoreFile.h"

#include <QDir>
#include <QStandardPaths>

PersistenceController::PersistenceController(const QString &dataFolder)
{
    // The stores then fail to load one by one, each with its own line.
    if (const auto prepared = prepareDataFolder(dataFolder); !prepared)
        printStoreError(prepared.error());
    const QDir folder(dataFolder);
    container = std::make_unique<PersistentContainer>(std::vector<StoreDescription>{
        {StoreKind::Clips, folder.filePath(QStringLiteral("clips.sqlite")),
         QStringLiteral("iCloud.Quillery.Clips")},
        {StoreKind::Snippets, folder.filePath(QStringLiteral("snippets.sqlite")),
         QStringLiteral("iCloud.Quillery")},
    });
}

QString PersistenceController::standardDataFolder()
{
    const QDir home(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const QString group = home.filePath(QStringLiteral("group.QuilleryA.data"));
    return QDir(group).exists() ? group : home.filePath(QStringLiteral("Quillery"));
}
