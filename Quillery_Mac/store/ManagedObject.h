// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"
#include "Quillery_Mac/store/TextPreview.h"

#include <optional>

class ManagedObjectContext;

/// A row of a store as an object. Belongs to its context, which keeps exactly one object per row,
/// and may be used on the context's thread only.
///
/// Lifetime: a pointer stays good until the event loop next runs. A deleted object, whoever deleted
/// it, stays readable (isDeleted() says so) until the live fetches have announced the deletion, and
/// is freed by the event loop after that; of its content only what was loaded is still there. Who
/// needs an object for longer keeps its objectId() and asks the context for it again.
class ManagedObject
{
public:
    virtual ~ManagedObject();
    Q_DISABLE_COPY_MOVE(ManagedObject)

    /// Null for an object that belongs to no context any more.
    ManagedObjectContext *managedObjectContext() const { return m_context; }
    /// The row's number, never used twice within a store. An object that was never saved has a
    /// preliminary one, greater than every row's; its first save gives it the lasting one.
    qint64 objectId() const { return m_objectId; }
    const Entity &entity() const { return *m_entity; }

    /// Whether the object waits for its first save.
    bool isInserted() const { return m_isInserted; }
    /// Whether the object was deleted, here or by another context.
    bool isDeleted() const { return m_isDeleted; }
    /// Whether the next save has something to write for this object.
    bool hasChanges() const { return m_isInserted || m_isDeletePending || m_dirty != 0; }

    /// The start of the content; reads only a bounded piece of it, however long it is.
    TextPreview preview() const;
    /// How long the content is, in bytes; 0 if it is missing. Reads nothing of it.
    qsizetype contentSize() const;
    /// A number that is another one after every change of a text of this object, by whomever.
    quint64 textRevision() const { return m_textRevision; }

protected:
    explicit ManagedObject(const Entity &entity);

    const AttributeValue &value(int attribute) const { return m_values[attribute]; }
    void setValue(int attribute, AttributeValue value);
    std::optional<QByteArray> contentValue() const;

    template <class T>
    std::optional<T> optionalValue(int attribute) const
    {
        const T *held = std::get_if<T>(&m_values[attribute]);
        return held ? std::optional<T>(*held) : std::nullopt;
    }
    template <class T>
    void setOptionalValue(int attribute, const std::optional<T> &value)
    {
        setValue(attribute, value ? AttributeValue(*value) : AttributeValue());
    }
    template <class T>
    T plainValue(int attribute) const
    {
        return optionalValue<T>(attribute).value_or(T());
    }

private:
    friend class ChangeNotice;
    friend class ManagedObjectContext;
    friend class ObjectTable;
    friend class ObjectWriter;

    void assign(int attribute, AttributeValue value);

    const Entity *m_entity;
    ManagedObjectContext *m_context = nullptr;
    qint64 m_objectId = 0;
    quint64 m_textRevision = 0;
    AttributeSet m_dirty = 0;
    bool m_isInserted = false;
    bool m_isDeleted = false;
    bool m_isDeletePending = false; ///< deleted here, not yet in the file
    bool m_isChangeListed = false;  ///< stands in the context's list of changed objects
    bool m_isNoticed = false;       ///< stands in the next notice of the context
    std::array<AttributeValue, kMaxAttributes> m_values;
};
