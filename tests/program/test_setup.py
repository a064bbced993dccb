# SPDX-License-Identifier: MIT
"""The first-run setup, walked through by real keys."""

import time

from support.desktop import START_BOUND
from support.quillery import ADD, SUMMON
from support.settings_window import COMMAND, CONTROL
from support.setup_window import ADD_PAGE, HISTORY_PAGE, PASTE_PAGE, SUMMARY_PAGE, WELCOME, SetupWindow
from support.titled_window import TitledWindow
from support.waiting import stays, wait_until

FORM_DELAY = 0.5  # seconds from the chord to the form: the selection is copied meanwhile
QUIET = 1.0  # seconds in which a shortcut that is none any more would have opened something
KEY_B, KEY_N = 11, 45  # virtual key codes


def test_a_new_user_walks_through_the_setup_by_keyboard(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop, first_load=True) as user:
        setup = SetupWindow(user).wait_in_front()
        user.control(WELCOME)
        setup.next_page(PASTE_PAGE)
        setup.paste.tab_to()
        desktop.key("ctrl+super+b")
        setup.paste.wait_stored((KEY_B, COMMAND | CONTROL))
        setup.next_page(ADD_PAGE)
        setup.add.tab_to()
        desktop.key("ctrl+super+n")
        setup.add.wait_stored((KEY_N, COMMAND | CONTROL))
        setup.next_page(HISTORY_PAGE)
        setup.next_page(SUMMARY_PAGE)
        user.control("✔️ Your Paste hotkey is ⌃⌘B")
        user.control("✔️ Your Add Snippet hotkey is ⌃⌘N")
        setup.finish()

        for chord in (SUMMON, ADD):
            desktop.key(chord)
        stays(lambda: not user.windows(), QUIET, "the old shortcuts open nothing")
        desktop.key("ctrl+super+b")
        wait_until(user.has_keyboard, START_BOUND, "the new shortcut opens the menu")
        desktop.key("Escape")
        user.wait_gone()
        open_form(user, "ctrl+super+n")

        assert "firstLoad=false" in user.settings_file.read_text()
        assert user.quit() == 0
        user.start(ready=False)
        wait_until(user.owns_name, START_BOUND, "started again")
        stays(lambda: setup.window() is None, QUIET, "no setup any more")


def open_form(user, chord):
    """By a shortcut, which opens it after a while and not at once."""
    pressed = time.monotonic()
    user.desktop.key(chord)
    TitledWindow(user, "Add Snippet").wait_in_front()
    assert time.monotonic() - pressed >= FORM_DELAY


def test_a_setup_that_is_closed_early_comes_again(desktop, new_user):
    with new_user(desktop, first_load=True) as user:
        setup = SetupWindow(user).wait_in_front()
        desktop.key("ctrl+w")
        setup.wait_gone()
        assert user.quit() == 0

        user.start()

        setup.wait_in_front()
