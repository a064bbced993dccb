// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/Clip.h"

namespace {

enum : int { kPosition, kId, kDevice, kContent };

constexpr std::array<Attribute, 4> kAttributes{{
    {"position", AttributeKind::Number},
    {"id", AttributeKind::Id},
    {"device", AttributeKind::Text},
    {"content", AttributeKind::Content},
}};
static_assert(kAttributes.size() <= kMaxAttributes);

std::unique_ptr<ManagedObject> createClip()
{
    return std::make_unique<Clip>();
}

} // namespace

const Entity &Clip::staticEntity()
{
    static constexpr Entity kEntity{"Clip", StoreKind::Clips, kAttributes, kContent, kPosition,
                                    kId,    createClip};
    return kEntity;
}

Clip::Clip()
    : ManagedObject(staticEntity())
{
}

std::optional<QString> Clip::device() const
{
    return optionalValue<QString>(kDevice);
}

std::optional<QUuid> Clip::id() const
{
    return optionalValue<QUuid>(kId);
}

qint16 Clip::position() const
{
    return plainValue<qint16>(kPosition);
}

void Clip::setContent(const std::optional<QByteArray> &content)
{
    setOptionalValue(kContent, content);
}

void Clip::setDevice(const std::optional<QString> &device)
{
    setOptionalValue(kDevice, device);
}

void Clip::setId(const std::optional<QUuid> &id)
{
    setOptionalValue(kId, id);
}

void Clip::setPosition(qint16 position)
{
    setValue(kPosition, position);
}
