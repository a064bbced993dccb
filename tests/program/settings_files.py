# SPDX-License-Identifier: MIT
"""Settings files with a shortcut of their own, whole and damaged, and a program that reads them."""

from support.desktop import START_BOUND
from support.waiting import wait_until

OWN_CHORD = "shift+super+k"
SHORTCUT = rb'KeyboardShortcuts_contextHotKey="{\"carbonKeyCode\":40,\"carbonModifiers\":768}"'
ADD_KEY = b"KeyboardShortcuts_addHotKey"
DAMAGES = {
    "a quote that is never closed": (b'[General]\nunknown="one, two\nfirstLoad=false\n', b"\n"),
    "bytes that are no text": (b"[General]\nun\xffknown=\xff\xfe\nfirstLoad=false\n", b"\nmore=\xff\n"),
    "cut off": (b"[General]\nfirstLoad=false\n", b'\nKeyboardShortcuts_addHotKey="{\\"carbonK'),
    "line ends of another system": (b"[General]\r\nfirstLoad=false\r\n", b"\r\nunknown=1\r\n"),
    "a byte order mark": (b"\xef\xbb\xbf[General]\nfirstLoad=false\n", b"\n"),
    "other types": (b"[General]\nunknown=@Variant(\\0\\0\\0\\x7f)\nlist=a, b\nfirstLoad=false\n",
                    b"\nKeyboardShortcuts_addHotKey=true\nhistorySize=text\n"),
    "ten megabytes": (b"[General]\n" + b"unknown=something\n" * 600_000 + b"firstLoad=false\n", b"\n"),
}


def start_with(user, content):
    """Starts the program, which holds its own chord then, and has stored what it stores at its start."""
    user.settings_file.write_bytes(content)
    user.start(ready=False)
    wait_until(lambda: user.desktop.server.is_grabbed("k", "shift", "super"), START_BOUND, user.errors)
    stored = user.settings_file.read_bytes
    wait_until(lambda: b"device=" in stored() and ADD_KEY in stored(), START_BOUND, user.errors)


def summon_by_own_chord(user):
    user.desktop.key(OWN_CHORD)
    wait_until(user.has_keyboard, START_BOUND, "the menu is up")
    user.desktop.key("Escape")
    user.wait_gone()
