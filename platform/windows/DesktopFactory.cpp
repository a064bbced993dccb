// SPDX-License-Identifier: MIT
#include "platform/windows/DesktopFactory.h"

#include "platform/log/Log.h"
#include "platform/windows/QtDesktop.h"
#include "platform/windows/X11Desktop.h"

namespace platform {

// The back end of the display server first: the toolkit alone knows nothing of bars on desktops
// with several screens and cannot pass a guarded focus.
std::unique_ptr<Desktop> makeDesktop()
{
    std::unique_ptr<Desktop> desktop = X11Desktop::create();
    if (desktop == nullptr)
        desktop = std::make_unique<QtDesktop>();
    qCInfo(logWindows) << "Desktop:" << desktop->backendId();
    return desktop;
}

} // namespace platform
