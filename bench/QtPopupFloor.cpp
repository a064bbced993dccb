// SPDX-License-Identifier: MIT
// A bare Qt popup: a list of 1,000 rows, filled afresh at each summons. What a menu made with the
// toolkit costs before it does anything of its own.
#include "bench/QtFloorHotkey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>

namespace {

constexpr int kRows = 1000;
constexpr QRect kPlace(300, 200, 300, 400);

class Popup : public QListWidget
{
public:
    Popup()
    {
        setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        setUniformItemSizes(true);
        setGeometry(kPlace);
        create();
    }

    void summon()
    {
        clear();
        for (int row = 0; row < kRows; ++row)
            addItem(QStringLiteral("row %1").arg(row));
        show();
        auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        xcb_set_input_focus(x11->connection(), XCB_INPUT_FOCUS_PARENT,
                            static_cast<xcb_window_t>(winId()), XCB_CURRENT_TIME);
        xcb_flush(x11->connection());
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Escape)
            hide();
    }
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Popup popup;
    const floors::QtHotkey hotkey([&popup] { popup.summon(); });
    return QApplication::exec();
}
