// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/SnippetOrder.h"

#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/SixteenBit.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QDateTime>

#include <limits>

namespace {

constexpr const char *kOrder = "order";

Snippet &create(ManagedObjectContext &context, const snippetOrder::NewSnippet &fresh)
{
    Snippet &snippet = *context.insert<Snippet>();
    snippet.setId(QUuid::createUuid());
    snippet.setTimestamp(QDateTime::currentDateTimeUtc());
    snippet.setTitle(fresh.title);
    snippet.setContent(fresh.content);
    snippet.setIsFolder(fresh.isFolder);
    snippet.setExpanded(fresh.expanded);
    return snippet;
}

} // namespace

namespace snippetOrder {

qint16 place(ManagedObjectContext &context, qint64 order)
{
    // The program ends, but what was typed before does not have to be lost with it.
    if (order > std::numeric_limits<qint16>::max())
        static_cast<void>(context.save());
    return toSixteenBit(order, kOrder);
}

Snippet &append(ManagedObjectContext &context, const NewSnippet &fresh, qint64 order)
{
    const qint16 own = place(context, order);
    Snippet &snippet = create(context, fresh);
    snippet.setOrder(own);
    return snippet;
}

Snippet &insert(ManagedObjectContext &context, const NewSnippet &fresh, qint64 order)
{
    const qint16 own = place(context, order);
    const std::vector<Snippet *> others = context.fetch<Snippet>();
    // From the last one on, so that what leaves the range is found before anything has changed.
    for (auto other = others.rbegin(); other != others.rend() && (*other)->order() >= own; ++other)
        (*other)->setOrder(place(context, (*other)->order() + 1));
    Snippet &snippet = create(context, fresh);
    snippet.setOrder(own);
    return snippet;
}

std::vector<Snippet *> moved(const std::vector<Snippet *> &items, const std::set<int> &offsets,
                             int destination)
{
    const int count = static_cast<int>(items.size());
    std::vector<Snippet *> result;
    result.reserve(items.size());
    const auto takeOthers = [&](int first, int end) {
        for (int i = first; i < end; ++i) {
            if (!offsets.contains(i))
                result.push_back(items[static_cast<std::size_t>(i)]);
        }
    };
    const int middle = std::clamp(destination, 0, count);
    takeOthers(0, middle);
    for (const int offset : offsets) {
        if (offset >= 0 && offset < count)
            result.push_back(items[static_cast<std::size_t>(offset)]);
    }
    takeOthers(middle, count);
    return result;
}

void renumber(const std::vector<Snippet *> &items)
{
    for (std::size_t i = items.size(); i-- > 0;)
        items[i]->setOrder(toSixteenBit(static_cast<qint64>(i), kOrder));
}

int groupSize(const std::vector<Snippet *> &items, int folder)
{
    const int count = static_cast<int>(items.size());
    if (!items[static_cast<std::size_t>(folder)]->isFolder())
        return 1;
    int end = folder + 1;
    while (end < count && !items[static_cast<std::size_t>(end)]->isFolder())
        ++end;
    return end - folder;
}

} // namespace snippetOrder
