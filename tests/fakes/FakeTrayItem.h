// SPDX-License-Identifier: MIT
#pragma once

#include "platform/tray/TrayItem.h"

/// A tray item without a bar: a test clicks it with click().
class FakeTrayItem : public platform::TrayItem
{
public:
    bool hasHost() const override { return isHosted; }

    void show(const QIcon &icon, const QString &title) override
    {
        shownIcon = icon;
        shownTitle = title;
    }

    void setToolTip(const QString &text) override { toolTip = text; }

    void click(const QRect &icon) { emit activated(icon); }

    bool isHosted = true;
    QIcon shownIcon;
    QString shownTitle;
    QString toolTip;
};
