// SPDX-License-Identifier: MIT
#pragma once

#include "platform/tray/TrayItem.h"

#include <QSystemTrayIcon>

namespace platform {

/// The item by the toolkit: a StatusNotifierItem where the desktop has a host for it, else an icon
/// embedded in an XEmbed tray. The toolkit follows hosts that come and go.
class QtTrayItem : public TrayItem
{
    Q_OBJECT

public:
    QtTrayItem();

    bool hasHost() const override;
    void show(const QIcon &icon, const QString &title) override;
    void setToolTip(const QString &text) override;

private:
    void clicked(QSystemTrayIcon::ActivationReason reason);

    QSystemTrayIcon m_icon;
};

} // namespace platform
