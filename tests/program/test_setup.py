# SPDX-License-Identifier: MIT
"""The first-run setup and the settings window, used by real keys."""

import json

import pytest

from support.desktop import START_BOUND
from support.waiting import stays, wait_until

SETUP, SETTINGS = "Quillery Setup", "Quillery Settings"
QUIET = 0.5  # seconds in which a shortcut that is none any more would have opened something
COMMAND, SHIFT, CONTROL = 0x100, 0x200, 0x1000
KEY_V, KEY_B, KEY_J = 9, 11, 38  # virtual key codes


def in_front(user, title):
    def found():
        windows = [window for window in user.windows() if window.title == title]
        return windows and user.desktop.server.has_focus(windows[0].id) and windows[0]
    return wait_until(found, START_BOUND, lambda: f"{title} is in front: {user.windows()}")


def is_gone(user, title):
    return all(window.title != title for window in user.windows())


def wait_for_text(user, text):
    user.control(text)


def record(user, caption, chord):
    """Tabs to the field with this caption, records a chord, and waits until the field is left."""
    desktop = user.desktop

    def has_focus():
        return "focused" in user.control(caption, "push button").states
    for _ in range(8):
        if has_focus():
            break
        before = [one.name for one in desktop.accessibility.controls("Quillery") if "focused" in one.states]
        desktop.key("Tab")
        wait_until(lambda: before != [one.name for one in desktop.accessibility.controls("Quillery")
                                      if "focused" in one.states], START_BOUND, "the focus moves")
    wait_until(has_focus, START_BOUND, f"{caption} has the keyboard")
    desktop.key(chord)
    wait_until(lambda: not has_focus(), START_BOUND, f"{caption} has recorded")


def stored_shortcut(user, name):
    """Key code and modifiers, as they stand in the settings file."""
    for line in user.settings_file.read_text().splitlines():
        key, _, value = line.partition("=")
        if key == f"KeyboardShortcuts_{name}":
            shortcut = json.loads(json.loads(value))
            return shortcut["carbonKeyCode"], shortcut["carbonModifiers"]
    return None


def next_page(user, text):
    user.desktop.key("Return")
    wait_for_text(user, text)


def test_a_new_user_walks_through_the_setup_by_keyboard(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop, first_load=True) as user:
        in_front(user, SETUP)
        wait_for_text(user, "Welcome to Quillery")
        next_page(user, "Choose a keyboard shortcut to bring up the Paste menu")
        record(user, "Default: Shift + Command + V:", "ctrl+super+b")
        desktop.key("Return")
        wait_for_text(user, "Choose a keyboard shortcut to quickly add a new Snippet")
        next_page(user, "What's the maximum number of items we should keep in your Clipboard History?")
        next_page(user, "✔️ Clipboard History is Enabled")
        wait_for_text(user, "✔️ Your Paste hotkey is ⌃⌘B")
        desktop.key("Return")
        wait_until(lambda: is_gone(user, SETUP), START_BOUND, "the setup is closed")

        desktop.key("shift+super+v")
        stays(lambda: not user.menus(), QUIET, "the old shortcut opens nothing")
        desktop.key("ctrl+super+b")
        wait_until(user.has_keyboard, START_BOUND, "the new shortcut opens the menu")
        desktop.key("Escape")
        user.wait_gone()

        assert stored_shortcut(user, "contextHotKey") == (KEY_B, COMMAND | CONTROL)
        assert "firstLoad=false" in user.settings_file.read_text()
        assert user.quit() == 0
        user.start(ready=False)
        wait_until(user.owns_name, START_BOUND, "started again")
        stays(lambda: is_gone(user, SETUP), QUIET, "no setup any more")


def test_a_setup_that_is_closed_early_comes_again(desktop, new_user):
    with new_user(desktop, first_load=True) as user:
        in_front(user, SETUP)
        desktop.key("ctrl+w")
        wait_until(lambda: is_gone(user, SETUP), START_BOUND, "the setup is closed")
        assert user.quit() == 0

        user.start()

        in_front(user, SETUP)


@pytest.mark.parametrize("chord", ["v", "shift+v", "Escape"])
def test_what_is_no_shortcut_leaves_the_stored_one(desktop, new_user, chord):
    with new_user(desktop) as user:
        user.activate_action("settings")
        in_front(user, SETTINGS)
        caption = "Paste keyboard shortcut:"
        desktop.click(*user.control(caption, "push button").centre)
        wait_until(lambda: "focused" in user.control(caption, "push button").states, START_BOUND,
                   "it records")

        desktop.key(chord)
        desktop.key("Escape")

        wait_until(lambda: "focused" not in user.control(caption, "push button").states, START_BOUND,
                   "it does not record any more")
        user.summon()


def shortcut_field(user):
    return user.control("Paste keyboard shortcut:", "push button")


def begin_to_record(user):
    user.activate_action("settings")
    in_front(user, SETTINGS)
    user.desktop.click(*shortcut_field(user).centre)
    wait_until(lambda: "focused" in shortcut_field(user).states, START_BOUND, "it records")


def answer_alert(user, text, keys):
    """Waits for the alert with this text and answers it by keys; then it is gone."""
    def shows():
        return any(text in name for name in user.names())
    wait_until(shows, START_BOUND, lambda: f"{text} shows: {user.names()}")
    for key in keys:
        user.desktop.key(key)
    wait_until(lambda: not shows(), START_BOUND, "the alert is gone")


def test_a_chord_of_the_menu_is_refused_and_recording_goes_on(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        begin_to_record(user)
        desktop.key("ctrl+w")
        answer_alert(user, "belongs to the menu item “Close”", ["Return"])
        wait_until(lambda: "focused" in shortcut_field(user).states, START_BOUND, "it records again")

        desktop.key("ctrl+super+b")

        wait_until(lambda: stored_shortcut(user, "contextHotKey") == (KEY_B, COMMAND | CONTROL),
                   START_BOUND, "the next chord is stored")


@pytest.mark.parametrize("answer, expected", [
    (["Return"], (KEY_V, COMMAND | SHIFT)),
    (["Tab", "space"], (KEY_J, COMMAND)),
])
def test_a_chord_of_another_program_is_asked_about(each_desktop, new_user, answer, expected):
    desktop = each_desktop
    with new_user(desktop) as user, desktop.server.holding("j", "super"):
        begin_to_record(user)
        desktop.key("super+j")
        answer_alert(user, "is already used by the desktop or another program", answer)
        desktop.key("Escape")

        wait_until(lambda: stored_shortcut(user, "contextHotKey") == expected, START_BOUND,
                   lambda: f"stored: {stored_shortcut(user, 'contextHotKey')}")


def test_the_stored_shortcut_opens_nothing_while_it_is_recorded(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        user.activate_action("settings")
        in_front(user, SETTINGS)
        record(user, "Paste keyboard shortcut:", "shift+super+v")
        stays(lambda: not user.menus(), QUIET, "no menu")

        user.summon()


def test_a_function_key_alone_is_a_shortcut(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        user.activate_action("settings")
        in_front(user, SETTINGS)
        record(user, "Add Snippet keyboard shortcut:", "F5")

        desktop.key("F5")

        in_front(user, "Add Snippet")
