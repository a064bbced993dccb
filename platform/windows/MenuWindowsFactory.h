// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/MenuWindows.h"

#include <memory>

namespace platform {

/// A new group of menu windows on the desktop that this process runs on. Never null; needs the
/// application object.
std::unique_ptr<MenuWindows> makeMenuWindows();

} // namespace platform
