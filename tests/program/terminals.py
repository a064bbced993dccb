# SPDX-License-Identifier: MIT
"""How a user selects and copies a word in a terminal."""

import itertools

from menus import DOUBLE_CLICK
from support.desktop import START_BOUND
from support.waiting import NotReached, wait_until

PRINT_A_WORD = 'printf word; : > "$0"; exec cat'

_numbers = itertools.count(1)

# How a user copies in a terminal: the command, and the keys after the word has been selected.
TERMINALS = {
    "xterm": (["xterm", "-T", "source", "-xrm", "XTerm*selectToClipboard: true", "-e"], None),
    "vte": (["xfce4-terminal", "--disable-server", "--title=source", "--dynamic-title-mode=none",
             "--hide-menubar", "--hide-toolbar", "-x"], "ctrl+shift+c"),
}


# Selecting is copying nothing in these.
SELECTING_TERMINALS = {"xterm": ["xterm", "-T", "source", "-e"], "vte": TERMINALS["vte"][0]}


def start_with_a_word(desktop, command):
    """Starts a terminal that shows "word". Returns its process and its window."""
    printed = desktop.folder / f"printed-{next(_numbers)}"
    process = desktop.start([*command, "sh", "-c", PRINT_A_WORD, printed])
    wait_until(printed.exists, START_BOUND, "the terminal has the word")
    windows = wait_until(lambda: desktop.server.find_windows(title="source"), START_BOUND, "terminal is up")
    return process, windows[0]


def select_the_word(desktop, window):
    return double_click_gives(desktop, window, None, "primary")


def copy_the_word(desktop, window, copy_keys):
    """Selects it and presses the keys that copy; none where selecting is copying."""
    return double_click_gives(desktop, window, copy_keys, "clipboard")


def double_click_gives(desktop, window, keys, selection):
    """Whether the selection is the word after a double click on it. A terminal that has yet to
    paint the word selects nothing."""
    desktop.click(window.x + 14, window.y + 14)
    desktop.hands.button()
    if keys:
        desktop.key(keys)
    try:
        return wait_until(lambda: desktop.server.selection_owner(selection.upper()) != 0
                          and desktop.clipboard(selection) == b"word", 2 * DOUBLE_CLICK, "copied")
    except NotReached:
        return False
