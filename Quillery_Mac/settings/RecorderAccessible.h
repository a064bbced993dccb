// SPDX-License-Identifier: MIT
#pragma once

namespace KeyboardShortcuts {

/// Makes fields for shortcuts known to screen readers, as buttons that start recording; once per
/// process is enough, further calls do nothing.
void installRecorderAccessibility();

} // namespace KeyboardShortcuts
