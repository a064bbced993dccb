// SPDX-License-Identifier: MIT
#include "platform/login/DesktopEntry.h"

#include <QList>

namespace platform {

namespace {

constexpr auto kGroup = "[Desktop Entry]";

char unescapedLetter(char letter)
{
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

QString unescaped(const QByteArray &raw)
{
    QByteArray value;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw.at(i) == '\\' && i + 1 < raw.size())
            value += unescapedLetter(raw.at(++i));
        else
            value += raw.at(i);
    }
    return QString::fromUtf8(value);
}

bool isGroup(const QByteArray &line)
{
    return line.startsWith('[') && line.endsWith(']');
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::parse(const QByteArray &text)
{
    DesktopEntry entry;
    QByteArray group;
    bool hasEntry = false;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &whole : lines) {
        const QByteArray line = whole.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        if (isGroup(line)) {
            group = line;
            hasEntry = hasEntry || group == kGroup;
        } else if (equals <= 0) {
            return std::nullopt;
        } else if (group == kGroup) {
            entry.m_values.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
        }
        if (!hasEntry)
            return std::nullopt;
    }
    return hasEntry ? std::optional(entry) : std::nullopt;
}

QString DesktopEntry::string(const QByteArray &key) const
{
    return unescaped(m_values.value(key));
}

QStringList DesktopEntry::list(const QByteArray &key) const
{
    QStringList items;
    QByteArray item;
    const QByteArray value = m_values.value(key);
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == '\\' && i + 1 < value.size()) {
            const char escapedLetter = value.at(++i);
            item += escapedLetter == ';' ? QByteArray(";") : QByteArray("\\") + escapedLetter;
        } else if (value.at(i) == ';') {
            items += unescaped(item);
            item.clear();
        } else {
            item += value.at(i);
        }
    }
    items += unescaped(item);
    items.removeAll(QString());
    return items;
}

QByteArray DesktopEntry::escaped(const QString &value)
{
    QByteArray text = value.toUtf8();
    text.replace("\\", "\\\\");
    text.replace("\n", "\\n");
    text.replace("\t", "\\t");
    text.replace("\r", "\\r");
    if (text.startsWith(' '))
        text.replace(0, 1, "\\s");
    return text;
}

} // namespace platform
