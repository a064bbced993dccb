// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/DesktopServices.h"
#include "Quillery_Mac/app/Quillery_MacApp.h"
#include "Quillery_Mac/app/Translation.h"
#include "platform/defaults/Defaults.h"
#include "platform/instance/SingleInstance.h"
#include "platform/log/Log.h"
#include "platform/pasteboard/Pasteboard.h"
#include "platform/session/TerminationSignals.h"
#include "platform/windows/Desktop.h"

#include <QApplication>

#include <array>

namespace {

void describeApplication()
{
    QApplication::setApplicationName(QStringLiteral("Quillery"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLERY_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tarnwick.Quillery"));
    // The program lives in the bar: closing its last window does not end it.
    QApplication::setQuitOnLastWindowClosed(false);
}

} // namespace

int main(int /*argc*/, char ** /*argv*/)
{
    platform::installLog();
    platform::TerminationSignals::block();
    // There are no command-line options, not even the toolkit's; and the name of the program, which
    // becomes the name of its windows, does not depend on how it was started.
    std::array<char, 9> name{"quillery"};
    std::array<char *, 2> arguments{name.data(), nullptr};
    int argumentCount = 1;
    QApplication application(argumentCount, arguments.data());
    describeApplication();

    platform::SingleInstance instance;
    if (!instance.acquire())
        return 0;

    const platform::TerminationSignals termination;
    QObject::connect(&termination, &platform::TerminationSignals::received, &application,
                     &QApplication::quit);

    installTranslation(application);
    platform::Defaults defaults(platform::Defaults::standardFile());
    DesktopServices desktop;
    connectDesktop(desktop);
    Quillery_MacApp app(desktop, defaults, PersistenceController::standardDataFolder());
    QObject::connect(&instance, &platform::SingleInstance::userActed, &app,
                     [&desktop](quint32 time) { desktop.desktop->noteUserTime(time); });
    QObject::connect(&instance, &platform::SingleInstance::activated, &app,
                     [&app] { app.openMenuBarWindow(QRect()); });
    QObject::connect(&instance, &platform::SingleInstance::actionActivated, &app,
                     &Quillery_MacApp::performAction);
    QObject::connect(&application, &QApplication::aboutToQuit, &app,
                     [&desktop] { desktop.pasteboard->handOver(); });
    app.start();
    return QApplication::exec();
}
