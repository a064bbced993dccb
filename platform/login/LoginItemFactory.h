// SPDX-License-Identifier: MIT
#pragma once

#include "platform/login/LoginItem.h"

#include <memory>

namespace platform {

/// The login item of the running desktop session; never null. Needs the application object.
///
/// @param program absolute path of the program to start, see
/// QCoreApplication::applicationFilePath()
std::unique_ptr<LoginItem> makeLoginItem(const QString &program);

} // namespace platform
