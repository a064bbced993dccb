# SPDX-License-Identifier: MIT
"""What is picked arrives, byte by byte, in the program that was in use."""

import itertools

import pytest

from conftest import IS_LONG, WINDOW_MANAGERS
from menus import (
    highlighted,
    open_by_bus,
    open_by_second_start,
    open_by_tray_click,
    open_panel,
    pick_by_keyboard,
    pick_by_mouse,
    rows_down_to,
)
from support.desktop import START_BOUND
from support.quillery import SUMMON
from support.recorder import KeyRecorder
from support.samples import SIZES, mixed_text
from support.targets import TARGETS
from support.waiting import stays, wait_until

PICKS = {"keyboard": pick_by_keyboard, "mouse": pick_by_mouse}
FIELDS = ("gtk", "qt")
OPENINGS = {"panel": open_panel, "tray": open_by_tray_click, "second-start": open_by_second_start}
# Seconds. A machine that does something else as well adds its own waits to what is seen from outside.
FOCUS_BOUND = 1.0  # seconds that a window may take to get the keyboard before nothing is typed
QUIET = 0.5  # seconds after it in which a wrong keystroke would have come
MAIN_THREAD_BOUND = 0.1 if IS_LONG else 0.5
PASTES_IN_A_ROW = 300 if IS_LONG else 12


def texts():
    """The samples by the first line, which is what a row shows of them."""
    return {f"sample {label}": mixed_text(size) for label, size in SIZES.items()}


def as_snippets():
    return list(texts().items())


def paste_all(user, target, opening, pick):
    """Picks each sample once; each has to arrive as it is."""
    for title, text in texts().items():
        target.focus()
        OPENINGS[opening](user)
        PICKS[pick](user, "Snippets", title)
        target.wait_for_text(text)
        wait_until(target.has_focus, START_BOUND, "the target has the keyboard again")
        user.wait_gone()
        target.clear()


@pytest.mark.parametrize("name", TARGETS)
def test_a_snippet_picked_by_keyboard_in_the_panel_arrives(each_desktop, new_user, name):
    with new_user(each_desktop, snippets=as_snippets()) as user, TARGETS[name](each_desktop) as target:
        paste_all(user, target, "panel", "keyboard")


# Every combination in the long run; in the short one each target by each of the other ways.
MANAGERS = WINDOW_MANAGERS if IS_LONG else WINDOW_MANAGERS[:1]


@pytest.mark.parametrize("name", TARGETS)
@pytest.mark.parametrize("manager", MANAGERS)
def test_a_snippet_picked_by_mouse_in_the_panel_arrives(desktops, new_user, name, manager):
    desktop = desktops.get(window_manager=manager, accessibility=True)
    with new_user(desktop, snippets=as_snippets()) as user, TARGETS[name](desktop) as target:
        paste_all(user, target, "panel", "mouse")


@pytest.mark.parametrize("name", FIELDS)
def test_a_snippet_picked_by_mouse_arrives_under_each_window_manager(each_desktop, new_user, name):
    with new_user(each_desktop, snippets=[("One", "first"), ("Two", "second ü")]) as user:
        with TARGETS[name](each_desktop) as target:
            open_panel(user)
            pick_by_mouse(user, "Snippets", "Two")

            target.wait_for_text("second ü".encode())


@pytest.mark.parametrize("name", TARGETS)
@pytest.mark.parametrize("pick", PICKS)
@pytest.mark.parametrize("opening", ["tray", "second-start"])
def test_a_snippet_picked_in_the_menu_bar_window_arrives(tray_desktop, new_user, name, pick, opening):
    with new_user(tray_desktop, snippets=as_snippets()) as user, TARGETS[name](tray_desktop) as target:
        paste_all(user, target, opening, pick)


@pytest.mark.parametrize("name", FIELDS)
@pytest.mark.parametrize("pick", PICKS)
def test_a_clip_picked_in_the_history_arrives_and_moves_to_the_top(each_desktop, new_user, pick, name):
    with new_user(each_desktop, clips=["newest", "middle ü", "oldest"]) as user:
        with TARGETS[name](each_desktop) as target:
            user.summon()
            PICKS[pick](user, "History", "middle ü")

            target.wait_for_text("middle ü".encode())
            wait_until(lambda: user.contents() == ["middle ü".encode(), b"newest", b"oldest"],
                       START_BOUND, lambda: str(user.clips()))
            assert user.positions() == [1, 2, 3]


# Every combination in the long run; in the short one each target with one of the sizes.
SIZED_CLIPS = list(itertools.product(TARGETS, SIZES) if IS_LONG
                   else zip(TARGETS, itertools.cycle(SIZES)))


@pytest.mark.parametrize("name, size", SIZED_CLIPS)
def test_a_clip_of_any_size_arrives_in_any_target(desktop, new_user, name, size):
    text = mixed_text(SIZES[size])
    with new_user(desktop, clips=["newest", text.decode()]) as user, TARGETS[name](desktop) as target:
        user.summon()
        user.open_popover("Down")
        desktop.key("Right")
        wait_until(lambda: highlighted(user, "History") == ["newest"], START_BOUND, "first row")
        for key in ("Down", "Return"):
            desktop.key(key)

        target.wait_for_text(text)
        wait_until(lambda: user.contents() == [text, b"newest"], START_BOUND, "at the top")


def test_the_shortcut_keys_may_still_be_held_while_the_text_is_picked(each_desktop, new_user):
    with new_user(each_desktop, clips=["held"]) as user, TARGETS["gtk"](each_desktop) as target:
        hands = each_desktop.hands
        for key in ("Shift_L", "Super_L", "v"):
            hands.press(key)
        wait_until(user.has_keyboard, START_BOUND, "menu is up")
        hands.release("v")
        # By mouse: some window managers take Shift+Super with an arrow for themselves.
        pick_by_mouse(user, "History", "held")

        target.wait_for_text(b"held")
        for key in ("Super_L", "Shift_L"):
            hands.release(key)
        wait_until(lambda: each_desktop.server.keys_down() == [], START_BOUND, "no key is down")
        each_desktop.type_text("after")
        target.wait_for_text(b"heldafter")


def test_shift_that_is_still_held_is_held_again_after_the_paste(each_desktop, new_user):
    with new_user(each_desktop, clips=["x"]) as user, TARGETS["gtk"](each_desktop) as target:
        user.summon()
        user.open_popover("Down")
        each_desktop.key("Right")
        each_desktop.hands.press("Shift_L")
        each_desktop.key("Return")

        target.wait_for_text(b"x")
        each_desktop.key("a")
        each_desktop.hands.release("Shift_L")
        each_desktop.key("a")
        target.wait_for_text(b"xAa")


def test_the_shortcut_and_the_paste_work_after_a_change_of_the_layout(desktop, new_user):
    with new_user(desktop, clips=["layout"]) as user, TARGETS["gtk"](desktop) as target:
        desktop.run(["setxkbmap", "fr"])
        try:
            user.summon()
            user.open_popover("Down")
            for key in ("Right", "Return"):
                desktop.key(key)
            target.wait_for_text(b"layout")
        finally:
            desktop.run(["setxkbmap", "us"])


def test_pastes_in_a_row_all_arrive(each_desktop, new_user):
    with new_user(each_desktop, snippets=[("Dot", ".")]) as user, TARGETS["gtk"](each_desktop) as target:
        for number in range(1, PASTES_IN_A_ROW + 1):
            each_desktop.key(SUMMON)
            wait_until(user.has_keyboard, START_BOUND, "menu is up")
            # As fast as fingers may be: nothing is waited for between these keys.
            each_desktop.type_text("d")
            each_desktop.key("Return")
            target.wait_for_text(b"." * number)
            user.wait_gone()


def test_a_fifty_megabyte_text_is_recorded_and_pasted(desktop, new_user):
    text = mixed_text(50 << 20)
    with new_user(desktop) as user, TARGETS["xterm"](desktop) as target:
        slowest = SlowestAnswer(user)
        desktop.copy(text)
        wait_until(lambda: slowest.look() and user.positions() == [1], START_BOUND, "recorded")
        assert user.contents() == [text]
        target.focus()
        user.summon()
        user.open_popover("Down")
        for key in ("Right", "Return"):
            desktop.key(key)

        wait_until(lambda: slowest.look() and target.path.stat().st_size == len(text),
                   4 * START_BOUND, "the whole text")
        assert target.text() == text
        assert slowest.seconds <= MAIN_THREAD_BOUND


class SlowestAnswer:
    """The longest time that the program's main thread took to answer."""

    def __init__(self, user):
        self._user = user
        self.seconds = 0.0

    def look(self):
        self.seconds = max(self.seconds, self._user.answer_time())
        return True


def aim_at_the_only_snippet(user):
    user.summon()
    user.open_popover("Down", count=rows_down_to(user, "Snippets"))
    user.desktop.key("Right")


def test_nothing_is_typed_when_the_target_has_gone(desktop, new_user):
    letter, pick = desktop.server.keycode("v"), desktop.server.keycode("Return")
    with new_user(desktop, snippets=[("Only", "kept")]) as user:
        target = TARGETS["gtk"](desktop)
        target.start()
        with KeyRecorder(desktop) as keys:
            aim_at_the_only_snippet(user)
            desktop.key("Return")
            target.wait_for_text(b"kept")
            chord = [desktop.server.keycode("Control_L"), letter]
            wait_until(lambda: keys.pressed[-2:] == chord, START_BOUND, lambda: f"pasted by keys: {keys.pressed}")
            user.wait_gone()
            aim_at_the_only_snippet(user)
            target.stop()
            desktop.key("Return")

            user.wait_gone()
            wait_until(lambda: keys.pressed[-1] == pick, START_BOUND, lambda: f"picked by a key: {keys.pressed}")
            stays(lambda: keys.pressed[-1] == pick, FOCUS_BOUND + QUIET, "nothing follows the key that picked")
        assert desktop.clipboard() == b"kept"
        assert user.is_running()


def test_a_menu_that_a_launcher_opened_pastes_too(desktop, new_user):
    with new_user(desktop, clips=["launched"]) as user, TARGETS["gtk"](desktop) as target:
        open_by_bus(user)
        pick_by_keyboard(user, "History", "launched")

        target.wait_for_text(b"launched")
