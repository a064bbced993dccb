# SPDX-License-Identifier: MIT
"""A window of the program, told from the others by its title."""

from support.desktop import START_BOUND
from support.quillery import APPLICATION
from support.waiting import wait_until


class TitledWindow:
    """One of a user's windows; it need not be there."""

    def __init__(self, user, title):
        self.user = user
        self.desktop = user.desktop
        self.title = title

    def window(self):
        found = [window for window in self.user.windows() if window.title == self.title]
        return found[0] if found else None

    def is_in_front(self):
        """It has the focus, and the window manager names it as the active window."""
        window = self.window()
        server = self.desktop.server
        return (window is not None and server.has_focus(window.id)
                and server.active_window() == window.id)

    def wait_in_front(self):
        """Until it takes keys and clicks: the program knows that the window has the keyboard, and
        where it is."""
        wait_until(self.is_in_front, START_BOUND, lambda: f"{self.title} is in front: {self.user.windows()}")
        self.wait_placed()
        wait_until(lambda: any("active" in frame.states for frame in self._frames()), START_BOUND,
                   lambda: f"{self.title} knows that it is in front")
        return self

    def wait_placed(self):
        """The program hears of its window's place after the window is there; until then its controls
        are not where it says."""
        def is_known():
            window = self.window()
            return window is not None and any(
                (frame.x, frame.y, frame.width, frame.height)
                == (window.x, window.y, window.width, window.height) for frame in self._frames())
        wait_until(is_known, START_BOUND, lambda: f"place of {self.window()} is known")

    def wait_gone(self):
        wait_until(lambda: self.window() is None, START_BOUND, lambda: f"{self.title} is gone")

    def _frames(self):
        return self.desktop.accessibility.controls(APPLICATION, self.title)
