// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/SnippetMenuState.h"

#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "Quillery_Mac/ui/ListMoves.h"
#include "Quillery_Mac/ui/PlainText.h"

#include <QHash>

#include <algorithm>

SnippetMenuState::SnippetMenuState(QProperty<bool> &doPasteCell, QProperty<Controls> &controlsCell,
                                   platform::Pasteboard &pasteboard, SnippetMatcher &matcher)
    : doPaste(doPasteCell)
    , controls(controlsCell)
    , m_pasteboard(pasteboard)
    , m_matcher(matcher)
    , m_searchObserver(searchText.addNotifier([this] { searchTextChanged(); }))
    , m_controlsObserver(controls.addNotifier([this] { controlsChanged(); }))
    , m_openObserver(openItems.addNotifier([this] { openItemsChanged(); }))
    , m_selectionObserver(isSelected.addNotifier([this] {
        if (isSelected.value())
            controls::set(controls, controls::kGive, true);
    }))
{
}

void SnippetMenuState::shown()
{
    if (passedSearch.value())
        searchText = *passedSearch.value();
    if (controls::isSet(controls.value(), controls::kGive) && !isSelected.value())
        highlight(rowAt(0));
}

void SnippetMenuState::end()
{
    m_hasEnded = true;
}

void SnippetMenuState::setItems(const std::vector<Snippet *> &items)
{
    m_items = items;
    rebuild();
    keepSelection();
}

void SnippetMenuState::searchAgain()
{
    if (m_hasEnded || !doSearch.value())
        return;
    rebuild();
    keepSelection();
    if (m_isFirstHighlighted || !isSelected.value())
        highlightFirst();
    selectWaited();
}

std::optional<int> SnippetMenuState::selectedRow() const
{
    if (!isSelected.value())
        return std::nullopt;
    const auto found = std::find(m_rows.begin(), m_rows.end(), *isSelected.value());
    if (found == m_rows.end())
        return std::nullopt;
    return static_cast<int>(found - m_rows.begin());
}

bool SnippetMenuState::isFolderOpen(const Snippet &folder) const
{
    const std::optional<QUuid> id = folder.id();
    return id && openItems.value().value(*id, false);
}

void SnippetMenuState::highlight(std::optional<SnippetRow> row)
{
    // A Return that still waits meant another row.
    m_isSelectWaiting = false;
    setHighlight(row, false);
}

void SnippetMenuState::setHighlight(std::optional<SnippetRow> row, bool isFirst)
{
    m_isFirstHighlighted = isFirst;
    isSelected = row;
    if (row)
        controls::set(controls, controls::kGive, true);
}

void SnippetMenuState::toggle(const Snippet &snippet)
{
    const std::optional<QUuid> id = snippet.id();
    if (!id)
        return;
    QMap<QUuid, bool> flags = openItems.value();
    flags[*id] = !flags.value(*id, false);
    openItems = flags;
}

void SnippetMenuState::paste(const Snippet &snippet)
{
    writePlainText(m_pasteboard, snippet.content());
    doPaste = true;
}

void SnippetMenuState::searchTextChanged()
{
    doSearch = !searchText.value().isEmpty();
    m_isSelectWaiting = false;
    rebuild();
    highlightFirst();
}

void SnippetMenuState::controlsChanged()
{
    if (m_hasEnded || !controls::isSet(controls.value(), controls::kGive))
        return;
    if (!isSelected.value())
        setHighlight(rowAt(0), m_isFirstHighlighted);
    const int count = static_cast<int>(m_rows.size());
    if (controls::take(controls, controls::kUp))
        highlight(rowAt(listMoves::up(selectedRow(), count)));
    if (controls::take(controls, controls::kDown))
        highlight(rowAt(listMoves::down(selectedRow(), count)));
    if (controls::take(controls, controls::kSelect))
        select();
    if (controls::take(controls, controls::kRight) && isSelected.value())
        toggle(*isSelected.value()->snippet);
}

void SnippetMenuState::openItemsChanged()
{
    const QMap<QUuid, bool> &flags = openItems.value();
    std::erase_if(m_openOrder, [&flags](const QUuid &id) { return !flags.value(id, false); });
    for (auto it = flags.begin(); it != flags.end(); ++it) {
        if (it.value() &&
            std::find(m_openOrder.begin(), m_openOrder.end(), it.key()) == m_openOrder.end())
            m_openOrder.push_back(it.key());
    }
    const std::vector<SnippetRow> before = m_rows;
    refreshRows();
    const auto first = std::mismatch(before.begin(), before.end(), m_rows.begin(), m_rows.end());
    const auto count = static_cast<int>(m_rows.size()) - static_cast<int>(before.size());
    if (membersChanged && count != 0)
        membersChanged(static_cast<int>(first.first - before.begin()), count);
    keepSelection();
}

void SnippetMenuState::rebuild()
{
    m_matcher.setSearchText(searchText.value());
    m_tree = snippetTree(m_items, m_matcher.isSearching(),
                         [this](const Snippet &snippet) { return m_matcher.matches(snippet); });
    refreshRows();
    if (rowsChanged)
        rowsChanged();
}

void SnippetMenuState::refreshRows()
{
    openItemsList = openNodes();
    m_rows =
        visibleRows(m_tree, [this](const Snippets &node) { return isFolderOpen(*node.snippet); });
    if (rowsChanged)
        rowsChanged();
}

std::vector<Snippets> SnippetMenuState::openNodes() const
{
    if (m_openOrder.empty())
        return {};
    QHash<QUuid, std::size_t> ranks;
    for (std::size_t rank = 0; rank < m_openOrder.size(); ++rank)
        ranks.insert(m_openOrder[rank], rank);
    std::vector<std::pair<std::size_t, const Snippets *>> ranked;
    for (const Snippets &node : m_tree) {
        const std::optional<QUuid> id = node.list ? node.id() : std::nullopt;
        if (id && ranks.contains(*id))
            ranked.emplace_back(ranks.value(*id), &node);
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<Snippets> open;
    open.reserve(ranked.size());
    for (const auto &[rank, node] : ranked)
        open.push_back(*node);
    return open;
}

// A highlighted row that is gone hands over to the nearest thing still shown: the same snippet
// elsewhere, or the folder that was closed over it.
void SnippetMenuState::keepSelection()
{
    if (!isSelected.value() || selectedRow())
        return;
    const SnippetRow lost = *isSelected.value();
    const auto find = [this](const auto &isWanted) {
        return std::find_if(m_rows.begin(), m_rows.end(), isWanted);
    };
    auto found = find([&lost](const SnippetRow &row) { return row.snippet == lost.snippet; });
    if (found == m_rows.end() && lost.folder != nullptr)
        found = find([&lost](const SnippetRow &row) {
            return row.snippet == lost.folder && row.folder == nullptr;
        });
    isSelected = found == m_rows.end() ? std::nullopt : std::optional(*found);
}

void SnippetMenuState::highlightFirst()
{
    setHighlight(rowAt(0), true);
}

void SnippetMenuState::selectWaited()
{
    if (!m_isSelectWaiting || !m_matcher.isComplete())
        return;
    m_isSelectWaiting = false;
    select();
}

// What Return means is the first row of all that is found, which may not be found yet.
void SnippetMenuState::select()
{
    if (m_isFirstHighlighted && doSearch.value() && !m_matcher.isComplete()) {
        m_isSelectWaiting = true;
        return;
    }
    if (!isSelected.value())
        return;
    const Snippet &snippet = *isSelected.value()->snippet;
    if (snippet.isFolder())
        toggle(snippet);
    else
        paste(snippet);
}

std::optional<SnippetRow> SnippetMenuState::rowAt(std::optional<int> row) const
{
    if (!row || *row >= static_cast<int>(m_rows.size()))
        return std::nullopt;
    return m_rows[static_cast<std::size_t>(*row)];
}
