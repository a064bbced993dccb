// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/RowAccessible.h"

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

QAccessibleInterface *makeRowAccessible(const QString &, QObject *object)
{
    if (auto *row = qobject_cast<Row *>(object))
        return new RowAccessible(row);
    if (auto *column = qobject_cast<LazyColumn *>(object))
        return new QAccessibleWidget(column, QAccessible::List);
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
