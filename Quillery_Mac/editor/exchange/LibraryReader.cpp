// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryReader.h"

#include "Quillery_Mac/editor/exchange/JsonReader.h"
#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/editor/exchange/LibraryFormat.h"
#include "Quillery_Mac/editor/exchange/LineError.h"

#include <array>
#include <cstdlib>
#include <iterator>
#include <span>
#include <utility>

namespace {

// Beyond it the store has no dates: 1e13 seconds.
constexpr qint64 kMaxMilliseconds = 10'000'000'000'000'000;

// Of a name that nobody knows so much is said.
constexpr qsizetype kMaxShownKey = 40;

// A name as a message can show it: no control characters, no halves of characters.
QString shown(const QString &name)
{
    QString text = QString::fromUtf8(name.left(kMaxShownKey).toUtf8());
    for (QChar &character : text) {
        if (!character.isPrint() && !character.isSurrogate())
            character = QChar::ReplacementCharacter;
    }
    return text;
}

void append(std::vector<ParsedItem> &items, std::vector<ParsedItem> &&more)
{
    items.insert(items.end(), std::make_move_iterator(more.begin()),
                 std::make_move_iterator(more.end()));
}

/// One pass over the file. Two levels deep: items, and the members of a folder.
class Reading
{
public:
    explicit Reading(QByteArrayView bytes)
        : m_json(bytes)
    {
    }

    platform::Result<ParsedLibrary> run()
    {
        m_json.enter('{', QT_TRANSLATE_NOOP("LibraryFault", "A Quillery library begins with “{”."));
        const Seen seen = readObject(kFileFields);
        m_json.end();
        for (const Field &field : kFileFields) {
            if (!(seen & bitOf(kFileFields, field)))
                m_json.fail(0, LibraryFault::tr("“%1” is missing.").arg(field.key));
        }
        if (m_json.error())
            return tl::unexpected(*m_json.error());
        append(m_library.items, std::move(m_folders));
        return std::move(m_library);
    }

private:
    struct Field
    {
        QStringView key;
        void (Reading::*read)(qsizetype position);
    };
    using Seen = quint32; ///< a bit for each field of a table

    static const std::array<Field, 3> kFileFields;
    static const std::array<Field, 7> kItemFields;

    static Seen bitOf(std::span<const Field> fields, const Field &field)
    {
        return Seen{1} << (&field - fields.data());
    }

    /// An item whose members are still to be told apart from the others of the file.
    struct Group
    {
        ParsedItem item;
        std::vector<ParsedItem> members;
    };

    Seen readObject(std::span<const Field> fields)
    {
        Seen seen = 0;
        while (m_json.hasMore('}'))
            seen |= readField(fields, seen);
        return seen;
    }

    Seen readField(std::span<const Field> fields, Seen seen)
    {
        const qsizetype position = m_json.position();
        const QString key = m_json.key();
        if (m_json.error())
            return 0;
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [&key](const Field &known) { return known.key == key; });
        if (field == fields.end()) {
            m_json.fail(position, LibraryFault::tr("“%1” has no meaning here.").arg(shown(key)));
            return 0;
        }
        const Seen bit = bitOf(fields, *field);
        if (seen & bit)
            m_json.fail(position, LibraryFault::tr("“%1” stands here twice.").arg(key));
        else
            (this->*field->read)(m_json.position());
        return bit;
    }

    void readFormat(qsizetype position)
    {
        const char *expected =
            QT_TRANSLATE_NOOP("LibraryFault", "The format must be “Quillery library”.");
        if (m_json.text(expected) != kLibraryFormat)
            m_json.fail(position, expected);
    }

    void readVersion(qsizetype position)
    {
        const char *expected =
            QT_TRANSLATE_NOOP("LibraryFault", "The version must be a number, 1 or greater.");
        const qint64 version = m_json.number(expected);
        if (version < 1)
            m_json.fail(position, expected);
        if (version > kLibraryVersion) {
            m_json.fail(position, LibraryFault::tr("The library was written by a newer Quillery "
                                                   "(version %1 of the format; this one reads %2).")
                                      .arg(version)
                                      .arg(kLibraryVersion));
        }
    }

    void readItems(qsizetype)
    {
        m_json.enter(
            '[', QT_TRANSLATE_NOOP("LibraryFault", "The items must be a list in square brackets."));
        while (m_json.hasMore(']')) {
            Group group = readGroup();
            std::vector<ParsedItem> &place = group.item.isFolder ? m_folders : m_library.items;
            place.push_back(std::move(group.item));
            append(place, std::move(group.members));
        }
    }

    // A member has no group of its own: the one it is read into is set aside meanwhile.
    Group readGroup()
    {
        const qsizetype position = m_json.position();
        if (++m_count > kMaxLibraryItems) {
            m_json.fail(position,
                        LibraryFault::tr("A library holds at most 32,767 snippets and folders."));
        }
        m_json.enter('{',
                     QT_TRANSLATE_NOOP("LibraryFault", "An item must stand here, which begins with "
                                                       "“{”."));
        Group group = std::exchange(m_group, Group());
        readObject(kItemFields);
        std::swap(group, m_group);
        return group;
    }

    void readTitle(qsizetype)
    {
        m_group.item.title =
            m_json.text(QT_TRANSLATE_NOOP("LibraryFault", "The title must be a text."));
    }

    void readContent(qsizetype position)
    {
        const QString content =
            m_json.text(QT_TRANSLATE_NOOP("LibraryFault", "The content must be a text."));
        if (!content.isValidUtf16()) {
            m_json.fail(position, LibraryFault::tr("The content holds half a character, an escape "
                                                   "\\ud800 to \\udfff without its other half."));
        }
        setContent(position, content.toUtf8());
    }

    void readBase64(qsizetype position)
    {
        const char *expected =
            QT_TRANSLATE_NOOP("LibraryFault", "“contentBase64” must be a Base64 text.");
        const QByteArray text = m_json.text(expected).toUtf8();
        const auto decoded =
            QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded)
            m_json.fail(position, expected);
        setContent(position, decoded.decoded);
    }

    void setContent(qsizetype position, const QByteArray &content)
    {
        if (m_group.item.content)
            m_json.fail(position, LibraryFault::tr("The item has two contents."));
        m_group.item.content = content;
    }

    void readTimestamp(qsizetype position)
    {
        const char *expected = QT_TRANSLATE_NOOP(
            "LibraryFault", "The timestamp must be a date such as \"2026-11-21T15:45:02.123Z\", or "
                            "the milliseconds since 1970.");
        QDateTime timestamp;
        if (m_json.isText()) {
            timestamp = QDateTime::fromString(m_json.text(expected), Qt::ISODateWithMs);
            // Without its distance from UTC a time means something else on another machine.
            if (timestamp.timeSpec() == Qt::LocalTime)
                timestamp = QDateTime();
        } else if (const qint64 number = m_json.number(expected);
                   std::abs(number) <= kMaxMilliseconds) {
            timestamp = QDateTime::fromMSecsSinceEpoch(number, Qt::UTC);
        }
        if (!timestamp.isValid())
            m_json.fail(position, expected);
        m_group.item.timestamp = timestamp.toUTC();
    }

    void readId(qsizetype position)
    {
        const char *expected = QT_TRANSLATE_NOOP("LibraryFault", "The id must be a UUID.");
        const QString text = m_json.text(expected);
        const QUuid id = QUuid::fromString(text);
        if (id.isNull() ||
            id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) != 0)
            m_json.fail(position, expected);
        m_group.item.id = id;
    }

    void readExpanded(qsizetype)
    {
        m_group.item.expanded =
            m_json.truth(QT_TRANSLATE_NOOP("LibraryFault", "“expanded” must be true or false."));
    }

    void readMembers(qsizetype position)
    {
        if (m_isInFolder)
            m_json.fail(position, LibraryFault::tr("A folder cannot stand inside a folder."));
        m_group.item.isFolder = true;
        m_isInFolder = true;
        m_json.enter('[', QT_TRANSLATE_NOOP("LibraryFault",
                                            "The members must be a list in square brackets."));
        while (m_json.hasMore(']')) {
            Group member = readGroup();
            m_group.members.push_back(std::move(member.item));
        }
        m_isInFolder = false;
    }

    JsonReader m_json;
    ParsedLibrary m_library;           ///< the snippets of no folder
    std::vector<ParsedItem> m_folders; ///< every folder and its members
    Group m_group;                     ///< what is being read
    qsizetype m_count = 0;
    bool m_isInFolder = false;
};

const std::array<Reading::Field, 3> Reading::kFileFields{{{u"format", &Reading::readFormat},
                                                          {u"version", &Reading::readVersion},
                                                          {u"items", &Reading::readItems}}};

const std::array<Reading::Field, 7> Reading::kItemFields{{{u"title", &Reading::readTitle},
                                                          {u"content", &Reading::readContent},
                                                          {u"contentBase64", &Reading::readBase64},
                                                          {u"expanded", &Reading::readExpanded},
                                                          {u"timestamp", &Reading::readTimestamp},
                                                          {u"id", &Reading::readId},
                                                          {u"members", &Reading::readMembers}}};

} // namespace

platform::Result<ParsedLibrary> readLibrary(QByteArrayView bytes)
{
    if (const auto invalid = firstInvalidLine(bytes))
        return tl::unexpected(
            lineError(bytes, *invalid, LibraryFault::tr("The file is not in UTF-8.")));
    return Reading(withoutByteOrderMark(bytes)).run();
}
