# SPDX-License-Identifier: MIT
"""A private desktop: X server, session bus, window manager and user folders of its own.

With a physical keyboard there are two X servers, one inside the other. Keys that the tests press in
the outer one arrive in the inner one as those of a real keyboard; only so "the user still holds
Super" differs from keys that a program in the inner one injects.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from support.accessibility import Accessibility  # noqa: E402
from support.nudging import Nudging  # noqa: E402
from support.processes import Processes  # noqa: E402
from support.waiting import wait_until  # noqa: E402
from support.x11 import Server  # noqa: E402

START_BOUND = 30.0  # seconds for a program of the desktop to be up, on a busy machine
CLIPBOARD_BOUND = 60  # seconds for 50 MB between two programs

KEPT_VARIABLES = ("PATH", "TMPDIR", "ASAN_OPTIONS", "UBSAN_OPTIONS")

# Without a configuration i3 starts a wizard that takes the focus.
I3_CONFIGURATION = """font pango:monospace 8
focus_follows_mouse no
bindsym Mod4+Right focus right
"""


class Desktop:
    """A context manager; everything that was started in it is gone at its end."""

    def __init__(self, window_manager="openbox", physical=False, bus=True, accessibility=False,
                 tray=None, size=(1280, 800), environment=None):
        """window_manager: openbox, xfwm4, i3 or None. tray: tint2, trayer or None."""
        self.window_manager = window_manager
        self.size = size
        self.processes = Processes()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillery-"))
        self.env = self._make_environment(environment or {})
        self.accessibility = None
        self._physical = physical
        self._with_bus = bus
        self._with_accessibility = accessibility
        self._tray = tray
        self._bus_connection = None
        self._clipboard_owner = None
        self._servers = []
        self._nudging = None
        self._own_processes = []

    def __enter__(self):
        try:
            self._start()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_details):
        self.close()

    def close(self):
        """Ends everything; raises if a process is left."""
        if self._bus_connection is not None:
            self._bus_connection.close_sync(None)
            self._bus_connection = None
        if self._nudging is not None:
            self._nudging.end()
            self._nudging = None
        for server in self._servers:
            server.close()
        self._servers.clear()
        try:
            self.processes.end_all()
        finally:
            shutil.rmtree(self.folder, ignore_errors=True)

    # -- starting -----------------------------------------------------------------------------

    def _make_environment(self, extra):
        env = {name: os.environ[name] for name in KEPT_VARIABLES if name in os.environ}
        folders = {
            "HOME": "home",
            "XDG_CONFIG_HOME": "config",
            "XDG_DATA_HOME": "data",
            "XDG_CACHE_HOME": "cache",
            "XDG_STATE_HOME": "state",
            "XDG_RUNTIME_DIR": "runtime",
        }
        for variable, name in folders.items():
            folder = self.folder / name
            folder.mkdir(mode=0o700)
            env[variable] = str(folder)
        env.update(
            LANG="C.UTF-8",
            LC_ALL="C.UTF-8",
            PYTHONDONTWRITEBYTECODE="1",
            XDG_SESSION_TYPE="x11",
            GDK_BACKEND="x11",
            GIO_USE_VFS="local",
            GSETTINGS_BACKEND="memory",
            GTK_USE_PORTAL="0",
            LIBGL_ALWAYS_SOFTWARE="1",
            QT_QPA_PLATFORM="xcb",
        )
        env.update(extra)
        return env

    def _start(self):
        outer = self._start_server("Xvfb", ["-screen", "0", "{}x{}x24".format(*self.size)])
        if self._physical:
            self.env["DISPLAY"] = outer
            inner = self._start_server(
                "Xephyr", ["-screen", "{}x{}x24".format(*self.size), "-no-host-grab"]
            )
        else:
            inner = outer
        self.env["DISPLAY"] = inner
        self.server = self.connect(inner)
        # What the user's hands do goes to the outermost server.
        self.hands = self.connect(outer) if self._physical else self.server
        if self._physical:
            self._nudging = Nudging(outer)
        if self._with_bus:
            self._start_bus()
        if self._with_accessibility:
            self._start_accessibility()
        else:
            self.env["NO_AT_BRIDGE"] = "1"
        if self.window_manager is not None:
            self._start_window_manager()
        if self._tray is not None:
            self._start_tray()
        self._own_processes = list(self.processes)

    def connect(self, name=None):
        """One more connection to the desktop's server, closed with the desktop."""
        server = Server(name or self.env["DISPLAY"])
        self._servers.append(server)
        return server

    def _start_server(self, program, arguments):
        reader, writer = os.pipe()
        self.processes.start(
            [program, "-displayfd", writer, "-nolisten", "tcp", "-noreset", *arguments],
            self.env, pass_fds=[writer],
        )
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError(f"{program} does not start")
        return f":{number}"

    def _start_bus(self):
        bus = self.processes.start(
            ["dbus-daemon", "--session", "--nofork", "--print-address=1",
             f"--address=unix:path={self.folder}/runtime/bus"],
            self.env, stdout=subprocess.PIPE, text=True,
        )
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        bus.stdout.close()
        self._bus_connection = Gio.DBusConnection.new_for_address_sync(
            self.env["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None, None,
        )
        self._bus_connection.set_exit_on_close(False)

    def _start_accessibility(self):
        self.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.accessibility = Accessibility(self.processes, self.env)
        self.accessibility.applications()

    def _start_window_manager(self):
        i3_file = self.folder / "i3"
        i3_file.write_text(I3_CONFIGURATION)
        command = {
            "openbox": ["openbox", "--sm-disable", "--config-file", "/etc/xdg/openbox/rc.xml"],
            "xfwm4": ["xfwm4", "--compositor=off"],
            "i3": ["i3", "-c", i3_file],
        }[self.window_manager]
        self.processes.start(command, self.env)
        wait_until(self.server.has_window_manager, START_BOUND, f"{self.window_manager} is up")

    def _start_tray(self):
        command = {
            "tint2": ["tint2", "-c", self._tint2_configuration()],
            "trayer": ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request"],
        }[self._tray]
        self.processes.start(command, self.env)
        wait_until(self.has_tray, START_BOUND, f"{self._tray} is up")

    def _tint2_configuration(self):
        path = self.folder / "tint2rc"
        path.write_text(
            "panel_items = S\npanel_size = 200 32\npanel_position = bottom right horizontal\n"
            "systray_icon_size = 24\nsystray_monitor = 1\nstrut_policy = follow_size\n"
        )
        return path

    def is_clean(self):
        """Ends what a test left on the desktop. False if it cannot be used again."""
        if self._clipboard_owner is not None:
            self.forget_clipboard_owner()
        if self.server.keys_down():
            return False
        return all(process.poll() is None for process in self._own_processes) and not [
            process for process in self.processes if process not in self._own_processes
        ]

    # -- the session bus ----------------------------------------------------------------------

    def call(self, destination, path, interface, method, arguments=None, reply=None, bound=5000):
        """A call on the session bus; bound in milliseconds. Returns the unpacked answer."""
        answer = self._bus_connection.call_sync(
            destination, path, interface, method, arguments,
            GLib.VariantType(reply) if reply else None, Gio.DBusCallFlags.NONE, bound, None,
        )
        return answer.unpack()

    def has_name(self, name):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "NameHasOwner", GLib.Variant("(s)", (name,)), "(b)")[0]

    def has_tray(self):
        return self.server.selection_owner("_NET_SYSTEM_TRAY_S0") != 0

    # -- programs -----------------------------------------------------------------------------

    def start(self, arguments, **options):
        """Starts a program on this desktop."""
        extra = options.pop("extra_env", {})
        return self.processes.start(arguments, dict(self.env, **extra), **options)

    def run(self, arguments, bound=30, **options):
        """Runs a program to its end and returns its standard output as bytes."""
        return subprocess.run([str(argument) for argument in arguments], env=self.env, check=True,
                              stdout=subprocess.PIPE, timeout=bound, **options).stdout

    # -- the user's hands ---------------------------------------------------------------------

    def key(self, chord):
        self.hands.key(chord)

    def type_text(self, text):
        self.hands.type_text(text)

    def move_pointer(self, x, y):
        self.hands.move_pointer(x, y)
        wait_until(lambda: self.server.pointer() == (x, y), START_BOUND, f"pointer at {x}, {y}")

    def click(self, x, y, button=1):
        self.move_pointer(x, y)
        self.hands.button(button)

    def click_and_wait(self, x, y, button=1):
        """Clicks, and waits until the click is where it goes: a window manager may hold it back, and
        keys overtake it meanwhile."""
        self.click(x, y, button)
        self.move_pointer(x + 1, y)  # it comes after the click, and is waited for
        self.server.window_manager_answers(START_BOUND)

    # -- clipboard, by real programs ----------------------------------------------------------

    def copy(self, text, program="xclip", selection="clipboard"):
        """Copies a text (str or bytes) with a real program, which keeps owning the selection."""
        data = text.encode() if isinstance(text, str) else text
        source = self.folder / "copied"
        source.write_bytes(data)
        before = self.server.selection_owner(selection.upper())
        command = {
            "xclip": ["xclip", "-quiet", "-selection", selection, "-i", source],
            "xsel": ["xsel", "--nodetach", f"--{selection}", "--input"],
        }[program]
        previous = self._clipboard_owner
        with open(source, "rb") as stream:
            self._clipboard_owner = self.start(command, stdin=stream)
        wait_until(lambda: self.server.selection_owner(selection.upper()) not in (0, before),
                   START_BOUND, f"{program} owns the {selection}")
        if previous is not None:
            self.processes.end(previous)
        return self._clipboard_owner

    def forget_clipboard_owner(self):
        """Ends the program that copied last."""
        self.processes.end(self._clipboard_owner)
        self._clipboard_owner = None

    def clipboard(self, selection="clipboard"):
        """The text that another program would paste now, as bytes."""
        return self.run(["xclip", "-selection", selection, "-o", "-t", "UTF8_STRING"],
                        bound=CLIPBOARD_BOUND)

    # -- pictures -----------------------------------------------------------------------------

    def pixel(self, x, y):
        """The colour that is seen at a place of the screen."""
        return self.server.pixel(x, y)

    def screenshot(self, path):
        """Saves the whole screen as a picture."""
        self.run(["import", "-window", "root", path])

    def still_screenshot(self, path):
        """The same once two pictures in a row are alike: nothing moves any more."""
        raw = self.folder / "screen.ppm"  # holds the screen alone, and not when it was taken
        raw.unlink(missing_ok=True)

        def is_still():
            before = raw.read_bytes() if raw.exists() else None
            self.screenshot(raw)
            return raw.read_bytes() == before

        wait_until(is_still, START_BOUND, "nothing moves")
        self.run(["convert", raw, path])


def support_path(name):
    """A program of this folder, as a command to start with the running interpreter."""
    return [sys.executable, pathlib.Path(__file__).with_name(name)]
