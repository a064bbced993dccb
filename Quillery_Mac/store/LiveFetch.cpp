// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/LiveFetch.h"

LiveFetchBase::LiveFetchBase(ManagedObjectContext &context, const Entity &entity)
    : m_context(context)
    , m_entity(entity)
{
    connect(&context, &ManagedObjectContext::objectsDidChange, this,
            [this](const ObjectChanges &changes) {
                if (changes.concerns(m_entity))
                    emit changed();
            });
}

bool LiveFetchBase::isStale() const
{
    return m_revision != m_context.revision(m_entity);
}

void LiveFetchBase::setFresh()
{
    m_revision = m_context.revision(m_entity);
}
