// SPDX-License-Identifier: MIT
#include "platform/tray/TrayItemFactory.h"
#include "tests/platform/MenuWindowsFixture.h"

#include <QSignalSpy>

namespace {

/// A bar of the XEmbed kind comes and goes beside the item.
class TrayItem : public MenuWindowsFixture
{
protected:
    TrayItem()
    {
        QPixmap picture(24, 24);
        picture.fill(Qt::red);
        // One test's click and the next one's are no double click.
        QApplication::setDoubleClickInterval(0);
        item->show(picture, QStringLiteral("Quillery"));
    }

    std::unique_ptr<ChildProcess> startBar()
    {
        auto bar = std::make_unique<ChildProcess>(QList<QByteArray>{
            "trayer", "--edge", "top", "--align", "right", "--widthtype", "pixel", "--width", "200",
            "--height", "30", "--SetDockType", "true", "--monitor", "0"});
        EXPECT_TRUE(waitFor([this] { return item->hasHost(); }));
        return bar;
    }

    std::vector<xcb_window_t> childrenOf(xcb_window_t window)
    {
        const auto tree =
            connection->reply(xcb_query_tree_reply, xcb_query_tree(connection->xcb(), window));
        if (!tree)
            return {};
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        return {children, children + tree->children_len};
    }

    /// A window of ours that stands inside one of another program.
    xcb_window_t iconBelow(xcb_window_t window)
    {
        for (const xcb_window_t child : childrenOf(window)) {
            if (window != connection->root() && connection->isOurs(child) &&
                !connection->isOurs(window))
                return child;
            if (const xcb_window_t icon = iconBelow(child))
                return icon;
        }
        return XCB_NONE;
    }

    /// A pixel of the display in the icon, once the bar has taken it in.
    QPoint placeOfIcon()
    {
        QPoint place;
        waitFor([&] {
            const xcb_window_t icon = iconBelow(connection->root());
            const auto origin = connection->reply(
                xcb_translate_coordinates_reply,
                xcb_translate_coordinates(connection->xcb(), icon, connection->root(), 8, 8));
            const auto state =
                connection->reply(xcb_get_window_attributes_reply,
                                  xcb_get_window_attributes(connection->xcb(), icon));
            if (!origin || !state || state->map_state != XCB_MAP_STATE_VIEWABLE)
                return false;
            place = QPoint(origin->dst_x, origin->dst_y);
            return true;
        });
        return place;
    }

    /// Clicks where the icon is until that activates the item: a bar moves about while it settles,
    /// and then the click went to where the icon was.
    /// @return where the click was that did it
    QPoint clickIcon()
    {
        QPoint place;
        bool hasMoved = true;
        while (activated.isEmpty() && hasMoved) {
            place = placeOfIcon();
            user.clickAt(place);
            waitFor([&] { return !activated.isEmpty() || placeOfIcon() != place; });
            hasMoved = placeOfIcon() != place;
        }
        return place;
    }

    std::unique_ptr<platform::TrayItem> item = platform::makeTrayItem();
    QSignalSpy activated{item.get(), &platform::TrayItem::activated};
};
INSTANTIATE_TEST_SUITE_P(On, TrayItem,
                         ::testing::Values(WindowManager::Kind::Openbox, WindowManager::Kind::I3),
                         ::testing::PrintToStringParamName());

TEST_P(TrayItem, aClickTellsWhereTheIconIs)
{
    const auto bar = startBar();

    const QPoint place = clickIcon();

    ASSERT_EQ(activated.count(), 1);
    const QRect icon = activated.first().constFirst().toRect();
    EXPECT_TRUE(icon.contains((QPointF(place) / qGuiApp->devicePixelRatio()).toPoint()))
        << icon.x() << ' ' << icon.y() << ' ' << icon.width() << ' ' << icon.height();
}

TEST_P(TrayItem, otherButtonsDoNotActivate)
{
    const auto bar = startBar();
    const QPoint place = clickIcon();
    activated.clear();

    user.clickAt(place, 3);
    user.clickAt(place, 2);
    user.clickAt(place, 1);

    ASSERT_TRUE(waitFor([this] { return activated.count() > 0; }));
    EXPECT_EQ(activated.count(), 1);
}

TEST_P(TrayItem, theBarMayComeAndGo)
{
    EXPECT_FALSE(item->hasHost());
    auto bar = startBar();
    ASSERT_NE(placeOfIcon(), QPoint());
    bar.reset();
    ASSERT_TRUE(waitFor([this] { return !item->hasHost(); }));

    bar = startBar();
    clickIcon();

    EXPECT_EQ(activated.count(), 1);
}

} // namespace
