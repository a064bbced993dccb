// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyEventPoster.h"

#include <vector>

/// Keeps the posted key events instead of typing them.
class FakeKeyEventPoster : public platform::KeyEventPoster
{
public:
    QString backendId() const override { return QStringLiteral("fake"); }
    platform::Availability availability() const override { return {true, {}}; }

    platform::Result<void> post(const platform::KeyEvent &event) override
    {
        if (isRefusing)
            return platform::failure(platform::Error::Kind::Unavailable, QStringLiteral("refused"));
        events.push_back(event);
        return {};
    }

    std::vector<platform::KeyEvent> events;
    bool isRefusing = false; ///< every further event is refused with Unavailable
};
