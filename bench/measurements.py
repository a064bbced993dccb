# SPDX-License-Identifier: MIT
"""The measurements. Times are in milliseconds, each a list of samples."""

import contextlib
import sys
import time

from probes import PaintWatch, PasteTarget, processor_time, proportional_memory, wakeups
from subjects import POINTER, SUMMON, CopyqSubject, Floor, QuillerySubject
from support.desktop import START_BOUND, Desktop
from support.waiting import NotReached, wait_until

ROUNDS = 6  # of all subjects in turn, so that whatever else the machine does meets all of them
SUMMONS = 60
PASTES = 60
STARTS = 15
KEYSTROKES = 60
COPIES = 10
IDLE_SECONDS = 15
SEARCHES = "1234567890"
KEY_HOLD = 0.06  # seconds that a finger stays on a key

FULL_HISTORY = 998
LARGE_LIBRARY = 10_000
FULL_LIBRARY = 32_767


def measure_all(program, floors):
    """Returns {measurement: {subject: samples}}."""
    # Keys of XTEST are never held by a finger, so the paste would not wait for their release.
    with Desktop("openbox", physical=True) as desktop:
        pastes = Bench(desktop, program, floors).pastes()
    with Desktop("openbox", tray="tint2") as desktop:
        bench = Bench(desktop, program, floors)
        return {
            "summon": bench.summons(),
            "paste": pastes,
            "search": bench.searches(),
            "start": bench.starts(),
            **bench.residents(),
            **bench.recordings(),
        }


def in_rounds(subjects, samples_of):
    """Starts the subjects in turn, several times; returns {subject: samples}."""
    results = {subject.name: [] for subject in subjects}
    for _ in range(ROUNDS):
        for subject in subjects:
            with subject, lenience(subject):
                for sample in samples_of(subject):
                    results[subject.name].append(sample)
    return results


@contextlib.contextmanager
def lenience(subject):
    """A peer that hangs ends its round; the samples before that count. Our own program may not."""
    try:
        yield
    except (TimeoutError, NotReached) as why:
        if not subject.is_peer:
            raise
        print(f"{subject.name} gave up a round: {why}", file=sys.stderr)


class Bench:
    def __init__(self, desktop, program, floors):
        self._desktop = desktop
        self._program = program
        self._floors = floors
        self._paint = PaintWatch(desktop.env["DISPLAY"])
        self._target = PasteTarget(desktop.env["DISPLAY"])
        server = desktop.server
        wait_until(lambda: server.find_windows(title="paste target"), START_BOUND, "paste target")
        self._focus_target()

    # -- subjects -----------------------------------------------------------------------------

    def _xcb_floor(self):
        return Floor(self._desktop, self._floors["xcb_floor"], "bare XCB", "Floor")

    def _popup_floor(self):
        return Floor(self._desktop, self._floors["qt_popup_floor"], "bare Qt popup", "qt_popup_floor")

    def _resident_floor(self):
        return Floor(self._desktop, self._floors["qt_resident_floor"], "bare Qt program", "none")

    def _quillery(self, clips=FULL_HISTORY, snippets=LARGE_LIBRARY, **options):
        return QuillerySubject(self._desktop, self._program, clips, snippets, **options)

    # -- hot key to painted menu --------------------------------------------------------------

    def summons(self):
        subjects = (self._xcb_floor(), self._popup_floor(), self._quillery(),
                    CopyqSubject(self._desktop))
        return in_rounds(subjects, lambda subject: self._summon_times(subject, SUMMONS // ROUNDS))

    def _summon_times(self, subject, count):
        self._ready_to_summon()
        place = self._place_of_menu(subject)
        for _ in range(count):
            self._ready_to_summon()
            pressed = self._press_summon()
            try:
                painted = self._paint.painted(place, by=subject.name)
            finally:
                self._release_summon()
            yield (painted - pressed) * 1000
            subject.wait_menu()
            subject.leave()

    def _ready_to_summon(self):
        self._focus_target()
        self._desktop.move_pointer(*POINTER)
        self._paint.settle()

    def _focus_target(self):
        window = self._desktop.server.find_windows(title="paste target")[0]
        self._desktop.click(window.x + 20, window.y + 20)
        wait_until(lambda: self._desktop.server.has_focus(window.id), START_BOUND, "target has the focus")

    def _place_of_menu(self, subject):
        self._desktop.key(SUMMON)
        menu = subject.wait_menu()
        self._paint.settle()
        subject.leave()
        return menu.x, menu.y, menu.width, menu.height

    def _press_summon(self):
        """Presses the shortcut; returns the time of its last key."""
        hands = self._desktop.hands
        for modifier in ("Shift_L", "Super_L"):
            hands.press(modifier)
        pressed = time.monotonic()
        hands.press("v")
        return pressed

    def _release_summon(self):
        for key in ("v", "Super_L", "Shift_L"):
            self._desktop.hands.release(key)

    # -- pick to pasted text ------------------------------------------------------------------

    def pastes(self):
        subjects = (self._xcb_floor(), self._quillery(), CopyqSubject(self._desktop))
        return in_rounds(subjects, lambda subject: (self._paste_time(subject)
                                                    for _ in range(PASTES // ROUNDS)))

    def _paste_time(self, subject):
        self._ready_to_summon()
        self._desktop.key(SUMMON)
        subject.wait_menu()
        subject.choose()
        self._paint.settle()
        self._target.expect()
        began = time.monotonic()
        self._desktop.hands.press("Return")
        if not subject.pastes_at_press:
            time.sleep(KEY_HOLD)
            began = time.monotonic()
        self._desktop.hands.release("Return")
        received = self._target.wait()
        subject.wait_gone()
        return (received - began) * 1000

    # -- a key in the search field ------------------------------------------------------------

    def searches(self):
        with self._quillery(snippets=FULL_LIBRARY, snippet_bytes=1024) as subject:
            self._ready_to_summon()
            self._desktop.key(SUMMON)
            subject.wait_menu()
            self._desktop.key("a")
            wait_until(lambda: len(subject.menus()) == 2, START_BOUND, "snippets are open")
            self._desktop.key("BackSpace")
            self._paint.settle()
            return {subject.name: [self._keystroke_time(subject, number)
                                   for number in range(KEYSTROKES)]}

    def _keystroke_time(self, subject, number):
        """Types a digit, or takes it back."""
        popover = subject.menus()[-1]
        key = SEARCHES[number // 2 % len(SEARCHES)] if number % 2 == 0 else "BackSpace"
        self._paint.settle()
        pressed = time.monotonic()
        self._desktop.key(key)
        place = (popover.x, popover.y, popover.width, popover.height)
        painted = self._paint.painted(place, share=0.2, is_last=True)
        return (painted - pressed) * 1000

    # -- start, memory, wake-ups --------------------------------------------------------------

    def starts(self):
        subjects = (self._resident_floor(), self._quillery())
        results = {subject.name: [] for subject in subjects}
        for _ in range(STARTS):
            for subject in subjects:
                results[subject.name].append(self._start_time(subject))
        return results

    def _start_time(self, subject):
        began = time.monotonic()
        subject.launch()
        wait_until(subject.is_live, START_BOUND, f"{subject.name} is live")
        live = time.monotonic()
        if isinstance(subject, QuillerySubject):
            wait_until(subject.user.owns_name, START_BOUND, "name on the bus")
        subject.stop()
        return (live - began) * 1000

    def residents(self):
        memory, woken = {}, {}
        for subject in (self._resident_floor(), self._quillery(clips=18, snippets=200),
                        CopyqSubject(self._desktop, items=18)):
            with subject:
                self._paint.settle()
                before = wakeups(subject.pid)
                self._wait(IDLE_SECONDS)
                woken[subject.name] = [(wakeups(subject.pid) - before) / IDLE_SECONDS]
                memory[subject.name] = [proportional_memory(subject.pid)]
        return {"wakeups": woken, "memory": memory}

    @staticmethod
    def _wait(seconds):
        """Lets time go by: here the time itself is what is measured."""
        time.sleep(seconds)

    # -- recording ----------------------------------------------------------------------------

    def recordings(self):
        main, everything = {}, {}
        for subject in (self._quillery(snippets=200), CopyqSubject(self._desktop)):
            with subject:
                main[subject.name], everything[subject.name] = self._recording_times(subject)
        return {"record main": main, "record all": everything}

    def _recording_times(self, subject):
        """Processor time per copy, less what the program takes when nothing is copied."""
        main, everything = [], []
        for number in range(COPIES):
            idle = self._processor_time_during_a_poll(subject)
            busy = self._processor_time_during_a_poll(subject, f"copy {number} of {subject.name}")
            main.append((busy[0] - idle[0]) * 1000)
            everything.append((busy[1] - idle[1]) * 1000)
        return main, everything

    def _processor_time_during_a_poll(self, subject, text=None):
        before = processor_time(subject.pid)
        if text is not None:
            self._desktop.copy(text)
        self._wait(1.5)
        after = processor_time(subject.pid)
        return after[0] - before[0], after[1] - before[1]
