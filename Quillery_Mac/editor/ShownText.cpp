// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ShownText.h"

namespace shownText {

namespace {

constexpr Character kInvalid{QChar::ReplacementCharacter, 1};

// What the toolkit's documents take for the end of a block, beside CR and LF.
bool isSeparator(char32_t code)
{
    return code == QChar::ParagraphSeparator || code == 0xfdd0 || code == 0xfdd1;
}

// How many bytes a character has by its first one; 0 if none starts so.
int lengthBy(uchar lead)
{
    if (lead >= 0xc2 && lead <= 0xdf)
        return 2;
    if (lead >= 0xe0 && lead <= 0xef)
        return 3;
    return lead >= 0xf0 && lead <= 0xf4 ? 4 : 0;
}

bool isOverlongOrOutside(char32_t code, int length)
{
    return (length == 3 && code < 0x800) || (length == 4 && code < 0x10000) || code > 0x10ffff ||
           (code >= 0xd800 && code <= 0xdfff);
}

Character firstLong(QByteArrayView utf8)
{
    const auto lead = static_cast<uchar>(utf8.front());
    const int length = lengthBy(lead);
    if (length == 0 || utf8.size() < length)
        return kInvalid;
    char32_t code = lead & (0x7fU >> length);
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<uchar>(utf8[i]);
        if ((next & 0xc0U) != 0x80)
            return kInvalid;
        code = (code << 6U) | (next & 0x3fU);
    }
    if (isOverlongOrOutside(code, length))
        return kInvalid;
    return {isSeparator(code) ? U'\n' : code, length};
}

} // namespace

Character first(QByteArrayView utf8)
{
    const auto byte = static_cast<uchar>(utf8.front());
    if (byte >= 0x80)
        return firstLong(utf8);
    if (byte != '\r')
        return {byte, 1};
    return {U'\n', utf8.size() > 1 && utf8[1] == '\n' ? 2 : 1};
}

int units(QByteArrayView utf8)
{
    qsizetype result = 0;
    while (!utf8.empty()) {
        const Character character = first(utf8);
        result += character.units();
        utf8 = utf8.sliced(character.bytes);
    }
    return static_cast<int>(result);
}

void append(QString &shown, char32_t code)
{
    if (code <= 0xffff) {
        shown.append(QChar(static_cast<char16_t>(code)));
        return;
    }
    shown.append(QChar(QChar::highSurrogate(code)));
    shown.append(QChar(QChar::lowSurrogate(code)));
}

QByteArray toUtf8(QStringView shown)
{
    QString text = shown.toString();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (unit == QChar::ParagraphSeparator)
            text[i] = u'\n';
        else if (unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (unit.isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
    return text.toUtf8();
}

} // namespace shownText
