# SPDX-License-Identifier: MIT
"""The program as a login item: a session that starts the user's entries starts it."""

import pathlib
import shutil

from gi.repository import GLib

from logins import logged_in, started_at_login
from support.desktop import START_BOUND
from support.quillery import BUS_NAME, program_path
from support.waiting import wait_until

LOGIN_ITEM_USER = program_path().with_name("login_item_user")


def switch(user, state, program):
    """Switches the login item of `program` as the program itself does."""
    process = user.desktop.start([LOGIN_ITEM_USER, state, program], extra_env=user.environment())
    code = process.wait(START_BOUND)
    user.desktop.processes.end(process)
    assert code == 0


def running_program(desktop):
    """The file of the program that owns the name on the bus."""
    pid = desktop.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                       "GetConnectionUnixProcessID", GLib.Variant("(s)", (BUS_NAME,)), "(u)")[0]
    return pathlib.Path(f"/proc/{pid}/exe").readlink()


def test_a_session_starts_the_program_from_its_entry(desktop, new_user):
    user = new_user(desktop)
    program = user.folder / "My programs & more/quillery"
    program.parent.mkdir()
    shutil.copy(program_path(), program)
    switch(user, "on", program)

    with logged_in(user):
        wait_until(user.owns_name, START_BOUND, "the program is on the bus")
        wait_until(user.hot_keys_are_live, START_BOUND, "hot keys are live")
        assert running_program(desktop) == program
        user.activate_action("quit")
        wait_until(lambda: not user.owns_name(), START_BOUND, "the program has ended")


def test_a_session_starts_nothing_once_the_entry_is_switched_off(desktop, new_user):
    user = new_user(desktop)
    switch(user, "on", program_path())
    assert f"Executing command: {program_path()}" in started_at_login(user)

    switch(user, "off", program_path())

    assert started_at_login(user) == ""
