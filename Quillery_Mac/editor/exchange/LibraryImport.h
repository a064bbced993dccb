// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/exchange/ParsedLibrary.h"
#include "platform/Result.h"

#include <QSet>

class ManagedObjectContext;
class Snippet;

/// What takes an import back. Holds what names objects and no objects, so it may be kept for as
/// long as the context lives.
class ImportUndo
{
public:
    /// Deletes what was imported and still exists, and saves once. If nobody has moved or added an
    /// item meanwhile, all others get back the numbers that they had before; if somebody has, they
    /// stay in the order they are in.
    /// Errors: those of ManagedObjectContext::save(); the deletions then wait for a later save.
    platform::Result<void> undo(ManagedObjectContext &context) const;

    /// How many snippets and folders were imported.
    qsizetype count() const { return m_imported.size(); }

private:
    friend platform::Result<ImportUndo> importLibrary(ManagedObjectContext &context,
                                                      const ParsedLibrary &library);

    /// An item that was there before the import.
    struct Other
    {
        qint64 objectId;
        qint16 orderBefore;
        qint16 orderAfter;
    };

    bool isImported(const Snippet &item) const;
    bool isOrderUntouched(ManagedObjectContext &context) const;

    /// By `id`: an object that waits for its first save has no lasting number yet.
    QSet<QUuid> m_imported;
    std::vector<Other> m_others;
};

/// Takes what a file holds into the library and saves once: the folders with their members after
/// everything that is there, the snippets of no folder before the first folder, where no folder
/// owns them. All items are numbered anew. An item whose `id` is missing, or taken by another one,
/// gets a fresh `id`.
/// Errors: Refused if there would be more than kMaxLibraryItems, else those of
/// ManagedObjectContext::save(). Nothing has changed then, here or in the file.
platform::Result<ImportUndo> importLibrary(ManagedObjectContext &context,
                                           const ParsedLibrary &library);
