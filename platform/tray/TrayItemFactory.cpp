// SPDX-License-Identifier: MIT
#include "platform/tray/TrayItemFactory.h"

#include "platform/log/Log.h"
#include "platform/tray/QtTrayItem.h"

namespace platform {

std::unique_ptr<TrayItem> makeTrayItem()
{
    auto item = std::make_unique<QtTrayItem>();
    qCInfo(logWindows) << "Tray:" << (item->hasHost() ? "a bar shows the item" : "no bar yet");
    return item;
}

} // namespace platform
