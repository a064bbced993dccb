// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/FocusKeeper.h"
#include "platform/windows/GapCover.h"
#include "platform/windows/MenuWindows.h"
#include "platform/windows/OutsidePresses.h"

#include <QList>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace platform {

class X11Connection;

/// Menu windows on X11: the window manager does not manage them, the keyboard focus is set
/// directly, and nothing is grabbed.
///
/// Of the kinds of window that were compared under six window managers only this one had the
/// keyboard at once on all of them, kept input methods and dead keys working in its text field, and
/// saw the focus go elsewhere. Two orders matter and are kept here:
///
/// 1. The focus is given back before the windows are unmapped. Unmapping first makes the server
///    revert the focus, upon which some window managers move it to a window of their own choice.
/// 2. A press outside is only judged a while later, when the window manager had its chance to move
///    the focus. Some do not move it for a click on the window that they believe to be focused.
/// 3. A window manager that activates another window may fail to take the focus from us: the server
///    ignores a request that carries an older time than ours (i3 does that). What it calls active
///    is what the user is to work in, so the menu goes.
///
/// A press on a window that never takes the keyboard, such as an on-screen keyboard, is no press
/// elsewhere, nor is one in the gap between the menu and its popover.
class X11MenuWindows : public MenuWindows
{
    Q_OBJECT

public:
    /// Null when the toolkit does not run on X11.
    static std::unique_ptr<X11MenuWindows> create();
    ~X11MenuWindows() override;

    QString backendId() const override;
    Availability availability() const override;
    void prepare(QWidget &window) override;
    void present(QWidget &menu) override;
    void showPopover(QWidget &popover) override;
    void hidePopover(QWidget &popover) override;
    void giveKeyboardTo(QWidget &window) override;
    void dismiss() override;
    bool isKey() const override;
    bool eventFilter(QObject *receiver, QEvent *event) override;
    bool isComposited() const override;
    bool canBlur() const override;
    void blurBehind(QWidget &window, qreal radius) override;

private:
    explicit X11MenuWindows(std::unique_ptr<X11Connection> connection);

    bool isInGroup(quint32 window) const;
    bool hasFocus() const;
    void show(QWidget &window);
    void describe(QWidget &window);
    bool take(QWidget &window);
    void watchActiveWindow(bool isWatched);
    void activeWindowChanged();
    void handle(const xcb_generic_event_t &event);
    void pressed(quint32 window, quint32 time);
    void pressSettled();
    void coverGap();
    void hideAll();
    void resign();
    bool isOurs(const QWindow &window) const;

    std::unique_ptr<X11Connection> m_connection;
    FocusKeeper m_focus;
    OutsidePresses m_presses;
    GapCover m_gap;
    QTimer m_pressTimer;
    quint64 m_pressTime = 0;       ///< server's, of the press that the timer runs for
    quint64 m_insidePressTime = 0; ///< server's, of the last press that a window of ours got
    QPointer<QWidget> m_menu;
    QList<QPointer<QWidget>> m_popovers; ///< those shown now
    quint32 m_activeWindow = 0; ///< the window manager's active window when the menu came up
    bool m_isPresented = false; ///< from present() to dismiss()
    bool m_isKey = false;
};

} // namespace platform
