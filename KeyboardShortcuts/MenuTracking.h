// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <vector>

namespace KeyboardShortcuts {

/// Tells when a menu of the program begins and ceases to hold the keyboard.
///
/// A menu is any window of type Qt::Popup: menus, the lists of combo boxes. Such windows take all
/// keys of the desktop, so that hot keys do not fire. Submenus are part of the tracking that their
/// menu began. Works from installation on; without a window system there are no menus.
class MenuTracking : public QObject
{
    Q_OBJECT

public:
    MenuTracking();

    bool eventFilter(QObject *receiver, QEvent *event) override;

signals:
    void menuDidBeginTracking();
    void menuDidEndTracking();

private:
    void opened(QObject *window);
    void closed(QObject *window);

    std::vector<QObject *> m_menus; ///< shown now; compared, never used
};

} // namespace KeyboardShortcuts
