// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryWriter.h"

#include "Quillery_Mac/editor/exchange/JsonText.h"
#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/editor/exchange/LibraryFormat.h"
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QDir>
#include <QSaveFile>

using platform::Error;

namespace {

QByteArray timestampText(const QDateTime &timestamp)
{
    const QDateTime utc = timestamp.toUTC();
    const int year = utc.date().year();
    if (year < 1 || year > kLastWrittenYear)
        return QByteArray::number(utc.toMSecsSinceEpoch());
    return jsonText(utc.toString(Qt::ISODateWithMs));
}

/// Writes items one after the other; knows how deep it stands and whether a comma is due.
class ItemWriter
{
public:
    explicit ItemWriter(QIODevice &out)
        : m_out(out)
    {
    }

    void write(const std::vector<Snippet *> &items)
    {
        m_out.write("{\n  \"format\": " + jsonText(kLibraryFormat) + ",\n  \"version\": " +
                    QByteArray::number(kLibraryVersion) + ",\n  \"items\": [");
        for (const Snippet *item : items)
            add(*item);
        closeFolder();
        m_out.write(m_isFirst ? "]\n}\n" : "\n  ]\n}\n");
    }

    /// The title of the first item whose text could not be read; absent if all could.
    const std::optional<QString> &unreadable() const { return m_unreadable; }

private:
    void add(const Snippet &item)
    {
        if (item.isFolder())
            closeFolder();
        m_out.write(m_isFirst ? "\n" : ",\n");
        m_out.write(indent() + '{');
        m_isFirst = true;
        m_depth += 2;
        addAttributes(item);
        if (item.isFolder()) {
            startKey("members");
            m_out.write("[");
            m_isFirst = true;
            m_isInFolder = true;
            m_depth += 2;
        } else {
            closeItem();
        }
    }

    void addAttributes(const Snippet &item)
    {
        if (const auto title = item.title())
            addKey("title", jsonText(*title));
        addContent(item);
        if (item.expanded())
            addKey("expanded", "true");
        if (const auto timestamp = item.timestamp(); timestamp && timestamp->isValid())
            addKey("timestamp", timestampText(*timestamp));
        if (const auto id = item.id(); id && !id->isNull())
            addKey("id", jsonText(id->toString(QUuid::WithoutBraces).toUpper()));
    }

    void addContent(const Snippet &item)
    {
        const std::optional<QByteArray> content = item.content();
        if (!content) {
            // Missing, or there and not to be read: the rows still show its beginning then.
            if (item.preview().lineCount > 0 && !m_unreadable)
                m_unreadable = item.title().value_or(QString());
        } else if (content->isValidUtf8()) {
            addKey("content", jsonText(QByteArrayView(*content)));
        } else {
            addKey("contentBase64", '"' + content->toBase64() + '"');
        }
    }

    void addKey(const char *key, const QByteArray &value)
    {
        startKey(key);
        m_out.write(value);
    }

    void startKey(const char *key)
    {
        m_out.write(m_isFirst ? "\n" : ",\n");
        m_out.write(indent() + '"' + key + "\": ");
        m_isFirst = false;
    }

    void closeItem()
    {
        m_depth -= 2;
        m_out.write(m_isFirst ? QByteArray("}") : '\n' + indent() + '}');
        m_isFirst = false;
    }

    void closeFolder()
    {
        if (!m_isInFolder)
            return;
        m_isInFolder = false;
        m_depth -= 2;
        m_out.write(m_isFirst ? QByteArray("]") : '\n' + indent() + ']');
        m_isFirst = false;
        closeItem();
    }

    QByteArray indent() const { return QByteArray(m_depth, ' '); }

    QIODevice &m_out;
    std::optional<QString> m_unreadable;
    qsizetype m_depth = 4;
    bool m_isFirst = true; ///< nothing stands yet in the innermost bracket
    bool m_isInFolder = false;
};

tl::unexpected<Error> cannotWrite(const QString &path, const QString &reason)
{
    return platform::failure(Error::Kind::Io,
                             LibraryFault::tr("The library could not be written to %1: %2")
                                 .arg(QDir::toNativeSeparators(path), reason));
}

} // namespace

platform::Result<void> exportLibrary(ManagedObjectContext &context, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return cannotWrite(path, file.errorString());
    ItemWriter writer(file);
    writer.write(context.fetch<Snippet>());
    if (writer.unreadable()) {
        return cannotWrite(
            path, LibraryFault::tr("The text of “%1” could not be read").arg(*writer.unreadable()));
    }
    // What is still in the buffer may fail unnoticed when it is written by commit().
    if (!file.flush() || !file.commit())
        return cannotWrite(path, file.errorString());
    return {};
}
