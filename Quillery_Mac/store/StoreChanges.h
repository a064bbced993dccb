// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"

#include <QString>

#include <vector>

/// The attributes of one row that were written; values of attributes outside the set, and the
/// content, are not carried.
struct RowChange
{
    qint64 objectId = 0;
    AttributeSet attributes = 0;
    std::array<AttributeValue, kMaxAttributes> values;
};

struct RowDeletion
{
    qint64 objectId = 0;
    QString id; ///< the UUID as idText() writes it; empty if the row had none
};

/// What one transaction wrote to a store, for the persistent history and for the view context. A
/// plain value that travels between threads.
struct StoreChanges
{
    StoreKind store = StoreKind::Clips;
    qint64 transaction = 0;
    std::vector<RowChange> inserted;
    std::vector<RowChange> updated;
    std::vector<RowDeletion> deleted;

    bool isEmpty() const { return inserted.empty() && updated.empty() && deleted.empty(); }
};
