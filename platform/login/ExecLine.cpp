// SPDX-License-Identifier: MIT
#include "platform/login/ExecLine.h"

namespace platform {

namespace {

/// An argument with one of these is put into double quotes.
constexpr QStringView kReserved = u" \t\n\"'\\><~|&;$*?#()`";
/// Within double quotes these are written behind a backslash.
constexpr QStringView kEscaped = u"\"`$\\";

QString quoted(const QString &argument)
{
    QString text;
    bool isPlain = true;
    for (const QChar letter : argument) {
        isPlain = isPlain && !kReserved.contains(letter);
        if (kEscaped.contains(letter))
            text += u'\\';
        text += letter;
    }
    return isPlain ? argument : QString(u'"' + text + u'"');
}

/// Takes the arguments of a line apart as a shell does, without expanding anything.
class ArgumentReader
{
public:
    void take(QChar letter)
    {
        if (m_isEscape)
            append(letter);
        else if (letter == u'\\' && m_quote != u'\'')
            m_isEscape = true;
        else if (!m_quote.isNull())
            takeQuoted(letter);
        else
            takePlain(letter);
    }

    bool isComplete() const { return m_hasArgument && m_quote.isNull() && !m_isEscape; }
    const QString &firstArgument() const { return m_first; }

private:
    void takeQuoted(QChar letter)
    {
        if (letter == m_quote)
            m_quote = QChar();
        else
            append(letter);
    }

    void takePlain(QChar letter)
    {
        if (letter == u'"' || letter == u'\'') {
            m_quote = letter;
            m_hasArgument = true;
        } else if (letter.isSpace()) {
            m_isFirst = m_isFirst && !m_hasArgument;
        } else {
            append(letter);
        }
    }

    void append(QChar letter)
    {
        m_isEscape = false;
        m_hasArgument = true;
        if (m_isFirst)
            m_first += letter;
    }

    QString m_first;
    QChar m_quote; ///< the quotation mark that is open
    bool m_isEscape = false;
    bool m_hasArgument = false;
    bool m_isFirst = true;
};

} // namespace

std::optional<QString> execLine(const QString &program)
{
    if (!program.contains(u'%'))
        return quoted(program);
    if (program.contains(u'='))
        return std::nullopt;
    QString argument = quoted(program);
    argument.replace(u'%', QLatin1String("%%"));
    return QString(u"env " + argument);
}

std::optional<QString> programOfExecLine(const QString &line)
{
    ArgumentReader reader;
    for (const QChar letter : line)
        reader.take(letter);
    if (!reader.isComplete())
        return std::nullopt;
    return reader.firstArgument();
}

} // namespace platform
