// SPDX-License-Identifier: MIT
#include "platform/windows/MenuWindowsFactory.h"

#include "platform/log/Log.h"
#include "platform/windows/QtMenuWindows.h"
#include "platform/windows/X11MenuWindows.h"

namespace platform {

// The back end of the display server first: only it can take the keyboard without activating.
std::unique_ptr<MenuWindows> makeMenuWindows()
{
    std::unique_ptr<MenuWindows> windows = X11MenuWindows::create();
    if (windows == nullptr)
        windows = std::make_unique<QtMenuWindows>();
    qCInfo(logWindows) << "Menu windows:" << windows->backendId();
    return windows;
}

} // namespace platform
