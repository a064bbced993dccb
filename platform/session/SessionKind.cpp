// SPDX-License-Identifier: MIT
#include "platform/session/SessionKind.h"

#include <QByteArray>

namespace platform {

bool isWaylandSession()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           qgetenv("XDG_SESSION_TYPE") == "wayland";
}

} // namespace platform
