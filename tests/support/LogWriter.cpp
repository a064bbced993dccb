// SPDX-License-Identifier: MIT
// A process of its own that writes into the log: an error of launch at login, a warning of a
// category of the program, and a text of two lines that has no category.
#include "platform/log/Log.h"

int main()
{
    platform::installLog();
    qCCritical(logLaunchAtLogin, "Failed to enable launch at login: %s", "Rätsel");
    qCWarning(logHotkeys, "Another program holds 100%% of it");
    qInfo("one\ntwo");
    return 0;
}
