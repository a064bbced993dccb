// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/Pasteboard.h"

#include <memory>

namespace platform {

/// The pasteboard of the running session: X11 where the toolkit runs on X11, otherwise one that
/// says why there is none. Never null. To be called once the application object exists.
std::unique_ptr<Pasteboard> makePasteboard();

} // namespace platform
