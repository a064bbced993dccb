// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryRows.h"

#include "Quillery_Mac/store/Snippet.h"

#include <optional>
#include <utility>

namespace {

LibraryRow makeRow(Snippet &item)
{
    return {&item, {}, item.isFolder() && item.expanded(), {}, item.isFolder()};
}

/// The walk over the objects, with at most one folder open at a time.
class RowBuilder
{
public:
    RowBuilder(bool isSearching, const std::function<bool(const Snippet &)> &matches)
        : m_isSearching(isSearching)
        , m_matches(matches)
    {
    }

    void add(Snippet &item)
    {
        const bool isKept = !m_isSearching || m_matches(item);
        if (item.isFolder()) {
            closeGroup();
            m_group = makeRow(item);
            m_isFolderKept = isKept;
        } else if (isKept) {
            (m_group ? m_group->children : m_rows).push_back(makeRow(item));
        }
    }

    std::vector<LibraryRow> take()
    {
        closeGroup();
        return std::move(m_rows);
    }

private:
    void closeGroup()
    {
        if (m_group && (m_isFolderKept || !m_group->children.empty()))
            m_rows.push_back(std::move(*m_group));
        m_group.reset();
    }

    const bool m_isSearching;
    const std::function<bool(const Snippet &)> &m_matches;
    std::vector<LibraryRow> m_rows;
    std::optional<LibraryRow> m_group;
    bool m_isFolderKept = false;
};

} // namespace

std::vector<LibraryRow> libraryRows(const std::vector<Snippet *> &items, bool isSearching,
                                    const std::function<bool(const Snippet &)> &matches)
{
    RowBuilder builder(isSearching, matches);
    for (Snippet *item : items)
        builder.add(*item);
    return builder.take();
}

std::vector<ShownRow> shownRows(const std::vector<LibraryRow> &rows)
{
    std::vector<ShownRow> shown;
    shown.reserve(rows.size());
    int index = 0;
    for (const LibraryRow &row : rows) {
        shown.push_back({&row, nullptr, index++});
        if (!row.expanded)
            continue;
        int member = 0;
        for (const LibraryRow &child : row.children)
            shown.push_back({&child, &row, member++});
    }
    return shown;
}

RowText libraryRowText(const LibraryRow &row)
{
    if (row.item == nullptr)
        return {row.goneTitle, true, {}};
    const QString title = row.item->title().value_or(QString());
    const bool hasTitle = !oneLine(title).isEmpty();
    return titleRowText(title, hasTitle ? TextPreview() : row.item->preview());
}

void forgetDeleted(std::vector<LibraryRow> &rows, const std::unordered_set<const Snippet *> &gone)
{
    for (LibraryRow &row : rows) {
        if (gone.contains(row.item)) {
            row.goneTitle =
                titleRowText(row.item->title().value_or(QString()), row.item->preview()).text;
            row.item = nullptr;
        }
        forgetDeleted(row.children, gone);
    }
}
