// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// How long things move.
namespace motion {

/// `milliseconds`, or 0 where the desktop's style moves nothing.
int duration(const QWidget &widget, int milliseconds);

} // namespace motion
