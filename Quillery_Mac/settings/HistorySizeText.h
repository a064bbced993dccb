// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <span>

/// What the position of the history size stands for. `values` are the sizes that a position counts
/// through from 0; a position is truncated toward zero, as historyLimit() does.
namespace historySize {

/// None if the position is not a finite number inside 0 to size - 1.
std::optional<int> entries(double position, std::span<const int> values);
/// The number of entries as it is shown; empty where there is none.
QString text(double position, std::span<const int> values);

} // namespace historySize
