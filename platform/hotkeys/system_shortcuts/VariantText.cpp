// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/VariantText.h"

namespace platform {

namespace {

constexpr QStringView kEmptyList = u"@as []";

QChar escaped(QChar letter)
{
    switch (letter.unicode()) {
    case u'n':
        return u'\n';
    case u't':
        return u'\t';
    case u'r':
        return u'\r';
    default:
        return letter; // quotes and the backslash
    }
}

/// Takes a quoted string away from the front of `text`. The longer escapes (\u, \a, ...) stand for
/// characters that no shortcut and no path is made of; they are not understood.
std::optional<QString> takeString(QStringView &text)
{
    if (!text.startsWith(u'\'') && !text.startsWith(u'"'))
        return std::nullopt;
    const QChar quote = text.front();
    QString string;
    for (qsizetype i = 1; i < text.size(); ++i) {
        if (text[i] == quote) {
            text = text.sliced(i + 1);
            return string;
        }
        const bool isEscape = text[i] == u'\\' && i + 1 < text.size();
        string += isEscape ? escaped(text[++i]) : text[i];
    }
    return std::nullopt;
}

} // namespace

std::optional<QStringList> stringsOf(QStringView text)
{
    if (text == kEmptyList)
        return QStringList();
    if (!text.startsWith(u'['))
        return std::nullopt;
    QStringList strings;
    text = text.sliced(1);
    for (;;) {
        const std::optional<QString> string = takeString(text);
        if (!string)
            return std::nullopt;
        strings << *string;
        if (text == u"]")
            return strings;
        if (!text.startsWith(u", "))
            return std::nullopt;
        text = text.sliced(2);
    }
}

std::optional<QString> stringOf(QStringView text)
{
    const std::optional<QString> string = takeString(text);
    return text.isEmpty() ? string : std::nullopt;
}

} // namespace platform
