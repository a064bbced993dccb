# SPDX-License-Identifier: MIT
"""The field that records a shortcut, used by real keys and clicks."""

import contextlib

import pytest

from support.desktop import START_BOUND
from support.hotkey_program import HotkeyProgram
from support.settings_window import (
    COMMAND, CONTROL, SHIFT, SettingsWindow, answer_alert, focused,
)
from support.titled_window import TitledWindow
from support.waiting import stays, wait_until

QUIET = 0.5  # seconds in which the stored shortcut would have opened the menu
KEY_V, KEY_C, KEY_B, KEY_L, KEY_J, KEY_K, KEY_F12 = 9, 8, 11, 37, 38, 40, 111
DEFAULT = (KEY_V, COMMAND | SHIFT)
DEFAULT_OF_ADD = (KEY_C, COMMAND | SHIFT)
NEW = "ctrl+super+b"  # a chord that is nobody's
STORED_NEW = (KEY_B, COMMAND | CONTROL)
TAKEN = "is already used by the desktop or another program"
RING = 3  # pixels around the field that its accessible box has, and in which a click is one on it


@contextlib.contextmanager
def held_by_another(desktop, chord):
    """Some window managers hold it already, which is as good."""
    *modifiers, key = chord.split("+")
    with contextlib.nullcontext() if desktop.server.is_grabbed(key, *modifiers) else HotkeyProgram(desktop, chord):
        yield


def test_opening_the_settings_records_nothing(each_desktop, new_user):
    with new_user(each_desktop) as user:
        settings = SettingsWindow(user).open()

        user.summon()

        assert settings.paste.stored() == DEFAULT


@pytest.mark.parametrize("chord", ["v", "shift+v"])
def test_a_plain_key_is_refused_and_recording_goes_on(desktop, new_user, chord):
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key(chord)
        desktop.key(NEW)

        field.wait_stored(STORED_NEW)


def test_escape_leaves_the_stored_shortcut(desktop, new_user):
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("Escape")
        field.wait_left()
        desktop.key(NEW)
        user.summon()

        assert field.stored() == DEFAULT


def test_tab_moves_on_and_leaves_the_shortcuts(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        settings = SettingsWindow(user).open()
        settings.paste.begin()

        desktop.key("Tab")
        settings.add.wait_recording()
        assert not settings.paste.is_recording()
        desktop.key("Tab")
        wait_until(lambda: "Launch at login" in focused(user), START_BOUND, "the next control has the keyboard")
        settings.add.wait_left()

        desktop.key(NEW)
        user.summon()
        assert (settings.paste.stored(), settings.add.stored()) == (DEFAULT, DEFAULT_OF_ADD)


@pytest.mark.parametrize("key", ["Delete", "BackSpace"])
def test_delete_clears_the_shortcut_and_recording_goes_on(each_desktop, new_user, key):
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key(key)

        field.wait_empty(is_recording=True)
        assert field.stored() is False
        assert not desktop.server.is_grabbed("v", "shift", "super")
        desktop.key(NEW)
        field.wait_stored(STORED_NEW)


@pytest.mark.parametrize("is_recording", [False, True], ids=["idle", "recording"])
def test_the_clear_button_clears_the_shortcut_and_starts_recording(each_desktop, new_user, is_recording):
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        if is_recording:
            field.begin()

        desktop.click(*field.clear_button().centre)

        field.wait_empty(is_recording=True)
        assert field.stored() is False
        assert field.clear_button() is None
        desktop.key(NEW)
        field.wait_stored(STORED_NEW)


def test_a_click_on_the_ring_goes_on_recording(each_desktop, new_user):
    """A further click would start it again, so a chord follows each."""
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        box = field.control()
        x, y = box.centre
        right, bottom = box.x + box.width - 1, box.y + box.height - 1
        for place, button, letter, key in [((box.x, y), 1, "b", KEY_B), ((right, y), 3, "j", KEY_J),
                                           ((x, box.y), 3, "k", KEY_K), ((x, bottom), 1, "l", KEY_L)]:
            field.begin()

            desktop.click_and_wait(*place, button)

            desktop.key(f"ctrl+super+{letter}")
            field.wait_stored((key, COMMAND | CONTROL))


def test_a_click_further_away_ends_recording(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        box = field.control()
        x, y = box.centre
        left, top, right, bottom = box.x - 1, box.y - 1, box.x + box.width + 1, box.y + box.height + 1
        for place, button in [((left, y), 1), ((right, y), 3), ((x, top), 3), ((x, bottom), 1)]:
            field.begin()

            desktop.click(*place, button)

            field.wait_left()
        desktop.key(NEW)
        user.summon()
        assert field.stored() == DEFAULT


def test_a_chord_of_the_menu_is_refused_and_recording_goes_on(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("ctrl+w")
        answer_alert(user, "belongs to the menu item “Close”", "OK")

        field.wait_recording()
        assert field.stored() == DEFAULT
        desktop.key(NEW)
        field.wait_stored(STORED_NEW)


def test_a_chord_that_is_left_to_another_program_is_not_stored_and_recording_goes_on(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user, HotkeyProgram(desktop, "super+j") as other:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("super+j")
        answer_alert(user, TAKEN, "OK")

        field.wait_recording()
        assert field.stored() == DEFAULT
        desktop.key(NEW)
        field.wait_stored(STORED_NEW)
        desktop.key("super+j")
        wait_until(other.presses, START_BOUND, "the other program still has its chord")
        assert other.presses() == 1


def test_a_chord_of_another_program_is_used_anyway_if_the_user_says_so(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user, HotkeyProgram(desktop, "super+j"):
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("super+j")
        answer_alert(user, TAKEN, "Use Anyway")

        field.wait_stored((KEY_J, COMMAND))
        assert field.control().description == "Super+J"


def test_f12_alone_is_taken_without_a_question_whoever_has_it(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user, HotkeyProgram(desktop, "F12") as other:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("F12")

        field.wait_stored((KEY_F12, 0))
        assert field.control().description == "F12"
        desktop.key("F12")
        wait_until(other.presses, START_BOUND, "the other program has it")
        assert other.presses() == 1


def test_f12_with_a_modifier_is_asked_about(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user, held_by_another(desktop, "ctrl+F12"):
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("ctrl+F12")
        answer_alert(user, TAKEN, "OK")

        field.wait_recording()
        assert field.stored() == DEFAULT
        desktop.key("ctrl+F12")
        answer_alert(user, TAKEN, "Use Anyway")
        field.wait_stored((KEY_F12, CONTROL))


def test_the_stored_shortcut_opens_nothing_while_it_is_recorded(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().paste
        field.begin()

        desktop.key("shift+super+v")
        field.wait_left()
        stays(lambda: not user.menus(), QUIET, "no menu")

        user.summon()


def test_a_function_key_alone_is_a_shortcut(each_desktop, new_user):
    desktop = each_desktop
    with new_user(desktop) as user:
        field = SettingsWindow(user).open().add
        field.begin()
        desktop.key("F5")
        field.wait_left()

        desktop.key("F5")

        TitledWindow(user, "Add Snippet").wait_in_front()
