// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObject.h"

/// A stored text, or a folder of texts. In the one list of all snippets by `order` a folder owns
/// the snippets that follow it, up to the next folder.
class Snippet : public ManagedObject
{
public:
    static const Entity &staticEntity();

    Snippet();

    /// The text that is pasted, as UTF-8 bytes; loaded when first asked for.
    std::optional<QByteArray> content() const { return contentValue(); }
    bool expanded() const;
    std::optional<QUuid> id() const;
    /// Carried for stores written elsewhere; the program has no use for it.
    std::optional<QString> inFolder() const;
    bool isFolder() const;
    qint16 order() const;
    /// In UTC, to the millisecond.
    std::optional<QDateTime> timestamp() const;
    std::optional<QString> title() const;

    void setContent(const std::optional<QByteArray> &content);
    void setExpanded(bool expanded);
    void setId(const std::optional<QUuid> &id);
    void setInFolder(const std::optional<QString> &inFolder);
    void setIsFolder(bool isFolder);
    void setOrder(qint16 order);
    void setTimestamp(const std::optional<QDateTime> &timestamp);
    void setTitle(const std::optional<QString> &title);
};
