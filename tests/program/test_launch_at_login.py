# SPDX-License-Identifier: MIT
"""Launch at login, switched by keys in the running program, and the logins that follow."""

import pathlib
import shutil

import pytest

from logins import ENTRY, logged_in, started_at_login
from support.desktop import START_BOUND
from support.processes import as_ordinary_user
from support.quillery import program_path
from support.settings_window import SettingsWindow
from support.setup_window import ADD_PAGE, HISTORY_PAGE, PASTE_PAGE, SUMMARY_PAGE, SetupWindow
from support.waiting import stays, wait_until

QUIET = 1.0  # seconds in which a second process would show
LOGGER = "com.tarnwick.LaunchAtLogin/main: "


@pytest.fixture
def new_installation(new_user):
    """Makes users with a program of their own, in a folder whose name has blanks and more."""
    def make(desktop, **options):
        user = new_user(desktop, **options)
        user.program = user.folder / "My programs & more/quillery"
        user.program.parent.mkdir()
        shutil.copy(program_path(), user.program)
        return user
    return make


def entry(user):
    return user.config_folder / ENTRY


def switch_in_the_settings(user, is_on):
    settings = SettingsWindow(user).open()
    assert settings.launch_at_login.is_on() != is_on
    settings.launch_at_login.press()
    settings.launch_at_login.wait_on(is_on)


def switch_on_in_the_setup(user):
    setup = SetupWindow(user).wait_in_front()
    for page in (PASTE_PAGE, ADD_PAGE, HISTORY_PAGE):
        setup.next_page(page)
    assert not setup.launch_at_login.is_on()
    setup.launch_at_login.press()
    setup.launch_at_login.wait_on(True)
    setup.next_page(SUMMARY_PAGE)
    user.control("✔️ Autolaunch at login is Enabled")
    setup.finish()


def program_of(process):
    """The file that a process runs; None if the process has gone."""
    try:
        return pathlib.Path(f"/proc/{process}/exe").readlink()
    except OSError:
        return None


def processes_of(user):
    return [one for one in user.desktop.processes.survivors() if program_of(one) == user.program]


def check_that_it_runs_once(user):
    wait_until(user.owns_name, START_BOUND, "the program is on the bus")
    wait_until(user.hot_keys_are_live, START_BOUND, "hot keys are live")
    wait_until(lambda: len(processes_of(user)) == 1, START_BOUND, lambda: f"one runs: {processes_of(user)}")
    stays(lambda: len(processes_of(user)) == 1, QUIET, "one stays")


def quit_by_bus(user):
    user.activate_action("quit")
    wait_until(lambda: not processes_of(user), START_BOUND, "the program has ended")


@pytest.mark.parametrize("logins", [1, 2])
@pytest.mark.parametrize("where", ["settings", "setup"])
def test_switched_on_the_program_itself_runs_once_after_the_next_login(desktop, new_installation, where, logins):
    user = new_installation(desktop, first_load=where == "setup")
    with user:
        assert not entry(user).exists()
        if where == "setup":
            switch_on_in_the_setup(user)
        else:
            switch_in_the_settings(user, True)
        assert f'Exec="{user.program}"' in entry(user).read_text().splitlines()
        assert user.quit() == 0
    assert not processes_of(user)

    with logged_in(user, times=logins):
        check_that_it_runs_once(user)
        quit_by_bus(user)


def test_switched_off_again_a_login_starts_nothing(each_desktop, new_installation):
    user = new_installation(each_desktop)
    with user:
        switch_in_the_settings(user, True)
        assert user.quit() == 0
    assert f"Executing command: {user.program}" in started_at_login(user)

    with user:
        switch_in_the_settings(user, False)
        assert user.quit() == 0

    assert not entry(user).exists()
    assert started_at_login(user) == ""
    with logged_in(user):
        stays(lambda: not processes_of(user), QUIET, "nothing is started")


def test_an_entry_that_others_take_away_shows_in_the_open_window(desktop, new_user):
    with new_user(desktop) as user:
        switch_in_the_settings(user, True)

        entry(user).unlink()

        SettingsWindow(user).launch_at_login.wait_on(False)


# -- a switch that fails --------------------------------------------------------------------------


def failures(user):
    """What launch at login has logged."""
    return [line.removeprefix(LOGGER) for line in user.errors().splitlines() if line.startswith(LOGGER)]


def press_in_vain(user, is_on):
    """Presses the switch, and waits for what is logged and until it shows the old state."""
    settings = SettingsWindow(user).open()
    before = failures(user)
    assert settings.launch_at_login.is_on() == is_on
    settings.launch_at_login.press()
    wait_until(lambda: failures(user) != before, START_BOUND, user.errors)
    settings.launch_at_login.wait_on(is_on)
    stays(lambda: settings.launch_at_login.is_on() == is_on, QUIET, "the switch shows what is")


def test_a_file_in_the_place_of_the_folder_leaves_the_switch_off_and_is_logged_once(each_desktop, new_user):
    with new_user(each_desktop) as user:
        entry(user).parent.write_text("no folder")

        press_in_vain(user, is_on=False)

        assert failures(user) == [f'Failed to enable launch at login: cannot make the folder '
                                  f'"{entry(user).parent}": File exists']
        assert entry(user).parent.read_text() == "no folder"
        entry(user).parent.unlink()
        switch_in_the_settings(user, True)
        assert len(failures(user)) == 1


def test_a_folder_that_may_not_be_written_leaves_the_switch_as_it_is_both_ways(desktop, new_user):
    with new_user(desktop, starter=as_ordinary_user()) as user:
        entry(user).parent.mkdir()
        entry(user).parent.chmod(0o555)
        press_in_vain(user, is_on=False)
        assert not entry(user).exists()

        entry(user).parent.chmod(0o755)
        switch_in_the_settings(user, True)
        entry(user).parent.chmod(0o555)
        press_in_vain(user, is_on=True)

        assert entry(user).exists()
        enabling, disabling = failures(user)
        assert enabling.startswith(f'Failed to enable launch at login: cannot write "{entry(user)}": ')
        assert disabling == f'Failed to disable launch at login: cannot remove "{entry(user)}": Permission denied'
