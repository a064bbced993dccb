# SPDX-License-Identifier: MIT
"""The settings window, its fields for shortcuts and its switches, as a user sees and uses them."""

import json

from support.desktop import START_BOUND
from support.quillery import APPLICATION
from support.titled_window import TitledWindow
from support.waiting import wait_until

COMMAND, SHIFT, CONTROL = 0x100, 0x200, 0x1000
EMPTY = {True: "Press Shortcut", False: "Record Shortcut"}  # what an empty field says, by whether it records
TAB_STOPS = 8  # more than a window has


class ShortcutField:
    """The field behind a caption, in a window that is in front. It records while it has the
    keyboard. key is the name of its shortcut in the settings file."""

    def __init__(self, user, caption, key):
        self.user = user
        self.desktop = user.desktop
        self.caption = caption
        self.key = key

    def control(self):
        return wait_until(self._look, START_BOUND, lambda: f"{self.caption} shows: {self.user.names()}")

    def _look(self):
        buttons = self.desktop.accessibility.controls(APPLICATION, role="push button")
        return next((button for button in buttons if self._is_name(button.name)), None)

    def _is_name(self, name):
        """The caption, and the shortcut in words if there is one."""
        return name == self.caption or name.startswith(f"{self.caption} ")

    def clear_button(self):
        """None while there is nothing to clear."""
        buttons = self.desktop.accessibility.controls(APPLICATION, "Clear Shortcut", "push button")
        return next((button for button in buttons if self._is_name(button.parent)), None)

    # -- recording ----------------------------------------------------------------------------

    def begin(self):
        """A click into a window that has just come to the front starts nothing."""
        wait_until(lambda: "focusable" in self.control().states, START_BOUND, f"{self.caption} takes clicks")
        self.desktop.click(*self.control().centre)
        self.wait_recording()

    def tab_to(self):
        tab_until(self.user, self.is_recording)
        self.wait_recording()

    def is_recording(self):
        return "focused" in self.control().states

    def wait_recording(self):
        wait_until(self.is_recording, START_BOUND, lambda: f"{self.caption} records: {focused(self.user)}")

    def wait_left(self):
        """Until it does not record, and other keys than its own reach whom they are for."""
        wait_until(lambda: not self.is_recording(), START_BOUND, f"{self.caption} has been left")
        wait_until(self.desktop.server.keyboard_is_free, START_BOUND, f"{self.caption} lets the keyboard go")

    def wait_empty(self, is_recording):
        wait_until(lambda: self.control().description == EMPTY[is_recording], START_BOUND,
                   lambda: f"{self.caption} is empty: {self.control().description}")
        assert self.is_recording() == is_recording

    # -- what is stored -----------------------------------------------------------------------

    def stored(self):
        """Key code and modifiers; False where the user wants none, None before there was one."""
        text = self.user.settings().get(f"KeyboardShortcuts_{self.key}")
        if text in (None, "false"):
            return None if text is None else False
        shortcut = json.loads(json.loads(text))
        return shortcut["carbonKeyCode"], shortcut["carbonModifiers"]

    def wait_stored(self, expected):
        """Until exactly this is stored, and nothing is recorded any more."""
        wait_until(lambda: self.stored() == expected, START_BOUND,
                   lambda: f"{self.key} is {expected}: {self.stored()}")
        self.wait_left()


class Switch:
    """The switch behind a caption, in a window that is in front."""

    def __init__(self, user, caption):
        self.user = user
        self.caption = caption

    def control(self):
        return self.user.control(self.caption, "check box")

    def is_on(self):
        return "checked" in self.control().states

    def wait_on(self, is_on):
        wait_until(lambda: self.is_on() == is_on, START_BOUND,
                   lambda: f"{self.caption} is {'on' if is_on else 'off'}")

    def press(self):
        """By keys alone."""
        has_keyboard = lambda: "focused" in self.control().states
        tab_until(self.user, has_keyboard)
        wait_until(has_keyboard, START_BOUND, lambda: f"{self.caption} has the keyboard: {focused(self.user)}")
        self.user.desktop.key("space")


class SettingsWindow(TitledWindow):
    def __init__(self, user):
        super().__init__(user, "Quillery Settings")
        self.paste = ShortcutField(user, "Paste keyboard shortcut:", "contextHotKey")
        self.add = ShortcutField(user, "Add Snippet keyboard shortcut:", "addHotKey")
        self.keeps_history = Switch(user, "Keep Clipboard History")
        self.launch_at_login = Switch(user, "Launch at login")

    def open(self):
        self.user.activate_action("settings")
        return self.wait_in_front()


def focused(user):
    """The names of what has the keyboard; a row hands it to its switch."""
    return [one.name for one in user.desktop.accessibility.controls(APPLICATION) if "focused" in one.states]


def tab_until(user, is_there):
    """Goes from control to control, once around the window at most."""
    for _ in range(TAB_STOPS):
        if is_there():
            return
        before = focused(user)
        user.desktop.key("Tab")
        wait_until(lambda: focused(user) not in ([], before), START_BOUND, "the focus moves")


def answer_alert(user, text, button):
    """Waits for the alert with this text and answers it with a button, by keys; then it is gone."""
    def shows():
        return any(text in name for name in user.names())

    def wait_focused(name):
        wait_until(lambda: name in focused(user), START_BOUND, f"{name} has the keyboard")

    wait_until(shows, START_BOUND,
               lambda: f"{text} shows: {user.names()}; in use: {focused(user)}; {user.settings()}")
    wait_focused("OK")
    if button != "OK":
        user.desktop.key("Tab")
        wait_focused(button)
    user.desktop.key("space")
    wait_until(lambda: not shows(), START_BOUND, "the alert is gone")
