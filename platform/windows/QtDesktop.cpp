// SPDX-License-Identifier: MIT
#include "platform/windows/QtDesktop.h"

#include "platform/windows/ReservedEdges.h"

#include <QCursor>
#include <QScreen>
#include <QWidget>

namespace platform {

QString QtDesktop::backendId() const
{
    return QStringLiteral("qt");
}

QPoint QtDesktop::pointer() const
{
    return QCursor::pos();
}

QRect QtDesktop::visibleFrame(QPoint point) const
{
    const QScreen *screen = screenHolding(point);
    return screen == nullptr ? QRect() : screen->availableGeometry();
}

void QtDesktop::activate(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

// Only a window manager would ask for it.
void QtDesktop::noteUserTime(quint32 /*serverTime*/) {}

} // namespace platform
