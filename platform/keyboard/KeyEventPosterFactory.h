// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyEventPoster.h"

#include <memory>

namespace platform {

class Pasteboard;

/// Types on the desktop that this process runs on. Never null; needs the application object.
/// @param pasteboard offers its text as the primary selection to programs that paste only that, and
///                   takes that selection over from them; must outlive the result
std::unique_ptr<KeyEventPoster> makeKeyEventPoster(Pasteboard &pasteboard);

} // namespace platform
