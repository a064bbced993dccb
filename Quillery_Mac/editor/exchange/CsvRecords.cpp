// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/CsvRecords.h"

#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/editor/exchange/LineError.h"

namespace {

// What separates the fields of the first row, outside of quotation marks: where the comma is the
// sign of fractions, spreadsheets write semicolons.
char delimiterOf(QByteArrayView bytes)
{
    qsizetype commas = 0;
    qsizetype semicolons = 0;
    bool isQuoted = false;
    bool isBlank = true; // nothing but empty lines so far
    for (const char character : bytes) {
        if (character == '"')
            isQuoted = !isQuoted;
        if (isQuoted)
            continue;
        if (character == '\n' && !isBlank)
            break;
        isBlank = isBlank && (character == '\n' || character == '\r');
        commas += character == ',' ? 1 : 0;
        semicolons += character == ';' ? 1 : 0;
    }
    return semicolons > commas ? ';' : ',';
}

} // namespace

CsvRecords::CsvRecords(QByteArrayView bytes)
    : m_bytes(bytes)
    , m_delimiter(delimiterOf(bytes))
{
}

platform::Result<std::optional<CsvRecord>> CsvRecords::next()
{
    while (lineEnd() > 0)
        m_at += lineEnd();
    if (isAtEnd())
        return std::nullopt;
    return record();
}

qsizetype CsvRecords::lineEnd() const
{
    const QByteArrayView rest = m_bytes.sliced(m_at);
    if (rest.startsWith('\n'))
        return 1;
    return rest.startsWith("\r\n") ? 2 : 0;
}

platform::Result<CsvRecord> CsvRecords::record()
{
    CsvRecord record{m_at, {}};
    while (true) {
        auto value = field();
        if (!value)
            return tl::unexpected(value.error());
        record.fields.push_back(*std::move(value));
        if (isAtEnd())
            return record;
        if (const qsizetype length = lineEnd(); length > 0) {
            m_at += length;
            return record;
        }
        ++m_at; // the delimiter
    }
}

platform::Result<QByteArray> CsvRecords::field()
{
    return !isAtEnd() && m_bytes[m_at] == '"' ? quotedField() : plainField();
}

platform::Result<QByteArray> CsvRecords::quotedField()
{
    const qsizetype start = m_at++;
    QByteArray value;
    while (true) {
        const qsizetype quote = m_bytes.indexOf('"', m_at);
        if (quote < 0) {
            return tl::unexpected(lineError(
                m_bytes, start,
                LibraryFault::tr("The quotation mark that begins this field is never closed.")));
        }
        value += m_bytes.sliced(m_at, quote - m_at);
        m_at = quote + 1;
        if (isAtEnd() || m_bytes[m_at] != '"')
            break;
        value += '"';
        ++m_at;
    }
    if (isAtEnd() || lineEnd() > 0 || m_bytes[m_at] == m_delimiter)
        return value;
    return tl::unexpected(
        lineError(m_bytes, m_at,
                  LibraryFault::tr("Something follows the end of a field in quotation marks.")));
}

platform::Result<QByteArray> CsvRecords::plainField()
{
    const qsizetype start = m_at;
    while (!isAtEnd() && lineEnd() == 0 && m_bytes[m_at] != m_delimiter) {
        if (m_bytes[m_at] == '"') {
            return tl::unexpected(
                lineError(m_bytes, m_at,
                          LibraryFault::tr("A field with a quotation mark in it must stand in "
                                           "quotation marks, and the mark must be doubled.")));
        }
        ++m_at;
    }
    return m_bytes.sliced(start, m_at - start).toByteArray();
}
