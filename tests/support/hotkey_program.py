# SPDX-License-Identifier: MIT
"""Another program with a global shortcut, as users start them for everything that has none."""

import itertools

from support.desktop import START_BOUND
from support.waiting import wait_until

_numbers = itertools.count(1)


class HotkeyProgram:
    """A context manager: sxhkd, which holds one chord meanwhile."""

    def __init__(self, desktop, chord):
        """chord: written as in "ctrl+F12"."""
        self.desktop = desktop
        *self._modifiers, self._key = chord.split("+")
        self._told = desktop.folder / f"hotkey-presses-{next(_numbers)}"
        self._process = None

    def __enter__(self):
        self._told.touch()
        configuration = self._told.with_suffix(".conf")
        configuration.write_text(f"{' + '.join([*self._modifiers, self._key])}\n\techo >> {self._told}\n")
        self._process = self.desktop.start(["sxhkd", "-c", configuration], extra_env={"SHELL": "/bin/sh"})
        wait_until(lambda: self.desktop.server.is_grabbed(self._key, *self._modifiers), START_BOUND,
                   "sxhkd holds its chord")
        return self

    def __exit__(self, *_details):
        self.desktop.processes.end(self._process)

    def presses(self):
        """How often it was told that its chord was pressed."""
        return len(self._told.read_text())
