// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/PersistentContainer.h"

#include <QString>

#include <memory>

/// Owns the program's one container with its two stores, clips.sqlite and snippets.sqlite. Owned by
/// the entry type, main thread only.
class PersistenceController
{
public:
    /// Loads both stores from `dataFolder`, making the folder and the files that are missing. A
    /// store that does not load is printed to standard output and its file left as it is; the
    /// other one works.
    explicit PersistenceController(const QString &dataFolder = standardDataFolder());

    /// `$XDG_DATA_HOME/group.QuilleryA.data` if that folder exists, else `$XDG_DATA_HOME/Quillery`.
    static QString standardDataFolder();

    std::unique_ptr<PersistentContainer> container;
};
