// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <set>
#include <vector>

class ManagedObjectContext;
class Snippet;

/// The one sequence of all snippets and folders, and what changes it. Nothing here saves, unless it
/// is the last thing that the program does: numbers outside 16 bits are fatal.
namespace snippetOrder {

/// What a new snippet or folder starts with.
struct NewSnippet
{
    QString title = {};
    std::optional<QByteArray> content = std::nullopt;
    bool isFolder = false;
    bool expanded = false;
};

/// `order` as an object can have it. A number outside 16 bits is fatal; what is changed in the
/// context until then is saved, for it may be what the user has typed.
qint16 place(ManagedObjectContext &context, qint64 order);

/// Creates an object with a fresh `id` and the present time as `timestamp`, and gives it `order`;
/// no other object is renumbered.
Snippet &append(ManagedObjectContext &context, const NewSnippet &fresh, qint64 order);

/// Creates an object at `order`: every other one whose `order` is at least that gets the next
/// number.
Snippet &insert(ManagedObjectContext &context, const NewSnippet &fresh, qint64 order);

/// `items` with the elements at `offsets` moved, in their relative order, before the element that
/// stands at `destination` now; `destination` may be the size. Offsets that are not in `items` are
/// passed over.
std::vector<Snippet *> moved(const std::vector<Snippet *> &items, const std::set<int> &offsets,
                             int destination);

/// Gives every object its place in `items` as `order`, from the last to the first.
void renumber(const std::vector<Snippet *> &items);

/// How many items from `folder` on belong to it, itself included: a folder and what follows it up
/// to the next folder. 1 for a snippet.
int groupSize(const std::vector<Snippet *> &items, int folder);

} // namespace snippetOrder
