// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/Snippet.h"
#include "tests/logic/OrdinaryUser.h"

#include <QFile>
#include <QTemporaryDir>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <memory>
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
    /// From now on this process tells what SQL answers of a file when it aborts, on standard error.
    /// For the child process of a death test, whose store is its own.
    static void tellWhenAborted(const QString &file, const std::string &sql)
    {
        s_toldFile = file;
        s_toldSql = sql;
        std::signal(SIGABRT, [](int) {
            std::fprintf(stderr, "stored: %s\n", answer(s_toldFile, s_toldSql).c_str());
        });
    }
    /// Opens the stores as a user who may read the snippets but not write them.
    /// @return while it lives the program runs as that user
    std::unique_ptr<OrdinaryUser> openReadOnly()
    {
        close();
        for (const QString &path : {folder.path(), folderPath(), clipsFile(), snippetsFile()})
            OrdinaryUser::give(path);
        EXPECT_EQ(::chmod(QFile::encodeName(snippetsFile()).constData(), 0400), 0);
        auto user = std::make_unique<OrdinaryUser>();
        open();
        return user;
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

private:
    static inline QString s_toldFile;
    static inline std::string s_toldSql;
};
