# SPDX-License-Identifier: MIT
"""The library window, as its user sees it and works in it."""

import collections

from support.desktop import START_BOUND
from support.dragging import drag
from support.quillery import APPLICATION
from support.titled_window import TitledWindow
from support.waiting import NotReached, wait_until

TITLE = "Quillery"
PLACEHOLDER = "<-- Select a Snippet. Press + to create a new Snippet"
LINE_THICKNESS = 2  # pixels; nothing else in the list is so low
SETTLING = 2.0  # seconds; more than a double click takes
STRIP = 4  # pixels from a row's edge, well inside the strip of 14

Stored = collections.namedtuple("Stored", "order title is_folder expanded content")


def snippet(order, title, content):
    return Stored(order, title, 0, 0, content)


def folder(order, title, expanded=1, content=""):
    """What an editor has shown has a content, be it empty; other folders have none."""
    return Stored(order, title, 1, expanded, content)


def stored(user):
    """All that is in the store, in order."""
    rows = user.query("snippets", 'SELECT "order", title, isFolder, expanded, content FROM Snippet'
                                  ' ORDER BY "order", pk')
    decode = lambda value: value.decode() if isinstance(value, bytes) else value
    return [Stored(*[decode(value) for value in row]) for row in rows]


def wait_for_store(user, expected):
    wait_until(lambda: stored(user) == expected, START_BOUND,
               lambda: f"stored: {stored(user)} instead of {expected}")


class Library(TitledWindow):
    """The library window of a user."""

    def __init__(self, user):
        super().__init__(user, TITLE)

    # -- the window ---------------------------------------------------------------------------

    def open(self):
        """As a launcher of the desktop opens it."""
        self.user.activate_action("quillery")
        self.wait_in_front()
        return self

    def close(self):
        self.desktop.key("ctrl+w")
        self.wait_gone()

    def place(self, x, y):
        """Moves the window so that another one has room."""
        self.desktop.run(["wmctrl", "-r", TITLE, "-e", f"0,{x},{y},-1,-1"])
        wait_until(lambda: abs(self.window().x - x) < 20, START_BOUND, "the library is at its place")
        self.wait_placed()

    # -- the list -----------------------------------------------------------------------------

    def items(self):
        """The rows that show, from the top down."""
        items = self.desktop.accessibility.controls(APPLICATION, role="list item")
        return sorted(items, key=lambda item: item.y)

    def rows(self):
        return [item.name for item in self.items()]

    def wait_for_rows(self, *names):
        wait_until(lambda: self.rows() == list(names), START_BOUND, lambda: f"rows: {self.rows()}")

    def states(self, name):
        return self.user.control(name, "list item").states

    def click(self, name):
        """Until it is selected: where a row is, is told before a fresh window has settled."""
        def is_selected():
            self.user.click_on(name, "list item")
            try:
                return wait_until(lambda: "selected" in self.states(name), SETTLING, "selected")
            except NotReached:
                return False
        wait_until(is_selected, START_BOUND, f"{name} is selected")

    def toggle(self, name):
        """Clicks on a folder's chevron, which selects nothing."""
        row = self.user.control(name, "list item")
        self.desktop.click(row.x + STRIP * 3, row.centre[1])

    def centre(self, name):
        return self.user.control(name, "list item").centre

    def above(self, name):
        """A place on the strip above the row."""
        row = self.user.control(name, "list item")
        return row.centre[0], row.y + STRIP

    def below(self, name):
        """A place on the strip below the row."""
        row = self.user.control(name, "list item")
        return row.centre[0], row.y + row.height - STRIP

    def lines(self):
        """The line that shows where a drag would land: at most one, by its upper edge."""
        fillers = self.desktop.accessibility.controls(APPLICATION, role="filler")
        return [filler.y for filler in fillers if filler.height == LINE_THICKNESS]

    def has_line_at(self, y):
        return any(abs(line - y) <= LINE_THICKNESS for line in self.lines())

    def drag(self, name):
        return drag(self.desktop, self.centre(name))

    def drag_above(self, name, other):
        row = self.user.control(other, "list item")
        self._drag(name, self.above(other), row.y)

    def drag_below(self, name, other, end=None):
        """end: the row whose lower edge the line marks, where that is another one."""
        row = self.user.control(end or other, "list item")
        self._drag(name, self.below(other), row.y + row.height)

    def _drag(self, name, place, edge):
        with self.drag(name) as dragging:
            dragging.move_to(place, lambda: self.has_line_at(edge),
                             lambda: f"line at {edge}: {self.lines()}")
            dragging.drop()
        wait_until(lambda: not self.lines(), START_BOUND, "the drag is over")

    # -- the editor ---------------------------------------------------------------------------

    def texts(self):
        """Title and text in the editor; empty while there is none."""
        texts = self.desktop.accessibility.texts(APPLICATION)
        return texts[:2] if len(texts) == 3 else []

    def wait_for_texts(self, title, content):
        wait_until(lambda: self.texts() == [title, content], START_BOUND,
                   lambda: f"in the editor: {self.texts()}")

    def add_snippet(self, title, content):
        """By keys. The new one is selected, with the cursor in its text."""
        self.desktop.key("ctrl+n")
        self.wait_for_texts("New Snippet", "")
        self.desktop.type_text(content)
        self.desktop.key("shift+Tab")
        self.write_title(title)
        self.wait_for_texts(title, content)

    def add_folder(self, title):
        """By keys. The new one is selected, with the cursor in its title."""
        self.desktop.key("ctrl+shift+n")
        self.wait_for_texts("Folder", "")
        self.write_title(title)
        self.wait_for_texts(title, "")

    def write_title(self, title):
        self.desktop.key("ctrl+a")
        self.desktop.type_text(title)
