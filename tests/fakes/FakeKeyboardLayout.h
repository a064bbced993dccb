// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyboardLayout.h"

#include <QHash>

/// A layout that prints what the test says; at first the US letters of the two default shortcuts.
class FakeKeyboardLayout : public platform::KeyboardLayout
{
public:
    QString backendId() const override { return QStringLiteral("fake"); }
    platform::Availability availability() const override { return {true, {}}; }

    std::optional<QString> keyText(int carbonKeyCode) override
    {
        const auto found = texts.constFind(carbonKeyCode);
        return found == texts.cend() ? std::nullopt : std::optional(*found);
    }

    QHash<int, QString> texts = {{9, QStringLiteral("v")}, {8, QStringLiteral("c")}};
};
