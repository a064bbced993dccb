// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// What a library file says of itself. A change that older programs would misread takes another
/// version; docs/library-file.md describes each.
inline constexpr QStringView kLibraryFormat = u"Quillery library";
inline constexpr int kLibraryVersion = 1;

/// Dates up to this year, from year 1 on, are written as ISO 8601; all others, which that cannot
/// say in four digits, as milliseconds since 1970 UTC.
inline constexpr int kLastWrittenYear = 9999;
