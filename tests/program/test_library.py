# SPDX-License-Identifier: MIT
"""The library window: made, sorted, searched, edited and kept by keys and mouse."""

import json
import resource
import signal

import pytest

from menus import open_by_second_start
from support.desktop import START_BOUND
from support.dragging import drag
from support.editor_window import (
    LINE_THICKNESS,
    PLACEHOLDER,
    TITLE,
    Library,
    folder,
    snippet,
    stored,
    wait_for_store,
)
from support.quillery import APPLICATION
from support.samples import mixed_text
from support.targets import SHOWN_BOUND, GtkTarget, QtTarget
from support.waiting import NotReached, stays, wait_until

FULL_AT = 64 << 10  # bytes; the log of the program stays far below
MANY = 3000  # snippets, whose new numbers need more than that
QUIET = 1.0  # seconds in which a wrong save or a second drop would have come
SEED = [("Alpha", "first ü"), ("Box", None), ("Beta", "second"), ("Shelf", None), ("Gamma", "third")]
SEEDED = [snippet(0, "Alpha", "first ü"), folder(1, "Box", content=None), snippet(2, "Beta", "second"),
          folder(3, "Shelf", content=None), snippet(4, "Gamma", "third")]
DROPPED = "dropped words\n" * 3
FIRST_LINE = (30, 12)  # a place on it, from the upper left corner of a field
ROWS = ["Alpha", "Box", "Beta", "Shelf", "Gamma"]


def seed(user, snippets=SEED):
    """A library with its folders open."""
    user.create_stores()
    user.add_snippets(snippets)
    user.insert("snippets", "UPDATE Snippet SET expanded = ? WHERE isFolder", [(1,)])


@pytest.fixture
def user(desktop, new_user):
    user = new_user(desktop)
    seed(user)
    with user:
        yield user


@pytest.fixture
def library(user):
    library = Library(user).open()
    library.wait_for_rows(*ROWS)
    return library


def is_intact(user):
    return user.query("snippets", "PRAGMA integrity_check") == [(b"ok",)]


# -- building -------------------------------------------------------------------------------------


def test_a_library_is_built_sorted_searched_and_is_there_after_a_restart(desktop, new_user):
    with new_user(desktop) as user:
        library = Library(user).open()
        user.control(PLACEHOLDER)
        assert library.rows() == []

        library.add_snippet("Signature", "Kind regards,\n\tMara ")
        library.add_folder("Work")
        library.add_snippet("Greeting", "Dear team,")
        library.add_folder("Home")
        library.click("Signature")
        library.add_snippet("Mistake", "gone")
        library.wait_for_rows("Signature", "Mistake", "Work", "Greeting", "Home")
        desktop.key("F6")
        desktop.key("Delete")
        library.wait_for_rows("Signature", "Work", "Greeting", "Home")
        user.control(PLACEHOLDER)
        wait_for_store(user, [snippet(0, "Signature", "Kind regards,\n\tMara "), folder(3, "Work"),
                              snippet(4, "Greeting", "Dear team,"), folder(5, "Home")])

        library.drag_below("Signature", "Home")
        library.wait_for_rows("Work", "Greeting", "Home", "Signature")
        library.drag_below("Work", "Home", end="Signature")
        library.wait_for_rows("Home", "Signature", "Work", "Greeting")
        built = [folder(0, "Home"), snippet(1, "Signature", "Kind regards,\n\tMara "),
                 folder(2, "Work"), snippet(3, "Greeting", "Dear team,")]
        wait_for_store(user, built)

        desktop.key("ctrl+f")
        desktop.type_text("TEAM")
        library.wait_for_rows("Work", "Greeting")
        desktop.key("Escape")
        library.wait_for_rows("Home", "Signature", "Work", "Greeting")
        library.close()
        assert user.quit() == 0
        assert stored(user) == built

        user.start()
        library.open()
        library.wait_for_rows("Home", "Signature", "Work", "Greeting")
        library.click("Signature")
        library.wait_for_texts("Signature", "Kind regards,\n\tMara ")
        assert user.quit() == 0
        assert stored(user) == built


def test_the_library_opens_in_front_and_takes_what_is_typed(each_desktop, new_user):
    with new_user(each_desktop) as user, GtkTarget(each_desktop) as target:
        library = Library(user).open()
        library.add_snippet("Greeting", "Hello")
        library.close()

        wait_for_store(user, [snippet(0, "Greeting", "Hello")])
        assert target.text() == b""


def test_the_menu_opens_the_library_in_front(each_desktop, new_user):
    with new_user(each_desktop) as user, GtkTarget(each_desktop) as target:
        open_by_second_start(user)
        user.click_on("Snippet Editor...", "list item")
        user.wait_gone()
        library = Library(user)
        library.wait_in_front()
        library.add_snippet("Greeting", "Hello")

        library.close()
        wait_for_store(user, [snippet(0, "Greeting", "Hello")])
        assert target.text() == b""


def test_items_move_by_keys(library, user):
    desktop = user.desktop
    library.click("Alpha")
    desktop.key("F6")
    desktop.key("alt+Down")
    library.wait_for_rows("Box", "Alpha", "Beta", "Shelf", "Gamma")
    desktop.key("ctrl+Page_Up")
    wait_until(lambda: "selected" in library.states("Box"), START_BOUND, "Box is selected")
    desktop.key("alt+Down")

    library.wait_for_rows("Shelf", "Gamma", "Box", "Alpha", "Beta")
    wait_for_store(user, [folder(0, "Shelf", content=None), snippet(1, "Gamma", "third"),
                          folder(2, "Box", content=""), snippet(3, "Alpha", "first ü"),
                          snippet(4, "Beta", "second")])


def test_a_folder_opens_and_closes_by_mouse_and_keys_and_stays_so(library, user):
    desktop = user.desktop
    library.toggle("Box")
    library.wait_for_rows("Alpha", "Box", "Shelf", "Gamma")
    wait_until(lambda: stored(user)[1].expanded == 0, START_BOUND, "Box is stored closed")
    assert "expanded" not in library.states("Box")
    assert library.texts() == []
    library.click("Shelf")
    desktop.key("F6")
    desktop.key("Left")
    library.wait_for_rows("Alpha", "Box", "Shelf")
    assert user.quit() == 0

    user.start()
    library.open()
    library.wait_for_rows("Alpha", "Box", "Shelf")
    library.click("Box")
    desktop.key("F6")
    desktop.key("Right")
    library.wait_for_rows("Alpha", "Box", "Beta", "Shelf")


CLOSE_FOLDER = 3  # which entry of the row's menu it is


@pytest.mark.parametrize("key", ["Menu", "shift+F10"])
def test_the_menu_key_shows_the_menu_of_the_row_at_the_row(library, user, key):
    desktop = user.desktop
    library.click("Shelf")
    desktop.key("F6")
    desktop.key(key)
    menus = lambda: [window for window in user.windows() if window.override_redirect]
    menu = wait_until(menus, START_BOUND, "the menu shows")[0]
    row = user.control("Shelf", "list item")
    assert row.x < menu.x < row.x + row.width
    assert abs(menu.y - (row.y + row.height)) <= LINE_THICKNESS
    for _ in range(CLOSE_FOLDER):
        desktop.key("Down")
    desktop.key("Return")

    library.wait_for_rows("Alpha", "Box", "Beta", "Shelf")


# -- dragging -------------------------------------------------------------------------------------


def test_a_folder_is_refused_above_a_member(library, user):
    row = user.control("Box", "list item")
    with library.drag("Shelf") as dragging:
        dragging.move_to(library.above("Box"), lambda: library.has_line_at(row.y), "the row above is taken")
        dragging.move_to(library.above("Beta"), lambda: library.lines() == [], "the member's strip is not")
        dragging.drop()

    stays(lambda: stored(user) == SEEDED, QUIET, "nothing moved")
    assert library.rows() == ROWS
    library.drag_above("Shelf", "Box")
    library.wait_for_rows("Alpha", "Shelf", "Gamma", "Box", "Beta")


def test_escape_ends_a_drag_and_changes_nothing(library, user):
    row = user.control("Shelf", "list item")
    with library.drag("Beta") as dragging:
        dragging.move_to(library.below("Shelf"), lambda: library.has_line_at(row.y + row.height), "line")
        dragging.escape()

    stays(lambda: stored(user) == SEEDED, QUIET, "nothing moved")
    assert library.lines() == [] and library.rows() == ROWS
    library.drag_below("Beta", "Shelf")
    library.wait_for_rows("Alpha", "Box", "Shelf", "Beta", "Gamma")


def close(library):
    """As the window manager's button does. What is dragged has a window of that name too."""
    is_there = lambda: any(window.width > 500 for window in library.user.windows())
    library.desktop.run(["wmctrl", "-c", TITLE])
    wait_until(lambda: not is_there(), START_BOUND, "the library is closed")


def hold_over_shelf(library, dragging):
    row = library.user.control("Shelf", "list item")
    dragging.move_to(library.below("Shelf"), lambda: library.has_line_at(row.y + row.height), "line")


def grip_text(library):
    """A place on the selected text of the open editor, which holds "second"."""
    library.click("Beta")
    library.wait_for_texts("Beta", "second")
    library.desktop.key("ctrl+a")
    fields = wait_until(lambda: library.desktop.accessibility.controls(APPLICATION, role="text"),
                        START_BOUND, "the editor's fields show")
    text = max(fields, key=lambda field: field.height)
    return text.x + FIRST_LINE[0], text.y + FIRST_LINE[1]


def test_a_library_that_is_closed_during_a_drag_gives_the_drag_up(library, user):
    with library.drag("Beta") as dragging:
        hold_over_shelf(library, dragging)
        close(library)
        dragging.drop()

    library.open()
    library.wait_for_rows(*ROWS)
    assert stored(user) == SEEDED
    library.drag_below("Beta", "Shelf")
    library.wait_for_rows("Alpha", "Box", "Shelf", "Beta", "Gamma")
    assert user.quit() == 0


def test_quitting_during_a_drag_ends_the_program(library, user):
    with library.drag("Beta") as dragging:
        hold_over_shelf(library, dragging)
        assert user.quit() == 0
        dragging.drop()

    assert stored(user) == SEEDED


@pytest.mark.parametrize("end", ["close", "quit"])
def test_a_text_on_its_way_out_of_the_editor_is_given_up_with_its_window(library, user, end):
    place = grip_text(library)
    with drag(user.desktop, place) as dragging:
        hold_over_shelf(library, dragging)
        if end == "close":
            close(library)
        else:
            assert user.quit() == 0
        dragging.drop()

    if end == "close":
        library.open()
        library.wait_for_rows(*ROWS)
        assert user.quit() == 0
    assert stored(user) == SEEDED


def test_a_text_of_the_open_editor_becomes_a_snippet_and_stays_where_it_is(library, user):
    place = grip_text(library)
    with drag(user.desktop, place) as dragging:
        hold_over_shelf(library, dragging)
        dragging.drop()

    library.wait_for_texts("", "second")
    assert [(row.title, row.content) for row in stored(user)] == [
        ("Alpha", "first \u00fc"), ("Box", None), ("Beta", "second"), ("Shelf", None), ("", "second"),
        ("Gamma", "third")]
    assert user.quit() == 0


def side_by_side(library, target):
    target.place(10, 40)
    library.place(515, 40)


def test_a_row_that_is_dragged_into_a_program_arrives_there_once(library, user):
    with GtkTarget(user.desktop) as target:
        side_by_side(library, target)
        with library.drag("Alpha") as dragging:
            # The second motion is sent after the answer to the first one only.
            dragging.move_to(target.window().centre, lambda: target.drag_motions() >= 2,
                             "the field takes it")
            dragging.drop()
        target.wait_for_text("first ü".encode())

        stays(lambda: target.text() == "first ü".encode(), QUIET, "it comes once")
        assert stored(user) == SEEDED
        assert library.rows() == ROWS


@pytest.mark.parametrize("source", [GtkTarget, QtTarget])
@pytest.mark.parametrize("strip, expected", [
    ("above", ["Alpha", "Box", "New", "Beta", "Shelf", "Gamma"]),
    ("below", ["Alpha", "Box", "Beta", "Shelf", "New", "Gamma"]),
])
def test_text_that_is_dropped_becomes_a_snippet_there(library, user, source, strip, expected):
    desktop = user.desktop
    with source(desktop) as field:
        side_by_side(library, field)
        field.hold(DROPPED)
        field.select_all()
        near, place = {"above": ("Beta", library.above), "below": ("Shelf", library.below)}[strip]
        row = user.control(near, "list item")
        edge = row.y if strip == "above" else row.y + row.height
        window = field.window()
        with drag(desktop, (window.x + FIRST_LINE[0], window.y + FIRST_LINE[1])) as dragging:
            dragging.move_to(place(near), lambda: library.has_line_at(edge), "line")
            dragging.drop()

        wait_until(lambda: len(stored(user)) == len(expected), START_BOUND, lambda: str(stored(user)))
        assert [row.title or "New" for row in stored(user)] == expected
        assert [row.order for row in stored(user)] == list(range(len(expected)))
        new = stored(user)[expected.index("New")]
        assert (new.content, new.is_folder) == (DROPPED, 0)
        library.wait_for_texts("", DROPPED)
        assert field.text() == DROPPED.encode()


@pytest.mark.parametrize("source", [GtkTarget, QtTarget])
def test_text_dropped_beside_the_list_is_the_last_snippet_and_stays_where_it_was(library, user, source):
    with source(user.desktop) as field:
        side_by_side(library, field)
        field.hold(DROPPED)
        field.select_all()
        window = field.window()
        with drag(user.desktop, (window.x + FIRST_LINE[0], window.y + FIRST_LINE[1])) as dragging:
            row = user.control("Gamma", "list item")
            dragging.move_to(library.below("Gamma"), lambda: library.has_line_at(row.y + row.height), "line")
            dragging.move_to(user.control(PLACEHOLDER).centre, lambda: not library.lines(), "no line")
            dragging.drop()

        library.wait_for_texts("", DROPPED)
        assert [(row.title, row.content) for row in stored(user)][len(SEED):] == [("", DROPPED)]
        stays(lambda: field.text() == DROPPED.encode(), QUIET, "the source keeps it")


# -- import and export ----------------------------------------------------------------------------


def choose_file(user, command, dialog, file):
    """Through the File menu and the file dialog, by keys."""
    desktop = user.desktop
    desktop.key("alt+f")
    user.control(command, "menu item")
    desktop.key({"Import…": "i", "Export Library…": "e"}[command])
    user.control(dialog, "dialog")
    wait_until(lambda: has_focus(user, "File name:"), START_BOUND, "the dialog has the keyboard")
    wait_until(lambda: type_path(user, str(file)), START_BOUND,
               lambda: f"the path is typed: {desktop.accessibility.texts(APPLICATION)}")
    wait_until(lambda: accept(user, dialog), START_BOUND, "the dialog is gone")


def type_path(user, path):
    """The dialog may set the field once more while it is still reading its folder."""
    user.desktop.key("ctrl+a")
    user.desktop.type_text(path)
    try:
        return wait_until(lambda: path in user.desktop.accessibility.texts(APPLICATION), SHOWN_BOUND, "typed")
    except NotReached:
        return False


def accept(user, dialog):
    """Return may only close the list of suggestions, if that has come up by then."""
    user.desktop.key("Return")
    try:
        return wait_until(lambda: not user.desktop.accessibility.controls(APPLICATION, dialog, "dialog"),
                          SHOWN_BOUND, "gone")
    except NotReached:
        return False


def has_focus(user, name):
    controls = user.desktop.accessibility.controls(APPLICATION, name, "text")
    return any("focused" in control.states for control in controls)


def test_what_is_exported_is_imported_by_another_user(library, user, new_user):
    file = user.folder / "exported.json"
    choose_file(user, "Export Library…", "Export Library", file)
    wait_until(file.exists, START_BOUND, "the file is written")
    items = json.loads(file.read_text())["items"]
    assert [item["title"] for item in items] == ["Alpha", "Box", "Shelf"]
    assert user.quit() == 0

    with new_user(user.desktop) as other:
        library = Library(other).open()
        choose_file(other, "Import…", "Import", file)
        library.wait_for_rows(*ROWS)
        wait_for_store(other, SEEDED)


def test_a_malformed_file_is_refused_with_line_and_reason(library, user):
    file = user.folder / "broken.json"
    file.write_text('{\n "format": "Quillery library",\n "version": 1,\n "items": [{"title": 5}]\n}\n')
    choose_file(user, "Import…", "Import", file)

    user.control("The file was not imported. Nothing was changed.")
    wait_until(lambda: [name for name in user.names() if name.startswith("Line 4: ")],
               START_BOUND, lambda: str(user.names()))
    user.desktop.key("Return")
    library.wait_in_front()
    assert library.rows() == ROWS
    assert stored(user) == SEEDED


# -- ends and faults ------------------------------------------------------------------------------


def test_quitting_saves_what_the_editor_shows(library, user):
    library.click("Beta")
    library.wait_for_texts("Beta", "second")
    user.desktop.type_text(" and more")
    library.wait_for_texts("Beta", "second and more")
    assert stored(user) == SEEDED
    assert user.quit() == 0

    assert stored(user) == [*SEEDED[:2], snippet(2, "Beta", "second and more"), *SEEDED[3:]]


def test_a_kill_loses_what_was_typed_since_the_last_save_and_nothing_else(library, user):
    desktop = user.desktop
    library.click("Beta")
    library.wait_for_texts("Beta", "second")
    desktop.type_text(" saved")
    library.wait_for_texts("Beta", "second saved")
    library.click("Gamma")
    library.wait_for_texts("Gamma", "third")
    desktop.type_text(" lost")
    library.wait_for_texts("Gamma", "third lost")
    saved = [*SEEDED[:2], snippet(2, "Beta", "second saved"), *SEEDED[3:]]
    stays(lambda: stored(user) == saved, QUIET, "typing saves nothing")
    user.kill()

    assert is_intact(user)
    assert stored(user) == saved
    user.start()
    library.open()
    library.click("Gamma")
    library.wait_for_texts("Gamma", "third")


def limit_files(user, size):
    """What a full disk does: writing beyond the size fails."""
    resource.prlimit(user.process.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))


def test_the_library_drops_a_failed_save_and_saves_again_when_it_can(desktop, new_user):
    user = new_user(desktop)
    user.create_stores()
    user.add_snippets([("Alpha", "a"), ("Box", None), *[(f"Row {n}", "x" * 50) for n in range(MANY)],
                       ("Shelf", None)])
    before = stored(user)
    with user:
        library = Library(user).open()
        library.wait_for_rows("Alpha", "Box", "Shelf")
        limit_files(user, FULL_AT)
        library.drag_above("Shelf", "Alpha")

        stays(lambda: user.is_running() and stored(user) == before, QUIET, "nothing is saved")
        limit_files(user, resource.RLIM_INFINITY)
        library.toggle("Shelf")
        after = [before[-1], *before[:-1]]
        expected = [one._replace(order=order) for order, one in enumerate(after)]
        expected[0] = expected[0]._replace(expanded=1)
        wait_for_store(user, expected)
        assert "Unresolved error" not in user.errors()


def test_a_save_that_fails_as_the_editor_disappears_ends_the_program(library, user):
    desktop = user.desktop
    library.click("Beta")
    library.wait_for_texts("Beta", "second")
    text = mixed_text(4 * FULL_AT)
    desktop.copy(text)
    wait_until(lambda: user.contents() == [text], START_BOUND, "the program knows of the copy")
    desktop.key("ctrl+v")
    library.wait_for_texts("Beta", "second" + text.decode())
    limit_files(user, FULL_AT)
    desktop.key("ctrl+w")

    assert user.wait_exit() == -signal.SIGABRT
    lines = [line for line in user.errors().splitlines() if "Unresolved error " in line]
    assert len(lines) == 1, user.errors()
    assert "Quillery_Mac/SnippetDetailMac" in user.errors()
    assert is_intact(user)
    assert stored(user) == SEEDED


# -- accessibility --------------------------------------------------------------------------------

# What a user meets on the way through the window.
CONTROLS = ("push button", "text", "list", "list item", "menu item", "label", "check box", "combo box",
            "frame", "dialog")


def test_every_control_has_a_name_and_every_row_its_states(library, user):
    library.click("Beta")
    library.wait_for_texts("Beta", "second")
    for state, name in (("expanded", "Box"), ("selected", "Beta")):
        assert state in library.states(name)
    for state in ("expanded", "selected"):
        assert state not in library.states("Alpha")

    controls = user.desktop.accessibility.controls(APPLICATION)
    assert [one for one in controls if one.role in CONTROLS and not one.name] == []
    buttons = [one.name for one in controls if one.role == "push button"]
    assert buttons == ["Add Snippet", "Add Folder", "Delete"]
    assert {"Title", "Snippet", "Search"} <= {one.name for one in controls if one.role == "text"}
    user.desktop.key("F6")
    user.desktop.key("Delete")
    wait_until(lambda: not user.desktop.accessibility.controls(APPLICATION, "Delete", "push button"),
               START_BOUND, "nothing to delete")


def test_rows_out_of_view_are_known_too_and_tell_their_folder(desktop, new_user):
    many = [str(number) for number in range(60)]
    with new_user(desktop, snippets=[("Box", None), *[(name, "text") for name in many]]) as user:
        library = Library(user).open()
        if "0" not in library.rows():
            library.toggle("Box")
        wait_until(lambda: "0" in library.rows(), START_BOUND, "the folder is open")

        def known_rows():
            return user.desktop.accessibility.controls(APPLICATION, role="list item", showing=False)

        # While the rows slide in, the tree changes under the one who reads it.
        wait_until(lambda: [row.name for row in known_rows()] == ["Box", *many], START_BOUND, "all rows")
        known = known_rows()
        assert 5 < len(library.rows()) < 40
        assert {row.parent for row in known[1:]} == {"Box"}
        assert known[0].parent == "Snippets"
