// SPDX-License-Identifier: MIT
#include "platform/pasteboard/CompoundText.h"

#include <QString>

#include <unicode/ucnv.h>

#include <memory>

namespace platform {

namespace {

// ICU reads every segment of compound text but the ones that carry UTF-8.
constexpr QByteArrayView kUtf8Start = "\x1B%G";
constexpr QByteArrayView kUtf8End = "\x1B%@";

struct CloseConverter
{
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};

QString fromLegacySegments(QByteArrayView bytes)
{
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, CloseConverter> converter(
        ucnv_open("x11-compound-text", &error));
    if (U_FAILURE(error))
        return QString::fromLatin1(bytes);
    // No byte becomes more than one UTF-16 unit, but a replaced one may.
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    const int32_t length =
        ucnv_toUChars(converter.get(), reinterpret_cast<UChar *>(text.data()), int32_t(text.size()),
                      bytes.data(), int32_t(bytes.size()), &error);
    text.truncate(U_FAILURE(error) ? 0 : length);
    return text;
}

} // namespace

QByteArray utf8FromCompoundText(QByteArrayView compound)
{
    const QByteArray bytes = compound.toByteArray();
    QByteArray utf8;
    qsizetype position = 0;
    while (position < bytes.size()) {
        qsizetype start = bytes.indexOf(kUtf8Start, position);
        if (start < 0)
            start = bytes.size();
        utf8 +=
            fromLegacySegments(QByteArrayView(bytes).sliced(position, start - position)).toUtf8();
        if (start == bytes.size())
            break;
        start += kUtf8Start.size();
        qsizetype end = bytes.indexOf(kUtf8End, start);
        if (end < 0)
            end = bytes.size();
        utf8 += QString::fromUtf8(QByteArrayView(bytes).sliced(start, end - start)).toUtf8();
        position = end + kUtf8End.size();
    }
    return utf8;
}

} // namespace platform
