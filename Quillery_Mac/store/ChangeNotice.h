// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObjectContext.h"

/// Gathers what changes in a context until it is announced, each object once, and keeps deleted
/// objects readable until after that. On the context's thread.
class ChangeNotice
{
public:
    void addInserted(ManagedObject &object) { add(object, true); }
    void addChanged(ManagedObject &object) { add(object, false); }
    /// Keeps deleted objects for as long as the notice may name them.
    void keep(std::vector<std::unique_ptr<ManagedObject>> objects);

    bool isEmpty() const { return m_entries.empty(); }
    /// What was gathered, by what became of each object; gathering starts anew. An object that came
    /// and went unannounced is not named.
    ObjectChanges take();
    /// The objects kept so far; freeing them is the caller's.
    std::vector<std::unique_ptr<ManagedObject>> takeKept();

private:
    struct Entry
    {
        ManagedObject *object;
        bool isNew;
    };

    void add(ManagedObject &object, bool isNew);

    std::vector<Entry> m_entries;
    std::vector<std::unique_ptr<ManagedObject>> m_kept;
};
