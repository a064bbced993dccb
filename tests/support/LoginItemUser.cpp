// SPDX-License-Identifier: MIT
// A process of its own that uses launch at login. Usage: login_item_user [on|off PROGRAM]
// Switches the login item of PROGRAM if told to, then prints "on" or "off", and whether it was
// started at login itself.
#include "login_item/LaunchAtLogin.h"
#include "platform/login/LoginItemFactory.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString program = arguments.value(1, QCoreApplication::applicationFilePath());
    const auto item = platform::makeLoginItem(program);
    LaunchAtLogin::setUp(*item);
    if (!arguments.isEmpty())
        LaunchAtLogin::setEnabled(arguments.constFirst() == QLatin1String("on"));
    std::printf("%s %s\n", LaunchAtLogin::isEnabled() ? "on" : "off",
                LaunchAtLogin::wasLaunchedAtLogin() ? "launched at login" : "launched otherwise");
    LaunchAtLogin::tearDown();
    return 0;
}
