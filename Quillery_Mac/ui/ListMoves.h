// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

/// Where the arrow keys take the highlight of a list of `count` rows, round both ends.
namespace listMoves {

/// The row above; from the first row, or from none, the last one. None in an empty list.
inline std::optional<int> up(std::optional<int> from, int count)
{
    if (count <= 0)
        return std::nullopt;
    return from && *from > 0 ? *from - 1 : count - 1;
}

/// The row below; from the last row, or from none, the first one. None in an empty list.
inline std::optional<int> down(std::optional<int> from, int count)
{
    if (count <= 0)
        return std::nullopt;
    return from && *from + 1 < count ? *from + 1 : 0;
}

} // namespace listMoves
