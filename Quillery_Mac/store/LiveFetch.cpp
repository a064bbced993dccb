// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/LiveFetch.h"

#include <utility>

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

bool LiveFetchBase::takeIsStale()
{
    const quint64 revision = m_context.revision(m_entity);
    return std::exchange(m_revision, revision) != revision;
}
