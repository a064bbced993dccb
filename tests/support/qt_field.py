# SPDX-License-Identifier: MIT
"""A Qt text field. Its contents are in a file after every change."""

import os
import sys

from PyQt6.QtWidgets import QApplication, QPlainTextEdit

PARAGRAPH_SEPARATOR = "\u2029"  # how the document stores a line end

path, title = sys.argv[1:]


def write():
    with open(path + ".new", "wb") as file:
        file.write(field.document().toRawText().replace(PARAGRAPH_SEPARATOR, "\n").encode())
    os.replace(path + ".new", path)


application = QApplication(sys.argv[:1])
field = QPlainTextEdit()
field.setWindowTitle(title)
field.resize(500, 300)
field.textChanged.connect(write)
write()
field.show()
application.exec()
