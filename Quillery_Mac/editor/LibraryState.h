// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/LibraryRows.h"
#include "Quillery_Mac/store/LiveFetch.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QMap>
#include <QObject>
#include <QProperty>
#include <QUuid>

#include <functional>
#include <optional>
#include <set>
#include <vector>

class SnippetMatcher;

/// The two drop strips of a row.
enum class Strip { Above, Below };

/// The library without its window: the state cells, the rows that follow from them, and what each
/// command does. Main thread only.
///
/// Rows come and go when rebuild() runs: after every successful save from here, when the search
/// text changes, and when the view appears; not when the store changes by itself.
class LibraryState : public QObject
{
    Q_OBJECT

public:
    /// @param matcher may be shared; both outlive the object
    LibraryState(ManagedObjectContext &viewContext, SnippetMatcher &matcher);
    ~LibraryState() override;

    ManagedObjectContext &viewContext;
    /// The flat sequence of folders and snippets, by `order`.
    LiveFetch<Snippet> items;
    QProperty<QString> searchText;
    /// The selected object's `id`.
    QProperty<std::optional<QUuid>> selectedItem;
    QProperty<bool> columnVisibility{true}; ///< whether the list is shown
    QProperty<bool> doSearch{false};
    /// A deletion is waiting to be saved.
    QProperty<bool> doDelete{false};
    /// The item being dragged; null without a drag, and when the item has gone meanwhile.
    QProperty<Snippet *> dragging{nullptr};
    /// Which row's strip is under the pointer.
    QProperty<QMap<QUuid, bool>> target;
    /// Whether that strip is the lower one.
    QProperty<bool> dropBelow{false};
    /// The places in `items` that a drop will move.
    std::set<int> moveIndexes;

    const std::vector<LibraryRow> &snips() const { return m_rows; }
    /// The rows in view order; good until the rows change.
    const std::vector<ShownRow> &rows() const { return m_shown; }

    /// The object that `selectedItem` names; null when there is none (any more).
    Snippet *selected();
    /// Where the selected item stands in rows(); absent when it is not shown.
    std::optional<int> selectedRow() const;

    /// Saves the context; the rows are built anew if it worked, and nothing happens if not.
    void save();
    /// Builds the rows anew.
    void rebuild();

    void addSnippet();
    void addFolder();
    /// Deletes the selected item and saves.
    void deleteSelected();
    /// Opens or closes a folder and saves; ignored during a drag.
    void setExpanded(Snippet &folder, bool expanded);

    void startDrag(Snippet &item);
    bool isDragging() const { return m_isDragging; }
    bool isFolderDragged() const { return m_isFolderDragged; }
    /// The drag ended anywhere but on a strip.
    void dropOutside();
    /// Whether a drop of what is being dragged would be taken on that strip.
    bool accepts(const ShownRow &row, Strip strip) const;
    /// Drops what is being dragged. Answers whether it was taken; nothing moves if not.
    bool drop(const ShownRow &row, Strip strip);

    /// Where a drop on the strip goes in `items`.
    int destination(const ShownRow &row, Strip strip);
    /// How many rows of the list are moved by the drag: 1, or a folder and its members.
    int draggedCount() const { return static_cast<int>(moveIndexes.size()); }

    /// A text came from another program: makes a snippet of it where a snippet dropped on the strip
    /// would go, at the end without a row, saves, and selects it.
    void dropText(const QByteArray &text, const std::optional<ShownRow> &row, Strip strip);

    /// Moves the selected item, a folder with its members, one place up or down in the list, if
    /// there is one. A snippet that passes a folder's row changes into or out of the folder; a
    /// folder passes whole groups. Answers whether it moved.
    bool moveSelected(Strip direction);

signals:
    /// snips() and rows() are others now.
    void rowsChanged();
    /// An item was added, or a folder opened or closed: `count` rows came in after `row`, which is
    /// -1 at the top, or, if it is negative, went; follows rowsChanged().
    void rowsSlide(int row, int count);
    /// Objects of rows are gone; the rows are still there.
    void rowsFaded();
    /// The selected item was moved to another place.
    void moved(const QString &where);

private:
    void searchTextChanged();
    void forget(const ObjectChanges &changes);
    void deleteIfAsked();
    int positionOf(const Snippet *item);
    void endDrag();
    void openFolderOf(int position);
    void move(int destination);
    std::optional<int> rowOf(const Snippet &item) const;
    void slideIn(const Snippet &item);
    void select(const Snippet &item);

    SnippetMatcher &m_matcher;
    std::vector<LibraryRow> m_rows;
    std::vector<ShownRow> m_shown;
    bool m_isDragging = false;
    bool m_isFolderDragged = false;
    /// The object that selected() found last; asked for again it is there without a search.
    qint64 m_selectedObject = 0;
    QPropertyNotifier m_searchObserver;
};
