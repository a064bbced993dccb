// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/Snippet.h"

namespace {

enum : int { kOrder, kIsFolder, kExpanded, kId, kTimestamp, kInFolder, kTitle, kContent };

constexpr std::array<Attribute, 8> kAttributes{{
    {"order", AttributeKind::Number},
    {"isFolder", AttributeKind::Flag},
    {"expanded", AttributeKind::Flag},
    {"id", AttributeKind::Id},
    {"timestamp", AttributeKind::Date},
    {"inFolder", AttributeKind::Text},
    {"title", AttributeKind::Text},
    {"content", AttributeKind::Content},
}};
static_assert(kAttributes.size() <= kMaxAttributes);

std::unique_ptr<ManagedObject> createSnippet()
{
    return std::make_unique<Snippet>();
}

} // namespace

const Entity &Snippet::staticEntity()
{
    static constexpr Entity kEntity{"Snippet", StoreKind::Snippets, kAttributes, kContent, kOrder,
                                    kId,       createSnippet};
    return kEntity;
}

Snippet::Snippet()
    : ManagedObject(staticEntity())
{
}

bool Snippet::expanded() const
{
    return plainValue<bool>(kExpanded);
}

std::optional<QUuid> Snippet::id() const
{
    return optionalValue<QUuid>(kId);
}

std::optional<QString> Snippet::inFolder() const
{
    return optionalValue<QString>(kInFolder);
}

bool Snippet::isFolder() const
{
    return plainValue<bool>(kIsFolder);
}

qint16 Snippet::order() const
{
    return plainValue<qint16>(kOrder);
}

std::optional<QDateTime> Snippet::timestamp() const
{
    return optionalValue<QDateTime>(kTimestamp);
}

std::optional<QString> Snippet::title() const
{
    return optionalValue<QString>(kTitle);
}

void Snippet::setContent(const std::optional<QByteArray> &content)
{
    setOptionalValue(kContent, content);
}

void Snippet::setExpanded(bool expanded)
{
    setValue(kExpanded, expanded);
}

void Snippet::setId(const std::optional<QUuid> &id)
{
    setOptionalValue(kId, id);
}

void Snippet::setInFolder(const std::optional<QString> &inFolder)
{
    setOptionalValue(kInFolder, inFolder);
}

void Snippet::setIsFolder(bool isFolder)
{
    setValue(kIsFolder, isFolder);
}

void Snippet::setOrder(qint16 order)
{
    setValue(kOrder, order);
}

void Snippet::setTimestamp(const std::optional<QDateTime> &timestamp)
{
    setOptionalValue(kTimestamp, timestamp ? std::optional(timestamp->toUTC()) : std::nullopt);
}

void Snippet::setTitle(const std::optional<QString> &title)
{
    setOptionalValue(kTitle, title);
}
