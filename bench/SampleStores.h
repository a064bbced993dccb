// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/PersistentContainer.h"

#include <QTemporaryDir>

#include <memory>
#include <random>

/// Texts of made-up words, one in ten with letters that are not ASCII.
class Words
{
public:
    Words()
    {
        for (int word = 0; word < 5000; ++word)
            m_words.append(makeWord());
    }

    QByteArray text(qsizetype bytes)
    {
        QByteArray result;
        while (result.size() < bytes)
            result += m_words.at(static_cast<qsizetype>(m_random() % 5000)) + ' ';
        return result;
    }

private:
    QByteArray makeWord()
    {
        static const QString kLetters = QStringLiteral("eeeeetttaaaooiinnsshhrrddlcumwfgypbvkjxqz");
        static const QString kOthers = QStringLiteral("éèüößñçåøжлд漢字仮名");
        const QString &letters = m_random() % 10 == 0 ? kOthers : kLetters;
        QString word;
        for (unsigned letter = 0; letter < 2 + m_random() % 8; ++letter)
            word += letters.at(static_cast<qsizetype>(m_random()) % letters.size());
        return word.toUtf8();
    }

    std::mt19937 m_random{42};
    QByteArrayList m_words;
};

/// Stores in a folder of their own, empty at first.
class Stores
{
public:
    Stores() { open(); }

    /// Closes the stores and opens them again, as a start of the program does.
    void open()
    {
        m_controller.reset();
        m_controller =
            std::make_unique<PersistenceController>(m_folder.filePath(QStringLiteral("Quillery")));
    }
    PersistentContainer &container() const { return *m_controller->container; }
    ManagedObjectContext &view() const { return container().viewContext(); }

private:
    // On a disk: the usual folder for temporary files may be in memory, where writing is free.
    QTemporaryDir m_folder{QStringLiteral("/var/tmp/quillery-bench-XXXXXX")};
    std::unique_ptr<PersistenceController> m_controller;
};
