// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/Desktop.h"

#include <memory>

namespace platform {

/// The desktop that this process runs on. Never null; needs the application object.
std::unique_ptr<Desktop> makeDesktop();

} // namespace platform
