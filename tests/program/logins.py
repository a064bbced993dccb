# SPDX-License-Identifier: MIT
"""Logging in as a session without a desktop does it: by dex, which starts the entries of the user."""

import contextlib
import subprocess

from support.desktop import START_BOUND

ENTRY = "autostart/com.tarnwick.Quillery.desktop"  # in the folder of the user's settings


def start_entries(user, *options, **more):
    # The entries of the machine that runs the tests are nobody's business here.
    environment = dict(user.environment(), XDG_CONFIG_DIRS=str(user.folder / "none"))
    return user.desktop.start(["dex", "--autostart", *options], extra_env=environment, **more)


@contextlib.contextmanager
def logged_in(user, times=1):
    """A session of the user, whose entries have been started, at once if more than one time. What
    they started ends with the session."""
    starters = [start_entries(user) for _ in range(times)]
    try:
        for starter in starters:
            assert starter.wait(START_BOUND) == 0
        yield
    finally:
        for starter in starters:
            user.desktop.processes.end(starter)


def started_at_login(user):
    """What a session would start, as it tells."""
    process = start_entries(user, "--dry-run", "--verbose", stdout=subprocess.PIPE)
    told = process.communicate(timeout=START_BOUND)[0].decode()
    user.desktop.processes.end(process)
    return told
