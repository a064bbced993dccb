// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/HistoryLimit.h"

#include "platform/log/Fatal.h"

#include <cmath>

int historyLimit(double historySize)
{
    const double index = std::trunc(historySize);
    // Written so that NaN, for which every comparison is false, is refused too.
    const bool isInRange = index >= 0 && index < static_cast<double>(kHistoryLimits.size());
    if (!isInRange) {
        platform::fatalError(QStringLiteral("historySize %1 is out of range: the index must be "
                                            "0 to %2 (key \"historySize\")")
                                 .arg(historySize)
                                 .arg(kHistoryLimits.size() - 1));
    }
    return kHistoryLimits.at(static_cast<std::size_t>(index));
}
