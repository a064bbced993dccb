// SPDX-License-Identifier: MIT
// A Qt program that copies its first argument and ends when its standard input does.
#include <QClipboard>
#include <QGuiApplication>
#include <QSocketNotifier>

#include <unistd.h>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::clipboard()->setText(QString::fromLocal8Bit(argv[argc - 1]));
    QSocketNotifier endOfInput(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&endOfInput, &QSocketNotifier::activated, &application,
                     &QCoreApplication::quit);
    return QGuiApplication::exec();
}
