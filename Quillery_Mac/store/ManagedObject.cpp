// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ManagedObject.h"

#include "Quillery_Mac/store/ManagedObjectContext.h"

#include <utility>

ManagedObject::ManagedObject(const Entity &entity)
    : m_entity(&entity)
{
}

ManagedObject::~ManagedObject() = default;

TextPreview ManagedObject::preview() const
{
    return m_context ? m_context->preview(*this) : TextPreview();
}

qsizetype ManagedObject::contentSize() const
{
    return m_context ? m_context->contentSize(*this) : 0;
}

std::optional<QByteArray> ManagedObject::contentValue() const
{
    return m_context ? m_context->content(*this) : std::nullopt;
}

void ManagedObject::setValue(int attribute, AttributeValue value)
{
    const bool isContent = attribute == m_entity->contentAttribute;
    // The content in the file is not at hand to compare with.
    if (!isContent && m_values[attribute] == value)
        return;
    assign(attribute, std::move(value));
    m_dirty |= static_cast<AttributeSet>(1U << attribute);
    if (m_context)
        m_context->noteChange(*this);
}

void ManagedObject::assign(int attribute, AttributeValue value)
{
    const AttributeKind kind = m_entity->attributes[static_cast<std::size_t>(attribute)].kind;
    if (kind == AttributeKind::Content || kind == AttributeKind::Text)
        ++m_textRevision;
    m_values[attribute] = std::move(value);
}
