# SPDX-License-Identifier: MIT
"""Sees to it that what the user's hands do arrives in a server that is shown in a window."""

import threading

from Xlib import display, error, protocol

INTERVAL = 0.02  # seconds


class Nudging:
    """Sends the window of the inner server an event again and again.

    That server reads its input while it waits for answers about its picture, and then leaves it
    lying until another event comes.
    """

    def __init__(self, outer):
        """outer: the name of the server with that window, its only one."""
        self._display = display.Display(outer)
        self._window = self._display.screen().root.query_tree().children[0]
        self._has_ended = threading.Event()
        self._thread = threading.Thread(target=self._nudge, daemon=True)
        self._thread.start()

    def end(self):
        self._has_ended.set()
        self._thread.join()

    def _nudge(self):
        exposed = protocol.event.Expose(window=self._window, x=0, y=0, width=1, height=1, count=0)
        try:
            while not self._has_ended.wait(INTERVAL):
                self._window.send_event(exposed)
                self._display.flush()
            self._display.close()
        except (error.ConnectionClosedError, OSError):
            return  # the server has ended before us
