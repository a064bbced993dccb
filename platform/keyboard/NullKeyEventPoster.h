// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyEventPoster.h"

namespace platform {

/// Types nothing, and says so; for desktops that let nobody type for the user.
class NullKeyEventPoster : public KeyEventPoster
{
public:
    QString backendId() const override { return QStringLiteral("null"); }

    Availability availability() const override
    {
        return {false, QStringLiteral("this desktop lets no program type for the user")};
    }

    Result<void> post(const KeyEvent & /*event*/) override
    {
        return failure(Error::Kind::Unavailable, availability().reason);
    }
};

} // namespace platform
