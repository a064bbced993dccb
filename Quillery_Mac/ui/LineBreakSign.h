// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>

/// Stands for a line break in the one-line form of a text; drawn in the quiet colour.
inline constexpr QChar kLineBreakSign{u'\u21B5'};
