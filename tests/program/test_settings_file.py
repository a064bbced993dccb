# SPDX-License-Identifier: MIT
"""Settings files that are damaged or made by other hands, or that go while the program runs."""

import pytest

from menus import open_by_second_start
from settings_files import DAMAGES, SHORTCUT, start_with, summon_by_own_chord
from support.desktop import START_BOUND
from support.waiting import wait_until

KEPT_OF_TWENTY = 18  # clips that the default limit leaves


@pytest.mark.parametrize("damage", DAMAGES)
def test_a_shortcut_that_can_be_read_works_and_the_rest_is_kept(desktop, new_user, damage):
    before, after = DAMAGES[damage]
    user = new_user(desktop)
    start_with(user, before + SHORTCUT + after)

    summon_by_own_chord(user)
    left = user.settings_file.read_bytes()
    assert left.startswith(before + SHORTCUT)
    assert after.strip() in left
    assert user.quit() == 0
    start_with(user, left)
    summon_by_own_chord(user)


@pytest.mark.parametrize("fault", ["deleted", "emptied", "a folder in its place", "without its folder"])
def test_the_shortcut_outlives_a_file_that_goes_while_the_program_runs(desktop, new_user, fault):
    user = new_user(desktop)
    start_with(user, b"[General]\nfirstLoad=false\n" + SHORTCUT + b"\n")

    if fault == "emptied":
        user.settings_file.write_bytes(b"")
    else:
        user.settings_file.unlink()
    if fault == "a folder in its place":
        user.settings_file.mkdir()
    if fault == "without its folder":
        user.settings_file.parent.rmdir()
    summon_by_own_chord(user)
    summon_by_own_chord(user)


def test_with_a_folder_in_the_place_of_the_file_the_program_starts(desktop, new_user):
    user = new_user(desktop, first_load=True)
    user.settings_file.mkdir()
    with user:
        assert user.settings_file.is_dir()
        open_by_second_start(user)


def test_a_history_size_that_is_no_number_is_the_default(desktop, new_user):
    with new_user(desktop, clips=[f"clip {number}" for number in range(25)], historySize="text") as user:
        desktop.copy("one more")

        wait_until(lambda: user.contents()[:1] == [b"one more"], START_BOUND, lambda: str(user.clips()))
        assert len(user.contents()) == KEPT_OF_TWENTY
