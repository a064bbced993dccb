// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/SixteenBit.h"

#include "platform/log/Fatal.h"

#include <limits>

qint16 toSixteenBit(qint64 value, const char *key)
{
    using Limits = std::numeric_limits<qint16>;
    if (value < Limits::min() || value > Limits::max()) {
        platform::fatalError(
            QStringLiteral("%1 %2 is out of range: it must be %3 to %4 (key \"%1\")")
                .arg(QLatin1String(key))
                .arg(value)
                .arg(Limits::min())
                .arg(Limits::max()));
    }
    return static_cast<qint16>(value);
}
