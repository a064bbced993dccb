// SPDX-License-Identifier: MIT
#pragma once

#include <QProperty>
#include <QString>
#include <QWidget>

class PointerMotion;

/// A row of a menu or of a list in a popover: the whole of it is the target, it lights up, and it
/// is known to screen readers by its name. Subclasses say what stands in it and what it does.
class Row : public QWidget
{
    Q_OBJECT

public:
    /// @param motion shared by all rows of one menu, outlives the row
    Row(PointerMotion &motion, QWidget *parent);

    virtual bool isHighlighted() const = 0;
    virtual QString name() const = 0;
    /// More about the row, for screen readers: a hint, a tally.
    virtual QString description() const { return {}; }
    virtual bool isExpandable() const { return false; }
    virtual bool isExpanded() const { return false; }
    /// The help tooltip, built only when it is about to show.
    virtual QString help() const { return {}; }
    /// What a click does; also what a screen reader's "press" does.
    virtual void activate() = 0;

    /// Repaints the row if its highlight is another one than what was drawn last.
    void refreshHighlight();

    /// True while the pointer is inside, since it moved there.
    QProperty<bool> hover{false};

protected:
    /// The pointer moved onto the row, or off it.
    virtual void pointerEntered() {}
    virtual void pointerLeft() {}
    /// Where a press counts as a click on the row.
    virtual bool isTarget(QPointF position) const;

    bool isPressed() const { return m_isPressed; }
    /// Forgets hover and press; for a row that is about to show something else.
    void forgetPointer();
    /// Fills `rect` with the accent while the row is highlighted.
    void drawGround(QPainter &painter, const QRectF &rect) const;
    QColor textColor() const;
    QColor quietColor() const;

    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void pointerAt(QPointF global);
    void showHelp(const QPoint &global);
    void setPressed(bool pressed);

    PointerMotion &m_motion;
    bool m_isPressed = false;
    bool m_wasHighlighted = false;
};
