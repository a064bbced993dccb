// SPDX-License-Identifier: MIT
#pragma once

#include "platform/tray/TrayItem.h"

#include <memory>

namespace platform {

/// An item in the bar of this desktop. Never null; needs the application object.
std::unique_ptr<TrayItem> makeTrayItem();

} // namespace platform
