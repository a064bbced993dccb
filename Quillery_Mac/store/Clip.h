// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObject.h"

/// One entry of the clipboard history; the newest has `position` 1.
class Clip : public ManagedObject
{
public:
    static const Entity &staticEntity();

    Clip();

    /// The copied text, as UTF-8 bytes; loaded when first asked for.
    std::optional<QByteArray> content() const { return contentValue(); }
    /// The machine that recorded it, by its "device" setting.
    std::optional<QString> device() const;
    std::optional<QUuid> id() const;
    qint16 position() const;

    void setContent(const std::optional<QByteArray> &content);
    void setDevice(const std::optional<QString> &device);
    void setId(const std::optional<QUuid> &id);
    void setPosition(qint16 position);
};
