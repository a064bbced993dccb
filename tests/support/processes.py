# SPDX-License-Identifier: MIT
"""Child processes in groups of their own, and the proof that none is left behind."""

import ctypes
import os
import pathlib
import signal
import subprocess
import uuid

from support.waiting import NotReached, wait_until

MARKER = "QUILLERY_TEST_DESKTOP"
TERM_BOUND = 5.0  # seconds that a program may take to end by itself
PR_SET_CHILD_SUBREAPER = 36  # <linux/prctl.h>

# Services that the bus started become our children when it ends; so we can reap them.
ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)


def as_ordinary_user():
    """What to put before a command that shall have no more rights to its user's files than everybody
    has to theirs: root may write what nobody may write."""
    return ["setpriv", "--inh-caps=-all", "--bounding-set=-all"] if os.geteuid() == 0 else []


def end_group(process, bound=TERM_BOUND):
    """Ends a process with all of its group, and reaps it."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, number)
        except ProcessLookupError:
            pass
        try:
            process.wait(bound)
            break
        except subprocess.TimeoutExpired:
            continue
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


class Processes:
    """The programs of one private desktop. All of them carry a mark in their environment."""

    def __init__(self):
        self.mark = str(uuid.uuid4())
        self._running = []

    def __iter__(self):
        return iter(self._running)

    def start(self, arguments, env, **options):
        """Starts a program in a process group of its own; the caller gets the Popen object."""
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(
            [str(argument) for argument in arguments],
            env=dict(env, **{MARKER: self.mark}),
            start_new_session=True,
            **options,
        )
        self._running.append(process)
        return process

    def end(self, process):
        """Ends one program and what it started in its group."""
        end_group(process)
        self._running.remove(process)

    def end_all(self):
        """Ends everything, the last started first; raises if anything carrying the mark stays."""
        everyone = self.survivors()
        for process in reversed(self._running):
            end_group(process)
        self._running.clear()
        try:
            wait_until(lambda: not self.survivors(), 2.0, "services of the bus end by themselves")
        except NotReached:
            # Services that the bus started have groups of their own and may not notice its end.
            for pid in self.survivors():
                try:
                    os.kill(pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
        wait_until(lambda: not self.survivors(), TERM_BOUND, lambda: f"processes left: {self.survivors()}")
        for pid in everyone:
            try:
                os.waitpid(pid, os.WNOHANG)
            except ChildProcessError:
                pass  # reaped with its group, or not our child

    def survivors(self):
        """The ids of all living processes that carry the mark."""
        wanted = f"{MARKER}={self.mark}".encode()
        found = []
        for entry in pathlib.Path("/proc").iterdir():
            if not entry.name.isdigit():
                continue
            try:
                if wanted in (entry / "environ").read_bytes().split(b"\0"):
                    found.append(int(entry.name))
            except OSError:
                continue
        return found
