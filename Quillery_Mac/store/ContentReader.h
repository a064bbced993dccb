// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"
#include "Quillery_Mac/store/TextPreview.h"

#include <optional>

class StoreConnection;

/// The content of a row as it stands in the file now; none if the row or its content is missing.
/// One copy of the bytes is made, the one that is returned. Throws SQLite::Exception.
std::optional<QByteArray> readContent(StoreConnection &connection, const Entity &entity,
                                      qint64 objectId);

/// How many bytes the content of a row has; 0 if the row or its content is missing. Reads none of
/// them. Throws SQLite::Exception.
qsizetype readContentSize(StoreConnection &connection, const Entity &entity, qint64 objectId);

/// The preview of the content of a row, reading at most kPreviewBytes of it. Throws
/// SQLite::Exception.
TextPreview readPreview(StoreConnection &connection, const Entity &entity, qint64 objectId);
