// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/JsonReader.h"

#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/editor/exchange/LineError.h"

#include <QStringDecoder>

namespace {

struct Escape
{
    char letter;
    char16_t unit;
};

constexpr Escape kEscapes[] = {{'"', u'"'},  {'\\', u'\\'}, {'/', u'/'},  {'b', u'\b'},
                               {'f', u'\f'}, {'n', u'\n'},  {'r', u'\r'}, {'t', u'\t'}};

// Of a number that is far too long only the beginning is looked at.
constexpr qsizetype kMaxDigits = 18;

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isPlain(char character)
{
    return character != '"' && character != '\\' && static_cast<quint8>(character) >= 0x20;
}

} // namespace

JsonReader::JsonReader(QByteArrayView bytes)
    : m_bytes(bytes)
{
}

qsizetype JsonReader::position()
{
    skipSpace();
    return m_at;
}

void JsonReader::enter(char bracket, const char *expected)
{
    const qsizetype start = position();
    if (!take({&bracket, 1}))
        fail(start, expected);
    m_isFirst = true;
}

bool JsonReader::hasMore(char bracket)
{
    const qsizetype start = position();
    const bool isFirst = std::exchange(m_isFirst, false);
    if (m_error || take({&bracket, 1}))
        return false;
    if (!isFirst && !take(",")) {
        fail(start, LibraryFault::tr("A comma or “%1” must stand here.").arg(QLatin1Char(bracket)));
    }
    return !m_error;
}

bool JsonReader::isText()
{
    skipSpace();
    return next() == '"';
}

QString JsonReader::key()
{
    QString name =
        text(QT_TRANSLATE_NOOP("LibraryFault", "A name in quotation marks must stand here."));
    const qsizetype start = position();
    if (!take(":"))
        fail(start, LibraryFault::tr("A colon must stand here."));
    return name;
}

QString JsonReader::text(const char *expected)
{
    const qsizetype start = position();
    if (!take("\"")) {
        fail(start, expected);
        return {};
    }
    return quoted();
}

bool JsonReader::truth(const char *expected)
{
    const qsizetype start = position();
    if (take("true"))
        return true;
    if (!take("false"))
        fail(start, expected);
    return false;
}

qint64 JsonReader::number(const char *expected)
{
    const qsizetype start = position();
    take("-");
    const qsizetype digits = m_at;
    while (isDigit(next()))
        ++m_at;
    const bool hasNeedlessZero = m_bytes.sliced(digits).startsWith('0') && m_at - digits > 1;
    const bool isWhole = next() != '.' && next() != 'e' && next() != 'E';
    if (m_at == digits || m_at - digits > kMaxDigits || hasNeedlessZero || !isWhole) {
        fail(start, expected);
        return 0;
    }
    return m_bytes.sliced(start, m_at - start).toByteArray().toLongLong();
}

void JsonReader::end()
{
    if (position() != m_bytes.size())
        fail(m_at, LibraryFault::tr("Nothing may follow the end of the library."));
}

void JsonReader::fail(qsizetype position, const QString &reason)
{
    if (!m_error)
        m_error = lineError(m_bytes, position, reason);
    // What is left is of no interest any more.
    m_at = m_bytes.size();
}

void JsonReader::fail(qsizetype position, const char *expected)
{
    fail(position, LibraryFault::tr(expected));
}

void JsonReader::skipSpace()
{
    while (next() == ' ' || next() == '\n' || next() == '\r' || next() == '\t')
        ++m_at;
}

bool JsonReader::take(QByteArrayView word)
{
    if (!m_bytes.sliced(m_at).startsWith(word))
        return false;
    m_at += word.size();
    return true;
}

QString JsonReader::quoted()
{
    const qsizetype start = m_at;
    QString text;
    while (!m_error && !take("\"")) {
        if (m_at == m_bytes.size())
            fail(start, LibraryFault::tr("The text that begins here has no end."));
        else if (take("\\"))
            appendEscape(text);
        else if (isPlain(next()))
            appendPlain(text);
        else
            fail(m_at, LibraryFault::tr("A line end or control character inside a text must be "
                                        "written as an escape, such as \\n."));
    }
    return m_error ? QString() : text;
}

void JsonReader::appendPlain(QString &text)
{
    const qsizetype start = m_at;
    while (m_at < m_bytes.size() && isPlain(m_bytes[m_at]))
        ++m_at;
    // Not QString::fromUtf8(), which takes U+FEFF at the beginning for the mark of a file.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom |
                                                       QStringConverter::Flag::Stateless);
    text += decoder(m_bytes.sliced(start, m_at - start));
}

void JsonReader::appendEscape(QString &text)
{
    const qsizetype start = m_at - 1;
    if (take("u")) {
        text += QChar(codeUnit());
        return;
    }
    const auto *const escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                            [this](const Escape &e) { return e.letter == next(); });
    if (escape == std::end(kEscapes)) {
        fail(start, LibraryFault::tr("There is no such escape."));
        return;
    }
    text += QChar(escape->unit);
    ++m_at;
}

char16_t JsonReader::codeUnit()
{
    constexpr qsizetype kDigits = 4;
    const QByteArrayView digits = m_bytes.sliced(m_at, std::min(kDigits, m_bytes.size() - m_at));
    const bool isHex = std::all_of(digits.begin(), digits.end(), [](char digit) {
        return isDigit(digit) || (digit >= 'a' && digit <= 'f') || (digit >= 'A' && digit <= 'F');
    });
    if (!isHex || digits.size() < kDigits) {
        fail(m_at, LibraryFault::tr("Four hexadecimal digits must follow \\u."));
        return 0;
    }
    m_at += kDigits;
    return static_cast<char16_t>(digits.toByteArray().toUShort(nullptr, 16));
}
