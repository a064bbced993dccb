// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyboardLayout.h"

namespace platform {

/// The layout of a desktop that does not tell: no key has a text.
class NullKeyboardLayout : public KeyboardLayout
{
public:
    /// @param reason one plain sentence for the log
    explicit NullKeyboardLayout(const QString &reason)
        : m_reason(reason)
    {
    }

    QString backendId() const override { return QStringLiteral("null"); }
    Availability availability() const override { return {false, m_reason}; }
    std::optional<QString> keyText(int /*carbonKeyCode*/) override { return std::nullopt; }

private:
    QString m_reason;
};

} // namespace platform
