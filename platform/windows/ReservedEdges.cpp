// SPDX-License-Identifier: MIT
#include "platform/windows/ReservedEdges.h"

#include <QGuiApplication>
#include <QScreen>

#include <limits>

namespace platform {

namespace {

constexpr std::array<int, 2> kWholeEdge{0, std::numeric_limits<int>::max()};

enum Edge { Left, Right, Top, Bottom };

bool overlaps(const std::array<int, 2> &span, int first, int last)
{
    return span[0] <= last && span[1] >= first;
}

/// Moves one edge of `part` in to `limit`, unless the strut does not touch the screen or covers
/// all of it: then it belongs to the screen behind.
int movedIn(int edge, int limit, int first, int last)
{
    return limit > first && limit < last ? std::max(edge, limit) : edge;
}

int movedOut(int edge, int limit, int first, int last)
{
    return limit > first && limit < last ? std::min(edge, limit) : edge;
}

int squaredDistance(const QRect &rectangle, QPoint point)
{
    const int x = qBound(rectangle.left(), point.x(), rectangle.right()) - point.x();
    const int y = qBound(rectangle.top(), point.y(), rectangle.bottom()) - point.y();
    return x * x + y * y;
}

} // namespace

std::optional<Strut> Strut::fromProperty(const std::vector<quint32> &numbers)
{
    if (numbers.size() != 4 && numbers.size() != 12)
        return std::nullopt;
    Strut strut;
    strut.left = static_cast<int>(numbers[0]);
    strut.right = static_cast<int>(numbers[1]);
    strut.top = static_cast<int>(numbers[2]);
    strut.bottom = static_cast<int>(numbers[3]);
    strut.spans.fill(kWholeEdge);
    if (numbers.size() == 12) {
        for (std::size_t edge = 0; edge < strut.spans.size(); ++edge) {
            strut.spans[edge] = {static_cast<int>(numbers[4 + 2 * edge]),
                                 static_cast<int>(numbers[5 + 2 * edge])};
        }
    }
    return strut;
}

QRect freePart(const QRect &screen, QSize display, const std::vector<Strut> &struts)
{
    // Edges as half-open borders: right and bottom are the first pixel beyond.
    const int x1 = screen.x();
    const int y1 = screen.y();
    const int x2 = x1 + screen.width();
    const int y2 = y1 + screen.height();
    int left = x1;
    int right = x2;
    int top = y1;
    int bottom = y2;
    for (const Strut &strut : struts) {
        if (strut.left > 0 && overlaps(strut.spans[Left], y1, y2 - 1))
            left = movedIn(left, strut.left, x1, x2);
        if (strut.right > 0 && overlaps(strut.spans[Right], y1, y2 - 1))
            right = movedOut(right, display.width() - strut.right, x1, x2);
        if (strut.top > 0 && overlaps(strut.spans[Top], x1, x2 - 1))
            top = movedIn(top, strut.top, y1, y2);
        if (strut.bottom > 0 && overlaps(strut.spans[Bottom], x1, x2 - 1))
            bottom = movedOut(bottom, display.height() - strut.bottom, y1, y2);
    }
    if (left >= right || top >= bottom)
        return screen;
    return {left, top, right - left, bottom - top};
}

QScreen *screenHolding(QPoint point)
{
    if (QScreen *screen = QGuiApplication::screenAt(point))
        return screen;
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto nearest = std::min_element(screens.begin(), screens.end(),
                                          [point](const QScreen *one, const QScreen *other) {
                                              return squaredDistance(one->geometry(), point) <
                                                     squaredDistance(other->geometry(), point);
                                          });
    return nearest == screens.end() ? nullptr : *nearest;
}

} // namespace platform
