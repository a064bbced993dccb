// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/CsvLibrary.h"

#include "Quillery_Mac/editor/exchange/CsvRecords.h"
#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/editor/exchange/LineError.h"

#include <array>
#include <iterator>
#include <unordered_map>
#include <utility>

using platform::Error;

namespace {

enum Column : std::size_t { kTitle, kContent, kFolder };
constexpr std::array<QByteArrayView, 3> kColumnNames{"title", "content", "folder"};

// Which column each field of a row is.
using Columns = std::vector<std::size_t>;

std::optional<std::size_t> columnNamed(const QByteArray &field)
{
    const QByteArray name = field.trimmed().toLower();
    const auto *const found = std::find(kColumnNames.begin(), kColumnNames.end(), name);
    if (found == kColumnNames.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - kColumnNames.begin());
}

// The columns that the first row names, if it is nothing but different names of columns, and not
// the folder's alone.
std::optional<Columns> headerColumns(const CsvRecord &record)
{
    Columns columns;
    for (const QByteArray &field : record.fields) {
        const auto column = columnNamed(field);
        if (!column || std::find(columns.begin(), columns.end(), *column) != columns.end())
            return std::nullopt;
        columns.push_back(*column);
    }
    return columns == Columns{kFolder} ? std::nullopt : std::optional(columns);
}

/// Gathers rows into folders.
class Table
{
public:
    Table(QByteArrayView bytes, const QDateTime &created)
        : m_bytes(bytes)
        , m_records(bytes)
        , m_created(created)
    {
    }

    platform::Result<ParsedLibrary> run()
    {
        for (bool isFirst = true;; isFirst = false) {
            auto record = m_records.next();
            if (!record)
                return tl::unexpected(record.error());
            if (!*record)
                break;
            const auto error =
                isFirst ? readFirst(std::move(**record)) : readRow(std::move(**record));
            if (error)
                return tl::unexpected(*error);
        }
        if (m_columns.empty())
            return tl::unexpected(refusal(0, LibraryFault::tr("The file is empty.")));
        return library();
    }

private:
    Error refusal(qsizetype position, const QString &reason) const
    {
        return lineError(m_bytes, position, reason);
    }

    std::optional<Error> readFirst(CsvRecord &&record)
    {
        if (auto columns = headerColumns(record)) {
            m_columns = *std::move(columns);
            return std::nullopt;
        }
        if (record.fields.size() < 2 || record.fields.size() > kColumnNames.size()) {
            return refusal(record.position,
                           LibraryFault::tr("A row must have 2 or 3 fields (title, content, and "
                                            "perhaps folder), but this one has %1.")
                               .arg(record.fields.size()));
        }
        m_columns = {kTitle, kContent, kFolder};
        m_columns.resize(record.fields.size());
        return readRow(std::move(record));
    }

    std::optional<Error> readRow(CsvRecord &&record)
    {
        if (record.fields.size() != m_columns.size()) {
            return refusal(record.position,
                           LibraryFault::tr("The first row has %n fields, but this one has %1.",
                                            nullptr, static_cast<int>(m_columns.size()))
                               .arg(record.fields.size()));
        }
        ParsedItem item;
        item.timestamp = m_created;
        QByteArray folder;
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            if (m_columns[i] == kTitle)
                item.title = QString::fromUtf8(record.fields[i]);
            else if (m_columns[i] == kContent)
                item.content = std::move(record.fields[i]);
            else
                folder = record.fields[i];
        }
        groupOf(folder).push_back(std::move(item));
        if (++m_count > kMaxLibraryItems) {
            return refusal(
                record.position,
                LibraryFault::tr("A library holds at most 32,767 snippets and folders."));
        }
        return std::nullopt;
    }

    std::vector<ParsedItem> &groupOf(const QByteArray &folder)
    {
        if (folder.isEmpty())
            return m_topLevel;
        const auto [place, isNew] = m_places.try_emplace(folder.toStdString(), m_folders.size());
        if (isNew) {
            ParsedItem item;
            item.title = QString::fromUtf8(folder);
            item.timestamp = m_created;
            item.expanded = true;
            item.isFolder = true;
            m_folders.push_back({std::move(item)});
            ++m_count;
        }
        return m_folders[place->second];
    }

    ParsedLibrary library()
    {
        ParsedLibrary library{std::move(m_topLevel)};
        for (std::vector<ParsedItem> &folder : m_folders) {
            library.items.insert(library.items.end(), std::make_move_iterator(folder.begin()),
                                 std::make_move_iterator(folder.end()));
        }
        return library;
    }

    QByteArrayView m_bytes;
    CsvRecords m_records;
    const QDateTime m_created;
    Columns m_columns;
    std::vector<ParsedItem> m_topLevel;
    std::vector<std::vector<ParsedItem>> m_folders; ///< each begins with the folder itself
    std::unordered_map<std::string, std::size_t> m_places;
    qsizetype m_count = 0;
};

} // namespace

platform::Result<ParsedLibrary> readCsvLibrary(QByteArrayView bytes, const QDateTime &created)
{
    if (const auto invalid = firstInvalidLine(bytes))
        return tl::unexpected(
            lineError(bytes, *invalid, LibraryFault::tr("The file is not in UTF-8.")));
    return Table(withoutByteOrderMark(bytes), created).run();
}
