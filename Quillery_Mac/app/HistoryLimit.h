// SPDX-License-Identifier: MIT
#pragma once

#include <array>

/// The history limits that the setting "historySize" indexes, in number of clips.
inline constexpr std::array<int, 10> kHistoryLimits{1, 5, 10, 20, 30, 50, 100, 200, 500, 1000};

/// The limit that `historySize` selects: the index is truncated toward zero first. An index outside
/// 0 to 9, an infinity or NaN is fatal. Any thread.
int historyLimit(double historySize);
