# SPDX-License-Identifier: MIT
"""What the measurements see a program with: its painting, its pastes and its use of the machine."""

import pathlib
import select
import threading
import time

from Xlib import X, display, error
from Xlib.ext import damage

QUIET = 0.15  # seconds without painting after which a change of the screen is over
BOUND = 20.0  # seconds after which a measurement is given up


class PaintWatch:
    """Tells when a part of the screen is painted, as the X server sees it."""

    def __init__(self, name):
        self._display = display.Display(name)
        self._display.damage_query_version()
        self._display.screen().root.damage_create(damage.DamageReportRawRectangles)
        self._display.sync()

    def settle(self):
        """Waits until nothing has been painted for a while."""
        while any(True for _ in self._painted_areas(QUIET)):
            pass

    def painted(self, place, share=0.5, is_last=False, by="Quillery"):
        """The time at which at least that share of a place (x, y, width, height) was painted.

        is_last: the last such painting before the screen is quiet, instead of the first one."""
        last = None
        deadline = time.monotonic() + BOUND
        while time.monotonic() < deadline:
            times = [when for when, area in self._painted_areas(QUIET)
                     if common(area, place) >= share * place[2] * place[3]]
            if times and not is_last:
                return times[0]
            if times:
                last = times[-1]
            elif last is not None:
                return last
        raise TimeoutError(f"{by} painted nothing at {place}")

    def _painted_areas(self, quiet):
        """What is painted, each with the time of its report, until there is a quiet time."""
        deadline = time.monotonic() + quiet
        while True:
            waiting = self._display.pending_events()
            if not waiting:
                left = deadline - time.monotonic()
                if left <= 0:
                    return
                select.select([self._display.fileno()], [], [], left)
                waiting = self._display.pending_events()
            now = time.monotonic()
            for _ in range(waiting):
                happened = self._display.next_event()
                if type(happened).__name__ == "DamageNotify":
                    deadline = now + quiet
                    area = happened.area
                    yield now, (area.x, area.y, area.width, area.height)


def common(one, other):
    """The area that two rectangles share."""
    width = min(one[0] + one[2], other[0] + other[2]) - max(one[0], other[0])
    height = min(one[1] + one[3], other[1] + other[3]) - max(one[1], other[1])
    return max(width, 0) * max(height, 0)


class PasteTarget:
    """A bare window that takes what is pasted into it, on a thread of its own."""

    def __init__(self, name):
        self._display = display.Display(name)
        screen = self._display.screen()
        self.window = screen.root.create_window(
            40, 40, 300, 150, 0, screen.root_depth, background_pixel=screen.white_pixel,
            event_mask=X.KeyPressMask | X.StructureNotifyMask)
        self.window.set_wm_name("paste target")
        self.window.set_wm_class("target", "Target")
        self._clipboard = self._display.intern_atom("CLIPBOARD")
        self._utf8 = self._display.intern_atom("UTF8_STRING")
        self._v = self._display.keysym_to_keycode(ord("v"))
        self._insert = self._display.keysym_to_keycode(0xFF63)
        self.window.map()
        self._display.sync()
        self._received = threading.Event()
        self.received_at = None
        self.text = None
        threading.Thread(target=self._serve, daemon=True).start()

    def expect(self):
        self._received.clear()

    def wait(self):
        """The time at which the text was there."""
        if not self._received.wait(BOUND):
            raise TimeoutError("no text was received")
        return self.received_at

    def _serve(self):
        try:
            while True:
                self._handle(self._display.next_event())
        except (error.ConnectionClosedError, OSError):
            return

    def _handle(self, happened):
        if happened.type == X.KeyPress:
            is_paste = (happened.detail == self._v and happened.state & X.ControlMask
                        or happened.detail == self._insert and happened.state & X.ShiftMask)
            if is_paste:
                self.window.convert_selection(self._clipboard, self._utf8, self._utf8, happened.time)
                self._display.flush()
        elif happened.type == X.SelectionNotify and happened.property:
            answer = self.window.get_full_property(self._utf8, X.AnyPropertyType)
            self.received_at = time.monotonic()
            self.text = bytes(answer.value)
            self._received.set()


def threads(pid):
    return list(pathlib.Path(f"/proc/{pid}/task").iterdir())


def processor_time(pid):
    """(main thread, all threads) in seconds, from the scheduler's own count."""
    times = {int(task.name): int((task / "schedstat").read_text().split()[0]) / 1e9
             for task in threads(pid)}
    return times[pid], sum(times.values())


def wakeups(pid):
    """How often the threads of a process have given up the processor to wait."""
    total = 0
    for task in threads(pid):
        for line in (task / "status").read_text().splitlines():
            if line.startswith("voluntary_ctxt_switches"):
                total += int(line.split()[1])
    return total


def proportional_memory(pid):
    """PSS in megabytes."""
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise LookupError("Pss")
