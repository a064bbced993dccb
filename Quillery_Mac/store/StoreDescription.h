// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"

#include <QString>

/// Which file holds the objects of a store.
struct StoreDescription
{
    StoreKind kind;
    QString file; ///< absolute path
};
