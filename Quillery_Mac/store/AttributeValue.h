// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

#include <variant>

/// One attribute of a managed object; std::monostate is the missing value of an optional one.
/// Texts that are pasted are UTF-8 bytes, so that bytes which are no valid text survive; the other
/// texts are strings.
using AttributeValue =
    std::variant<std::monostate, bool, qint16, QUuid, QString, QByteArray, QDateTime>;
