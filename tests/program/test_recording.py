# SPDX-License-Identifier: MIT
"""What other programs copy is recorded, newest first, within the limit."""

import pytest

from terminals import TERMINALS, copy_the_word, start_with_a_word
from support.desktop import START_BOUND, support_path
from support.recorder import RequestRecorder
from support.samples import mixed_text
from support.targets import GtkTarget, QtTarget
from support.waiting import stays, wait_until

RECORD_BOUND = 2.0  # seconds from a copy to its clip
POLL = 1.0  # seconds between two looks at the clipboard
POLLS = 3.5 * POLL
QUIET = 2.5  # seconds after which a copy that was to be ignored is known to be ignored
SECRET = "correct horse battery staple"


def wait_for_contents(user, contents, bound=START_BOUND):
    wait_until(lambda: user.contents() == contents, bound,
               lambda: f"history {contents}; it is {user.clips()}")


@pytest.mark.parametrize("program", ["xclip", "xsel"])
def test_a_copy_made_by_a_command_is_recorded_within_two_seconds(desktop, new_user, program):
    with new_user(desktop) as user:
        desktop.copy("from a command", program)

        wait_for_contents(user, [b"from a command"], RECORD_BOUND)


@pytest.mark.parametrize("field", [GtkTarget, QtTarget])
def test_a_copy_made_in_a_text_field_is_recorded_within_two_seconds(desktop, new_user, field):
    with new_user(desktop) as user, field(desktop) as source:
        desktop.type_text("typed by hand")
        source.wait_for_text(b"typed by hand")
        desktop.key("ctrl+a")
        desktop.key("ctrl+c")

        wait_for_contents(user, [b"typed by hand"], RECORD_BOUND)


@pytest.mark.parametrize("terminal", TERMINALS)
def test_a_copy_made_in_a_terminal_is_recorded_within_two_seconds(desktop, new_user, terminal):
    command, copy_keys = TERMINALS[terminal]
    with new_user(desktop) as user:
        source, window = start_with_a_word(desktop, command)

        wait_until(lambda: copy_the_word(desktop, window, copy_keys), START_BOUND, "the word is copied")

        wait_until(lambda: b"word" in [text.strip() for text in user.contents()], RECORD_BOUND,
                   lambda: str(user.clips()))
        desktop.processes.end(source)


def test_positions_are_dense_from_one_and_the_newest_is_first(desktop, new_user):
    with new_user(desktop, clips=["old", "older"]) as user:
        for text in ("first", "second", "third"):
            desktop.copy(text)
            wait_until(lambda: user.contents()[:1] == [text.encode()], START_BOUND, f"{text} recorded")

        assert user.contents() == [b"third", b"second", b"first", b"old", b"older"]
        assert user.positions() == [1, 2, 3, 4, 5]


@pytest.mark.parametrize("index, limit, kept",
                         [(0, 1, 1), (1, 5, 3), (3, 20, 18), (9, 1000, 998)])
def test_a_limit_leaves_two_less_than_itself_and_at_least_one(desktop, new_user, index, limit, kept):
    seed = [f"seed {number}" for number in range(limit + 5)]
    with new_user(desktop, clips=seed, historySize=index) as user:
        desktop.copy("the newest")

        expected = [b"the newest", *(text.encode() for text in seed)][:kept]
        wait_until(lambda: user.contents() == expected, START_BOUND, lambda: str(len(user.contents())))
        assert user.positions() == list(range(1, kept + 1))


def test_the_same_text_copied_twice_is_recorded_twice(desktop, new_user):
    with new_user(desktop) as user:
        desktop.copy("again")
        wait_for_contents(user, [b"again"])
        desktop.copy("again")

        wait_for_contents(user, [b"again", b"again"])


def test_a_clip_names_the_device(desktop, new_user):
    with new_user(desktop, device="11111111-2222-3333-4444-555555555555") as user:
        desktop.copy("mine")
        wait_for_contents(user, [b"mine"])

        assert user.query("clips", "SELECT device FROM Clip") == [(b"11111111-2222-3333-4444-555555555555",)]


def test_what_is_on_the_clipboard_at_the_start_is_not_recorded(desktop, new_user):
    desktop.copy("before the start")
    with new_user(desktop) as user:
        stays(lambda: user.contents() == [], QUIET, "nothing is recorded")


def test_nothing_is_recorded_while_the_history_is_off(desktop, new_user):
    with new_user(desktop, clipHistory=False) as user:
        desktop.copy("not for the record")

        stays(lambda: user.contents() == [], QUIET, "nothing is recorded")


def own_clipboard(desktop, how, text=""):
    """Copies in a way that good programs do not."""
    before = desktop.server.selection_owner()
    owner = desktop.start([*support_path("selection_owner.py"), how, text])
    wait_until(lambda: desktop.server.selection_owner() not in (0, before), START_BOUND, f"{how} owner")
    return owner


def test_an_image_is_ignored_and_the_next_text_is_recorded(desktop, new_user):
    with new_user(desktop) as user:
        owner = own_clipboard(desktop, "image")
        stays(lambda: user.contents() == [], QUIET, "an image is not recorded")
        desktop.copy("a text")

        wait_for_contents(user, [b"a text"])
        desktop.processes.end(owner)


def test_an_empty_text_is_not_recorded(desktop, new_user):
    with new_user(desktop) as user:
        desktop.copy("")

        stays(lambda: user.contents() == [], QUIET, "an empty text is not recorded")


def files_holding(folder, needle):
    return [path for path in folder.rglob("*") if path.is_file() and needle in path.read_bytes()]


def test_a_concealed_copy_is_neither_recorded_nor_written_nor_logged(desktop, new_user):
    with new_user(desktop, environment={"QT_LOGGING_RULES": "*.debug=true"}) as user:
        owner = own_clipboard(desktop, "concealed", SECRET)
        stays(lambda: user.contents() == [], QUIET, "a concealed copy is not recorded")
        desktop.copy("an open one")

        wait_for_contents(user, [b"an open one"])
        assert files_holding(user.folder, b"an open one")
        assert files_holding(user.folder, SECRET.encode()) == []
        desktop.processes.end(owner)


def test_a_mixed_text_of_a_megabyte_is_recorded_byte_by_byte(desktop, new_user):
    text = mixed_text(1 << 20)
    with new_user(desktop) as user:
        desktop.copy(text)

        wait_for_contents(user, [text])


def test_a_copied_text_survives_the_end_of_its_program(desktop, new_user):
    with new_user(desktop) as user:
        desktop.copy("orphan ü")
        wait_for_contents(user, ["orphan ü".encode()])
        desktop.forget_clipboard_owner()

        wait_until(lambda: desktop.server.selection_owner() != 0, START_BOUND, "somebody keeps the text")
        assert desktop.clipboard() == "orphan ü".encode()


def test_a_text_that_the_program_keeps_survives_its_quitting_where_a_manager_runs(desktop, new_user):
    manager = desktop.start(support_path("clipboard_manager.py"))
    wait_until(lambda: desktop.server.selection_owner("CLIPBOARD_MANAGER") != 0, START_BOUND, "manager")
    with new_user(desktop, snippets=[("Only", "handed over ü")]) as user:
        user.summon()
        user.open_popover("Down", count=3)
        desktop.key("Right")
        user.control("Only")
        desktop.key("Return")
        wait_until(lambda: desktop.server.selection_owner() != 0, START_BOUND, "the text is on the clipboard")
        user.wait_gone()

        assert user.quit() == 0

        assert desktop.clipboard() == "handed over ü".encode()
    desktop.processes.end(manager)


def test_recording_works_without_a_session_bus(desktops, new_user):
    with new_user(desktops.get(window_manager="openbox", bus=False)) as user:
        user.desktop.copy("no bus")

        wait_for_contents(user, [b"no bus"], RECORD_BOUND)


def test_the_poll_asks_the_server_for_nothing_while_nothing_is_copied(desktop, new_user):
    with RequestRecorder(desktop) as requests, new_user(desktop, clips=["old"]) as user:
        desktop.copy("noticed by the poll")
        wait_for_contents(user, [b"noticed by the poll", b"old"])
        wait_until(lambda: is_still(requests), START_BOUND, "nothing is asked any more")
        before = requests.count

        stays(lambda: requests.count == before, POLLS, "nothing is asked")
        user.summon()
        assert requests.count > before


def is_still(requests):
    """Whether nothing is asked for a while that is shorter than a poll."""
    before = requests.count
    try:
        stays(lambda: requests.count == before, POLL / 2, "quiet")
    except AssertionError:
        return False
    return True
