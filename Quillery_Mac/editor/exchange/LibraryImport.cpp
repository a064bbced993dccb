// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryImport.h"

#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/SixteenBit.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QSet>

#include <unordered_map>
#include <unordered_set>

using platform::Error;

namespace {

using Snippets = std::vector<Snippet *>;

/// Inserts the items of a file, each with an `id` of its own.
class Inserter
{
public:
    Inserter(ManagedObjectContext &context, const Snippets &others)
        : m_context(context)
    {
        for (const Snippet *other : others)
            m_ids.insert(other->id().value_or(QUuid()));
    }

    Snippet *insert(const ParsedItem &item)
    {
        auto *snippet = m_context.insert<Snippet>();
        snippet->setId(ownId(item.id));
        snippet->setTitle(item.title);
        snippet->setContent(item.content);
        snippet->setTimestamp(item.timestamp);
        snippet->setExpanded(item.expanded);
        snippet->setIsFolder(item.isFolder);
        return snippet;
    }

private:
    QUuid ownId(const std::optional<QUuid> &wanted)
    {
        QUuid id = wanted.value_or(QUuid());
        if (id.isNull() || m_ids.contains(id))
            id = QUuid::createUuid();
        m_ids.insert(id);
        return id;
    }

    ManagedObjectContext &m_context;
    QSet<QUuid> m_ids;
};

// Both sequences begin with their snippets of no folder.
Snippets joined(const Snippets &others, const Snippets &imported)
{
    const auto isFolder = [](const Snippet *snippet) { return snippet->isFolder(); };
    const auto otherFolder = std::find_if(others.begin(), others.end(), isFolder);
    const auto importedFolder = std::find_if(imported.begin(), imported.end(), isFolder);
    Snippets all(others.begin(), otherFolder);
    all.insert(all.end(), imported.begin(), importedFolder);
    all.insert(all.end(), otherFolder, others.end());
    all.insert(all.end(), importedFolder, imported.end());
    return all;
}

void renumber(const Snippets &items)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i]->setOrder(toSixteenBit(static_cast<qint64>(i), "order"));
}

// A save writes the clips too. If only they failed, the snippets are in their file all the same.
bool isWritten(const Snippets &items)
{
    return std::none_of(items.begin(), items.end(),
                        [](const Snippet *item) { return item->hasChanges(); });
}

std::vector<qint16> ordersOf(const Snippets &items)
{
    std::vector<qint16> orders;
    orders.reserve(items.size());
    for (const Snippet *item : items)
        orders.push_back(item->order());
    return orders;
}

} // namespace

platform::Result<ImportUndo> importLibrary(ManagedObjectContext &context,
                                           const ParsedLibrary &library)
{
    const Snippets others = context.fetch<Snippet>();
    if (others.size() + library.items.size() > static_cast<std::size_t>(kMaxLibraryItems)) {
        return platform::failure(
            Error::Kind::Refused,
            LibraryFault::tr("A library holds at most 32,767 snippets and folders. There are %1 "
                             "already, and the file holds %2.")
                .arg(QString::number(others.size()), QString::number(library.items.size())));
    }
    ImportUndo undo;
    if (library.items.empty())
        return undo;

    const std::vector<qint16> before = ordersOf(others);
    Inserter inserter(context, others);
    Snippets imported;
    imported.reserve(library.items.size());
    for (const ParsedItem &item : library.items)
        imported.push_back(inserter.insert(item));
    renumber(joined(others, imported));

    const auto saved = context.save();
    if (!saved && !isWritten(imported)) {
        for (Snippet *snippet : imported)
            context.deleteObject(*snippet);
        for (std::size_t i = 0; i < others.size(); ++i)
            others[i]->setOrder(before[i]);
        return tl::unexpected(saved.error());
    }
    for (const Snippet *snippet : imported)
        undo.m_imported.insert(snippet->id().value_or(QUuid()));
    for (std::size_t i = 0; i < others.size(); ++i)
        undo.m_others.push_back({others[i]->objectId(), before[i], others[i]->order()});
    return undo;
}

bool ImportUndo::isImported(const Snippet &item) const
{
    const std::optional<QUuid> id = item.id();
    return id && m_imported.contains(*id);
}

// Deleted items leave the others' numbers as they are, so they are no reason to keep them.
bool ImportUndo::isOrderUntouched(ManagedObjectContext &context) const
{
    std::unordered_map<qint64, qint16> expected;
    for (const Other &other : m_others)
        expected.emplace(other.objectId, other.orderAfter);
    const Snippets items = context.fetch<Snippet>();
    return std::all_of(items.begin(), items.end(), [&](const Snippet *item) {
        const auto known = expected.find(item->objectId());
        return known != expected.end() ? known->second == item->order() : isImported(*item);
    });
}

platform::Result<void> ImportUndo::undo(ManagedObjectContext &context) const
{
    const bool isUntouched = isOrderUntouched(context);
    Snippets changed;
    for (Snippet *snippet : context.fetch<Snippet>()) {
        if (isImported(*snippet)) {
            context.deleteObject(*snippet);
            changed.push_back(snippet);
        }
    }
    for (const Other &other : m_others) {
        auto *snippet = isUntouched ? context.object<Snippet>(other.objectId) : nullptr;
        if (snippet != nullptr) {
            snippet->setOrder(other.orderBefore);
            changed.push_back(snippet);
        }
    }
    const auto saved = context.save();
    if (!saved && !isWritten(changed))
        return tl::unexpected(saved.error());
    return {};
}
