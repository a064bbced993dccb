// SPDX-License-Identifier: MIT
#include "platform/tray/QtTrayItem.h"

namespace platform {

QtTrayItem::QtTrayItem()
{
    connect(&m_icon, &QSystemTrayIcon::activated, this, &QtTrayItem::clicked);
}

bool QtTrayItem::hasHost() const
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void QtTrayItem::show(const QIcon &icon, const QString &title)
{
    m_icon.setIcon(icon);
    if (m_icon.toolTip().isEmpty())
        m_icon.setToolTip(title);
    m_icon.show();
}

void QtTrayItem::setToolTip(const QString &text)
{
    m_icon.setToolTip(text);
}

// The second click of a double click is reported as such and is no further activation.
void QtTrayItem::clicked(QSystemTrayIcon::ActivationReason reason)
{
    if (reason != QSystemTrayIcon::Trigger)
        return;
    // A StatusNotifier host does not tell where it draws the icon.
    const QRect icon = m_icon.geometry();
    emit activated(icon.isEmpty() ? QRect() : icon);
}

} // namespace platform
