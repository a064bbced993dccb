// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyboardLayoutFactory.h"

#include "platform/keyboard/NullKeyboardLayout.h"
#include "platform/keyboard/X11KeyboardLayout.h"
#include "platform/log/Log.h"

namespace platform {

std::unique_ptr<KeyboardLayout> makeKeyboardLayout()
{
    if (std::unique_ptr<KeyboardLayout> layout = X11KeyboardLayout::create()) {
        qCInfo(logKeyboard) << "Key names come from" << layout->backendId();
        return layout;
    }
    const QString reason = QStringLiteral("This session has no X server with keyboard maps.");
    qCWarning(logKeyboard).noquote() << "No key names:" << reason;
    return std::make_unique<NullKeyboardLayout>(reason);
}

} // namespace platform
