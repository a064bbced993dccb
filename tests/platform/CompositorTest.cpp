// SPDX-License-Identifier: MIT
#include "platform/windows/MenuWindowsFactory.h"
#include "platform/x11/X11Connection.h"

#include <QRegion>
#include <QWidget>

#include <gtest/gtest.h>

using platform::X11Connection;

namespace {

/// Says that it is a compositor, and as KWin does, that it blurs.
class Announcer
{
public:
    Announcer()
    {
        xcb_create_window(m_server->xcb(), XCB_COPY_FROM_PARENT, m_window, m_server->root(), 0, 0,
                          1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    }
    ~Announcer()
    {
        end();
        endBlur();
    }
    Q_DISABLE_COPY_MOVE(Announcer)

    void begin()
    {
        const xcb_atom_t selection = m_server->atom("_NET_WM_CM_S0");
        m_server->check(xcb_set_selection_owner_checked(m_server->xcb(), m_window, selection,
                                                        XCB_CURRENT_TIME));
    }

    void end() { m_server->check(xcb_destroy_window_checked(m_server->xcb(), m_window)); }

    void beginBlur()
    {
        m_server->check(xcb_change_property_checked(m_server->xcb(), XCB_PROP_MODE_REPLACE,
                                                    m_server->root(), m_blur, m_blur, 8, 0,
                                                    nullptr));
    }

    void endBlur()
    {
        m_server->check(xcb_delete_property_checked(m_server->xcb(), m_server->root(), m_blur));
    }

    /// What a window asks to have blurred, in its pixels.
    QRegion blurredIn(const QWidget &widget)
    {
        QRegion region;
        const auto numbers =
            m_server->numbers(static_cast<xcb_window_t>(widget.internalWinId()), m_blur);
        for (std::size_t at = 0; at + 3 < numbers.size(); at += 4) {
            region += QRect(int(numbers[at]), int(numbers[at + 1]), int(numbers[at + 2]),
                            int(numbers[at + 3]));
        }
        return region;
    }

private:
    std::unique_ptr<X11Connection> m_server = X11Connection::create();
    xcb_window_t m_window = xcb_generate_id(m_server->xcb());
    xcb_atom_t m_blur = m_server->atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
};

} // namespace

TEST(Compositor, isKnownByItsSelection)
{
    const std::unique_ptr<platform::MenuWindows> windows = platform::makeMenuWindows();
    Announcer compositor;
    EXPECT_FALSE(windows->isComposited());

    compositor.begin();
    EXPECT_TRUE(windows->isComposited());

    compositor.end();
    EXPECT_FALSE(windows->isComposited());
}

TEST(Compositor, blursOnlyIfItSaysSoAndRuns)
{
    const std::unique_ptr<platform::MenuWindows> windows = platform::makeMenuWindows();
    Announcer compositor;
    compositor.beginBlur();
    EXPECT_FALSE(windows->canBlur());

    compositor.begin();
    EXPECT_TRUE(windows->canBlur());

    compositor.endBlur();
    EXPECT_FALSE(windows->canBlur());
}

TEST(Compositor, isAskedToBlurBehindTheWholeMenuButItsCorners)
{
    const std::unique_ptr<platform::MenuWindows> windows = platform::makeMenuWindows();
    Announcer compositor;
    QWidget menu;
    windows->prepare(menu);
    const qreal ratio = menu.devicePixelRatio();
    for (const QSize size : {QSize(250, 145), QSize(300, 400)}) {
        menu.resize(size);
        windows->blurBehind(menu, 10);

        const QRegion blurred = compositor.blurredIn(menu);
        const QRect whole(QPoint(), (QSizeF(size) * ratio).toSize());
        EXPECT_EQ(blurred.boundingRect(), whole);
        EXPECT_TRUE(blurred.contains(whole.center()));
        for (const QPoint corner :
             {whole.topLeft(), whole.topRight(), whole.bottomLeft(), whole.bottomRight()})
            EXPECT_FALSE(blurred.contains(corner));
    }
}
