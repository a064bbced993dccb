// SPDX-License-Identifier: MIT
// A bare resident Qt program: an icon in the tray and one hot key. What every such program costs in
// start time, memory and wake-ups.
#include "bench/QtFloorHotkey.h"

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>

namespace {

constexpr int kIconSize = 24;

QIcon plainIcon()
{
    QPixmap picture(kIconSize, kIconSize);
    picture.fill(Qt::darkGray);
    return picture;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QSystemTrayIcon tray(plainIcon());
    tray.show();
    const floors::QtHotkey hotkey([] {});
    return QApplication::exec();
}
