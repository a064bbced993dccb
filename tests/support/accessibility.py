# SPDX-License-Identifier: MIT
"""Finds what a user sees: controls by their accessible names."""

import json
import pathlib
import subprocess
import sys

SERVER = pathlib.Path(__file__).with_name("accessibility_server.py")


class Control:
    """One showing accessible object."""

    def __init__(self, seen):
        self.name = seen["name"]
        self.role = seen["role"]
        self.description = seen["description"]
        self.states = seen["states"]
        self.parent = seen["parent"]  # its name
        self.x, self.y, self.width, self.height = seen.get("box", (0, 0, 0, 0))

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def __repr__(self):
        return f"Control({self.name!r}, {self.role}, {self.states}, {self.width}x{self.height}+{self.x}+{self.y})"


class Accessibility:
    """The accessibility tree of one desktop."""

    def __init__(self, processes, env):
        self._process = processes.start(
            [sys.executable, SERVER], env, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
            stderr=None,
        )

    def controls(self, application, name=None, role=None, showing=True):
        """The application's objects with that name and role, in tree order."""
        seen = self._ask("find", application=application, name=name, role=role, showing=showing)
        return [Control(one) for one in seen]

    def texts(self, application):
        """The contents of the application's showing editable texts."""
        return self._ask("text", application=application)

    def applications(self):
        return self._ask("applications")

    def _ask(self, operation, **request):
        request["operation"] = operation
        self._process.stdin.write(json.dumps(request) + "\n")
        self._process.stdin.flush()
        answer = json.loads(self._process.stdout.readline())
        if "error" in answer:
            raise RuntimeError(answer["error"])
        return answer["value"]
