// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/AttributeValue.h"

#include <array>
#include <memory>
#include <span>

class ManagedObject;

/// The two store files. The values index arrays; they never reach the disk.
enum class StoreKind { Clips = 0, Snippets = 1 };
inline constexpr int kStoreCount = 2;
inline constexpr std::array<StoreKind, kStoreCount> kStoreKinds{StoreKind::Clips,
                                                                StoreKind::Snippets};

/// How an attribute is kept in a column.
enum class AttributeKind {
    Content, ///< UTF-8 text, read only when used
    Text,    ///< UTF-8 text
    Id,      ///< upper-case UUID text
    Date,    ///< REAL, seconds since 1970 UTC
    Flag,    ///< 0 or 1
    Number,  ///< 16-bit signed integer
};

struct Attribute
{
    const char *name; ///< the column, exactly
    AttributeKind kind;
};

/// At most so many attributes has an entity; a set of attributes is the bits of an AttributeSet.
inline constexpr int kMaxAttributes = 8;
using AttributeSet = quint16;

/// What is constant about a class of managed objects: its table and the order of its lists. Static
/// data, any thread.
struct Entity
{
    const char *name; ///< the table, exactly
    StoreKind store;
    std::span<const Attribute> attributes;
    int contentAttribute; ///< index of the attribute that is read only when used
    int sortAttribute;    ///< index of the number that lists are sorted by, ascending
    int idAttribute;      ///< index of the UUID
    std::unique_ptr<ManagedObject> (*create)();
};
