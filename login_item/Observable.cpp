// SPDX-License-Identifier: MIT
#include "login_item/Observable.h"

#include "login_item/LaunchAtLogin.h"

namespace LaunchAtLogin {

bool Observable::isEnabled() const
{
    return LaunchAtLogin::isEnabled();
}

void Observable::setEnabled(bool isEnabled)
{
    emit objectWillChange();
    LaunchAtLogin::setEnabled(isEnabled);
}

} // namespace LaunchAtLogin
