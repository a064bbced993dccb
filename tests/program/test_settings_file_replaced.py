# SPDX-License-Identifier: MIT
"""What becomes of the settings when others replace or lock their file while the program runs."""

import os

import pytest

from settings_files import ADD_KEY, DAMAGES, SHORTCUT, start_with, summon_by_own_chord
from support.desktop import START_BOUND
from support.processes import as_ordinary_user
from support.settings_window import SettingsWindow
from support.waiting import stays, wait_until

QUIET = 0.5  # seconds in which the program would have written a file that it must leave alone
KEEP, DROP = b"clipHistory=true", b"clipHistory=false"
START = b"# mine\n[General]\nfirstLoad=false\nunknown=a, \xff\n" + SHORTCUT + b"\n"
REFUSED = "Settings cannot be written"


def replace(file, content):
    """As most editors write a file."""
    other = file.with_suffix(".new")
    other.write_bytes(content)
    os.rename(other, file)


def press(switch):
    is_on = switch.is_on()
    switch.press()
    switch.wait_on(not is_on)


def wait_for_file(user, content):
    wait_until(lambda: user.settings_file.is_file() and user.settings_file.read_bytes() == content,
               START_BOUND, lambda: f"{content}: {user.settings_file.read_bytes()}")


@pytest.mark.parametrize("damage", DAMAGES)
def test_a_file_renamed_over_it_counts_at_once_and_keeps_what_is_no_business_of_ours(desktop, new_user, damage):
    before, after = DAMAGES[damage]
    user = new_user(desktop)
    start_with(user, START)
    keeps_history = SettingsWindow(user).open().keeps_history
    assert keeps_history.is_on()

    for number in (b"1", b"2"):
        content = before + b"again=" + number + b"\n" + DROP + b"\n" + SHORTCUT + after
        replace(user.settings_file, content)
        keeps_history.wait_on(False)
        summon_by_own_chord(user)
        SettingsWindow(user).wait_in_front()
        press(keeps_history)
        wait_for_file(user, content.replace(DROP, KEEP))

    summon_by_own_chord(user)
    assert user.quit() == 0


def without_add_shortcut(content):
    is_it = lambda line: line.startswith(ADD_KEY)
    return b"".join(ADD_KEY + b"=false\n" if is_it(line) else line for line in content.splitlines(keepends=True))


LOCKS = {
    "a file that may not be written": lambda file, is_locked: file.chmod(0o444 if is_locked else 0o644),
    "a file that may not be read": lambda file, is_locked: file.chmod(0o000 if is_locked else 0o644),
    "a folder that may not be written": lambda file, is_locked: file.parent.chmod(0o555 if is_locked else 0o755),
}


@pytest.mark.parametrize("lock", LOCKS)
def test_what_a_locked_file_does_not_take_holds_and_is_written_later(desktop, new_user, lock):
    user = new_user(desktop, starter=as_ordinary_user())
    start_with(user, START)
    settings = SettingsWindow(user).open()
    unlocked = user.settings_file.read_bytes()
    LOCKS[lock](user.settings_file, True)

    press(settings.keeps_history)
    wait_until(lambda: user.errors().count(REFUSED) == 1, START_BOUND, user.errors)
    desktop.copy("not for the record")
    summon_by_own_chord(user)
    stays(lambda: user.settings_file.read_bytes() == unlocked, QUIET, "the file is left alone")
    assert user.contents() == []

    LOCKS[lock](user.settings_file, False)
    settings.wait_in_front()
    desktop.click(*settings.add.clear_button().centre)
    settings.add.wait_empty(is_recording=True)
    desktop.key("Escape")
    settings.add.wait_left()
    wait_for_file(user, without_add_shortcut(unlocked) + DROP + b"\n")
    summon_by_own_chord(user)
    assert user.quit() == 0


def test_a_folder_that_takes_its_place_is_left_alone_and_the_settings_hold(desktop, new_user):
    user = new_user(desktop)
    start_with(user, START)
    settings = SettingsWindow(user).open()
    content = user.settings_file.read_bytes()
    user.settings_file.unlink()
    user.settings_file.mkdir()
    inside = user.settings_file / "inside"
    inside.write_text("mine")

    press(settings.keeps_history)
    wait_until(lambda: user.errors().count(REFUSED) == 1, START_BOUND, user.errors)
    summon_by_own_chord(user)
    assert inside.read_text() == "mine"

    inside.unlink()
    user.settings_file.rmdir()
    settings.wait_in_front()
    press(settings.keeps_history)
    wait_for_file(user, content.rstrip(b"\n") + b"\n" + KEEP + b"\n")
    summon_by_own_chord(user)
    assert user.quit() == 0
