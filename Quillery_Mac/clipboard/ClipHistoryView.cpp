// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipHistoryView.h"

#include "Quillery_Mac/ui/ListMoves.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>

#include <algorithm>

ClipHistoryView::ClipHistoryView(const ClipHistoryLinks &links, QWidget *parent)
    : QWidget(parent)
    , context(links.context)
    , funcs(links.funcs)
    , items(links.context)
    , doPaste(links.doPaste)
    , controls(links.controls)
    , show(links.show)
    , m_motion(links.motion)
    , m_pasteboard(links.pasteboard)
    , m_column(*this, this)
    , m_controlsObserver(controls.addNotifier([this] { controlsChanged(); }))
    , m_selectionObserver(isSelected.addNotifier([this] { selectionChanged(); }))
{
    setFocusPolicy(Qt::NoFocus);
    m_column.setAccessibleName(tr("History"));
    m_column.setEmptyText(tr("Nothing copied yet"));
    m_column.setRowHeight(rowHeight());
    connect(&items, &LiveFetchBase::changed, this, &ClipHistoryView::itemsChanged);
    itemsChanged();
    controlsChanged();
}

ClipHistoryView::~ClipHistoryView() = default;

void ClipHistoryView::release()
{
    m_isReleased = true;
    items.disconnect(this);
    m_column.release();
    m_clips.clear();
}

QSize ClipHistoryView::sizeHint() const
{
    const int rows = static_cast<int>(m_clips.size()) * rowHeight();
    return {tokens::kListWidth, m_clips.empty() ? tokens::kListMinimumHeight
                                                : std::min(rows, tokens::kHistoryMaximumHeight)};
}

void ClipHistoryView::resizeEvent(QResizeEvent *)
{
    m_column.setGeometry(rect());
}

void ClipHistoryView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    m_column.setRowHeight(rowHeight());
    updateGeometry();
}

void ClipHistoryView::enterEvent(QEnterEvent *)
{
    emit pointerInside(true);
}

void ClipHistoryView::leaveEvent(QEvent *)
{
    emit pointerInside(false);
}

int ClipHistoryView::rowCount() const
{
    return static_cast<int>(m_clips.size());
}

int ClipHistoryView::kindOfRow(int) const
{
    return 0;
}

QWidget *ClipHistoryView::makeRow(int, QWidget *parent)
{
    auto *row =
        new ClipButton({funcs, doPaste, context, isSelected, show, m_pasteboard, m_motion}, parent);
    connect(row, &ClipButton::confirmDeleteChanged, this,
            [this, row] { rememberConfirming(*row); });
    connect(row, &ClipButton::deleted, this, &ClipHistoryView::itemsChanged);
    return row;
}

void ClipHistoryView::bindRow(QWidget &widget, int row)
{
    Clip *clip = m_clips.at(static_cast<std::size_t>(row));
    static_cast<ClipButton &>(widget).setItem(clip, m_confirming.contains(clip));
}

void ClipHistoryView::unbindRow(QWidget &widget)
{
    static_cast<ClipButton &>(widget).setItem(nullptr, false);
}

// The objects of the last fetch may be about to go: every row lets go of its own here.
void ClipHistoryView::itemsChanged()
{
    m_clips = items.results();
    const auto isListed = [this](const Clip *clip) {
        return std::find(m_clips.begin(), m_clips.end(), clip) != m_clips.end();
    };
    std::erase_if(m_confirming, [&isListed](const Clip *clip) { return !isListed(clip); });
    if (isSelected.value() != nullptr && !isListed(isSelected.value()))
        isSelected = nullptr;
    m_column.reload();
    updateGeometry();
}

void ClipHistoryView::controlsChanged()
{
    if (m_isReleased || !controls::isSet(controls.value(), controls::kGive))
        return;
    // A clip that was recorded or deleted a moment ago may not have been announced yet.
    if (items.results() != m_clips)
        itemsChanged();
    if (isSelected.value() == nullptr && !m_clips.empty())
        moveTo(0);
    if (controls::take(controls, controls::kUp))
        moveTo(listMoves::up(selectedRow(), rowCount()));
    if (controls::take(controls, controls::kDown))
        moveTo(listMoves::down(selectedRow(), rowCount()));
    Clip *clip = isSelected.value();
    if (clip != nullptr && controls::take(controls, controls::kSelect))
        pasteClip(*clip, m_pasteboard, doPaste, context);
}

void ClipHistoryView::selectionChanged()
{
    for (const auto &[row, widget] : m_column.rowsInView()) {
        auto *button = static_cast<ClipButton *>(widget);
        button->refreshHighlight();
        button->refreshButtons();
    }
}

void ClipHistoryView::moveTo(std::optional<int> row)
{
    if (!row)
        return;
    isSelected = m_clips.at(static_cast<std::size_t>(*row));
    m_column.ensureVisible(*row);
}

std::optional<int> ClipHistoryView::selectedRow() const
{
    const auto found = std::find(m_clips.begin(), m_clips.end(), isSelected.value());
    if (found == m_clips.end())
        return std::nullopt;
    return static_cast<int>(found - m_clips.begin());
}

void ClipHistoryView::rememberConfirming(const ClipButton &row)
{
    if (row.item == nullptr)
        return;
    if (row.confirmDelete.value())
        m_confirming.insert(row.item);
    else
        m_confirming.erase(row.item);
}

int ClipHistoryView::rowHeight() const
{
    return fontMetrics().height() + 2 * tokens::kListRowPadding;
}
