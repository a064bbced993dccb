// SPDX-License-Identifier: MIT
#include "platform/defaults/SettingsValue.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr int kHex = 16;
constexpr int kOctal = 8;

struct Escape
{
    char letter;
    char16_t character;
};

constexpr auto kEscapes = std::to_array<Escape>({
    {'a', u'\a'},
    {'b', u'\b'},
    {'f', u'\f'},
    {'n', u'\n'},
    {'r', u'\r'},
    {'t', u'\t'},
    {'v', u'\v'},
});

/// What the notation itself writes never begins like this: it escapes the quote.
bool isPlainJson(const QByteArray &value)
{
    if (!value.startsWith('{') || !value.endsWith('}'))
        return false;
    return value.sliced(1).trimmed().startsWith('"');
}

/// Reads one value from its beginning to its end. Runs of bytes without a special one among them
/// are read as UTF-8 in one piece.
class Reader
{
public:
    explicit Reader(const QByteArray &value)
        : m_value(value)
    {
    }

    std::optional<QString> read()
    {
        bool isQuoted = false;
        while (m_next < m_value.size()) {
            const char c = m_value.at(m_next);
            if (c == '\\') {
                readEscape();
            } else if (c == '"') {
                endRun();
                isQuoted = !isQuoted;
                m_run = ++m_next;
            } else if (c == ',' && !isQuoted) {
                return std::nullopt;
            } else if (c == ';' && !isQuoted) {
                dropBlanks();
                return m_text;
            } else {
                ++m_next;
            }
        }
        endRun();
        return m_text;
    }

private:
    void endRun() { m_text += QString::fromUtf8(m_value.sliced(m_run, m_next - m_run)); }

    // Those before a comment are no part of the value.
    void dropBlanks()
    {
        while (m_next > m_run && (m_value.at(m_next - 1) == ' ' || m_value.at(m_next - 1) == '\t'))
            --m_next;
        endRun();
    }

    // A character that needs no escape begins the next run.
    void readEscape()
    {
        endRun();
        m_run = ++m_next;
        if (m_next == m_value.size())
            return;
        const char letter = m_value.at(m_next);
        const auto escape = std::ranges::find(kEscapes, letter, &Escape::letter);
        if (escape != kEscapes.end()) {
            m_text += QChar(escape->character);
            m_run = ++m_next;
        } else if (letter == 'x') {
            ++m_next;
            readNumber(kHex);
        } else if (letter >= '0' && letter <= '7') {
            readNumber(kOctal);
        } else {
            ++m_next;
        }
    }

    // Numbers have no fixed length; what is beyond 16 bits is cut off.
    void readNumber(int base)
    {
        quint32 number = 0;
        for (; m_next < m_value.size(); ++m_next) {
            bool isDigit = false;
            const quint32 digit = m_value.sliced(m_next, 1).toUInt(&isDigit, base);
            if (!isDigit)
                break;
            number = number * static_cast<quint32>(base) + digit;
        }
        m_text += QChar(static_cast<char16_t>(number));
        m_run = m_next;
    }

    const QByteArray &m_value;
    qsizetype m_run = 0; ///< where the run being read began
    qsizetype m_next = 0;
    QString m_text;
};

/// A text that begins with "@" stands there with two of them; a text with a NUL is a type of its
/// own.
std::optional<QString> withoutType(const QString &text)
{
    constexpr QLatin1String kString("@String(");
    if (text.startsWith(u"@@"))
        return text.sliced(1);
    if (!text.startsWith(u'@') || !text.endsWith(u')'))
        return text;
    if (!text.startsWith(kString))
        return std::nullopt;
    return text.sliced(kString.size(), text.size() - kString.size() - 1);
}

bool isPlain(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           c == u'_' || c == u'-' || c == u'+' || c == u'.';
}

bool isHexDigit(QChar c)
{
    return (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F') || (c >= u'0' && c <= u'9');
}

/// Surrogates are written as numbers, so that also one without its other half is kept.
bool needsNumber(QChar c)
{
    return c < u' ' || c == u'\x7f' || c.isSurrogate();
}

} // namespace

std::optional<QString> textOfSettingsValue(const QByteArray &value)
{
    if (isPlainJson(value))
        return QString::fromUtf8(value);
    const std::optional<QString> text = Reader(value).read();
    return text ? withoutType(*text) : std::nullopt;
}

QByteArray settingsValueOf(const QString &text)
{
    const QString typed = text.startsWith(u'@') ? u'@' + text : text;
    if (std::ranges::all_of(typed, isPlain))
        return typed.toUtf8();
    QString value;
    bool isAfterNumber = false;
    for (const QChar c : typed) {
        const bool isNumber = needsNumber(c) || (isAfterNumber && isHexDigit(c));
        if (isNumber)
            value += QStringLiteral("\\x") + QString::number(c.unicode(), kHex);
        else if (c == u'"' || c == u'\\')
            value += QStringLiteral("\\") + c;
        else
            value += c;
        isAfterNumber = isNumber;
    }
    return '"' + value.toUtf8() + '"';
}

} // namespace platform
