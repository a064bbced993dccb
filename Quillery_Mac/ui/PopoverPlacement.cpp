// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/PopoverPlacement.h"

#include "Quillery_Mac/ui/Tokens.h"

#include <algorithm>

namespace {

constexpr int kGap = tokens::kPopoverGap;

int left(const PopoverAnchor &anchor, int width)
{
    const QRect room = anchor.workArea.adjusted(kGap, 0, -kGap, 0);
    const int onTheRight = anchor.menu.x() + anchor.menu.width() + kGap;
    const int onTheLeft = anchor.menu.x() - kGap - width;
    const int roomRight = room.x() + room.width() - onTheRight;
    const int roomLeft = anchor.menu.x() - kGap - room.x();
    const bool fitsRight = roomRight >= width;
    const bool fitsLeft = roomLeft >= width;
    const bool isRightFirst = anchor.direction == Qt::LeftToRight;
    bool isRight = isRightFirst ? fitsRight || !fitsLeft : fitsRight && !fitsLeft;
    if (!fitsRight && !fitsLeft)
        isRight = isRightFirst ? roomRight >= roomLeft : roomRight > roomLeft;
    const int wanted = isRight ? onTheRight : onTheLeft;
    return std::max(room.x(), std::min(wanted, room.x() + room.width() - width));
}

} // namespace

QRect popoverFrame(const PopoverAnchor &anchor, QSize size)
{
    const int highest = anchor.workArea.y() + kGap;
    const int lowest = anchor.workArea.y() + anchor.workArea.height() - kGap;
    const int height = std::min(size.height(), std::max(0, lowest - highest));
    const int top = std::max(highest, std::min(anchor.row.y(), lowest - height));
    return {left(anchor, size.width()), top, size.width(), height};
}

int popoverHeight(int top, int wanted, const QRect &workArea)
{
    return std::min(wanted, std::max(0, workArea.y() + workArea.height() - kGap - top));
}
