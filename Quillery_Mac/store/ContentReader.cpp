// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ContentReader.h"

#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreConnection.h"

#include <SQLiteCpp/Column.h>
#include <sqlite3.h>

#include <algorithm>

namespace {

const Attribute &contentOf(const Entity &entity)
{
    return entity.attributes[static_cast<std::size_t>(entity.contentAttribute)];
}

/// An open text in a row; not open if the row or the text is missing.
class OpenContent
{
public:
    OpenContent(StoreConnection &connection, const Entity &entity, qint64 objectId)
        : m_handle(connection.database().getHandle())
    {
        const int code = sqlite3_blob_open(m_handle, "main", entity.name, contentOf(entity).name,
                                           objectId, 0, &m_blob);
        // A missing row, and a value that is neither text nor bytes, are the plain error.
        if (code != SQLITE_OK && code != SQLITE_ERROR)
            throw SQLite::Exception(m_handle, code);
    }
    ~OpenContent() { sqlite3_blob_close(m_blob); }
    Q_DISABLE_COPY_MOVE(OpenContent)

    bool isOpen() const { return m_blob != nullptr; }
    int size() const { return sqlite3_blob_bytes(m_blob); }

    QByteArray read(int bytes) const
    {
        QByteArray result(bytes, Qt::Uninitialized);
        const int code = sqlite3_blob_read(m_blob, result.data(), bytes, 0);
        if (code != SQLITE_OK)
            throw SQLite::Exception(m_handle, code);
        return result;
    }

private:
    sqlite3 *m_handle;
    sqlite3_blob *m_blob = nullptr;
};

} // namespace

std::optional<QByteArray> readContent(StoreConnection &connection, const Entity &entity,
                                      qint64 objectId)
{
    const OpenContent content(connection, entity, objectId);
    if (!content.isOpen())
        return std::nullopt;
    return content.read(content.size());
}

qsizetype readContentSize(StoreConnection &connection, const Entity &entity, qint64 objectId)
{
    const OpenContent content(connection, entity, objectId);
    return content.isOpen() ? content.size() : 0;
}

TextPreview readPreview(StoreConnection &connection, const Entity &entity, qint64 objectId)
{
    const OpenContent content(connection, entity, objectId);
    if (!content.isOpen())
        return {};
    const int bytes = std::min(content.size(), static_cast<int>(kPreviewBytes));
    return makeTextPreview(content.read(bytes), content.size());
}
