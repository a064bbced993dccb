// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/HistorySizeText.h"

std::optional<int> historySize::entries(double position, std::span<const int> values)
{
    // Written so that NaN, for which every comparison is false, is outside too.
    const bool isInside = position >= 0 && position <= static_cast<double>(values.size()) - 1;
    if (!isInside)
        return std::nullopt;
    return values[static_cast<std::size_t>(position)];
}

QString historySize::text(double position, std::span<const int> values)
{
    const std::optional<int> count = entries(position, values);
    return count ? QString::number(*count) : QString();
}
