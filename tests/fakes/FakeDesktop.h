// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/Desktop.h"

#include <QWidget>

#include <vector>

/// A desktop whose pointer and screens a test puts where it likes.
class FakeDesktop : public platform::Desktop
{
public:
    QString backendId() const override { return QStringLiteral("fake"); }
    QPoint pointer() const override { return pointerPosition; }

    QRect visibleFrame(QPoint point) const override
    {
        for (const QRect &frame : frames) {
            if (frame.contains(point))
                return frame;
        }
        return frames.empty() ? QRect() : frames.front();
    }

    void activate(QWidget &window) override
    {
        activated.push_back(&window);
        window.show();
        window.activateWindow();
    }

    void noteUserTime(quint32 serverTime) override { userTimes.push_back(serverTime); }

    QPoint pointerPosition{400, 300};
    std::vector<QRect> frames{QRect(0, 0, 1280, 800)}; ///< empty: no screen at all
    std::vector<QWidget *> activated;
    std::vector<quint32> userTimes; ///< as noted
};
