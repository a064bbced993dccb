// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QWidget;

namespace platform {

/// Where the pointer is, how much room a screen leaves, and bringing our windows to the front.
/// Main thread only. All measures are points (device-independent pixels) of the virtual desktop.
class Desktop : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual QString backendId() const = 0;

    /// The pointer's position.
    virtual QPoint pointer() const = 0;

    /// The part of the screen that holds `point` which bars and docks leave free. A null rectangle
    /// if there is no screen at all.
    virtual QRect visibleFrame(QPoint point) const = 0;

    /// Shows an ordinary window, in front and with the keyboard, also when another program is
    /// active and the window manager guards the focus.
    virtual void activate(QWidget &window) = 0;

    /// Remembers that the user did something that did not reach a window of ours (a hot key, a
    /// click on the tray, a start from a launcher); activate() shows it to the window manager.
    /// What the user does in our windows is known.
    /// @param serverTime the display server's time in milliseconds; 0: now
    virtual void noteUserTime(quint32 serverTime) = 0;
};

} // namespace platform
