# SPDX-License-Identifier: MIT
"""The first-run setup, walked through by real keys."""

from support.desktop import START_BOUND
from support.settings_window import COMMAND, CONTROL, ShortcutField
from support.titled_window import TitledWindow
from support.waiting import stays, wait_until

QUIET = 0.5  # seconds in which a shortcut that is none any more would have opened something
KEY_B = 11  # virtual key code


class Setup(TitledWindow):
    def __init__(self, user):
        super().__init__(user, "Quillery Setup")
        self.paste = ShortcutField(user, "Default: Shift + Command + V:", "contextHotKey")

    def next_page(self, text):
        self.desktop.key("Return")
        self.user.control(text)


def test_a_new_user_walks_through_the_setup_by_keyboard(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop, first_load=True) as user:
        setup = Setup(user).wait_in_front()
        user.control("Welcome to Quillery")
        setup.next_page("Choose a keyboard shortcut to bring up the Paste menu")
        setup.paste.tab_to()
        desktop.key("ctrl+super+b")
        setup.paste.wait_stored((KEY_B, COMMAND | CONTROL))
        setup.next_page("Choose a keyboard shortcut to quickly add a new Snippet")
        setup.next_page("What's the maximum number of items we should keep in your Clipboard History?")
        setup.next_page("✔️ Clipboard History is Enabled")
        user.control("✔️ Your Paste hotkey is ⌃⌘B")
        desktop.key("Return")
        setup.wait_gone()

        desktop.key("shift+super+v")
        stays(lambda: not user.menus(), QUIET, "the old shortcut opens nothing")
        desktop.key("ctrl+super+b")
        wait_until(user.has_keyboard, START_BOUND, "the new shortcut opens the menu")
        desktop.key("Escape")
        user.wait_gone()

        assert "firstLoad=false" in user.settings_file.read_text()
        assert user.quit() == 0
        user.start(ready=False)
        wait_until(user.owns_name, START_BOUND, "started again")
        stays(lambda: setup.window() is None, QUIET, "no setup any more")


def test_a_setup_that_is_closed_early_comes_again(desktop, new_user):
    with new_user(desktop, first_load=True) as user:
        setup = Setup(user).wait_in_front()
        desktop.key("ctrl+w")
        setup.wait_gone()
        assert user.quit() == 0

        user.start()

        setup.wait_in_front()
