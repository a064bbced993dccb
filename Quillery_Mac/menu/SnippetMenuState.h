// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/Snippets.h"
#include "Quillery_Mac/ui/Controls.h"

#include <QMap>
#include <QProperty>
#include <QUuid>

#include <functional>
#include <optional>
#include <vector>

class SnippetMatcher;

namespace platform {
class Pasteboard;
}

/// The snippet menu without its window: the state cells, the rows that follow from them, and what
/// each command does. Main thread only.
///
/// Order matters in one place: "up", "down", "select" and "right" are set back before they act, so
/// that a change they cause cannot make them act again.
class SnippetMenuState
{
public:
    /// @param doPaste  the menu's paste request
    /// @param controls the menu's command map
    SnippetMenuState(QProperty<bool> &doPaste, QProperty<Controls> &controls,
                     platform::Pasteboard &pasteboard, SnippetMatcher &matcher);
    Q_DISABLE_COPY_MOVE(SnippetMenuState)

    QProperty<QString> searchText;
    QProperty<bool> doSearch{false};
    QProperty<bool> &doPaste;
    /// By folder; one that is missing is closed.
    QProperty<QMap<QUuid, bool>> openItems;
    QProperty<Controls> &controls;
    /// The highlighted row.
    QProperty<std::optional<SnippetRow>> isSelected;
    QProperty<std::optional<QString>> passedSearch;
    /// The folders of the tree that are open, in the order in which they were opened.
    QProperty<std::vector<Snippets>> openItemsList;
    /// Handed down to the rows.
    QProperty<bool> isOpen{false};

    /// The menu is shown: takes the passed search over and highlights the first row if it has the
    /// keyboard.
    void shown();
    /// The store's snippets in order. Call it again after every change of them.
    void setItems(const std::vector<Snippet *> &items);
    /// The matcher has more answers to the search. The first row stays highlighted while nobody
    /// moves the highlight, and a "select" that came early acts when the search is complete.
    void searchAgain();

    const std::vector<SnippetRow> &rows() const { return m_rows; }
    /// Where the highlighted row stands in rows().
    std::optional<int> selectedRow() const;
    bool isFolderOpen(const Snippet &folder) const;

    /// Highlights a row, which takes the keyboard; none: nothing is highlighted.
    void highlight(std::optional<SnippetRow> row);
    /// Flips the open flag of an object; one without `id` does not open.
    void toggle(const Snippet &snippet);
    /// Writes the snippet's content to the pasteboard and asks for a paste.
    void paste(const Snippet &snippet);

    /// The menu closes: from now on it acts on nothing.
    void end();

    /// Called after rows() became others.
    std::function<void()> rowsChanged;
    /// Called instead when a folder opened or closed: `count` rows came in before row `first`, or,
    /// if it is negative, went from there.
    std::function<void(int first, int count)> membersChanged;

private:
    void searchTextChanged();
    void controlsChanged();
    void openItemsChanged();
    void rebuild();
    void refreshRows();
    std::vector<Snippets> openNodes() const;
    void keepSelection();
    void select();
    void selectWaited();
    void highlightFirst();
    void setHighlight(std::optional<SnippetRow> row, bool isFirst);
    std::optional<SnippetRow> rowAt(std::optional<int> row) const;

    platform::Pasteboard &m_pasteboard;
    SnippetMatcher &m_matcher;
    std::vector<Snippet *> m_items;
    std::vector<Snippets> m_tree;
    std::vector<SnippetRow> m_rows;
    std::vector<QUuid> m_openOrder;
    bool m_hasEnded = false;
    bool m_isFirstHighlighted = false; ///< by a search, and nobody has moved the highlight since
    bool m_isSelectWaiting = false;    ///< for the search to be complete
    QPropertyNotifier m_searchObserver;
    QPropertyNotifier m_controlsObserver;
    QPropertyNotifier m_openObserver;
    QPropertyNotifier m_selectionObserver;
};
