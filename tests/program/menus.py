# SPDX-License-Identifier: MIT
"""The ways to the menu and through it, as a user goes them."""

from gi.repository import GLib

from support.desktop import START_BOUND
from support.quillery import BUS_NAME, OBJECT_PATH
from support.waiting import stays, wait_until

TRAY_ICON = 24  # pixels
DOUBLE_CLICK = 0.5  # seconds


def open_panel(user):
    """By the shortcut, at the pointer."""
    user.summon()


def open_by_second_start(user):
    """The menu-bar window, by starting the program again."""
    assert user.start_second() == 0
    wait_for_menu(user)


def open_by_bus(user):
    """The menu-bar window, as a launcher of the desktop asks for it."""
    user.desktop.call(BUS_NAME, OBJECT_PATH, "org.freedesktop.Application", "Activate",
                      GLib.Variant("(a{sv})", ({},)))
    wait_for_menu(user)


def open_by_tray_click(user):
    """The menu-bar window, by its icon. Not within the time of a double click after the last one."""
    stays(lambda: not user.menus(), DOUBLE_CLICK, "the menu is not open yet")
    user.desktop.click(*tray_icon(user).centre)
    wait_for_menu(user)


def tray_icon(user):
    """The icon's window inside the bar."""
    def icons():
        return [window for window in user.windows()
                if not window.is_top_level and window.override_redirect is not None
                and max(window.width, window.height) <= 2 * TRAY_ICON]
    return wait_until(icons, START_BOUND, lambda: f"tray icon: {user.windows()}")[0]


def wait_for_menu(user):
    wait_until(user.has_keyboard, START_BOUND, "the menu has the keyboard")


def rows_down_to(user, name):
    """How often Down is pressed from a fresh menu to reach the row."""
    rows = ["History", "Clear History", "Snippets"]
    return rows.index(name) + 1


def pick_by_keyboard(user, popover, name):
    """Opens the popover with the arrow keys and picks the row with this name."""
    desktop = user.desktop
    user.open_popover("Down", count=rows_down_to(user, popover))
    desktop.key("Right")
    user.control(name)
    wait_until(lambda: highlighted(user, popover), START_BOUND, "a row of the popover is highlighted")
    while name not in highlighted(user, popover):
        before = highlighted(user, popover)
        desktop.key("Down")
        wait_until(lambda: highlighted(user, popover) not in ([], before), START_BOUND, "next row")
    desktop.key("Return")


def highlighted(user, popover):
    """The names of the rows that are drawn highlighted, the popover's own row left out."""
    controls = user.desktop.accessibility.controls("Quillery", role="list item")
    return [one.name for one in controls if "selected" in one.states and one.name != popover]


def pick_by_mouse(user, popover, name):
    """Points at the menu's row, which opens its popover, and clicks on the row in it."""
    desktop = user.desktop
    desktop.move_pointer(*user.control(popover, "list item").centre)
    wait_until(lambda: len(user.menus()) == 2, START_BOUND, f"popover of {popover}")
    user.click_on(name, "list item")
