// SPDX-License-Identifier: MIT
#pragma once

#include <QUuid>

#include <functional>
#include <optional>
#include <vector>

class Snippet;

/// A node of the snippet menu's tree: a snippet, or a folder with its members. Holds objects of the
/// view context, so it lives no longer than the next change of the store.
struct Snippets
{
    Snippet *snippet = nullptr;
    /// A folder's members in order; absent for a snippet, and so in every member.
    std::optional<std::vector<Snippets>> list;
    bool expanded = false; ///< always false; the menu keeps its open folders by itself

    /// Identifies the node; absent when the object has none.
    std::optional<QUuid> id() const;

    friend bool operator==(const Snippets &one, const Snippets &other);
};

/// One row of the snippet menu. The same snippet may stand in two rows while searching: at the top
/// level and in its folder.
struct SnippetRow
{
    Snippet *snippet = nullptr;
    Snippet *folder = nullptr; ///< whose member this row is; null at the top level

    friend bool operator==(const SnippetRow &, const SnippetRow &) = default;
};

/// Builds the tree of `items`, which are in order: a folder owns what follows it up to the next
/// folder. While searching a folder that does not match is dropped, one that does keeps all its
/// members, and every matching snippet stands at the top level, before the first kept folder if it
/// comes after it. Linear in the number of items.
///
/// @param matches asked only while searching, at most once per item
std::vector<Snippets> snippetTree(const std::vector<Snippet *> &items, bool isSearching,
                                  const std::function<bool(const Snippet &)> &matches);

/// The rows in navigation order: every top-level node, and the members of those that are open.
std::vector<SnippetRow> visibleRows(const std::vector<Snippets> &tree,
                                    const std::function<bool(const Snippets &)> &isOpen);
