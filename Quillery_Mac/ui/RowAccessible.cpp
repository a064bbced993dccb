// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/RowAccessible.h"

#include "Quillery_Mac/ui/ColumnAccessible.h"
#include "Quillery_Mac/ui/LazyColumn.h"
#include "Quillery_Mac/ui/Row.h"

#include <QAccessibleWidget>

namespace {

class RowAccessible : public QAccessibleWidget
{
public:
    explicit RowAccessible(Row *row)
        : QAccessibleWidget(row, QAccessible::ListItem)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name)
            return row()->name();
        if (kind == QAccessible::Description)
            return row()->description();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = row()->isHighlighted();
        state.active = row()->isHighlighted();
        state.expandable = row()->isExpandable();
        state.expanded = row()->isExpandable() && row()->isExpanded();
        state.collapsed = row()->isExpandable() && !row()->isExpanded();
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString &action) override
    {
        if (action == pressAction() && row()->isEnabled())
            row()->activate();
    }

private:
    Row *row() const { return static_cast<Row *>(widget()); }
};

/// The widget of a row of a column with an outline.
class OutlineRowAccessible : public RowAccessible
{
public:
    OutlineRowAccessible(Row *row, LazyColumn &column)
        : RowAccessible(row)
        , m_column(&column)
    {
    }

    QAccessibleInterface *parent() const override { return self().parent(); }
    int childCount() const override { return self().childCount(); }
    QAccessibleInterface *child(int index) const override { return self().child(index); }
    int indexOfChild(const QAccessibleInterface *candidate) const override
    {
        return self().indexOfChild(candidate);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = RowAccessible::state();
        self().addTo(state);
        return state;
    }
    QStringList actionNames() const override { return self().actionNames(); }
    void doAction(const QString &action) override { self().doAction(action); }

private:
    OutlineRow self() const
    {
        return {m_column, m_column != nullptr ? m_column->rowOf(*widget()) : RowOutline::kNone};
    }

    QPointer<LazyColumn> m_column;
};

LazyColumn *columnOf(const Row &row)
{
    const QWidget *viewport = row.parentWidget();
    return viewport != nullptr ? qobject_cast<LazyColumn *>(viewport->parentWidget()) : nullptr;
}

QAccessibleInterface *makeRowAccessible(const QString &, QObject *object)
{
    if (auto *row = qobject_cast<Row *>(object)) {
        LazyColumn *column = columnOf(*row);
        if (column != nullptr && column->outline() != nullptr)
            return new OutlineRowAccessible(row, *column);
        return new RowAccessible(row);
    }
    if (auto *column = qobject_cast<LazyColumn *>(object)) {
        if (column->outline() != nullptr)
            return new ColumnAccessible(*column);
        return new QAccessibleWidget(column, QAccessible::List);
    }
    return nullptr;
}

} // namespace

void installRowAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeRowAccessible);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

void notifyRowNameChanged(Row &row)
{
    QAccessibleEvent event(&row, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void notifyRowStateChanged(Row &row)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.selected = true;
    changed.active = true;
    changed.expanded = row.isExpandable();
    QAccessibleStateChangeEvent event(&row, changed);
    QAccessible::updateAccessibility(&event);
    if (row.isHighlighted()) {
        QAccessibleEvent selection(&row, QAccessible::Selection);
        QAccessible::updateAccessibility(&selection);
    }
}
