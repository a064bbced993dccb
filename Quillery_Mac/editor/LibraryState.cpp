// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryState.h"

#include "Quillery_Mac/editor/SnippetOrder.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "Quillery_Mac/ui/RowText.h"

#include <algorithm>
#include <unordered_set>

LibraryState::LibraryState(ManagedObjectContext &context, SnippetMatcher &matcher)
    : viewContext(context)
    , items(context)
    , m_matcher(matcher)
    , m_searchObserver(searchText.addNotifier([this] { searchTextChanged(); }))
{
    connect(&context, &ManagedObjectContext::objectsDidChange, this, &LibraryState::forget);
    connect(&matcher, &SnippetMatcher::moreAnswers, this, [this] {
        if (doSearch.value())
            rebuild();
    });
}

LibraryState::~LibraryState() = default;

Snippet *LibraryState::selected()
{
    const std::optional<QUuid> id = selectedItem.value();
    if (!id)
        return nullptr;
    // Asked at every key in the editor, and each of them makes the fetch sort all objects anew.
    Snippet *known = viewContext.object<Snippet>(m_selectedObject);
    if (known != nullptr && known->id() == id)
        return known;
    const std::vector<Snippet *> &all = items.results();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&id](const Snippet *item) { return item->id() == id; });
    if (found == all.end())
        return nullptr;
    m_selectedObject = (*found)->objectId();
    return *found;
}

std::optional<int> LibraryState::selectedRow() const
{
    const std::optional<QUuid> id = selectedItem.value();
    if (!id)
        return std::nullopt;
    const auto found = std::find_if(m_shown.begin(), m_shown.end(), [&id](const ShownRow &shown) {
        return shown.row->item != nullptr && shown.row->item->id() == id;
    });
    if (found == m_shown.end())
        return std::nullopt;
    return static_cast<int>(found - m_shown.begin());
}

void LibraryState::save()
{
    if (viewContext.save())
        rebuild();
}

void LibraryState::rebuild()
{
    m_matcher.setSearchText(searchText.value());
    m_rows = libraryRows(items.results(), doSearch.value(),
                         [this](const Snippet &snippet) { return m_matcher.matches(snippet); });
    m_shown = shownRows(m_rows);
    emit rowsChanged();
}

void LibraryState::addSnippet()
{
    const Snippet *above = selected();
    const qint64 order = above != nullptr ? above->order() + 1 : 0;
    //: The title that a new snippet gets.
    const QString title = tr("New Snippet");
    Snippet &fresh = snippetOrder::insert(viewContext, {.title = title}, order);
    save();
    slideIn(fresh);
    select(fresh);
}

// Deletions may have left higher numbers than that, and a number is skipped where they have not:
// the next move numbers everything anew.
void LibraryState::addFolder()
{
    const auto count = static_cast<qint64>(items.results().size());
    //: The title that a new folder gets.
    const QString title = tr("Folder");
    Snippet &fresh = snippetOrder::append(
        viewContext, {.title = title, .isFolder = true, .expanded = true}, count + 1);
    save();
    slideIn(fresh);
    select(fresh);
}

void LibraryState::deleteSelected()
{
    if (!selectedItem.value())
        return;
    Snippet *item = selected();
    selectedItem = std::nullopt;
    if (item != nullptr) {
        // Should the save fail, its row stays; and nobody is told of the end of an object that came
        // in the same turn of the event loop.
        forgetDeleted(m_rows, {item});
        viewContext.deleteObject(*item);
        doDelete = true;
    }
    deleteIfAsked();
}

void LibraryState::setExpanded(Snippet &folder, bool expanded)
{
    if (m_isDragging)
        return;
    const auto before = static_cast<int>(m_shown.size());
    folder.setExpanded(expanded);
    save();
    const std::optional<int> row = rowOf(folder);
    const int count = static_cast<int>(m_shown.size()) - before;
    if (row && count != 0)
        emit rowsSlide(*row, count);
}

void LibraryState::startDrag(Snippet &item)
{
    const int first = positionOf(&item);
    const int count = item.isFolder() && !items.results().empty()
                          ? snippetOrder::groupSize(items.results(), first)
                          : 1;
    moveIndexes.clear();
    for (int i = 0; i < count; ++i)
        moveIndexes.insert(first + i);
    m_isDragging = true;
    m_isFolderDragged = item.isFolder();
    dragging = &item;
}

void LibraryState::dropOutside()
{
    if (!m_isDragging)
        return;
    endDrag();
    rebuild();
}

// Folders do not nest: one that is dropped above a member would take the rest of the members away
// from their folder.
bool LibraryState::accepts(const ShownRow &row, Strip strip) const
{
    return !(m_isFolderDragged && row.folder != nullptr && strip == Strip::Above);
}

int LibraryState::destination(const ShownRow &row, Strip strip)
{
    const int position = positionOf(row.row->item);
    if (strip == Strip::Above)
        return position;
    if (row.row->isFolder && m_isFolderDragged && !items.results().empty())
        return position + snippetOrder::groupSize(items.results(), position);
    return position + 1;
}

bool LibraryState::drop(const ShownRow &row, Strip strip)
{
    if (!accepts(row, strip)) {
        endDrag();
        return false;
    }
    const int place = destination(row, strip);
    Snippet *item = row.row->item;
    endDrag();
    if (strip == Strip::Below && item != nullptr && item->isFolder()) {
        item->setExpanded(true);
        save();
    }
    move(place);
    return true;
}

void LibraryState::dropText(const QByteArray &text, const std::optional<ShownRow> &row, Strip strip)
{
    qint64 order = items.results().empty() ? 0 : items.results().back()->order() + 1;
    if (row && row->row->item != nullptr) {
        Snippet &neighbour = *row->row->item;
        order = neighbour.order() + (strip == Strip::Below ? 1 : 0);
        if (strip == Strip::Below && neighbour.isFolder())
            neighbour.setExpanded(true);
    }
    Snippet &fresh =
        snippetOrder::insert(viewContext, {.title = QString(), .content = text}, order);
    save();
    select(fresh);
}

bool LibraryState::moveSelected(Strip direction)
{
    const std::optional<int> shown = selectedRow();
    if (!shown || m_isDragging)
        return false;
    const ShownRow own = m_shown[static_cast<std::size_t>(*shown)];
    const bool isFolder = own.row->isFolder;
    const int step = direction == Strip::Above ? -1 : 1;
    const int end = static_cast<int>(m_shown.size());
    int next = *shown + step;
    // A folder passes whole groups, its own members and those of others.
    while (isFolder && next >= 0 && next < end &&
           m_shown[static_cast<std::size_t>(next)].folder != nullptr)
        next += step;
    if (next < 0 || next >= end)
        return false;

    const ShownRow other = m_shown[static_cast<std::size_t>(next)];
    if (other.row->item == nullptr)
        return false;
    const QString where = (direction == Strip::Above ? tr("Moved above %1") : tr("Moved below %1"))
                              .arg(titleRowText(other.row->item->title().value_or(QString()),
                                                other.row->item->preview())
                                       .text);
    Snippet *item = own.row->item;
    startDrag(*item);
    drop(other, direction);
    // It may have become a member of the folder above, which is perhaps closed.
    if (!selectedRow())
        openFolderOf(positionOf(item));
    emit moved(where);
    return true;
}

void LibraryState::searchTextChanged()
{
    doSearch = !searchText.value().isEmpty();
    rebuild();
}

void LibraryState::forget(const ObjectChanges &changes)
{
    if (!changes.concerns(Snippet::staticEntity()))
        return;
    std::unordered_set<const Snippet *> gone;
    for (const ManagedObject *object : changes.deleted) {
        if (&object->entity() == &Snippet::staticEntity())
            gone.insert(static_cast<const Snippet *>(object));
    }
    if (gone.empty())
        return;
    forgetDeleted(m_rows, gone);
    if (gone.contains(dragging.value()))
        dragging = nullptr;
    emit rowsFaded();
}

void LibraryState::deleteIfAsked()
{
    if (selectedItem.value() || !doDelete.value())
        return;
    doDelete = false;
    save();
}

int LibraryState::positionOf(const Snippet *item)
{
    const std::vector<Snippet *> &all = items.results();
    const auto found = std::find(all.begin(), all.end(), item);
    return found == all.end() ? 0 : static_cast<int>(found - all.begin());
}

void LibraryState::endDrag()
{
    m_isDragging = false;
    m_isFolderDragged = false;
    dragging = nullptr;
}

void LibraryState::openFolderOf(int position)
{
    const std::vector<Snippet *> &all = items.results();
    while (position >= 0 && !all[static_cast<std::size_t>(position)]->isFolder())
        --position;
    if (position >= 0)
        setExpanded(*all[static_cast<std::size_t>(position)], true);
}

void LibraryState::move(int destination)
{
    snippetOrder::renumber(snippetOrder::moved(items.results(), moveIndexes, destination));
    save();
}

std::optional<int> LibraryState::rowOf(const Snippet &item) const
{
    const auto found = std::find_if(m_shown.begin(), m_shown.end(), [&item](const ShownRow &shown) {
        return shown.row->item == &item;
    });
    if (found == m_shown.end())
        return std::nullopt;
    return static_cast<int>(found - m_shown.begin());
}

// Not shown in a closed folder, while searching for something else, and when it was not saved.
void LibraryState::slideIn(const Snippet &item)
{
    if (const std::optional<int> row = rowOf(item))
        emit rowsSlide(*row - 1, 1);
}

void LibraryState::select(const Snippet &item)
{
    selectedItem = item.id();
}
