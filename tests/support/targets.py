# SPDX-License-Identifier: MIT
"""Paste targets: real programs that tell exactly what they received.

Terminals send a line end as a carriage return, as if Return had been pressed; text() turns it back.
Everything else is compared byte by byte.
"""

import itertools
import pathlib

from support.desktop import START_BOUND, support_path
from support.dragging import drag
from support.waiting import NotReached, wait_until

DOUBLE_CLICK = 0.5  # seconds; what is pressed within them counts as one more click
SHOWN_BOUND = 4.0  # seconds in which a program shows what a key does
MARGIN = 30  # pixels at the right edge that a scroll bar may take

_numbers = itertools.count(1)


class Target:
    """A program with one text field. chord is how its user pastes."""

    name = ""
    chord = "ctrl+v"

    def __init__(self, desktop):
        self.desktop = desktop
        number = next(_numbers)
        self.title = f"{self.name} {number}"
        self.path = desktop.folder / f"received-{number}"
        self.process = None
        self.window_id = None

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_details):
        self.stop()

    def command(self):
        raise NotImplementedError

    def start(self):
        """Starts the program and waits until it takes text."""
        self.process = self.desktop.start(self.command())
        wait_until(lambda: self.window() and self.path.exists(), START_BOUND, f"{self.name} is up")
        self.window_id = self.window().id
        self.focus()

    def stop(self):
        self.desktop.processes.end(self.process)
        wait_until(lambda: not self.window(), START_BOUND, f"the window of {self.name} is gone")

    def window(self):
        """The target's window as it stands now; None while it is not shown."""
        found = self.desktop.server.find_windows(title=self.title)
        return found[0] if found else None

    def has_focus(self):
        return self.desktop.server.has_focus(self.window_id)

    def focus(self):
        """Clicks into the field, as a user does, until the keyboard is there.

        A window that has just come up may have it before the click: a window manager that acts on
        the click only later would take the keyboard from what is opened meanwhile.
        """
        self.desktop.click_and_wait(*self.window().centre)
        wait_until(self.has_focus, START_BOUND, f"{self.name} has the focus")

    def place(self, x, y):
        """Moves the window so that another one has room."""
        self.desktop.run(["wmctrl", "-r", self.title, "-e", f"0,{x},{y},-1,-1"])
        wait_until(lambda: abs(self.window().x - x) < 20, START_BOUND, f"{self.name} is at its place")

    def text(self):
        """The bytes received so far."""
        return self.path.read_bytes()

    def hold(self, text):
        """Has the text in it, as if its user had written it, and the text alone."""
        self.clear()
        self.desktop.type_text(text)
        self.wait_for_text(text.encode())

    def select_all(self):
        """Selects the text in it, as its user does; it has the keyboard. Returns what is selected."""
        self.desktop.key("ctrl+a")
        return self.text()

    def clear(self):
        """Empties the field by its own means."""
        wait_until(self._empty_field, START_BOUND, lambda: f"{self.name} is empty: {self.text()[:40]!r}")

    def _empty_field(self):
        """Tries once: a click that its window manager still holds back undoes the selection."""
        self.desktop.key("ctrl+a")
        self.desktop.key("BackSpace")
        try:
            return wait_until(lambda: self.text() == b"", SHOWN_BOUND, "empty")
        except NotReached:
            return False

    def wait_for_text(self, expected, bound=START_BOUND):
        """Waits until exactly this text is there."""
        wait_until(lambda: self.text() == expected, bound,
                   lambda: f"{self.name} received the text; {difference(self.text(), expected)}")


class Terminal(Target):
    """A terminal that runs the recorder, and shows a text, of one line, if it is to hold one."""

    first_line = 5  # pixels from the upper left corner, to the right and down, to a place on it

    def __init__(self, desktop):
        super().__init__(desktop)
        self._shown = []

    def recorder(self):
        return [*support_path("terminal_recorder.py"), self.path, *self._shown]

    def hold(self, text):
        """Starts again with the text on the screen."""
        self.stop()
        self.path.unlink()
        self._shown = [text]
        self.start()

    def select_all(self):
        """Draws the mouse over the first line, which selects nothing before the terminal shows it."""
        wait_until(self._select_first_line, START_BOUND, f"{self.name} has its text selected")
        return self.desktop.clipboard("primary")

    def _select_first_line(self):
        window = self.window()
        line = window.y + self.first_line
        with drag(self.desktop, (window.x + self.first_line, line)) as dragging:
            dragging.move_to((window.x + window.width - MARGIN, line), lambda: True, "end of the line")
            dragging.drop()
        try:
            return wait_until(self._has_selected_it, DOUBLE_CLICK, "selected")
        except NotReached:
            return False

    def _has_selected_it(self):
        if self.desktop.server.selection_owner("PRIMARY") == 0:
            return False
        return self.desktop.clipboard("primary").decode().rstrip("\n") == self._shown[0]

    def text(self):
        return super().text().replace(b"\r", b"\n")

    def clear(self):
        self.path.write_bytes(b"")  # the recorder appends


class XtermTarget(Terminal):
    name = "xterm"
    chord = "shift+Insert"  # takes PRIMARY

    def command(self):
        return ["xterm", "-u8", "-T", self.title, "-e", *self.recorder()]


class VteTarget(Terminal):
    name = "vte"
    chord = "ctrl+shift+v"

    def command(self):
        # It asks before it pastes several lines, and waits for the answer.
        settings = pathlib.Path(self.desktop.env["XDG_CONFIG_HOME"], "xfce4/terminal/terminalrc")
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[Configuration]\nMiscShowUnsafePasteDialog=FALSE\n")
        return ["xfce4-terminal", "--disable-server", f"--title={self.title}",
                "--dynamic-title-mode=none", "--hide-menubar", "--hide-toolbar", "-x", *self.recorder()]


class GtkTarget(Target):
    name = "gtk"

    def command(self):
        return [*support_path("gtk_field.py"), self.path, self.title]

    def drag_motions(self):
        """How many motions of drags over the field it has answered, or is about to."""
        told = self.path.with_name(self.path.name + ".dragged")
        return told.stat().st_size if told.exists() else 0


class QtTarget(Target):
    name = "qt"

    def command(self):
        return [*support_path("qt_field.py"), self.path, self.title]


TARGETS = {target.name: target for target in (XtermTarget, VteTarget, GtkTarget, QtTarget)}


def difference(got, expected):
    """Where two texts part, in a few words."""
    length = min(len(got), len(expected))
    first = next((i for i in range(length) if got[i] != expected[i]), length)
    return (f"got {len(got)} bytes of {len(expected)}, the same up to {first}: "
            f"{got[first:first + 40]!r} instead of {expected[first:first + 40]!r}")
