// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"

#include <QString>

/// Which file holds the objects of a store, and where they are mirrored. Every store has a
/// persistent history and tells of changes that are carried here.
struct StoreDescription
{
    StoreKind kind;
    QString file;           ///< absolute path
    QString cloudContainer; ///< the identifier of the user's cloud container for this store
};
