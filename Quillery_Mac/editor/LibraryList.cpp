// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryList.h"

#include "Quillery_Mac/editor/DragPicture.h"
#include "Quillery_Mac/editor/DropLine.h"
#include "Quillery_Mac/editor/DroppedText.h"
#include "Quillery_Mac/editor/LibraryRowView.h"
#include "Quillery_Mac/editor/OpenDrag.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QAccessible>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace {

/// Marks a drag of ours, and makes one of a folder, which has no text, a drag at all.
const QString kRowFormat = QStringLiteral("application/x-quillery-row");
const QString kPlainFormat = QStringLiteral("text/plain;charset=utf-8");

constexpr std::chrono::milliseconds kAutoScroll{30};
constexpr int kAutoScrollZone = 20;
constexpr int kAutoScrollStep = 8;

// The row itself, or its folder's: members follow their folder.
const ShownRow &topOf(const ShownRow &row)
{
    return row.folder == nullptr ? row : *(&row - 1 - row.index);
}

} // namespace

LibraryList::LibraryList(LibraryState &state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
    , m_column(*this, this)
    , m_line(new DropLine(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setAccessibleName(tr("Snippets"));
    m_column.setOutline(*this);
    m_column.setAccessibleName(tr("Snippets"));
    m_column.setRowHeight(rowHeight());
    m_autoScroll.setInterval(kAutoScroll);
    connect(&m_autoScroll, &QTimer::timeout, this, [this] {
        m_column.scrollBy(m_autoScrollStep);
        aim(); // a pointer that rests is over another row now
    });
    connect(&state, &LibraryState::rowsChanged, this, &LibraryList::rowsAreOthers);
    connect(&state, &LibraryState::rowsFaded, this, [this] { m_column.reload(); });
    connect(&state, &LibraryState::rowsSlide, this,
            [this](int row, int count) { m_column.slide(row + 1, count); });
    connect(&state, &LibraryState::moved, this, [this] {
        if (const auto row = m_state.selectedRow())
            m_column.ensureVisible(*row);
    });
    connect(&state.items, &LiveFetchBase::changed, this, [this] { m_column.rebind(); });
    m_observers.push_back(state.selectedItem.addNotifier([this] { selectionChanged(); }));
    rowsAreOthers();
}

LibraryList::~LibraryList()
{
    m_column.release();
}

bool LibraryList::isSelected(const ShownRow &row) const
{
    const std::optional<QUuid> id = m_state.selectedItem.value();
    return id && row.row != nullptr && row.row->item != nullptr && row.row->item->id() == id;
}

bool LibraryList::isDragged(const ShownRow &row) const
{
    const Snippet *dragged = m_state.dragging.value();
    if (dragged == nullptr || row.row == nullptr)
        return false;
    return row.row->item == dragged || (row.folder != nullptr && row.folder->item == dragged);
}

void LibraryList::choose(const ShownRow &row)
{
    if (row.row != nullptr && row.row->item != nullptr)
        m_state.selectedItem = row.row->item->id();
}

void LibraryList::toggle(const ShownRow &row)
{
    if (row.row != nullptr && row.row->item != nullptr && row.row->isFolder)
        m_state.setExpanded(*row.row->item, !row.row->expanded);
}

void LibraryList::toggleSelected()
{
    if (const auto row = m_state.selectedRow())
        toggle(rowOf(*row));
}

std::unique_ptr<QMimeData> LibraryList::dragData(const Snippet &item)
{
    auto mime = std::make_unique<QMimeData>();
    mime->setData(kRowFormat, QByteArray());
    if (!item.isFolder()) {
        const QByteArray content = item.content().value_or(QByteArray());
        mime->setText(QString::fromUtf8(content));
        mime->setData(kPlainFormat, content);
    }
    return mime;
}

void LibraryList::drag(const ShownRow &row, LibraryRowView &view)
{
    if (row.row == nullptr || row.row->item == nullptr)
        return;
    Snippet &item = *row.row->item;
    m_state.startDrag(item);
    auto *drag = new QDrag(this);
    drag->setMimeData(dragData(item).release());
    drag->setPixmap(dragPicture(view, m_state.draggedCount()));
    drag->setHotSpot(dragHotSpot());
    m_column.reload();
    const QPointer<LibraryList> self(this);
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    if (self.isNull())
        return;
    m_state.dropOutside();
    untarget();
    m_column.reload();
}

void LibraryList::chooseNext(int step)
{
    const int count = rowCount();
    if (count == 0)
        return;
    const std::optional<int> selected = m_state.selectedRow();
    const int from = selected.value_or(step > 0 ? -1 : count);
    const int direction = step > 0 ? 1 : -1;
    // Rows that cannot be selected, for their object is gone or has no id, are passed over.
    for (int row = std::clamp(from + step, 0, count - 1); row >= 0 && row < count;
         row += direction) {
        const Snippet *item = rowOf(row).row->item;
        if (item != nullptr && item->id()) {
            choose(rowOf(row));
            return;
        }
    }
}

LibraryList::DropPlace LibraryList::placeAt(QPoint point) const
{
    const int y = point.y() - m_column.y();
    const int row = m_column.rowAt(y);
    if (row < 0)
        return {};
    // The strip above is as high as it is; a taller row leaves the rest to the one below.
    const bool isAbove = y - m_column.topOf(row) < tokens::kDropStrip;
    return {row, isAbove ? Strip::Above : Strip::Below};
}

QSize LibraryList::sizeHint() const
{
    return {tokens::kListWidth, tokens::kSnippetsMaximumHeight};
}

void LibraryList::resizeEvent(QResizeEvent *)
{
    m_column.setGeometry(rect().adjusted(kRingRoom, kRingRoom, -kRingRoom, -kRingRoom));
}

void LibraryList::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_column.setRowHeight(rowHeight());
}

void LibraryList::keyPressEvent(QKeyEvent *event)
{
    const int page = std::max(1, height() / rowHeight() - 1);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Up:
        chooseNext(-1);
        break;
    case Qt::Key_Down:
        chooseNext(1);
        break;
    case Qt::Key_PageUp:
        chooseNext(-page);
        break;
    case Qt::Key_PageDown:
        chooseNext(page);
        break;
    case Qt::Key_Home:
        chooseNext(-rowCount());
        break;
    case Qt::Key_End:
        chooseNext(rowCount());
        break;
    case Qt::Key_Right:
        openOrStepOut(!isMirrored);
        break;
    case Qt::Key_Left:
        openOrStepOut(isMirrored);
        break;
    case Qt::Key_Space:
        toggleSelected();
        break;
    case Qt::Key_F10:
        if (event->modifiers() == Qt::ShiftModifier) {
            emit menuRequested(menuPlace());
            break;
        }
        [[fallthrough]];
    default:
        QWidget::keyPressEvent(event);
    }
}

// The rows do it for the pointer. Here the menu key arrives, with a place of its own.
void LibraryList::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit menuRequested(menuPlace());
    else
        event->ignore();
}

// Below the selected row's title, as far as the list shows it.
QPoint LibraryList::menuPlace() const
{
    const int row = m_state.selectedRow().value_or(0);
    const int y = std::clamp(m_column.topOf(row) + rowHeight(), 0, m_column.height() - 1);
    const QRect rows = m_column.rowsRect();
    const int indent = LibraryRowView::slotOffset(true);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int x = isMirrored ? rows.right() - indent : rows.left() + indent;
    return m_column.mapToGlobal(QPoint(x, y));
}

void LibraryList::focusInEvent(QFocusEvent *event)
{
    const Qt::FocusReason reason = event->reason();
    m_hasKeyboardFocus = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                         reason == Qt::ShortcutFocusReason;
    update();
    QWidget::focusInEvent(event);
    // After the news that the list itself has the focus, which follows this event.
    QMetaObject::invokeMethod(this, &LibraryList::tellFocus, Qt::QueuedConnection);
}

void LibraryList::focusOutEvent(QFocusEvent *event)
{
    m_hasKeyboardFocus = false;
    update();
    QWidget::focusOutEvent(event);
}

void LibraryList::paintEvent(QPaintEvent *)
{
    if (!m_hasKeyboardFocus)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing::strokeInside(painter, rect(), tokens::kHighlightRadius + kRingRoom, tokens::kFocusRing,
                          paletteColors::highlight(palette()));
}

void LibraryList::dragEnterEvent(QDragEnterEvent *event)
{
    if (isOwnDrag(*event) || isText(*event->mimeData()))
        event->acceptProposedAction();
}

void LibraryList::dragMoveEvent(QDragMoveEvent *event)
{
    m_dragPoint = event->position().toPoint();
    m_isRowDragged = isOwnDrag(*event);
    const bool isKnown = m_isRowDragged || isText(*event->mimeData());
    if (isKnown)
        scrollNearEdge(m_dragPoint);
    if (!isKnown || !aim()) {
        event->ignore();
        return;
    }
    event->setDropAction(m_isRowDragged ? Qt::MoveAction : Qt::CopyAction);
    event->accept();
}

// Shows where what is dragged would land. Returns whether it may.
bool LibraryList::aim()
{
    const DropPlace place = placeAt(m_dragPoint);
    const bool isTaken =
        !m_isRowDragged || (place.row >= 0 && m_state.accepts(rowOf(place.row), place.strip));
    if (isTaken)
        target(place);
    else
        untarget();
    return isTaken;
}

void LibraryList::dragLeaveEvent(QDragLeaveEvent *)
{
    m_autoScroll.stop();
    untarget();
}

void LibraryList::dropEvent(QDropEvent *event)
{
    m_autoScroll.stop();
    untarget();
    const DropPlace place = placeAt(event->position().toPoint());
    if (!isOwnDrag(*event)) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        afterDrag(*event, *this, [this, text = droppedText(*event->mimeData()), place] {
            const bool isOnRow = place.row >= 0 && place.row < rowCount();
            m_state.dropText(text, isOnRow ? std::optional(rowOf(place.row)) : std::nullopt,
                             place.strip);
        });
        return;
    }
    event->setDropAction(Qt::MoveAction);
    if (place.row >= 0 && m_state.drop(rowOf(place.row), place.strip))
        event->accept();
    else
        event->ignore();
}

int LibraryList::rowCount() const
{
    return static_cast<int>(m_state.rows().size());
}

int LibraryList::kindOfRow(int) const
{
    return 0;
}

QWidget *LibraryList::makeRow(int, QWidget *parent)
{
    return new LibraryRowView(*this, m_motion, parent);
}

void LibraryList::bindRow(QWidget &widget, int row)
{
    static_cast<LibraryRowView &>(widget).setRow(rowOf(row));
}

void LibraryList::unbindRow(QWidget &widget)
{
    static_cast<LibraryRowView &>(widget).setRow({});
}

// The top level is not counted anywhere, but every row knows its place in it.
int LibraryList::childCount(int row) const
{
    if (row == kColumn)
        return rowCount() == 0 ? 0 : topOf(m_state.rows().back()).index + 1;
    const LibraryRow &folder = *rowOf(row).row;
    return folder.expanded ? static_cast<int>(folder.children.size()) : 0;
}

int LibraryList::childRow(int row, int index) const
{
    if (row != kColumn)
        return row + 1 + index;
    const std::vector<ShownRow> &rows = m_state.rows();
    const auto found =
        std::lower_bound(rows.begin(), rows.end(), index, [](const ShownRow &shown, int wanted) {
            return topOf(shown).index < wanted;
        });
    return static_cast<int>(found - rows.begin());
}

int LibraryList::parentRow(int row) const
{
    const ShownRow &shown = rowOf(row);
    return shown.folder == nullptr ? kColumn : row - 1 - shown.index;
}

int LibraryList::indexInParent(int row) const
{
    return rowOf(row).index;
}

RowOutline::Facts LibraryList::facts(int row) const
{
    const ShownRow &shown = rowOf(row);
    return {libraryRowText(*shown.row).text, isSelected(shown), shown.row->isFolder,
            shown.row->isFolder && shown.row->expanded};
}

void LibraryList::selectRow(int row)
{
    choose(rowOf(row));
}

void LibraryList::toggleRow(int row)
{
    toggle(rowOf(row));
}

void LibraryList::rowsAreOthers()
{
    const QString text = m_state.searchText.value();
    m_column.setEmptyText(text.isEmpty() ? QString() : tr("No match for “%1”").arg(text));
    m_column.reload();
}

void LibraryList::selectionChanged()
{
    for (const auto &[row, widget] : m_column.rowsInView())
        static_cast<LibraryRowView *>(widget)->refreshHighlight();
    if (const auto row = m_state.selectedRow())
        m_column.ensureVisible(*row);
    tellFocus();
}

// To a screen reader the selected row has the focus while the list has it.
void LibraryList::tellFocus()
{
    const std::optional<int> row = hasFocus() ? m_state.selectedRow() : std::nullopt;
    QWidget *widget = row ? m_column.rowWidget(*row) : nullptr;
    if (widget == nullptr)
        return;
    QAccessibleEvent event(widget, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

bool LibraryList::isOwnDrag(const QDropEvent &event) const
{
    return m_state.isDragging() && event.mimeData()->hasFormat(kRowFormat);
}

bool LibraryList::isText(const QMimeData &mime) const
{
    return hasDroppedText(mime) && !mime.hasFormat(kRowFormat);
}

void LibraryList::target(const DropPlace &place)
{
    if (place.row < 0) {
        untarget();
        return;
    }
    const ShownRow &row = rowOf(place.row);
    if (row.row->item != nullptr && row.row->item->id())
        m_state.target = QMap<QUuid, bool>{{*row.row->item->id(), true}};
    m_state.dropBelow = place.strip == Strip::Below;

    // A folder that is dropped below another one lands behind that one's members.
    const bool isBelow = place.strip == Strip::Below;
    const bool isIntoFolder = isBelow && row.row->isFolder;
    int edge = place.row + (isBelow ? 1 : 0);
    if (isIntoFolder && m_state.isFolderDragged() && row.row->expanded)
        edge += static_cast<int>(row.row->children.size());
    const bool isMember = row.folder != nullptr || (isIntoFolder && !m_state.isFolderDragged());
    const QRect rows = m_column.rowsRect().translated(m_column.pos());
    const int indent = isMember ? tokens::kMemberIndent + tokens::kListRowPadding : 0;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    m_line->showAt(m_column.y() + m_column.topOf(edge), rows.left() + (isMirrored ? 0 : indent),
                   rows.right() + 1 - (isMirrored ? indent : 0));
}

void LibraryList::untarget()
{
    m_state.target = QMap<QUuid, bool>();
    m_line->hide();
}

void LibraryList::scrollNearEdge(QPoint point)
{
    m_autoScrollStep = point.y() < kAutoScrollZone               ? -kAutoScrollStep
                       : point.y() >= height() - kAutoScrollZone ? kAutoScrollStep
                                                                 : 0;
    if (m_autoScrollStep == 0)
        m_autoScroll.stop();
    else if (!m_autoScroll.isActive())
        m_autoScroll.start();
}

int LibraryList::rowHeight() const
{
    return std::max(tokens::kLibraryRowHeight, fontMetrics().height() + tokens::kLibraryRowPadding);
}

const ShownRow &LibraryList::rowOf(int row) const
{
    return m_state.rows()[static_cast<std::size_t>(row)];
}

// Forward opens a closed folder; back closes an open one, or goes from a member to its folder.
void LibraryList::openOrStepOut(bool isOpening)
{
    const std::optional<int> selected = m_state.selectedRow();
    if (!selected)
        return;
    const ShownRow row = rowOf(*selected);
    if (row.row->isFolder && row.row->expanded != isOpening)
        toggle(row);
    else if (!isOpening && row.folder != nullptr)
        choose({row.folder, nullptr});
}
