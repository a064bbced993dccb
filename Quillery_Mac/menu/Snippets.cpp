// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/Snippets.h"

#include "Quillery_Mac/store/Snippet.h"

#include <utility>

namespace {

/// The walk over the objects. The top level is kept in three pieces, as snippets are inserted at a
/// mark in the middle of it: the mark stands between the second and the third.
class TreeBuilder
{
public:
    TreeBuilder(bool isSearching, const std::function<bool(const Snippet &)> &matches)
        : m_isSearching(isSearching)
        , m_matches(matches)
    {
    }

    void addFolder(Snippet &folder)
    {
        m_isFolderKept = isShown(folder);
        if (!m_isFolderKept)
            return;
        closeGroup();
        m_group = Snippets{&folder, std::vector<Snippets>(), false};
    }

    void addSnippet(Snippet &snippet)
    {
        if (!m_group) {
            if (isShown(snippet))
                m_beforeFirstFolder.push_back({&snippet, std::nullopt, false});
            return;
        }
        if (m_isSearching && m_matches(snippet))
            m_found.push_back({&snippet, std::nullopt, false});
        if (!m_isSearching || m_isFolderKept)
            m_group->list->push_back({&snippet, std::nullopt, false});
    }

    std::vector<Snippets> take()
    {
        closeGroup();
        std::vector<Snippets> tree = std::move(m_beforeFirstFolder);
        tree.reserve(tree.size() + m_found.size() + m_folders.size());
        std::move(m_found.begin(), m_found.end(), std::back_inserter(tree));
        std::move(m_folders.begin(), m_folders.end(), std::back_inserter(tree));
        return tree;
    }

private:
    bool isShown(const Snippet &snippet) const { return !m_isSearching || m_matches(snippet); }

    void closeGroup()
    {
        if (m_group)
            m_folders.push_back(std::move(*m_group));
        m_group.reset();
    }

    const bool m_isSearching;
    const std::function<bool(const Snippet &)> &m_matches;
    std::vector<Snippets> m_beforeFirstFolder;
    std::vector<Snippets> m_found; ///< inserted at the mark
    std::vector<Snippets> m_folders;
    std::optional<Snippets> m_group; ///< the folder kept last, with the members so far
    bool m_isFolderKept = false;     ///< whether the most recent folder is shown
};

} // namespace

std::optional<QUuid> Snippets::id() const
{
    return snippet != nullptr ? snippet->id() : std::nullopt;
}

bool operator==(const Snippets &one, const Snippets &other)
{
    return one.snippet == other.snippet && one.list == other.list && one.expanded == other.expanded;
}

std::vector<Snippets> snippetTree(const std::vector<Snippet *> &items, bool isSearching,
                                  const std::function<bool(const Snippet &)> &matches)
{
    TreeBuilder builder(isSearching, matches);
    for (Snippet *item : items) {
        if (item->isFolder())
            builder.addFolder(*item);
        else
            builder.addSnippet(*item);
    }
    return builder.take();
}

std::vector<SnippetRow> visibleRows(const std::vector<Snippets> &tree,
                                    const std::function<bool(const Snippets &)> &isOpen)
{
    std::vector<SnippetRow> rows;
    rows.reserve(tree.size());
    for (const Snippets &node : tree) {
        rows.push_back({node.snippet, nullptr});
        if (!node.list || !isOpen(node))
            continue;
        for (const Snippets &member : *node.list)
            rows.push_back({member.snippet, node.snippet});
    }
    return rows;
}
