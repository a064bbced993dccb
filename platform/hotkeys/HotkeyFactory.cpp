// SPDX-License-Identifier: MIT
#include "platform/hotkeys/HotkeyFactory.h"

#include "platform/hotkeys/NullHotkeys.h"
#include "platform/hotkeys/X11Hotkeys.h"
#include "platform/log/Log.h"

namespace platform {

std::unique_ptr<HotkeyService> makeHotkeyService()
{
    if (std::unique_ptr<HotkeyService> service = X11Hotkeys::create()) {
        qCInfo(logHotkeys) << "Global hot keys come from" << service->backendId();
        return service;
    }
    const QString reason = QStringLiteral("This session has no X server that offers hot keys.");
    qCWarning(logHotkeys).noquote() << "No global hot keys:" << reason;
    return std::make_unique<NullHotkeys>(reason);
}

} // namespace platform
