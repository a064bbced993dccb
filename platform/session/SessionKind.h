// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// Whether a Wayland compositor shows this session. Then an X server that there is besides serves
/// only its own windows: keys reach the program while one of those has the keyboard, and what it
/// types reaches no other. Read from WAYLAND_DISPLAY (libwayland's) and XDG_SESSION_TYPE
/// (pam_systemd's). Any thread that does not change the environment meanwhile.
bool isWaylandSession();

} // namespace platform
