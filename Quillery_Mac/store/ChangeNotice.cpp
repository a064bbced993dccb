// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ChangeNotice.h"

#include <algorithm>
#include <iterator>
#include <utility>

bool ObjectChanges::concerns(const Entity &entity) const
{
    const auto isOfEntity = [&entity](const ManagedObject *object) {
        return &object->entity() == &entity;
    };
    return std::ranges::any_of(inserted, isOfEntity) || std::ranges::any_of(updated, isOfEntity) ||
           std::ranges::any_of(deleted, isOfEntity);
}

void ChangeNotice::add(ManagedObject &object, bool isNew)
{
    if (!std::exchange(object.m_isNoticed, true))
        m_entries.push_back({&object, isNew});
}

void ChangeNotice::keep(std::vector<std::unique_ptr<ManagedObject>> objects)
{
    std::ranges::move(objects, std::back_inserter(m_kept));
}

ObjectChanges ChangeNotice::take()
{
    ObjectChanges changes;
    for (const auto &[object, isNew] : std::exchange(m_entries, {})) {
        object->m_isNoticed = false;
        if (object->isDeleted() && isNew)
            continue;
        (object->isDeleted() ? changes.deleted
         : isNew             ? changes.inserted
                             : changes.updated)
            .push_back(object);
    }
    return changes;
}

std::vector<std::unique_ptr<ManagedObject>> ChangeNotice::takeKept()
{
    return std::exchange(m_kept, {});
}
