// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/RowOutline.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <map>

class LazyColumn;

/// A row of a column with an outline as screen readers know it, whether it has a widget or not.
class OutlineRow
{
public:
    /// @param row RowOutline::kColumn for the column itself
    OutlineRow(LazyColumn *column, int row)
        : m_column(column)
        , m_row(row)
    {
    }

    /// False for a row that is gone, and for a widget that shows none.
    bool isValid() const;
    RowOutline::Facts facts() const;

    QAccessibleInterface *parent() const;
    int childCount() const;
    QAccessibleInterface *child(int index) const;
    /// -1 when it is none.
    int indexOfChild(const QAccessibleInterface *candidate) const;
    /// Adds what is selected, open and in use.
    void addTo(QAccessible::State &state) const;
    QStringList actionNames() const;
    void doAction(const QString &action) const;
    /// On the screen, in points; may be outside of the column.
    QRect rect() const;
    bool isInView() const;

private:
    QPointer<LazyColumn> m_column;
    int m_row;
};

/// A column with an outline: a list of all rows of the top level, which have theirs below them.
/// What stands for a row without a widget is made when it is asked for, and kept; it is the row of
/// that number, whatever that shows.
class ColumnAccessible : public QAccessibleWidget
{
public:
    explicit ColumnAccessible(LazyColumn &column);
    ~ColumnAccessible() override;
    Q_DISABLE_COPY_MOVE(ColumnAccessible)

    /// What stands for the row: its widget's while it has one.
    QAccessibleInterface *row(int row);

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *candidate) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    LazyColumn *column() const;
    OutlineRow self() const;

    std::map<int, QAccessible::Id> m_withoutWidget; ///< by row
};
