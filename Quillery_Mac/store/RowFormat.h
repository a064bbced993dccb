// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"

#include <string>

namespace SQLite {
class Column;
class Statement;
} // namespace SQLite

/// How objects stand in their table: the SQL texts over an entity's columns, and the way of each
/// value into a column and back.

/// The entity that a store holds.
const Entity &entityOf(StoreKind kind);

/// All rows: pk, then every attribute but the content, in the order of the attributes.
std::string selectAllText(const Entity &entity);
/// A new row with these attributes as parameters 1 ... n, in the order of the attributes.
std::string insertText(const Entity &entity, AttributeSet attributes);
/// These attributes of one row as parameters 1 ... n; the pk is parameter n + 1.
std::string updateText(const Entity &entity, AttributeSet attributes);
/// Takes the row with the pk of parameter 1 away and answers with its id.
std::string deleteText(const Entity &entity);

/// The value in a column, whatever another program put there: what cannot be such a value is
/// missing, zero or false. A number outside 16 bits is fatal.
AttributeValue readValue(const Attribute &attribute, const SQLite::Column &column);

/// Binds a value to a parameter. Bytes are not copied: `value` must outlive the execution.
void bindValue(SQLite::Statement &statement, int parameter, const AttributeValue &value);

/// A UUID as it stands in the file: upper-case, without braces.
QString idText(const QUuid &id);

/// The attributes of a set, as indexes, ascending.
template <class Action>
void forEachAttribute(AttributeSet attributes, Action action)
{
    for (int attribute = 0; attribute < kMaxAttributes; ++attribute) {
        if (attributes & (1U << attribute))
            action(attribute);
    }
}
