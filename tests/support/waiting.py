# SPDX-License-Identifier: MIT
"""Waiting for conditions: nothing in the tests sleeps for a time that was guessed."""

import time

POLL_INTERVAL = 0.01  # seconds between two looks at a condition


class NotReached(AssertionError):
    """A condition did not come true within its bound."""


def wait_until(condition, bound, what):
    """Returns the first true value of condition(); raises NotReached after bound seconds.

    what names the condition for the reader of a failed test: a text, or a function that makes one.
    """
    deadline = time.monotonic() + bound
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            text = what() if callable(what) else what
            raise NotReached(f"not within {bound} s: {text}")
        time.sleep(POLL_INTERVAL)


def stays(condition, duration, what):
    """Checks that condition() holds for duration seconds: the only way to see that nothing comes."""
    deadline = time.monotonic() + duration
    while time.monotonic() < deadline:
        assert condition(), what
        time.sleep(POLL_INTERVAL)
