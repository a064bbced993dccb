# SPDX-License-Identifier: MIT
"""Runs inside a terminal: writes every byte that the terminal sends to a file."""

import os
import sys
import termios
import tty

CHUNK = 65536

tty.setraw(sys.stdin.fileno(), termios.TCSANOW)
# The file exists from now on: what is typed or pasted is not lost any more. Appending: the reader
# may empty the file.
with open(sys.argv[1], "ab", buffering=0) as received:
    while True:
        data = os.read(sys.stdin.fileno(), CHUNK)
        if not data:
            break
        received.write(data)
