# SPDX-License-Identifier: MIT
"""Starting, restarting, one instance, bad settings, bad files and sudden ends."""

import random
import resource
import signal
import uuid

import pytest

from conftest import IS_LONG
from menus import open_by_second_start
from terminals import SELECTING_TERMINALS, select_the_word, start_with_a_word
from support.desktop import START_BOUND
from support.quillery import ADD, BUS_NAME
from support.samples import mixed_text
from support.targets import GtkTarget
from support.waiting import stays, wait_until

KILLS = 200 if IS_LONG else 10
KEPT_OF_FIVE = 3  # clips that the limit of 5 leaves
WRITING = 0.05  # seconds in which a clip of 4 MB is written
SHORTCUTS = ("KeyboardShortcuts_contextHotKey", "KeyboardShortcuts_addHotKey")


def titles(user):
    return [window.title for window in user.windows()]


# -- the first start ------------------------------------------------------------------------------


def test_the_first_start_names_the_device_stores_the_shortcuts_and_opens_the_setup(each_desktop, new_user):
    with new_user(each_desktop, first_load=True) as user:
        wait_until(lambda: "Quillery Setup" in titles(user), START_BOUND, lambda: str(user.windows()))
        wait_until(lambda: {"device", *SHORTCUTS} <= user.settings().keys(), START_BOUND,
                   lambda: str(user.settings()))

        device = user.settings()["device"].strip('"')
        assert device == str(uuid.UUID(device)).upper()


def test_later_starts_keep_the_device_and_open_no_window(desktop, new_user):
    user = new_user(desktop, device="AAAAAAAA-BBBB-4CCC-8DDD-EEEEEEEEEEEE")
    with user:
        stays(lambda: titles(user) == [], 1.0, "no window opens")
        assert user.settings()["device"].strip('"') == "AAAAAAAA-BBBB-4CCC-8DDD-EEEEEEEEEEEE"


def test_the_data_folder_and_the_stores_are_the_users_alone(desktop, new_user):
    with new_user(desktop) as user:
        assert user.data_folder.stat().st_mode & 0o777 == 0o700
        for name in ("clips", "snippets"):
            assert user.store(name).stat().st_mode & 0o777 == 0o600


# -- one instance, actions ------------------------------------------------------------------------


def test_a_second_start_shows_the_menu_bar_window_and_ends(desktop, new_user):
    with new_user(desktop) as user:
        open_by_second_start(user)

        user.control("Quit", "list item")
        assert user.is_running()


def test_without_a_bus_a_second_start_ends_too(desktops, new_user):
    desktop = desktops.get(window_manager="openbox", bus=False)
    with new_user(desktop) as user:
        first = user.process.pid

        open_by_second_start(user)

        assert user.is_running() and user.process.pid == first
        desktop.key("Escape")
        user.wait_gone()
        user.summon()


def test_a_new_start_follows_a_crash_without_a_bus(desktops, new_user):
    desktop = desktops.get(window_manager="openbox", bus=False)
    user = new_user(desktop)
    user.start()
    user.kill()

    with user:
        user.summon()


@pytest.mark.parametrize("action, title", [
    ("settings", "Quillery Settings"),
    ("quillery", "Quillery"),
    ("add-snippet", "Add Snippet"),
    ("add-snippet-copy", "Add Snippet"),
    ("welcome-view", "Quillery Setup"),
    ("add-from-selection", "Add Snippet"),
])
def test_a_bus_action_opens_its_window(desktop, new_user, action, title):
    with new_user(desktop) as user:
        user.activate_action(action)

        wait_until(lambda: titles(user) == [title], START_BOUND, lambda: str(user.windows()))


def test_the_paste_menu_action_opens_the_panel(desktop, new_user):
    with new_user(desktop) as user:
        user.activate_action("paste-menu")

        wait_until(user.has_keyboard, START_BOUND, "menu is up")


def test_the_add_shortcut_copies_the_selection_and_opens_the_form(desktop, new_user):
    with new_user(desktop) as user, GtkTarget(desktop) as field:
        desktop.type_text("selected")
        field.wait_for_text(b"selected")
        desktop.key("ctrl+a")
        desktop.key("shift+super+c")

        wait_until(lambda: titles(user) == ["Add Snippet"], START_BOUND, lambda: str(user.windows()))
        assert desktop.clipboard() == b"selected"
        wait_until(lambda: user.contents() == [b"selected"], START_BOUND, lambda: str(user.clips()))


@pytest.mark.parametrize("terminal", SELECTING_TERMINALS)
def test_the_add_shortcut_takes_what_is_selected_in_a_terminal(each_desktop, new_user, terminal):
    desktop = each_desktop
    with new_user(desktop) as user:
        source, window = start_with_a_word(desktop, SELECTING_TERMINALS[terminal])
        wait_until(lambda: select_the_word(desktop, window), START_BOUND, "the word is selected")
        assert desktop.server.selection_owner() == 0
        desktop.key(ADD)

        wait_until(lambda: titles(user) == ["Add Snippet"], START_BOUND, lambda: str(user.windows()))
        assert desktop.clipboard() == b"word"
        wait_until(lambda: user.contents() == [b"word"], START_BOUND,
                   lambda: str(user.clips()))
        desktop.processes.end(source)


def test_quitting_by_the_bus_releases_the_name_and_the_keys(desktop, new_user):
    with new_user(desktop) as user:
        assert user.quit() == 0

        assert not desktop.has_name(BUS_NAME)
        assert not user.hot_keys_are_live()


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_a_signal_ends_the_program_in_order(desktop, new_user, number):
    with new_user(desktop) as user:
        assert user.kill(number) == 0


def test_a_shortcut_that_another_program_holds_is_logged_and_the_program_carries_on(desktop, new_user):
    with new_user(desktop) as first:
        private = new_user(desktop, environment={
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent",
            "XDG_RUNTIME_DIR": str(desktop.folder / "other-runtime"),
        })
        (desktop.folder / "other-runtime").mkdir(mode=0o700, exist_ok=True)
        private.start(ready=False)
        wait_until(lambda: "KeyboardShortcuts_contextHotKey" in private.settings(), START_BOUND, "second is up")

        wait_until(lambda: private.errors().count("Another program holds the hot key") == 2,
                   START_BOUND, private.errors)
        assert private.is_running()
        assert first.summon()


# -- bad settings ---------------------------------------------------------------------------------


@pytest.mark.parametrize("value", ["10", "-1", "nan", "inf"])
def test_a_history_size_out_of_range_ends_the_program_at_the_first_recording(desktop, new_user, value):
    user = new_user(desktop, clips=["kept"], historySize=value)
    with user:
        desktop.copy("never recorded")

        assert user.wait_exit() == -signal.SIGABRT
    line = [line for line in user.errors().splitlines() if "historySize" in line]
    assert len(line) == 1, user.errors()
    assert "0" in line[0] and "9" in line[0] and value in line[0]
    assert user.contents() == [b"kept"]
    assert user.query("clips", "PRAGMA integrity_check") == [(b"ok",)]


def test_the_history_size_is_truncated_toward_zero(desktop, new_user):
    with new_user(desktop, clips=["a", "b"], historySize="-0.9") as user:
        desktop.copy("only one")

        wait_until(lambda: user.contents() == [b"only one"], START_BOUND, lambda: str(user.clips()))


# -- bad files ------------------------------------------------------------------------------------


@pytest.mark.parametrize("broken, good", [("snippets", "clips"), ("clips", "snippets")])
@pytest.mark.parametrize("damage", ["garbage", "cut in half"])
def test_a_broken_store_is_printed_and_left_alone_and_the_other_one_works(desktop, new_user, broken, good, damage):
    user = new_user(desktop, clips=[f"clip {number}" for number in range(200)],
                    snippets=[("Alpha", "first" * 5000)])
    file = user.store(broken)
    content = file.read_bytes()
    content = b"not a database" * 500 if damage == "garbage" else content[:len(content) // 2]
    file.write_bytes(content)

    with user, GtkTarget(desktop) as target:
        assert str(file) in user.errors()
        user.summon()
        if good == "snippets":
            user.desktop.type_text("a")
            user.control("Alpha")
        else:
            user.open_popover("Down")
            user.control("clip 0")
        desktop.key("Escape")
        assert user.quit() == 0
        assert target.text() == b""
    assert file.read_bytes() == content


def test_rows_without_id_title_or_content_are_shown_and_paste(desktop, new_user):
    user = new_user(desktop, clips=["seed"], snippets=[("Alpha", "first")])
    user.insert("snippets", 'INSERT INTO Snippet ("order", title, content, id) VALUES (?,?,?,?)',
                [(-5, None, "untitled", None), (-5, "No content", None, None), (40, "Late", "late", None)])
    user.insert("clips", "INSERT INTO Clip (position, content, id) VALUES (?,?,?)",
                [(1, None, None), (-3, "negative", None)])
    with user, GtkTarget(desktop) as target:
        user.summon()
        user.desktop.type_text("late")
        user.control("Late", "list item")
        desktop.key("Return")
        target.wait_for_text(b"late")
        user.wait_gone()
        user.summon()
        user.open_popover("Down")
        user.control("negative")


def limit_files(user, size):
    """What a full disk does: writing beyond the size fails."""
    resource.prlimit(user.process.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))


def test_on_a_full_disk_the_program_stays_and_saves_again_when_it_can(desktop, new_user):
    with new_user(desktop, clips=["kept"]) as user:
        limit_files(user, user.store("clips").stat().st_size + (256 << 10))
        desktop.copy(mixed_text(4 << 20))
        stays(lambda: user.is_running() and user.contents() == [b"kept"], 2.5, "nothing is recorded")
        limit_files(user, resource.RLIM_INFINITY)
        desktop.copy("saved again")

        wait_until(lambda: user.contents() == [b"saved again", b"kept"], START_BOUND,
                   lambda: str(user.clips()))
        assert user.query("clips", "PRAGMA integrity_check") == [(b"ok",)]


# -- sudden ends ----------------------------------------------------------------------------------


def wait_for_moment(user, chance, is_aimed):
    """A moment at which to kill: anywhere around a poll, or aimed into the writing of a clip."""
    if not is_aimed:
        stays(lambda: True, chance.uniform(0.0, 1.4), "any moment")
        return
    log = user.store("clips").with_name("clips.sqlite-wal")
    size = log.stat().st_size if log.exists() else 0
    wait_until(lambda: log.exists() and log.stat().st_size != size, START_BOUND, "writing has begun")
    stays(lambda: True, chance.uniform(0.0, WRITING), "into the writing")


@pytest.mark.parametrize("is_aimed", [False, True], ids=["anywhere", "while-writing"])
def test_what_was_saved_is_there_after_a_kill_at_any_moment(desktop, new_user, is_aimed):
    chance = random.Random(20)
    user = new_user(desktop, historySize=1)
    user.create_stores()
    filler = mixed_text(4 << 20)
    for number in range(KILLS // 2):
        user.start()
        before = user.contents()
        text = b"%d " % number + filler
        desktop.copy(text)
        wait_for_moment(user, chance, is_aimed)
        saved = user.contents()
        user.kill()

        assert user.query("clips", "PRAGMA integrity_check") == [(b"ok",)]
        left = user.contents()
        recorded = [text, *before][:KEPT_OF_FIVE]
        assert saved in (before, recorded)
        assert left == recorded if saved == recorded else left in (before, recorded)
        assert user.positions() == list(range(1, len(left) + 1))


def test_a_burst_of_copies_leaves_no_more_than_the_last_of_each_poll(desktop, new_user):
    with new_user(desktop) as user:
        for number in range(20):
            desktop.copy(f"burst {number}")
        wait_until(lambda: user.contents()[:1] == [b"burst 19"], START_BOUND, lambda: str(user.clips()))

        assert user.positions() == list(range(1, len(user.positions()) + 1))
