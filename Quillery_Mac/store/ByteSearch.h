// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

/// Where `needle` first stands in `haystack` at or after `from`; -1 if nowhere, `from` if it is
/// empty. Written for many long haystacks without a hit: several gigabytes a second. Any thread.
qsizetype findBytes(QByteArrayView haystack, QByteArrayView needle, qsizetype from);
