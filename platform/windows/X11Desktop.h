// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/Desktop.h"
#include "platform/windows/X11UserTime.h"

#include <memory>

namespace platform {

class X11Connection;

/// The desktop of an X server: struts of bars and docks, activation past a guarded focus.
class X11Desktop : public Desktop
{
    Q_OBJECT

public:
    /// Null when the toolkit does not run on X11.
    static std::unique_ptr<X11Desktop> create();
    ~X11Desktop() override;

    QString backendId() const override;
    QPoint pointer() const override;
    QRect visibleFrame(QPoint point) const override;
    void activate(QWidget &window) override;
    void noteUserTime(quint32 serverTime) override;

private:
    explicit X11Desktop(std::unique_ptr<X11Connection> connection);

    void setUserTime(quint32 window) const;
    void askWindowManager(quint32 window) const;

    std::unique_ptr<X11Connection> m_connection;
    X11UserTime m_userTime;
};

} // namespace platform
