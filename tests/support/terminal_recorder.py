# SPDX-License-Identifier: MIT
"""Runs inside a terminal: writes every byte that the terminal sends to a file. Usage:
terminal_recorder.py FILE [TEXT]; the text is shown in the terminal, for the user to select it."""

import os
import sys
import termios
import tty

CHUNK = 65536

tty.setraw(sys.stdin.fileno(), termios.TCSANOW)
if len(sys.argv) > 2:
    os.write(sys.stdout.fileno(), sys.argv[2].encode())
# The file exists from now on: what is typed or pasted is not lost any more. Appending: the reader
# may empty the file.
with open(sys.argv[1], "ab", buffering=0) as received:
    while True:
        data = os.read(sys.stdin.fileno(), CHUNK)
        if not data:
            break
        received.write(data)
