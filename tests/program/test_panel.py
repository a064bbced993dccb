# SPDX-License-Identifier: MIT
"""The menu comes at the pointer, has the keyboard, never becomes the active window, and goes."""

import time

import pytest

from menus import highlighted, open_by_second_start, open_by_tray_click, tray_icon
from support.desktop import START_BOUND
from support.samples import mixed_text
from support.targets import GtkTarget, XtermTarget
from support.waiting import stays, wait_until

PANEL_WIDTH = 250
POINTER_GAP = 5  # from the pointer to the panel's left edge
AWAY = (60, 740)  # on the bare desktop, outside every menu and field of these tests
OPEN_BOUND = 5.0  # seconds on a busy machine; to lay a huge text out takes minutes
QUIET = 1.0  # seconds in which a wrong keystroke would have come


def wait_back(target):
    wait_until(target.has_focus, START_BOUND, "the target has the keyboard again")


@pytest.fixture
def user(each_desktop, new_user):
    with new_user(each_desktop, clips=["newest", "oldest"],
                  snippets=[("Alpha", "first"), ("Box", None), ("Beta", "second")]) as user:
        yield user


@pytest.fixture
def target(user):
    with GtkTarget(user.desktop) as target:
        yield target


def test_the_panel_stands_at_the_pointer(user, target):
    user.desktop.move_pointer(300, 200)

    menu = user.summon()

    assert (menu.x, menu.y, menu.width) == (300 + POINTER_GAP, 200, PANEL_WIDTH)


def test_near_the_right_edge_the_panel_is_pinned_to_it(user, target):
    user.desktop.move_pointer(1200, 200)

    menu = user.summon()

    assert (menu.x, menu.y) == (user.desktop.size[0] - PANEL_WIDTH, 200)


def test_the_popovers_stay_inside_the_screen(user, target):
    user.desktop.move_pointer(*[side - 40 for side in user.desktop.size])
    user.summon()
    user.open_popover("Down", count=3)
    user.control("Alpha")

    def is_inside():
        popover = user.menus()[1]
        return (popover.x >= 0 and popover.y >= 0
                and popover.x + popover.width <= user.desktop.size[0]
                and popover.y + popover.height <= user.desktop.size[1])
    wait_until(is_inside, START_BOUND, lambda: f"inside {user.desktop.size}: {user.menus()}")


def test_the_panel_never_becomes_the_active_window(user, target):
    server = user.desktop.server
    user.summon()

    ours = {window.id for window in user.windows()}
    stays(lambda: server.active_window() not in ours, QUIET, "the program is not the active one")
    user.desktop.key("Escape")
    user.wait_gone()
    wait_until(lambda: server.active_window() == target.window_id, START_BOUND, "the target is active")


def test_escape_closes_the_panel_and_types_nothing(user, target):
    user.summon()
    user.desktop.key("Escape")

    user.wait_gone()
    wait_back(target)
    stays(lambda: target.text() == b"", QUIET, "nothing is typed")
    user.desktop.type_text("z")
    target.wait_for_text(b"z")


def test_escape_closes_the_popover_first_and_then_the_panel(user, target):
    user.summon()
    user.open_popover("Down")
    user.desktop.key("Escape")
    wait_until(lambda: len(user.menus()) == 1, START_BOUND, "the popover is closed")
    user.desktop.key("Escape")

    user.wait_gone()
    wait_back(target)


def test_a_click_on_the_target_closes_the_panel(user, target):
    user.desktop.move_pointer(20, 20)
    user.summon()
    user.desktop.click(*target.window().centre)

    user.wait_gone()
    wait_back(target)
    stays(lambda: target.text() == b"", QUIET, "nothing is typed")


def place_aside(desktop, other):
    """Puts a window where it covers no other one."""
    if desktop.window_manager == "i3":
        return  # puts them side by side by itself
    desktop.run(["wmctrl", "-r", other.title, "-e", "0,20,20,200,100"])
    wait_until(lambda: other.window().x < 100, START_BOUND, "the other window is at its place")


def test_a_click_on_another_program_closes_the_panel_and_gives_it_the_keyboard(user, target):
    desktop = user.desktop
    with XtermTarget(desktop) as other:
        place_aside(desktop, other)
        target.focus()
        desktop.move_pointer(400, 700)
        user.summon()
        desktop.click(other.window().x + 60, other.window().y + 60)

        user.wait_gone()
        wait_until(other.has_focus, START_BOUND, "the other program has the keyboard")
        desktop.type_text("q")
        other.wait_for_text(b"q")
        assert target.text() == b""


def switch_to(desktop, other):
    """As its users do: with the keys of i3, from a task list elsewhere."""
    if desktop.window_manager == "i3":
        desktop.key("super+Right")
    else:
        desktop.run(["wmctrl", "-a", other.title])


def test_the_panel_goes_when_another_program_takes_the_focus(user, target):
    desktop = user.desktop
    with XtermTarget(desktop) as other:
        place_aside(desktop, other)
        target.focus()
        user.summon()
        switch_to(desktop, other)

        user.wait_gone()
        wait_until(other.has_focus, START_BOUND, "the other program has the keyboard")


def test_the_panel_goes_when_a_task_list_activates_another_program_under_i3(desktops, new_user):
    desktop = desktops.get(window_manager="i3", accessibility=True)
    with new_user(desktop, clips=["only"]) as user, XtermTarget(desktop) as other:
        with GtkTarget(desktop):
            user.summon()
            desktop.run(["wmctrl", "-a", other.title])

            user.wait_gone()
            wait_until(other.has_focus, START_BOUND, "the other program has the keyboard")
            desktop.type_text("q")
            other.wait_for_text(b"q")


def test_a_click_into_the_panel_leaves_it_open(user, target):
    user.desktop.move_pointer(300, 200)
    user.summon()
    user.click_on("Clear History", "list item")

    user.control("Confirm?")
    assert user.menus()


def test_clearing_the_history_removes_every_clip(user, target):
    user.summon()
    user.click_on("Clear History", "list item")
    user.click_on("Confirm?")

    wait_until(lambda: user.contents() == [], START_BOUND, lambda: str(user.clips()))


def test_cancelling_the_clearing_leaves_every_clip(user, target):
    user.summon()
    user.click_on("Clear History", "list item")
    user.click_on("Cancel")
    wait_until(lambda: "Confirm?" not in user.names(), START_BOUND, "the question is gone")

    assert user.contents() == [b"newest", b"oldest"]


def test_the_arrows_go_round_the_rows(user, target):
    user.summon()
    desktop = user.desktop
    seen = []
    for _ in range(5):
        desktop.key("Down")
        before = seen[-1:]
        wait_until(lambda: menu_highlight(user) not in ([], before), START_BOUND, "the next row")
        seen += menu_highlight(user)

    assert seen == ["History", "Clear History", "Snippets", "Quick Add...", "History"]


def menu_highlight(user):
    rows = ("History", "Clear History", "Snippets", "Quick Add...")
    return [name for name in highlighted(user, None) if name in rows]


def test_a_typed_character_opens_the_search_with_it(user, target):
    user.summon()
    user.desktop.type_text("be")
    wait_until(lambda: "Beta" in user.names() and "Alpha" not in user.names(), START_BOUND,
               lambda: f"only what matches: {user.names()}")
    user.desktop.key("Return")

    target.wait_for_text(b"second")


def test_a_space_goes_into_the_search(user, target):
    user.summon()
    user.desktop.type_text("a b")

    wait_until(lambda: "a b" in user.desktop.accessibility.texts("Quillery"), START_BOUND, "the search reads \"a b\"")


@pytest.fixture
def layout(user):
    """Changes the keyboard's layout for one test."""
    yield lambda *arguments: user.desktop.run(["setxkbmap", *arguments])
    user.desktop.run(["setxkbmap", "-layout", "us", "-variant", "", "-option", ""])


def wait_for_search(user, text):
    wait_until(lambda: text in user.desktop.accessibility.texts("Quillery"), START_BOUND,
               lambda: f"the search reads {text!r}: {user.desktop.accessibility.texts('Quillery')}")


def test_a_dead_key_accents_the_next_letter_in_the_search(user, target, layout):
    layout("us", "-variant", "intl")
    user.summon()
    user.desktop.type_text("n")
    wait_for_search(user, "n")
    user.desktop.type_text("'e")

    wait_for_search(user, "né")


def test_the_compose_key_makes_one_letter_of_two_in_the_search(user, target, layout):
    layout("us", "-option", "compose:menu")
    user.summon()
    user.desktop.type_text("s")
    wait_for_search(user, "s")
    user.desktop.key("Menu")
    user.desktop.type_text("oe")

    wait_for_search(user, "sœ")


def test_a_folder_opens_by_the_right_arrow_and_its_snippet_pastes(user, target):
    desktop = user.desktop
    user.summon()
    user.open_popover("Down", count=3)
    desktop.key("Right")
    wait_until(lambda: highlighted(user, "Snippets") == ["Alpha"], START_BOUND, "first row")
    desktop.key("Down")
    desktop.key("Right")
    user.control("Beta")
    desktop.key("Down")
    desktop.key("Return")

    target.wait_for_text(b"second")


def test_summoning_again_while_the_panel_is_shown_starts_it_afresh(user, target):
    user.summon()
    user.open_popover("Down")
    user.desktop.move_pointer(200, 100)
    user.desktop.key("shift+super+v")
    wait_until(lambda: [(menu.x, menu.y) for menu in user.menus()] == [(205, 100)], START_BOUND,
               lambda: f"one menu at the pointer: {user.menus()}")
    user.open_popover("Down")
    for key in ("Right", "Return"):
        user.desktop.key(key)

    target.wait_for_text(b"newest")
    stays(lambda: target.text() == b"newest", QUIET, "pasted once")


def test_the_menu_opens_while_the_clipboard_owner_never_answers(user, target):
    from test_recording import own_clipboard

    for how in ("hung", "hung-text"):
        owner = own_clipboard(user.desktop, how)
        stays(user.is_running, QUIET, "the program lives")
        user.summon()
        user.control("Snippets")
        user.open_popover("Down")
        for key in ("Right", "Return"):
            user.desktop.key(key)
        wait_until(lambda: target.text() in (b"newest", b"oldest"), START_BOUND, "pasted")
        user.wait_gone()
        wait_back(target)
        target.clear()
        user.desktop.processes.end(owner)


def test_the_menu_bar_window_shows_every_row_and_stays_inside_the_work_area(tray_desktop, new_user):
    with new_user(tray_desktop) as user:
        open_by_tray_click(user)
        menu = user.menus()[0]
        for name in ("History", "Clear History", "Snippets", "Quick Add...", "Snippet Editor...",
                     "Settings...", "Quit"):
            user.control(name, "list item")

        icon = tray_icon(user)
        assert menu.x + menu.width <= tray_desktop.size[0]
        assert menu.y + menu.height <= icon.y + icon.height


def test_a_second_click_on_the_icon_closes_the_menu_bar_window(tray_desktop, new_user):
    with new_user(tray_desktop) as user:
        open_by_tray_click(user)
        tray_desktop.click(*tray_icon(user).centre)

        user.wait_gone()
        stays(lambda: not user.menus(), QUIET, "the window stays closed")


def test_quit_in_the_menu_bar_window_ends_the_program(tray_desktop, new_user):
    with new_user(tray_desktop) as user:
        open_by_tray_click(user)
        user.click_on("Quit", "list item")

        assert user.wait_exit() == 0


def test_the_settings_row_opens_the_settings_and_closes_the_menu(desktop, new_user):
    with new_user(desktop) as user:
        open_by_second_start(user)
        user.click_on("Settings...", "list item")

        wait_until(lambda: [one.title for one in user.windows()] == ["Quillery Settings"], START_BOUND,
                   lambda: f"the settings alone: {user.windows()}")


def test_the_menu_opens_at_once_with_a_fifty_megabyte_clip_in_the_history(desktop, new_user):
    with new_user(desktop, clips=[mixed_text(50 << 20).decode(), "short"]) as user:
        began = time.monotonic()
        user.summon()
        user.open_popover("Down")
        user.control("short")

        assert time.monotonic() - began <= OPEN_BOUND


def test_every_window_has_the_class_of_the_program(desktop, new_user):
    with new_user(desktop) as user:
        user.summon()
        user.open_popover("Down")
        assert [one.wm_class for one in user.menus()] == [("quillery", "Quillery")] * 2

        user.activate_action("quillery")
        user.wait_gone()
        wait_until(lambda: [one.title for one in user.windows()] == ["Quillery"], START_BOUND,
                   lambda: f"the library alone: {user.windows()}")
        assert user.windows()[0].wm_class == ("quillery", "Quillery")


# -- screens --------------------------------------------------------------------------------------


def stacking(user):
    """The windows that stand on the root or in a frame, the lowest first, by their ids."""
    return [window.id for window in user.desktop.server.windows()]


def test_the_panel_stands_over_a_full_screen_window_and_pastes_into_it(user, target):
    desktop = user.desktop
    desktop.run(["wmctrl", "-r", target.title, "-b", "add,fullscreen"])
    wait_until(lambda: (target.window().width, target.window().height) == desktop.size, START_BOUND,
               "the target covers the screen")
    target.focus()
    menu = user.summon()
    user.open_popover("Down")

    order = stacking(user)
    for window in user.menus():
        assert order.index(window.id) > order.index(target.window_id)
    assert desktop.pixel(*menu.centre) != desktop.pixel(*AWAY)
    for key in ("Right", "Return"):
        desktop.key(key)
    target.wait_for_text(b"newest")
    assert (target.window().width, target.window().height) == desktop.size


@pytest.fixture
def two_screens(desktop):
    """The desktop as two screens side by side, the second one the right half."""
    width, height = desktop.size
    output = desktop.run(["xrandr", "--listmonitors"]).split()[-1].decode()
    halves = {"left": (0, output), "right": (width // 2, "none")}
    for name, (x, outputs) in halves.items():
        size = f"{width // 2}/160x{height}/200+{x}+0"
        desktop.run(["xrandr", "--setmonitor", name, size, outputs])
    yield desktop
    for name in reversed(halves):
        desktop.run(["xrandr", "--delmonitor", name])


@pytest.mark.parametrize("pointer, left_edge", [
    (500, 640 - PANEL_WIDTH),
    (700, 700 + POINTER_GAP),
    (1270, 1280 - PANEL_WIDTH),
], ids=["at-the-edge-between", "on-the-second", "at-its-edge"])
def test_with_two_screens_the_panel_stays_on_that_of_the_pointer(two_screens, new_user, pointer, left_edge):
    with new_user(two_screens, clips=["only"]) as user, GtkTarget(two_screens) as target:
        two_screens.move_pointer(pointer, 300)
        menu = user.summon()
        assert (menu.x, menu.y) == (left_edge, 300)

        user.open_popover("Down")
        popover = user.menus()[1]
        assert (popover.x >= 640) == (pointer >= 640)
        assert popover.x + popover.width <= (640 if pointer < 640 else 1280)
        for key in ("Right", "Return"):
            two_screens.key(key)
        target.wait_for_text(b"only")
