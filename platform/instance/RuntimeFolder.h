// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace platform {

/// A folder for locks and sockets that only this user can reach: $XDG_RUNTIME_DIR, or else a folder
/// of the user's own in the folder for temporary files, which is made if needed.
///
/// @return its absolute path; none if there is no folder that is private to the user
std::optional<QString> privateRuntimeFolder();

} // namespace platform
