#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Starts the program of a desktop entry as a desktop does, by GLib. Usage: start_entry.py ENTRY"""

import sys

from gi.repository import Gio

Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch([], None)
