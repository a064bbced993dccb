// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/LibraryRows.h"
#include "Quillery_Mac/ui/Row.h"
#include "Quillery_Mac/ui/RowText.h"

class LibraryList;

/// A snippet or folder in the library's list: a slot with the folder's chevron, and the title.
class LibraryRowView : public Row
{
    Q_OBJECT

public:
    LibraryRowView(LibraryList &list, PointerMotion &motion, QWidget *parent);

    /// Shows another row, or none; also called when what it shows has changed.
    void setRow(const ShownRow &row);

    bool isHighlighted() const override;
    QString name() const override { return m_text.text; }
    bool isExpandable() const override { return m_isFolder; }
    bool isExpanded() const override { return m_isExpanded; }
    void activate() override;

    const ShownRow &row() const { return m_row; }

    /// Where the chevron or the empty slot begins, in points from the reading side.
    static int slotOffset(bool isMember);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    bool isOnChevron(QPointF position) const;

    LibraryList &m_list;
    ShownRow m_row;
    RowText m_text;
    bool m_isFolder = false;
    bool m_isExpanded = false;
    QPointF m_pressedAt;
};
