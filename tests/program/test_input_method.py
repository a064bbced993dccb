# SPDX-License-Identifier: MIT
"""An input method of the desktop composes in the menu's search field."""

import subprocess

import pytest

from menus import highlighted
from support.desktop import START_BOUND
from support.targets import GtkTarget
from support.waiting import wait_until

# The engine starts with Latin letters otherwise.
HANGUL_AT_ONCE = """[org/freedesktop/ibus/engine/hangul]
initial-input-mode='hangul'
"""


class InputMethod:
    """An ibus of one user, with Korean on two sets of keys."""

    def __init__(self, user):
        self._user = user
        # Programs of the same user find it through a file below the configuration folder.
        self._env = dict(user.environment(), GSETTINGS_BACKEND="keyfile")
        self._daemon = None

    def __enter__(self):
        settings = self._user.config_folder / "glib-2.0/settings/keyfile"
        settings.parent.mkdir(parents=True)
        settings.write_text(HANGUL_AT_ONCE)
        self._daemon = self._user.desktop.start(
            ["ibus-daemon", "--panel=disable", "--emoji-extension=disable",
             "--config=/usr/libexec/ibus-memconf", "--cache=none"], extra_env=self._env)
        wait_until(self._is_up, START_BOUND, "the input method is up")
        return self

    def __exit__(self, *_details):
        self._user.desktop.processes.end(self._daemon)

    def _is_up(self):
        """Whether it runs and types Korean from now on."""
        return self._ask("engine", "hangul") is not None and self._ask("engine") == "hangul"

    def _ask(self, *arguments):
        answer = subprocess.run(["ibus", *arguments], env=dict(self._user.desktop.env, **self._env),
                                capture_output=True, text=True, timeout=START_BOUND)
        return answer.stdout.strip() if answer.returncode == 0 else None


@pytest.fixture
def user(each_desktop, new_user):
    user = new_user(each_desktop, environment={"QT_IM_MODULE": "ibus"},
                    snippets=[("Latin", "no"), ("한국어", "yes"), ("한글", "no")])
    with InputMethod(user), user:
        yield user


def test_what_an_input_method_composes_is_searched_for(user):
    desktop = user.desktop
    with GtkTarget(desktop) as target:
        user.summon()
        user.open_popover("Down", count=3)
        desktop.key("Right")
        wait_until(lambda: highlighted(user, "Snippets") == ["Latin"], START_BOUND, "first row")
        desktop.type_text("gksrnr")
        wait_until(lambda: "한" in desktop.accessibility.texts("Quillery"), START_BOUND,
                   lambda: f"the first syllable: {desktop.accessibility.texts('Quillery')}")
        # Ends the syllable that is still composed.
        desktop.key("Return")

        target.wait_for_text(b"yes")
        user.wait_gone()
