# SPDX-License-Identifier: MIT
"""A GTK text field. Its contents are in a file after every change, and how often a drag moved over it."""

import os
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk  # noqa: E402

path, title = sys.argv[1:]


def write(buffer):
    start, end = buffer.get_bounds()
    with open(path + ".new", "wb") as file:
        file.write(buffer.get_text(start, end, True).encode())
    os.replace(path + ".new", path)


def tell_of_drag(_field, _context, _x, _y, _time):
    """Each motion of a drag over the field adds a byte to a file."""
    with open(path + ".dragged", "ab") as file:
        file.write(b".")
    return False


window = Gtk.Window(title=title, default_width=500, default_height=300)
field = Gtk.TextView()
field.get_buffer().connect("changed", write)
field.connect("drag-motion", tell_of_drag)
scroller = Gtk.ScrolledWindow()
scroller.add(field)
window.add(scroller)
window.connect("destroy", Gtk.main_quit)
write(field.get_buffer())
window.show_all()
field.grab_focus()
Gtk.main()
