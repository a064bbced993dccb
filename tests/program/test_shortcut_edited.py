# SPDX-License-Identifier: MIT
"""A shortcut that is edited in the settings file of the running program."""

import os

import pytest

from settings_files import OWN_CHORD, SHORTCUT, start_with, summon_by_own_chord
from support.desktop import START_BOUND
from support.waiting import stays, wait_until

QUIET = 1.0  # seconds in which a shortcut that is none any more would have opened something
NEW_CHORD = "ctrl+super+b"
NEW_SHORTCUT = rb'KeyboardShortcuts_contextHotKey="{\"carbonKeyCode\":11,\"carbonModifiers\":4352}"'
NO_SHORTCUT = b"KeyboardShortcuts_contextHotKey=false"


def rename_over(file, content):
    other = file.with_suffix(".new")
    other.write_bytes(content)
    os.rename(other, file)


def write_in_place(file, content):
    file.write_bytes(content)


EDITORS = {"renamed over": rename_over, "in place": write_in_place}


def is_held(user, chord):
    *modifiers, key = chord.split("+")
    return user.desktop.server.is_grabbed(key, *modifiers)


def edit(user, editor, old, new):
    content = user.settings_file.read_bytes()
    assert old in content
    EDITORS[editor](user.settings_file, content.replace(old, new))


def wait_for_shortcut(user, chord, is_wanted):
    wait_until(lambda: is_held(user, chord) == is_wanted, START_BOUND,
               lambda: f"{chord} {'is' if is_wanted else 'is not'} a shortcut")
    user.answer_time()  # until then a key that is pressed may count as held all along


def open_menu(user, chord):
    user.desktop.key(chord)
    wait_until(user.has_keyboard, START_BOUND, f"{chord} opens the menu")
    user.desktop.key("Escape")
    user.wait_gone()


@pytest.mark.parametrize("editor", EDITORS)
def test_an_edited_shortcut_opens_the_menu_and_the_old_one_does_not(each_desktop, new_user, editor):
    user = new_user(each_desktop)
    start_with(user, b"[General]\nfirstLoad=false\n" + SHORTCUT + b"\n")
    summon_by_own_chord(user)

    edit(user, editor, SHORTCUT, NEW_SHORTCUT)

    wait_for_shortcut(user, NEW_CHORD, True)
    wait_for_shortcut(user, OWN_CHORD, False)
    each_desktop.key(OWN_CHORD)
    stays(lambda: not user.menus(), QUIET, "the old shortcut opens nothing")
    open_menu(user, NEW_CHORD)


@pytest.mark.parametrize("editor", EDITORS)
def test_a_shortcut_that_is_edited_away_opens_nothing_until_one_is_written_again(desktop, new_user, editor):
    user = new_user(desktop)
    start_with(user, b"[General]\nfirstLoad=false\n" + SHORTCUT + b"\n")

    edit(user, editor, SHORTCUT, NO_SHORTCUT)
    wait_for_shortcut(user, OWN_CHORD, False)
    desktop.key(OWN_CHORD)
    stays(lambda: not user.menus(), QUIET, "no shortcut opens nothing")

    edit(user, editor, NO_SHORTCUT, NEW_SHORTCUT)
    wait_for_shortcut(user, NEW_CHORD, True)
    open_menu(user, NEW_CHORD)
