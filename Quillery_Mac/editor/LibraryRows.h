// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/RowText.h"

#include <QString>

#include <functional>
#include <unordered_set>
#include <vector>

class Snippet;

/// A row of the library's list. Its object may go away while the row is shown: whoever holds rows
/// calls forgetDeleted() before the object is freed.
struct LibraryRow
{
    Snippet *item = nullptr; ///< null when the object is gone
    /// A folder's members in order; they have none themselves.
    std::vector<LibraryRow> children;
    bool expanded = false; ///< as the folder was when the rows were built
    QString goneTitle;     ///< what the row goes on to show when its object is gone
    bool isFolder = false;
};

/// A row as it stands in the list.
struct ShownRow
{
    const LibraryRow *row = nullptr;
    const LibraryRow *folder = nullptr; ///< whose member the row is; null at the top level
    int index = 0; ///< among the folder's members, or among the rows of the top level, from 0
};

/// Builds the rows of `items`, which are in order: a folder owns what follows it up to the next
/// folder. While searching, a snippet is kept if it matches, and a folder, with its matching
/// members only, if it or one of them does. Linear in the number of items.
///
/// @param matches asked only while searching, at most once per item
std::vector<LibraryRow> libraryRows(const std::vector<Snippet *> &items, bool isSearching,
                                    const std::function<bool(const Snippet &)> &matches);

/// The rows from top to bottom, members of collapsed folders left out. Points into `rows`.
std::vector<ShownRow> shownRows(const std::vector<LibraryRow> &rows);

/// What stands in the row.
RowText libraryRowText(const LibraryRow &row);

/// Turns the rows of `gone` into rows without an object, which go on to show what they showed.
void forgetDeleted(std::vector<LibraryRow> &rows, const std::unordered_set<const Snippet *> &gone);
