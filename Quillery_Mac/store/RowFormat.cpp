// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/RowFormat.h"

#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/SixteenBit.h"
#include "Quillery_Mac/store/Snippet.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace {

// Beyond the year 300,000: no date, and no safe number of milliseconds.
constexpr double kMaxSeconds = 1e13;

std::string quoted(const char *name)
{
    return '"' + std::string(name) + '"';
}

QByteArrayView bytesOf(const SQLite::Column &column)
{
    // The pointer first: asking for it may convert the value, and so change its length.
    const char *data =
        column.isBlob() ? static_cast<const char *>(column.getBlob()) : column.getText(nullptr);
    return {data, data ? column.getBytes() : 0};
}

AttributeValue readId(const SQLite::Column &column)
{
    const QUuid id = QUuid::fromString(QLatin1StringView(bytesOf(column)));
    return id.isNull() ? AttributeValue() : AttributeValue(id);
}

AttributeValue readDate(const SQLite::Column &column)
{
    if (!column.isFloat() && !column.isInteger())
        return {};
    const double seconds = column.getDouble();
    if (!std::isfinite(seconds) || std::abs(seconds) > kMaxSeconds)
        return {};
    return QDateTime::fromMSecsSinceEpoch(std::llround(seconds * 1000), Qt::UTC);
}

AttributeValue readNumber(const char *key, const SQLite::Column &column)
{
    // A fraction is cut off. Its whole part is clamped first, because a conversion of what no
    // integer can hold is undefined; what was clamped is out of range all the same.
    constexpr double kBeyond = 1e9;
    if (column.isFloat())
        return toSixteenBit(
            std::llround(std::trunc(std::clamp(column.getDouble(), -kBeyond, kBeyond))), key);
    return toSixteenBit(column.isInteger() ? column.getInt64() : 0, key);
}

struct Binder
{
    SQLite::Statement &statement;
    int parameter;

    void operator()(std::monostate) const { statement.bind(parameter); }
    void operator()(bool flag) const { statement.bind(parameter, flag ? 1 : 0); }
    void operator()(qint16 number) const { statement.bind(parameter, int32_t{number}); }
    void operator()(const QUuid &id) const { statement.bind(parameter, idText(id).toStdString()); }
    void operator()(const QString &text) const { statement.bind(parameter, text.toStdString()); }
    // Bound as bytes and made text by the statement: so no copy of a long text is made.
    void operator()(const QByteArray &bytes) const
    {
        if (bytes.size() > std::numeric_limits<int>::max())
            throw SQLite::Exception("text is too long", SQLITE_TOOBIG);
        statement.bindNoCopy(parameter, bytes.isNull() ? "" : bytes.constData(),
                             static_cast<int>(bytes.size()));
    }
    void operator()(const QDateTime &date) const
    {
        statement.bind(parameter, static_cast<double>(date.toMSecsSinceEpoch()) / 1000.0);
    }
};

std::string parameterText(const Attribute &attribute, int parameter)
{
    const std::string text = '?' + std::to_string(parameter);
    return attribute.kind == AttributeKind::Content ? "CAST(" + text + " AS TEXT)" : text;
}

} // namespace

const Entity &entityOf(StoreKind kind)
{
    return kind == StoreKind::Clips ? Clip::staticEntity() : Snippet::staticEntity();
}

std::string selectAllText(const Entity &entity)
{
    std::string columns = "pk";
    for (const Attribute &attribute : entity.attributes) {
        if (attribute.kind != AttributeKind::Content)
            columns += ", " + quoted(attribute.name);
    }
    return "SELECT " + columns + " FROM " + quoted(entity.name);
}

std::string insertText(const Entity &entity, AttributeSet attributes)
{
    std::string columns = "pk";
    std::string values = "NULL";
    int parameter = 0;
    forEachAttribute(attributes, [&](int index) {
        const Attribute &attribute = entity.attributes[static_cast<std::size_t>(index)];
        columns += ", " + quoted(attribute.name);
        values += ", " + parameterText(attribute, ++parameter);
    });
    return "INSERT INTO " + quoted(entity.name) + " (" + columns + ") VALUES (" + values + ')';
}

std::string updateText(const Entity &entity, AttributeSet attributes)
{
    std::string settings;
    int parameter = 0;
    forEachAttribute(attributes, [&](int index) {
        const Attribute &attribute = entity.attributes[static_cast<std::size_t>(index)];
        settings += parameter > 0 ? ", " : "";
        settings += quoted(attribute.name) + " = " + parameterText(attribute, parameter + 1);
        ++parameter;
    });
    return "UPDATE " + quoted(entity.name) + " SET " + settings + " WHERE pk = ?" +
           std::to_string(parameter + 1);
}

std::string deleteText(const Entity &entity)
{
    const Attribute &id = entity.attributes[static_cast<std::size_t>(entity.idAttribute)];
    return "DELETE FROM " + quoted(entity.name) + " WHERE pk = ?1 RETURNING " + quoted(id.name);
}

AttributeValue readValue(const Attribute &attribute, const SQLite::Column &column)
{
    switch (attribute.kind) {
    case AttributeKind::Content:
        return column.isNull() ? AttributeValue() : AttributeValue(bytesOf(column).toByteArray());
    case AttributeKind::Text:
        return column.isNull() ? AttributeValue()
                               : AttributeValue(QString::fromUtf8(bytesOf(column)));
    case AttributeKind::Id:
        return readId(column);
    case AttributeKind::Date:
        return readDate(column);
    case AttributeKind::Flag:
        return column.getInt64() != 0;
    case AttributeKind::Number:
        return readNumber(attribute.name, column);
    }
    return {};
}

void bindValue(SQLite::Statement &statement, int parameter, const AttributeValue &value)
{
    std::visit(Binder{statement, parameter}, value);
}

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}
