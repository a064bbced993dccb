# SPDX-License-Identifier: MIT
"""Runs the built program on a private desktop, and reaches it as a user does."""

import contextlib
import itertools
import os
import pathlib
import signal
import sqlite3
import time
import uuid

from gi.repository import GLib

from support.desktop import START_BOUND
from support.waiting import wait_until

BUS_NAME = "com.tarnwick.Quillery"
OBJECT_PATH = "/com/tarnwick/Quillery"
SUMMON = "shift+super+v"
ADD = "shift+super+c"
MENU_WIDTH = 250  # points; what is smaller is the tray icon on its way into the bar
APPLICATION = "Quillery"  # as the accessibility tree names the program

_numbers = itertools.count(1)


def program_path():
    """The program under test."""
    built = pathlib.Path(__file__).resolve().parents[2] / "build/release/quillery"
    return pathlib.Path(os.environ.get("QUILLERY_PROGRAM", built)).resolve()


class Quillery:
    """One user of the program: folders of its own, which outlive a restart of the program."""

    def __init__(self, desktop, first_load=False, environment=None, program=None, starter=(), **settings):
        """settings: keys of the settings file, for example historySize=9. starter: the command that
        runs the program, if something else does."""
        self.desktop = desktop
        self.folder = desktop.folder / f"user-{next(_numbers)}"
        self.data_folder = self.folder / "data/Quillery"
        self.config_folder = self.folder / "config"
        self.settings_file = self.config_folder / "Quillery/Quillery.conf"
        self.program = program or program_path()
        self._starter = starter
        self._environment = environment or {}
        self.process = None
        self.data_folder.mkdir(parents=True, mode=0o700)
        self.settings_file.parent.mkdir(parents=True)
        if not first_load:
            settings["firstLoad"] = False
        if settings:
            self.write_settings(settings)

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_details):
        self.stop()

    # -- life ---------------------------------------------------------------------------------

    def environment(self):
        return dict(
            self._environment,
            XDG_DATA_HOME=str(self.data_folder.parent),
            XDG_CONFIG_HOME=str(self.config_folder),
        )

    def start(self, ready=True):
        """Starts the program; returns when its name is on the bus and its hot keys are live."""
        self._errors = open(self.folder / "stderr", "ab")
        self.process = self.desktop.start([*self._starter, self.program], extra_env=self.environment(),
                                          stderr=self._errors, stdout=self._errors,
                                          restore_signals=False)
        if ready:
            wait_until(self._is_ready_or_ended, START_BOUND, lambda: f"ready; {self.errors()}")
            assert self.is_running(), self.errors()

    def start_second(self):
        """Starts the program again, while it runs. Returns the exit code of the second one."""
        second = self.desktop.start([self.program], extra_env=self.environment())
        code = second.wait(START_BOUND)
        self.desktop.processes.end(second)
        return code

    def _is_ready_or_ended(self):
        return not self.is_running() or (self.owns_name() and self.hot_keys_are_live())

    def owns_name(self):
        with_bus = "DBUS_SESSION_BUS_ADDRESS" in self.desktop.env
        return not with_bus or self.desktop.has_name(BUS_NAME)

    def hot_keys_are_live(self):
        server = self.desktop.server
        return server.is_grabbed("v", "shift", "super") and server.is_grabbed("c", "shift", "super")

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def quit(self):
        """Quits by the bus action and returns the exit code."""
        self.activate_action("quit")
        return self.wait_exit()

    def kill(self, number=signal.SIGKILL):
        os.kill(self.process.pid, number)
        return self.wait_exit()

    def wait_exit(self):
        code = self.process.wait(START_BOUND)
        self._forget()
        return code

    def stop(self):
        """Ends the program if it still runs."""
        if self.process is not None:
            self.desktop.processes.end(self.process)
            self._forget()

    def _forget(self):
        if self.process in self.desktop.processes:
            self.desktop.processes.end(self.process)
        self._errors.close()
        self.process = None

    def errors(self):
        """What the program printed."""
        return (self.folder / "stderr").read_text(errors="replace")

    def answer_time(self):
        """Seconds until the main thread answers: it refuses an action that it does not have."""
        began = time.monotonic()
        try:
            self.activate_action("no such action")
        except GLib.Error as refusal:
            assert "no action" in refusal.message
        return time.monotonic() - began

    def activate_action(self, name):
        self.desktop.call(BUS_NAME, OBJECT_PATH, "org.freedesktop.Application", "ActivateAction",
                          GLib.Variant("(sava{sv})", (name, [], {})))

    # -- files --------------------------------------------------------------------------------

    def write_settings(self, settings):
        lines = ["[General]"]
        for key, value in settings.items():
            text = str(value).lower() if isinstance(value, bool) else str(value)
            lines.append(f"{key}={text}")
        self.settings_file.write_text("\n".join(lines) + "\n")

    def settings(self):
        """The settings file as a mapping of texts."""
        if not self.settings_file.exists():
            return {}
        lines = self.settings_file.read_text().splitlines()
        return dict(line.split("=", 1) for line in lines if "=" in line)

    def store(self, name):
        return self.data_folder / f"{name}.sqlite"

    def query(self, store, statement, *values):
        """Rows of a store file, read as any other program would."""
        with contextlib.closing(sqlite3.connect(self.store(store), timeout=START_BOUND)) as file:
            file.text_factory = bytes
            return file.execute(statement, values).fetchall()

    def clips(self):
        """(position, content) of all clips in order of position; content as bytes."""
        if not self.store("clips").exists():
            return []
        return self.query("clips", "SELECT position, content FROM Clip ORDER BY position, pk")

    def contents(self):
        return [content for _position, content in self.clips()]

    def positions(self):
        return [position for position, _content in self.clips()]

    def create_stores(self):
        """Lets the program make its empty files, so that rows can be added to them."""
        self.start()
        wait_until(lambda: self.store("clips").exists() and self.store("snippets").exists(),
                   START_BOUND, "store files")
        self.quit()

    def add_clips(self, contents):
        """Adds clips behind the program's back, the first as the newest."""
        rows = [(position, str(uuid.uuid4()).upper(), "seed", content)
                for position, content in enumerate(contents, start=1)]
        self.insert("clips", "INSERT INTO Clip (position, id, device, content) VALUES (?,?,?,?)", rows)

    def add_snippets(self, snippets):
        """Adds (title, content) pairs; a content of None makes a folder."""
        rows = [(order, content is None, str(uuid.uuid4()).upper(), 0.0, title, content)
                for order, (title, content) in enumerate(snippets)]
        self.insert("snippets", 'INSERT INTO Snippet ("order", isFolder, id, timestamp, title, content)'
                                 " VALUES (?,?,?,?,?,?)", rows)

    def insert(self, store, statement, rows):
        """Adds rows to a store file, as another program would."""
        with contextlib.closing(sqlite3.connect(self.store(store), timeout=START_BOUND)) as file:
            with file:
                file.executemany(statement, rows)

    # -- the menu -----------------------------------------------------------------------------

    def windows(self):
        """The program's windows on the screen, the lowest first."""
        return self.desktop.server.find_windows(wm_class="Quillery")

    def menus(self):
        """The menu and its popover, as far as they are shown."""
        return [window for window in self.windows()
                if window.override_redirect and window.is_top_level and window.width >= MENU_WIDTH]

    def summon(self):
        """Presses the shortcut and waits until the menu has the keyboard."""
        self.desktop.key(SUMMON)
        wait_until(self.has_keyboard, START_BOUND, "menu is up with the keyboard")
        return self.menus()[0]

    def has_keyboard(self):
        """Whether the menu has it: another window of the program may have had it before."""
        server = self.desktop.server
        return any(server.has_focus(menu.id) for menu in self.menus())

    def wait_gone(self):
        wait_until(lambda: not self.menus(), START_BOUND, lambda: f"menu is gone: {self.menus()}")

    def open_popover(self, row_key, count=1):
        """Presses an arrow count times, which opens the popover of the row it reaches."""
        for _ in range(count):
            self.desktop.key(row_key)
        wait_until(lambda: len(self.menus()) == 2, START_BOUND, "popover is shown")

    def control(self, name, role=None):
        """The control with this accessible name that shows now."""
        look = lambda: self.desktop.accessibility.controls(APPLICATION, name, role)
        return wait_until(look, START_BOUND, lambda: f"{name!r} shows; there are {self.names()}")[0]

    def names(self):
        """The accessible names of everything that shows."""
        return [one.name for one in self.desktop.accessibility.controls(APPLICATION) if one.name]

    def click_on(self, name, role=None):
        self.desktop.click(*self.control(name, role).centre)
