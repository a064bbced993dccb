// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/JsonText.h"

#include <QString>

namespace {

// A text is taken apart in code units of UTF-16 because that is how JSON writes an escape.
QByteArray escape(char16_t unit)
{
    switch (unit) {
    case u'"':
        return "\\\"";
    case u'\\':
        return "\\\\";
    case u'\n':
        return "\\n";
    case u'\r':
        return "\\r";
    case u'\t':
        return "\\t";
    default:
        return "\\u" + QByteArray::number(unit, 16).rightJustified(4, '0');
    }
}

bool isControl(char16_t unit)
{
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

bool isEscaped(char16_t unit)
{
    constexpr char16_t kLineSeparator = 0x2028;
    constexpr char16_t kParagraphSeparator = 0x2029;
    constexpr char16_t kByteOrderMark = 0xFEFF;
    return isControl(unit) || unit == u'"' || unit == u'\\' || unit == kLineSeparator ||
           unit == kParagraphSeparator || unit == kByteOrderMark;
}

bool isPair(QStringView text, qsizetype at)
{
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
}

} // namespace

QByteArray jsonText(QStringView text)
{
    QByteArray result("\"");
    qsizetype plain = 0; // where the part begins that is not written yet
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (isPair(text, at)) {
            ++at;
            continue;
        }
        if (!text[at].isSurrogate() && !isEscaped(text[at].unicode()))
            continue;
        result += text.sliced(plain, at - plain).toUtf8() + escape(text[at].unicode());
        plain = at + 1;
    }
    return result + text.sliced(plain).toUtf8() + '"';
}

QByteArray jsonText(QByteArrayView utf8)
{
    // A conversion would take a mark at the beginning for one of a file; so that is kept apart.
    constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    if (!utf8.startsWith(kMark))
        return jsonText(QString::fromUtf8(utf8));
    return "\"\\ufeff" + jsonText(utf8.sliced(kMark.size())).sliced(1);
}
