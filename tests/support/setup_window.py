# SPDX-License-Identifier: MIT
"""The first-run setup, as a user sees and uses it."""

from support.quillery import APPLICATION
from support.settings_window import ShortcutField, Switch
from support.titled_window import TitledWindow

WELCOME = "Welcome to Quillery"
# What shows on each page behind the first one.
PASTE_PAGE = "Choose a keyboard shortcut to bring up the Paste menu"
ADD_PAGE = "Choose a keyboard shortcut to quickly add a new Snippet"
HISTORY_PAGE = "What's the maximum number of items we should keep in your Clipboard History?"
SUMMARY_PAGE = "✔️ Clipboard History is Enabled"


class SetupWindow(TitledWindow):
    def __init__(self, user):
        super().__init__(user, "Quillery Setup")
        self.paste = ShortcutField(user, "Default: Shift + Command + V:", "contextHotKey")
        self.add = ShortcutField(user, "Default: Shift + Command + C:", "addHotKey")
        self.launch_at_login = Switch(
            user, "Enable this option to make sure Quillery automatically loads each time you restart"
                  " your computer:")

    def next_page(self, text):
        """By the keyboard, until the page with this text shows."""
        self.desktop.key("Return")
        self.user.control(text)

    def finish(self):
        self.desktop.key("Return")
        self.wait_gone()

    def texts(self):
        """What is written on the page that shows, from the top down."""
        labels = self.desktop.accessibility.controls(APPLICATION, role="label")
        return [label.name for label in sorted(labels, key=lambda label: label.y) if label.name]
