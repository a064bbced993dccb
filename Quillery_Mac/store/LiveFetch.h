// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObjectContext.h"

#include <vector>

/// The part of a live fetch that does not depend on the class of the objects.
class LiveFetchBase : public QObject
{
    Q_OBJECT

public:
    LiveFetchBase(ManagedObjectContext &context, const Entity &entity);

signals:
    /// The objects of the entity, one of them, or their order changed; once for everything that
    /// changed together.
    void changed();

protected:
    ManagedObjectContext &context() const { return m_context; }
    /// Whether the objects changed since setFresh().
    bool isStale() const;
    void setFresh();

private:
    ManagedObjectContext &m_context;
    const Entity &m_entity;
    quint64 m_revision = 0;
};

/// All objects of class E in a context, always up to date: changes of this context show before they
/// are saved, changes of others once they are merged. Main thread only.
template <class E>
class LiveFetch : public LiveFetchBase
{
public:
    explicit LiveFetch(ManagedObjectContext &context)
        : LiveFetchBase(context, E::staticEntity())
    {
    }

    /// Sorted by `order` or `position` ascending, ties by objectId(). The reference stays good as
    /// long as the fetch, the vector's contents until the next call after a change.
    const std::vector<E *> &results()
    {
        if (isStale()) {
            m_results = context().template fetch<E>();
            setFresh();
        }
        return m_results;
    }

private:
    std::vector<E *> m_results;
};
