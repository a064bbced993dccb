// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Availability.h"

#include <QObject>
#include <QRect>

class QWidget;

namespace platform {

/// The windows of one open menu: the menu itself and the popovers beside it.
///
/// They take the keyboard without making this program the active application, they float above
/// everything, and together they are "key" or not: the keyboard moving between the menu and its
/// popover is no loss. One object serves the floating panel, another the menu-bar window. Main
/// thread only. The widgets are owned by the caller and must outlive their stay in the group.
class MenuWindows : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual QString backendId() const = 0;
    virtual Availability availability() const = 0;

    /// Gives a top-level widget the window flags it needs here; before it is first shown.
    virtual void prepare(QWidget &window) = 0;

    /// Shows `menu` where it stands and gives it the keyboard, after remembering who had it.
    /// Presenting again while presented only gives the keyboard to `menu`.
    virtual void present(QWidget &menu) = 0;

    /// Shows `popover` as a further window of the group; the keyboard stays where it is.
    virtual void showPopover(QWidget &popover) = 0;
    virtual void hidePopover(QWidget &popover) = 0;

    /// Moves the keyboard to another window of the group.
    virtual void giveKeyboardTo(QWidget &window) = 0;

    /// Gives the keyboard back to the window that had it, then hides every window of the group. If
    /// it was key, resigned() is sent before the call returns. Keyboard focus that went elsewhere
    /// meanwhile stays there. Does nothing while nothing is presented.
    virtual void dismiss() = 0;

    /// Whether a compositor runs, so that parts of a window may be see-through.
    virtual bool isComposited() const { return false; }

    /// Whether a compositor runs that blurs what is behind a window where blurBehind() asks for it.
    /// Nothing else makes text readable on a ground that is see-through.
    virtual bool canBlur() const { return false; }

    /// Has the compositor blur what is behind a window of the group as it is now; again whenever
    /// its size changes. Only while canBlur().
    /// @param radius of the window's corners, in points
    virtual void blurBehind(QWidget &window, qreal radius)
    {
        Q_UNUSED(window)
        Q_UNUSED(radius)
    }

    /// True from present() until resigned().
    virtual bool isKey() const = 0;

signals:
    /// The group lost the keyboard: dismissed, clicked elsewhere, or another window took the focus.
    /// Sent once from one present() that made the group key to the next. The windows may still be
    /// shown: the owner closes them with dismiss().
    void resigned();
};

} // namespace platform
