// SPDX-License-Identifier: MIT
// A program of which one instance runs. Writes "first" or "second", then what it is asked for, a
// line each; the first instance ends when its standard input does.
#include "platform/instance/SingleInstance.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

namespace {

void tell(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    platform::SingleInstance instance;
    if (!instance.acquire()) {
        tell("second");
        return 0;
    }
    QObject::connect(&instance, &platform::SingleInstance::userActed, &instance,
                     [](quint32 serverTime) {
                         if (serverTime != 0)
                             tell("at " + QByteArray::number(serverTime));
                     });
    QObject::connect(&instance, &platform::SingleInstance::activated, &instance,
                     [] { tell("activated"); });
    QObject::connect(&instance, &platform::SingleInstance::actionActivated, &instance,
                     [](const QString &name) { tell(name.toUtf8()); });
    const QSocketNotifier endOfInput(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&endOfInput, &QSocketNotifier::activated, &application,
                     &QCoreApplication::quit);
    tell("first");
    return QCoreApplication::exec();
}
