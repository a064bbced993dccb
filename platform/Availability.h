// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

/// Whether a service of the desktop can be used here, and if not, why not.
struct Availability
{
    bool isAvailable = false;
    QString reason; ///< one plain sentence for the log; empty while available
};

} // namespace platform
