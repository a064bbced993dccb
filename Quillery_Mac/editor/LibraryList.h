// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/LibraryState.h"
#include "Quillery_Mac/ui/LazyColumn.h"
#include "Quillery_Mac/ui/PointerMotion.h"
#include "Quillery_Mac/ui/RowOutline.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

class DropLine;
class LibraryRowView;
class QMimeData;

/// The list of folders and snippets at the side of the library window: shows the rows of the state,
/// selects by mouse and keys, and is where rows are dragged from and dropped. Main thread only.
class LibraryList : public QWidget, private LazyColumnRows, private RowOutline
{
    Q_OBJECT

public:
    /// How far the list reaches out beyond its rows on every side, in points, for the ring that
    /// says that it has the keyboard.
    static constexpr int kRingRoom = 3;

    /// @param state outlives the list
    LibraryList(LibraryState &state, QWidget *parent);
    ~LibraryList() override;

    LazyColumn &column() { return m_column; }

    bool isSelected(const ShownRow &row) const;
    /// Whether the row is being dragged, itself or with its folder.
    bool isDragged(const ShownRow &row) const;
    /// Selects the row's item.
    void choose(const ShownRow &row);
    /// Opens or closes the row's folder.
    void toggle(const ShownRow &row);
    /// Opens or closes the selected folder.
    void toggleSelected();
    /// What a drag of the item hands to other programs: a snippet's text, and of a folder nothing.
    static std::unique_ptr<QMimeData> dragData(const Snippet &item);
    /// Drags the row away; returns when it was dropped.
    void drag(const ShownRow &row, LibraryRowView &view);
    /// Selects the row `step` rows below, or above, the selected one.
    void chooseNext(int step);

    /// Where a drop at a point of the list would go.
    struct DropPlace
    {
        int row = -1; ///< -1: outside every row
        Strip strip = Strip::Above;
    };
    DropPlace placeAt(QPoint point) const;

    QSize sizeHint() const override;

signals:
    /// The context menu of the selected item is wanted.
    void menuRequested(const QPoint &globalPosition);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    int rowCount() const override;
    int kindOfRow(int row) const override;
    QWidget *makeRow(int kind, QWidget *parent) override;
    void bindRow(QWidget &widget, int row) override;
    void unbindRow(QWidget &widget) override;

    int childCount(int row) const override;
    int childRow(int row, int index) const override;
    int parentRow(int row) const override;
    int indexInParent(int row) const override;
    Facts facts(int row) const override;
    bool hasKeyboard() const override { return hasFocus(); }
    void selectRow(int row) override;
    void toggleRow(int row) override;

    void rowsAreOthers();
    void selectionChanged();
    void tellFocus();
    bool isOwnDrag(const QDropEvent &event) const;
    bool isText(const QMimeData &mime) const;
    bool aim();
    void target(const DropPlace &place);
    void untarget();
    QPoint menuPlace() const;
    void scrollNearEdge(QPoint point);
    int rowHeight() const;
    const ShownRow &rowOf(int row) const;
    void openOrStepOut(bool isOpening);

    LibraryState &m_state;
    PointerMotion m_motion;
    LazyColumn m_column;
    DropLine *m_line;
    QTimer m_autoScroll;
    int m_autoScrollStep = 0;
    QPoint m_dragPoint;          ///< where the drag over the list was last
    bool m_isRowDragged = false; ///< over the list, and not a text
    bool m_hasKeyboardFocus = false;
    std::vector<QPropertyNotifier> m_observers;
};
