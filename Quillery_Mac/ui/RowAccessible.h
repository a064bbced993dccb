// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class Row;

/// Makes rows known to screen readers by name(), description() and state, and columns of them as
/// lists; once per process is enough, further calls do nothing.
void installRowAccessibility();

/// A row's highlight or its open state changed.
void notifyRowStateChanged(Row &row);

/// A row that was shown has another name now.
void notifyRowNameChanged(Row &row);
