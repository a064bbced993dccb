// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// How the rows of a LazyColumn belong together, and what screen readers are told of those that
/// have no widget. Rows are numbered as in the column, from 0; each folder stands right before its
/// members. All questions are cheap, however many rows there are. Main thread only.
class RowOutline
{
public:
    /// In the place of a row's number: the column itself, which the top level's rows belong to.
    static constexpr int kColumn = -1;
    /// What a widget shows that shows no row.
    static constexpr int kNone = -2;

    struct Facts
    {
        QString name;
        bool isSelected = false;
        bool isExpandable = false;
        bool isExpanded = false;
    };

    virtual ~RowOutline() = default;

    /// How many rows belong to `row`; 0 while it is closed.
    virtual int childCount(int row) const = 0;
    /// The row that is the `index`th, from 0, of those that belong to `row`.
    virtual int childRow(int row, int index) const = 0;
    /// Which row, or the column, `row` belongs to.
    virtual int parentRow(int row) const = 0;
    /// The place of `row` among the rows that belong to its parent, from 0.
    virtual int indexInParent(int row) const = 0;
    virtual Facts facts(int row) const = 0;
    /// Whether keys go to the rows.
    virtual bool hasKeyboard() const = 0;
    virtual void selectRow(int row) = 0;
    /// Opens or closes an expandable row.
    virtual void toggleRow(int row) = 0;
};
