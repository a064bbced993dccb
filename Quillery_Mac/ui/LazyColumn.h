// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>
#include <QWidget>

#include <map>
#include <vector>

class RowOutline;
class ThinScrollBar;

/// What a LazyColumn shows. Rows are numbered from 0; a kind is a sort of row widget, so that a
/// folder's widget is used again for a folder only.
class LazyColumnRows
{
public:
    virtual ~LazyColumnRows() = default;

    virtual int rowCount() const = 0;
    virtual int kindOfRow(int row) const = 0;
    /// A fresh widget for rows of that kind; the column owns it through `parent`.
    virtual QWidget *makeRow(int kind, QWidget *parent) = 0;
    /// Makes `widget` show `row`; called whenever either may have changed.
    virtual void bindRow(QWidget &widget, int row) = 0;
    /// `widget` shows nothing any more; what it showed may be gone.
    virtual void unbindRow(QWidget &widget) = 0;
};

/// A vertically scrolling column of rows of one height that has widgets only for the rows in view,
/// and uses them again. Main thread only.
class LazyColumn : public QWidget
{
    Q_OBJECT

public:
    /// @param rows outlives the column
    LazyColumn(LazyColumnRows &rows, QWidget *parent);

    /// In points; the same for every row.
    void setRowHeight(int height);
    /// Tells screen readers of all rows, in view or not, each below its folder; set before
    /// anything else. The outline outlives the column.
    void setOutline(RowOutline &outline) { m_outline = &outline; }
    /// Null without one.
    RowOutline *outline() const { return m_outline; }
    /// What is drawn where the rows would be, while there are none.
    void setEmptyText(const QString &text);

    /// The rows are others now: binds all that are in view. Keeps the scroll position.
    void reload();
    /// The rows are the same, but what they show is not; a slide goes on.
    void rebind();
    /// The rows are others now: `count` came in before row `first`, or, if it is negative, went
    /// from there. They are in place at once for keys and pointer; only what is seen moves there.
    void slide(int first, int count);
    /// Lets go of every row, before what they show is gone.
    void release();
    /// Scrolls as little as needed to have the row in view.
    void ensureVisible(int row);
    /// The row at a height of the column; -1 where there is none.
    int rowAt(int y) const;
    /// Where the row's upper edge is in the column, in points; may be outside of it.
    int topOf(int row) const;
    /// Scrolls by so many points, as far as there are rows.
    void scrollBy(int points);
    /// The widget that shows `row` now; null when it is not in view.
    QWidget *rowWidget(int row) const;
    /// The row that the widget shows now; RowOutline::kNone when it shows none.
    int rowOf(const QWidget &widget) const;

    int rowCount() const { return m_rows.rowCount(); }
    /// The height of all rows together, in points.
    int contentHeight() const;
    int rowHeight() const { return m_rowHeight; }
    /// The part of the column that rows are drawn in; the rest is the scroll bar's.
    QRect rowsRect() const { return m_viewport->geometry(); }
    ThinScrollBar &scrollBar() const { return *m_bar; }
    const std::map<int, QWidget *> &rowsInView() const { return m_shown; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum class Bind { NewOnly, All };

    void layOut(Bind bind);
    void layOutBar();
    void recycleOutside(int first, int last);
    void recycle(QWidget &widget);
    QWidget *takeWidget(int kind);
    int slideOffset(int row) const;
    void mask(QWidget &widget, int row) const;

    LazyColumnRows &m_rows;
    RowOutline *m_outline = nullptr;
    QWidget *m_viewport;
    ThinScrollBar *m_bar;
    std::map<int, QWidget *> m_shown;               ///< by row
    std::map<const QWidget *, int> m_kinds;         ///< of every widget made
    std::map<int, std::vector<QWidget *>> m_unused; ///< by kind
    QString m_emptyText;
    int m_rowHeight = 1;
    qreal m_wheelRest = 0;

    /// The rows from m_slideEnd on are still this far from their places, in points.
    int m_slideShift = 0;
    int m_slideFirst = 0; ///< rows from here to m_slideEnd come into view from above
    int m_slideEnd = 0;
    QVariantAnimation m_slide;
};
