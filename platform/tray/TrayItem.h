// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QObject>
#include <QRect>

namespace platform {

/// Our item in the desktop's bar. A bar may come and go while we run; without one the item simply
/// is not seen. Main thread only.
class TrayItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool hasHost() const = 0;
    virtual void show(const QIcon &icon, const QString &title) = 0;
    virtual void setToolTip(const QString &text) = 0;

signals:
    /// The user clicked the item. `icon` is its place on the desktop in points, null where the
    /// desktop does not tell.
    void activated(const QRect &icon);
};

} // namespace platform
