# SPDX-License-Identifier: MIT
"""Drags with the mouse, from the press of the button until it is let go."""

import contextlib
import itertools

from support.desktop import START_BOUND
from support.waiting import wait_until

STEPS = 8  # moves on the way; the first ones go beyond the distance at which a drag begins
ESCAPE = "Escape"


class Drag:
    """The left button is down. Whatever happens it is up again at the end."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._is_down = True

    def move_to(self, place, is_there, what):
        """Moves to the place, and there to and fro until is_there() sees that the drag is taken.

        Only what was taken can be dropped: the answer travels between two programs."""
        start = self._desktop.server.pointer()
        for step in range(1, STEPS + 1):
            self._desktop.hands.move_pointer(*[a + (b - a) * step // STEPS for a, b in zip(start, place)])
        sway = itertools.cycle((1, 0))

        def look():
            self._desktop.hands.move_pointer(place[0] + next(sway), place[1])
            return is_there()
        wait_until(look, START_BOUND, what)

    def drop(self):
        self._is_down = False
        self._desktop.hands.release_button()

    def escape(self):
        """Gives the drag up, and then the button."""
        self._desktop.key(ESCAPE)
        self.drop()

    def end(self):
        if self._is_down:
            self.escape()


@contextlib.contextmanager
def drag(desktop, start):
    """Presses the button on the place; gives a Drag."""
    desktop.move_pointer(*start)
    desktop.hands.press_button()
    dragging = Drag(desktop)
    try:
        yield dragging
    finally:
        dragging.end()
