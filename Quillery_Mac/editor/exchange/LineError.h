// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "platform/Result.h"

#include <QByteArrayView>

#include <algorithm>
#include <optional>

/// Why a file is no library, as a sentence that begins with the line, counted from 1, in which byte
/// `position` of the file stands.
inline platform::Error lineError(QByteArrayView bytes, qsizetype position, const QString &reason)
{
    const auto before = bytes.first(std::clamp<qsizetype>(position, 0, bytes.size()));
    return {platform::Error::Kind::Refused,
            LibraryFault::tr("Line %1: %2", "where in the file; what is wrong there")
                .arg(1 + std::count(before.begin(), before.end(), '\n'))
                .arg(reason)};
}

/// Where the first line begins that is no UTF-8; absent if there is none.
std::optional<qsizetype> firstInvalidLine(QByteArrayView bytes);

/// `bytes` without the mark that some programs begin a UTF-8 file with.
inline QByteArrayView withoutByteOrderMark(QByteArrayView bytes)
{
    constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    return bytes.startsWith(kMark) ? bytes.sliced(kMark.size()) : bytes;
}
