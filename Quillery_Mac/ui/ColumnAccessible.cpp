// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/ColumnAccessible.h"

#include "Quillery_Mac/ui/LazyColumn.h"

namespace {

/// A row that has no widget, because it is not in view.
class HiddenRowAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    HiddenRowAccessible(LazyColumn &column, int row)
        : m_column(&column)
        , m_row(row)
    {
    }

    int row() const { return m_row; }

    bool isValid() const override { return self().isValid(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override
    {
        return m_column != nullptr ? m_column->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface *parent() const override { return self().parent(); }
    int childCount() const override { return self().childCount(); }
    QAccessibleInterface *child(int index) const override { return self().child(index); }
    int indexOfChild(const QAccessibleInterface *candidate) const override
    {
        return self().indexOfChild(candidate);
    }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override { return self().rect(); }
    void setText(QAccessible::Text, const QString &) override {}

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? self().facts().name : QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (!isValid())
            return state;
        state.invisible = !m_column->isVisible();
        state.offscreen = !self().isInView();
        self().addTo(state);
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }
    QStringList actionNames() const override { return self().actionNames(); }
    void doAction(const QString &action) override { self().doAction(action); }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    OutlineRow self() const { return {m_column, m_row}; }

    QPointer<LazyColumn> m_column;
    int m_row;
};

int rowNumber(const LazyColumn &column, const QAccessibleInterface &candidate)
{
    if (const auto *hidden = dynamic_cast<const HiddenRowAccessible *>(&candidate))
        return hidden->row();
    const auto *widget = qobject_cast<const QWidget *>(candidate.object());
    return widget != nullptr ? column.rowOf(*widget) : RowOutline::kNone;
}

ColumnAccessible &accessibleOf(LazyColumn &column)
{
    return static_cast<ColumnAccessible &>(*QAccessible::queryAccessibleInterface(&column));
}

} // namespace

bool OutlineRow::isValid() const
{
    return m_column != nullptr && m_row >= 0 && m_row < m_column->rowCount();
}

RowOutline::Facts OutlineRow::facts() const
{
    return m_column->outline()->facts(m_row);
}

QAccessibleInterface *OutlineRow::parent() const
{
    if (m_column == nullptr)
        return nullptr;
    const int parent = isValid() ? m_column->outline()->parentRow(m_row) : RowOutline::kColumn;
    ColumnAccessible &column = accessibleOf(*m_column);
    return parent == RowOutline::kColumn ? &column : column.row(parent);
}

int OutlineRow::childCount() const
{
    const bool isKnown = isValid() || (m_column != nullptr && m_row == RowOutline::kColumn);
    return isKnown ? m_column->outline()->childCount(m_row) : 0;
}

QAccessibleInterface *OutlineRow::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    return accessibleOf(*m_column).row(m_column->outline()->childRow(m_row, index));
}

int OutlineRow::indexOfChild(const QAccessibleInterface *candidate) const
{
    if (m_column == nullptr || candidate == nullptr)
        return -1;
    const int row = rowNumber(*m_column, *candidate);
    const OutlineRow other(m_column, row);
    const bool isChild = other.isValid() && m_column->outline()->parentRow(row) == m_row;
    return isChild ? m_column->outline()->indexInParent(row) : -1;
}

void OutlineRow::addTo(QAccessible::State &state) const
{
    if (!isValid())
        return;
    const RowOutline::Facts known = facts();
    state.selectable = true;
    state.selected = known.isSelected;
    state.active = known.isSelected;
    state.expandable = known.isExpandable;
    state.expanded = known.isExpandable && known.isExpanded;
    state.collapsed = known.isExpandable && !known.isExpanded;
    state.focusable = true;
    state.focused = known.isSelected && m_column->outline()->hasKeyboard();
}

QStringList OutlineRow::actionNames() const
{
    QStringList names{QAccessibleActionInterface::pressAction()};
    if (isValid() && facts().isExpandable)
        names.append(QAccessibleActionInterface::toggleAction());
    return names;
}

void OutlineRow::doAction(const QString &action) const
{
    if (!isValid() || !m_column->isEnabled())
        return;
    if (action == QAccessibleActionInterface::pressAction())
        m_column->outline()->selectRow(m_row);
    else if (action == QAccessibleActionInterface::toggleAction() && facts().isExpandable)
        m_column->outline()->toggleRow(m_row);
}

QRect OutlineRow::rect() const
{
    if (!isValid())
        return {};
    const QRect rows = m_column->rowsRect();
    const QPoint topLeft(rows.left(), m_column->topOf(m_row));
    return {m_column->mapToGlobal(topLeft), QSize(rows.width(), m_column->rowHeight())};
}

bool OutlineRow::isInView() const
{
    const QRect column(m_column->mapToGlobal(QPoint()), m_column->size());
    return column.intersects(rect());
}

// A list, because the items of a tree reach the desktop's screen readers as cells of a table.
ColumnAccessible::ColumnAccessible(LazyColumn &column)
    : QAccessibleWidget(&column, QAccessible::List)
{
}

ColumnAccessible::~ColumnAccessible()
{
    for (const auto &[row, id] : m_withoutWidget)
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface *ColumnAccessible::row(int row)
{
    if (QWidget *widget = column()->rowWidget(row))
        return QAccessible::queryAccessibleInterface(widget);
    const auto known = m_withoutWidget.find(row);
    if (known != m_withoutWidget.end())
        return QAccessible::accessibleInterface(known->second);
    auto *made = new HiddenRowAccessible(*column(), row);
    m_withoutWidget[row] = QAccessible::registerAccessibleInterface(made);
    return made;
}

int ColumnAccessible::childCount() const
{
    return self().childCount();
}

QAccessibleInterface *ColumnAccessible::child(int index) const
{
    return self().child(index);
}

int ColumnAccessible::indexOfChild(const QAccessibleInterface *candidate) const
{
    return self().indexOfChild(candidate);
}

QAccessibleInterface *ColumnAccessible::childAt(int x, int y) const
{
    const QPoint point = column()->mapFromGlobal(QPoint(x, y));
    if (!column()->rowsRect().contains(point))
        return nullptr;
    QWidget *widget = column()->rowWidget(column()->rowAt(point.y()));
    return widget != nullptr ? QAccessible::queryAccessibleInterface(widget) : nullptr;
}

QAccessibleInterface *ColumnAccessible::focusChild() const
{
    if (!column()->outline()->hasKeyboard())
        return nullptr;
    for (const auto &[row, widget] : column()->rowsInView()) {
        if (column()->outline()->facts(row).isSelected)
            return QAccessible::queryAccessibleInterface(widget);
    }
    return nullptr;
}

LazyColumn *ColumnAccessible::column() const
{
    return static_cast<LazyColumn *>(widget());
}

OutlineRow ColumnAccessible::self() const
{
    return {column(), RowOutline::kColumn};
}
