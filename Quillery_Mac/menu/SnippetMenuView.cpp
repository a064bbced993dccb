// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/SnippetMenuView.h"

#include "Quillery_Mac/menu/Folder.h"
#include "Quillery_Mac/menu/SnippetButton.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>

#include <algorithm>

SnippetMenuView::SnippetMenuView(const SnippetMenuLinks &links,
                                 const std::optional<QString> &search, QWidget *parent)
    : QWidget(parent)
    , SnippetMenuState(links.doPaste, links.controls, links.pasteboard, links.matcher)
    , context(links.context)
    , funcs(links.funcs)
    , items(links.context)
    , m_motion(links.motion)
    , m_field(this)
    , m_column(*this, this)
{
    setFocusPolicy(Qt::NoFocus);
    setFocusProxy(&m_field);
    m_column.setAccessibleName(tr("Snippets"));
    m_column.setRowHeight(rowHeight());
    rowsChanged = [this] { rowsAreOthers(); };
    membersChanged = [this](int first, int count) {
        m_column.slide(first, count);
        updateGeometry();
    };
    connect(&m_field, &QLineEdit::textChanged, this,
            [this](const QString &text) { searchText = text; });
    connect(&items, &LiveFetchBase::changed, this, [this] { setItems(items.results()); });
    connect(&links.matcher, &SnippetMatcher::moreAnswers, this, [this] { searchAgain(); });
    observe();
    setItems(items.results());
    passedSearch = search;
    shown();
}

SnippetMenuView::~SnippetMenuView()
{
    rowsChanged = nullptr;
    membersChanged = nullptr;
}

void SnippetMenuView::release()
{
    end();
    items.disconnect(this);
    m_column.release();
}

QSize SnippetMenuView::sizeHint() const
{
    const int rowsHeight = static_cast<int>(rows().size()) * rowHeight();
    const int list =
        std::clamp(rowsHeight, tokens::kListMinimumHeight, tokens::kSnippetsMaximumHeight);
    return {tokens::kListWidth, m_field.sizeHint().height() + tokens::kSearchFieldGap + list};
}

void SnippetMenuView::resizeEvent(QResizeEvent *)
{
    const int field = m_field.sizeHint().height();
    const int top = field + tokens::kSearchFieldGap;
    m_field.setGeometry(0, 0, width(), field);
    m_column.setGeometry(0, top, width(), std::max(0, height() - top));
}

void SnippetMenuView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    m_column.setRowHeight(rowHeight());
    updateGeometry();
}

int SnippetMenuView::rowCount() const
{
    return static_cast<int>(rows().size());
}

int SnippetMenuView::kindOfRow(int row) const
{
    return rowAt(row).snippet->isFolder() ? kFolderKind : kSnippetKind;
}

QWidget *SnippetMenuView::makeRow(int kind, QWidget *parent)
{
    if (kind == kFolderKind)
        return new Folder(*this, m_motion, parent);
    return new SnippetButton(*this, funcs, m_motion, parent);
}

void SnippetMenuView::bindRow(QWidget &widget, int row)
{
    static_cast<SnippetRowView &>(widget).setRow(rowAt(row));
}

void SnippetMenuView::unbindRow(QWidget &widget)
{
    static_cast<SnippetRowView &>(widget).setRow(std::nullopt);
}

void SnippetMenuView::observe()
{
    m_observers.push_back(searchText.addNotifier([this] {
        if (m_field.text() != searchText.value())
            m_field.setText(searchText.value());
    }));
    m_observers.push_back(isSelected.addNotifier([this] { selectionChanged(); }));
    const auto followGive = [this] {
        m_field.showsRing = controls::isSet(controls.value(), controls::kGive);
    };
    m_observers.push_back(controls.addNotifier(followGive));
    followGive();
}

void SnippetMenuView::rowsAreOthers()
{
    const QString text = searchText.value();
    m_column.setEmptyText(text.isEmpty() ? tr("No snippets yet")
                                         : tr("No match for “%1”").arg(text));
    m_column.reload();
    updateGeometry();
}

void SnippetMenuView::selectionChanged()
{
    for (const auto &[row, widget] : m_column.rowsInView())
        static_cast<SnippetRowView *>(widget)->refreshHighlight();
    revealSelection();
}

// A row that the pointer highlighted may stand half outside the view: it is not scrolled away from
// under the pointer.
void SnippetMenuView::revealSelection()
{
    const std::optional<int> row = selectedRow();
    if (!row)
        return;
    const auto *widget = static_cast<SnippetRowView *>(m_column.rowWidget(*row));
    if (widget == nullptr || !widget->hover.value() || !m_motion.isInUse())
        m_column.ensureVisible(*row);
}

int SnippetMenuView::rowHeight() const
{
    return fontMetrics().height() + 2 * tokens::kListRowPadding;
}
