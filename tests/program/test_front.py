# SPDX-License-Identifier: MIT
"""A window that the user asks for comes to the front and has the keyboard, whatever is in use."""

import pytest

from conftest import WINDOW_MANAGERS
from menus import open_by_second_start, open_by_tray_click
from support.desktop import START_BOUND
from support.targets import GtkTarget
from support.waiting import wait_until

TITLE = "Quillery Settings"


def by_bus(user):
    user.activate_action("settings")


def by_second_start(user):
    open_by_second_start(user)
    user.click_on("Settings...", "list item")


def by_tray(user):
    open_by_tray_click(user)
    user.click_on("Settings...", "list item")


WAYS = [(manager, way) for manager in WINDOW_MANAGERS for way in (by_bus, by_second_start, by_tray)]


def is_in_front(user, target):
    server = user.desktop.server
    shown = [window.id for window in user.windows() if window.title == TITLE]
    if not shown or not server.has_focus(shown[0]):
        return False
    if user.desktop.window_manager == "i3":
        return True  # puts them side by side
    order = [window.id for window in server.windows()]
    return order.index(shown[0]) > order.index(target.window_id)


@pytest.mark.parametrize("window_manager, open_settings", WAYS)
def test_the_settings_come_before_a_program_in_use(desktops, new_user, window_manager, open_settings):
    desktop = desktops.get(window_manager=window_manager, accessibility=True, tray="tint2")
    with new_user(desktop) as user, GtkTarget(desktop) as target:
        desktop.type_text("z")
        target.wait_for_text(b"z")

        open_settings(user)

        wait_until(lambda: is_in_front(user, target), START_BOUND, lambda: f"{TITLE}: {user.windows()}")
        desktop.type_text("y")
        assert target.text() == b"z"
