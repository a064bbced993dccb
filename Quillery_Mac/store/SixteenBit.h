// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// `value` as the number that `order` and `position` hold. A value outside -32768 to 32767 is
/// fatal; the message names the value, the range and `key`. Whoever computes a new place calls
/// this. Any thread.
qint16 toSixteenBit(qint64 value, const char *key);
