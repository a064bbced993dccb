# SPDX-License-Identifier: MIT
"""The first page of the setup tells what the desktop lacks."""

from support.hotkey_program import HotkeyProgram
from support.quillery import SUMMON
from support.setup_window import WELCOME, SetupWindow

GREETING = [WELCOME, "Let's quickly set up some key features."]
NO_TRAY = "This desktop shows no tray icons: open the menu by its shortcut."
HELD = "Another program holds ⇧⌘V: choose another shortcut on the next pages."


def first_page(user):
    """What is written on it when the setup has come up."""
    user.start(ready=False)
    return SetupWindow(user).wait_in_front().texts()


def test_where_nothing_is_missing_there_are_only_the_greetings(tray_desktop, new_user):
    assert first_page(new_user(tray_desktop, first_load=True)) == GREETING


def test_a_desktop_without_a_tray_is_told(each_desktop, new_user):
    assert first_page(new_user(each_desktop, first_load=True)) == [*GREETING, NO_TRAY]


def test_a_shortcut_that_another_program_holds_is_told(tray_desktop, new_user):
    with HotkeyProgram(tray_desktop, SUMMON):
        assert first_page(new_user(tray_desktop, first_load=True)) == [*GREETING, HELD]


def test_a_shortcut_that_another_program_holds_is_worse_than_no_tray(desktop, new_user):
    with HotkeyProgram(desktop, SUMMON):
        assert first_page(new_user(desktop, first_load=True)) == [*GREETING, HELD]


def test_a_shortcut_that_is_free_again_is_told_no_more(tray_desktop, new_user):
    user = new_user(tray_desktop, first_load=True)
    with HotkeyProgram(tray_desktop, SUMMON):
        assert HELD in first_page(user)
        assert user.quit() == 0

    assert first_page(user) == GREETING
