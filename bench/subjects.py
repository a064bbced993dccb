# SPDX-License-Identifier: MIT
"""The programs that are measured, each with the way a user takes through it."""

import pathlib

from support.desktop import START_BOUND
from support.quillery import Quillery
from support.waiting import NotReached, wait_until

SUMMON = "shift+super+v"
SMALLEST_MENU = 100  # pixels wide; what is smaller is a tray icon
FOCUS_BOUND = 1.0  # seconds
POINTER = (200, 150)  # where menus are summoned; clear of the paste target

COPYQ_SETTINGS = """[Options]
maxitems=1000
activate_closes=true
activate_focuses=true
activate_pastes=true
check_clipboard=true
close_on_unfocus=false
confirm_exit=false
disable_tray=false
hide_main_window=true
restore_geometry=true
"""

COPYQ_COMMANDS = """[Commands]
1\\Name=Show
1\\Command=copyq: show()
1\\IsGlobalShortcut=true
1\\GlobalShortcut=meta+shift+v
size=1
"""


class Subject:
    """A program on a desktop. wm_class finds its windows. pastes_at_press: it does not wait for the
    key that picks to be up again, so its time begins when that goes down."""

    pastes_at_press = False
    is_peer = False  # a program of others

    name = ""
    wm_class = ""
    is_unmanaged = True  # its menus stand on the root, in no frame of the window manager

    def __init__(self, desktop):
        self.desktop = desktop
        self.process = None

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_details):
        self.stop()

    @property
    def pid(self):
        return self.process.pid

    def launch(self):
        """Starts the program without waiting for it."""
        raise NotImplementedError

    def start(self):
        self.launch()
        wait_until(self.is_live, START_BOUND, f"{self.name} is live")

    def is_live(self):
        return self.desktop.server.is_grabbed("v", "shift", "super")

    def stop(self):
        self.desktop.processes.end(self.process)
        wait_until(lambda: not self.is_live(), START_BOUND, f"{self.name} has ended")

    def menus(self):
        return [window for window in self.desktop.server.find_windows(wm_class=self.wm_class)
                if window.width >= SMALLEST_MENU
                and (window.is_top_level or not self.is_unmanaged)]

    def wait_menu(self):
        return wait_until(lambda: [menu for menu in self.menus()
                                   if self.desktop.server.has_focus(menu.id)],
                          START_BOUND, f"{self.name} shows its menu")[0]

    def wait_gone(self):
        wait_until(lambda: not self.menus(), START_BOUND, f"the menu of {self.name} is gone")

    def choose(self):
        """From the summoned menu to the moment before the pick key."""

    def leave(self):
        self.desktop.key("Escape")
        self.wait_gone()


class Floor(Subject):
    """One of the floor programs."""

    def __init__(self, desktop, program, name, wm_class):
        super().__init__(desktop)
        self.name = name
        self.wm_class = wm_class
        self._program = program

    def launch(self):
        self.process = self.desktop.start([self._program])


class QuillerySubject(Subject):
    name = "Quillery"
    wm_class = "Quillery"

    def __init__(self, desktop, program, clips=0, snippets=0, snippet_bytes=40):
        super().__init__(desktop)
        self.user = Quillery(desktop, program=program, historySize=9)
        self.user.create_stores()
        self.user.add_clips([f"clip {number}" for number in range(clips)])
        self.user.add_snippets([self._snippet(number, snippet_bytes) for number in range(snippets)])

    @staticmethod
    def _snippet(number, size):
        words = f"snippet {number} " + " ".join(f"{number * 7919 % 9973:x}{word}" for word in WORDS)
        return f"title {number}", (words * (size // len(words) + 1))[:size]

    def launch(self):
        self.user.start(ready=False)
        self.process = self.user.process

    def stop(self):
        self.user.quit()

    def choose(self):
        self.user.open_popover("Down")
        self.desktop.key("Right")


WORDS = ("alpha", "bravo", "charlie", "delta", "echo", "foxtrot", "golf", "hotel")


class CopyqSubject(Subject):
    """CopyQ with as many items and the same hot key, as its users set it up."""

    name = "CopyQ"
    wm_class = "copyq"
    is_unmanaged = False
    pastes_at_press = True
    is_peer = True

    def __init__(self, desktop, items=998):
        super().__init__(desktop)
        self._folder = desktop.folder / "copyq"
        self._env = {"XDG_CONFIG_HOME": str(self._folder / "config"),
                     "XDG_DATA_HOME": str(self._folder / "data")}
        settings = pathlib.Path(self._env["XDG_CONFIG_HOME"], "copyq")
        settings.mkdir(parents=True, exist_ok=True)
        (settings / "copyq.conf").write_text(COPYQ_SETTINGS)
        (settings / "copyq-commands.ini").write_text(COPYQ_COMMANDS)
        self._items = items

    def launch(self):
        self.process = self.desktop.start(["copyq"], extra_env=self._env)

    def wait_menu(self):
        """Its window is an ordinary one, which does not always get the keyboard by itself."""
        menu = wait_until(self.menus, START_BOUND, "the window of CopyQ is shown")[0]
        has_focus = lambda: self.desktop.server.has_focus(menu.id)
        try:
            wait_until(has_focus, FOCUS_BOUND, "CopyQ has the keyboard")
        except NotReached:
            self.desktop.click(*menu.centre)
            wait_until(has_focus, START_BOUND, "CopyQ has the keyboard after a click")
        return menu

    def start(self):
        super().start()
        self._ask("eval", "-e", f"if (count() < {self._items})"
                                f" for (var i = 0; i < {self._items}; ++i) add('item ' + i)")

    def _ask(self, *arguments):
        client = self.desktop.start(["copyq", *arguments], extra_env=self._env)
        client.wait(START_BOUND * 4)
        self.desktop.processes.end(client)

    def stop(self):
        self._ask("exit")
        super().stop()
