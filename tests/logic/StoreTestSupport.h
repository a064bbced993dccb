// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QFile>
#include <QTemporaryDir>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

/// A pair of stores in a folder of its own, which can be closed, looked into and opened again.
class StoreTest : public ::testing::Test
{
protected:
    void SetUp() override { open(); }

    void open()
    {
        controller.reset();
        controller = std::make_unique<PersistenceController>(folderPath());
    }
    void close() { controller.reset(); }

    QString folderPath() const { return folder.filePath(QStringLiteral("Quillery")); }
    QString clipsFile() const { return folderPath() + QStringLiteral("/clips.sqlite"); }
    QString snippetsFile() const { return folderPath() + QStringLiteral("/snippets.sqlite"); }

    PersistentContainer &container() const { return *controller->container; }
    ManagedObjectContext &view() const { return container().viewContext(); }

    /// Runs SQL on a file as another program would.
    static void execute(const QString &file, const std::string &sql)
    {
        SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE, 1000);
        database.exec(sql);
    }
    /// The first column of the first row.
    static std::string answer(const QString &file, const std::string &sql)
    {
        SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE, 1000);
        return database.execAndGet(sql).getString();
    }
    static QByteArray bytes(const QString &file)
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    Snippet *addSnippet(const QString &title, qint16 order,
                        const QByteArray &content = "text") const
    {
        auto *snippet = view().insert<Snippet>();
        snippet->setTitle(title);
        snippet->setOrder(order);
        snippet->setContent(content);
        return snippet;
    }

    static std::vector<QString> titles(const std::vector<Snippet *> &snippets)
    {
        std::vector<QString> result;
        for (const Snippet *snippet : snippets)
            result.push_back(snippet->title().value_or(QString()));
        return result;
    }

    QTemporaryDir folder;
    std::unique_ptr<PersistenceController> controller;
};
