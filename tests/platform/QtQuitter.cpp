// SPDX-License-Identifier: MIT
// A program with a pasteboard that copies and selects through the toolkit, as a text field does,
// and quits when its standard input ends.
#include "platform/pasteboard/PasteboardFactory.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSocketNotifier>

#include <unistd.h>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const std::unique_ptr<platform::Pasteboard> pasteboard = platform::makePasteboard();
    QGuiApplication::clipboard()->setText(QStringLiteral("copied in a field"));
    QGuiApplication::clipboard()->setText(QStringLiteral("selected in a field"),
                                          QClipboard::Selection);
    QObject::connect(&application, &QCoreApplication::aboutToQuit,
                     [&pasteboard] { pasteboard->handOver(); });
    QSocketNotifier endOfInput(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&endOfInput, &QSocketNotifier::activated, &application,
                     &QCoreApplication::quit);
    return QGuiApplication::exec();
}
