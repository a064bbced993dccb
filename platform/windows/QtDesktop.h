// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/Desktop.h"

namespace platform {

/// What the toolkit alone knows of the desktop; for displays without a back end of their own.
class QtDesktop : public Desktop
{
    Q_OBJECT

public:
    using Desktop::Desktop;

    QString backendId() const override;
    QPoint pointer() const override;
    QRect visibleFrame(QPoint point) const override;
    void activate(QWidget &window) override;
    void noteUserTime(quint32 serverTime) override;
};

} // namespace platform
