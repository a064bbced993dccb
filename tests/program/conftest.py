# SPDX-License-Identifier: MIT
"""What the program tests share: desktops that are used again, and a program on them."""

import os
import pathlib
import re

import pytest

from support.desktop import Desktop
from support.quillery import Quillery

WINDOW_MANAGERS = ("openbox", "xfwm4", "i3")
PICTURES = pathlib.Path(__file__).resolve().parents[2] / "build/program-failures"

# The long loops: hundreds of pastes and kills, every combination.
IS_LONG = os.environ.get("QUILLERY_LONG") == "1"


class Desktops:
    """Desktops by what they are made of. Starting one takes as long as a test; a clean one is used
    by the next test."""

    def __init__(self):
        self._open = {}

    def get(self, **options):
        key = tuple(sorted(options.items()))
        if key not in self._open:
            desktop = Desktop(physical=True, **options)
            desktop.__enter__()
            self._open[key] = desktop
        return self._open[key]

    def tidy(self, is_failed):
        """Between two tests: what is in use is cleaned, or thrown away after a failure."""
        for key, desktop in list(self._open.items()):
            if is_failed or not desktop.is_clean():
                del self._open[key]
                desktop.close()

    def pictures(self, name):
        PICTURES.mkdir(parents=True, exist_ok=True)
        for number, desktop in enumerate(self._open.values()):
            desktop.screenshot(PICTURES / f"{name}-{number}.png")

    def close(self):
        for desktop in self._open.values():
            desktop.close()


@pytest.fixture(scope="session")
def all_desktops():
    desktops = Desktops()
    yield desktops
    desktops.close()


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    """Remembers a failure for the clean-up, and takes a picture of it."""
    report = (yield).get_result()
    if report.failed:
        item.has_failed = True
        if call.when == "call" and "all_desktops" in item.funcargs:
            item.funcargs["all_desktops"].pictures(re.sub(r"[^\w-]+", "-", item.name))


@pytest.fixture
def desktops(all_desktops, request):
    yield all_desktops
    all_desktops.tidy(is_failed=getattr(request.node, "has_failed", False))


@pytest.fixture
def desktop(desktops):
    """A desktop with openbox and without a tray."""
    return desktops.get(window_manager="openbox", accessibility=True)


@pytest.fixture(params=WINDOW_MANAGERS)
def each_desktop(desktops, request):
    """A desktop of each window manager."""
    return desktops.get(window_manager=request.param, accessibility=True)


@pytest.fixture
def tray_desktop(desktops):
    """A desktop with openbox and with a bar that shows tray icons."""
    return desktops.get(window_manager="openbox", accessibility=True, tray="tint2")


@pytest.fixture
def new_user():
    """Makes users of a desktop; their programs are ended with the test."""
    users = []

    def make(desktop, clips=(), snippets=(), **options):
        user = Quillery(desktop, **options)
        users.append(user)
        if clips or snippets:
            user.create_stores()
            user.add_clips(clips)
            user.add_snippets(snippets)
        return user

    yield make
    for user in users:
        user.stop()
