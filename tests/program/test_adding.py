# SPDX-License-Identifier: MIT
"""A selection in any program becomes a snippet, by the shortcut and the form that it opens."""

import pytest

from conftest import IS_LONG
from menus import open_by_second_start, open_panel
from support.desktop import START_BOUND, support_path
from support.editor_window import folder, snippet, stored, wait_for_store
from support.quillery import ADD, APPLICATION
from support.targets import TARGETS, GtkTarget
from support.titled_window import TitledWindow
from support.waiting import stays, wait_until

TITLE = "Add Snippet"
NEW_FOLDER = "Create new folder..."
QUIET = 1.0  # seconds in which a wrong row would have come
TEXT = "Kind regards, Mara (no. 7)"
# Every program under every window manager in the long run only.
CASES = [(manager, name) for manager in ("openbox", "xfwm4", "i3") for name in TARGETS
         if IS_LONG or manager == "openbox" or name == "gtk"]


class Form(TitledWindow):
    """The form for a new snippet, as its user sees it and fills it in."""

    def __init__(self, user):
        super().__init__(user, TITLE)

    def texts(self):
        """The contents of its fields, from the top down."""
        return self.desktop.accessibility.texts(APPLICATION)

    def wait_for_texts(self, *texts):
        wait_until(lambda: sorted(self.texts()) == sorted(texts), START_BOUND,
                   lambda: f"in the form: {self.texts()}")

    def fill(self, title, new_folder):
        """By keys alone, from the title down."""
        content = max(self.texts(), key=len)
        self.desktop.type_text(title)
        self.desktop.key("Tab")
        self.desktop.key("ctrl+Tab")  # Tab alone is a character of the text
        self.choose(NEW_FOLDER)
        self.desktop.type_text(new_folder)
        self.wait_for_texts(title, content, new_folder)

    def choose(self, entry):
        """In the picker, which has the keyboard. The new folder's entry is the last one."""
        assert entry == NEW_FOLDER
        self.desktop.key("End")
        self.user.control("New folder name:", "text")


def select_and_press(target, text):
    """Returns what was selected. Terminals add a line end."""
    target.hold(text)
    selected = target.select_all().decode()
    target.desktop.key(ADD)
    return selected


def paste_back(user, target, title, text):
    """Through the menu, into the emptied program."""
    target.focus()
    target.clear()
    user.summon()
    user.desktop.type_text(title)
    user.control(title, "list item")
    user.desktop.key("Return")
    target.wait_for_text(text.encode())


@pytest.mark.parametrize("manager, name", CASES)
def test_a_selection_is_saved_into_a_new_folder_and_pasted_back(desktops, new_user, manager, name):
    desktop = desktops.get(window_manager=manager, accessibility=True)
    with new_user(desktop, snippets=[("Old", "old")]) as user, TARGETS[name](desktop) as target:
        text = select_and_press(target, TEXT)
        form = Form(user).wait_in_front()
        form.wait_for_texts("", text)
        form.fill("Closing", "Letters")
        desktop.key("Return")
        form.wait_gone()

        wait_for_store(user, [snippet(0, "Old", "old"), folder(1, "Letters", expanded=0),
                              snippet(2, "Closing", text)])
        assert text.rstrip("\n") == TEXT
        paste_back(user, target, "Closing", text)


@pytest.mark.parametrize("is_held", [False, True], ids=["let-go", "held"])
def test_the_shortcut_copies_once_while_its_keys_are_held(each_desktop, new_user, is_held):
    with new_user(each_desktop) as user, GtkTarget(each_desktop) as target:
        hands = each_desktop.hands
        target.hold(TEXT)
        target.select_all()
        for key in ("Shift_L", "Super_L", "c"):
            hands.press(key)
        for key in ("c",) if is_held else ("c", "Super_L", "Shift_L"):
            hands.release(key)
        form = Form(user).wait_in_front()
        form.wait_for_texts("", TEXT)
        if is_held:
            stays(form.is_in_front, QUIET, "the form is there while the keys are held")
            for key in ("Super_L", "Shift_L"):
                hands.release(key)

        wait_until(lambda: each_desktop.server.keys_down() == [], START_BOUND, "no key is down")
        each_desktop.type_text("small")
        form.wait_for_texts("small", TEXT)
        assert target.text() == TEXT.encode()


@pytest.mark.parametrize("open_menu", [open_panel, open_by_second_start])
def test_quick_add_opens_an_empty_form_in_front(each_desktop, new_user, open_menu):
    with new_user(each_desktop) as user, GtkTarget(each_desktop) as target:
        each_desktop.copy("not for the form")
        wait_until(lambda: user.contents() == [b"not for the form"], START_BOUND, "the copy is recorded")
        open_menu(user)
        user.click_on("Quick Add...", "list item")
        user.wait_gone()
        form = Form(user).wait_in_front()
        form.wait_for_texts("", "")
        each_desktop.type_text("Written")
        form.wait_for_texts("Written", "")
        each_desktop.key("Return")

        form.wait_gone()
        wait_for_store(user, [snippet(0, "Written", "")])
        assert target.text() == b""


def test_the_form_has_the_keyboard_where_the_menu_was_the_last_to_have_it(each_desktop, new_user):
    """With no other window open. It was luck, so there is more than one try."""
    desktop = each_desktop
    with new_user(desktop) as user:
        for _ in range(40 if IS_LONG else 5):
            user.summon()
            desktop.key("Escape")
            user.wait_gone()

            desktop.key(ADD)
            form = Form(user)
            form.wait_in_front()
            desktop.key("Escape")
            form.wait_gone()


def test_the_button_saves_at_the_top(desktop, new_user):
    with new_user(desktop, snippets=[("Old", "old")]) as user, GtkTarget(desktop) as target:
        select_and_press(target, TEXT)
        form = Form(user).wait_in_front()
        form.wait_for_texts("", TEXT)
        desktop.type_text("By mouse")
        form.wait_for_texts("By mouse", TEXT)
        user.click_on(TITLE, "push button")

        form.wait_gone()
        wait_for_store(user, [snippet(0, "By mouse", TEXT), snippet(1, "Old", "old")])


def test_escape_and_the_cancel_button_add_nothing(desktop, new_user):
    with new_user(desktop, snippets=[("Old", "old")]) as user, GtkTarget(desktop) as target:
        for cancel in (lambda: desktop.key("Escape"), lambda: user.click_on("Cancel", "push button")):
            select_and_press(target, TEXT)
            form = Form(user).wait_in_front()
            form.wait_for_texts("", TEXT)
            desktop.type_text("never")
            form.wait_for_texts("never", TEXT)
            cancel()
            form.wait_gone()

        stays(lambda: stored(user) == [snippet(0, "Old", "old")], QUIET, "nothing is added")
        assert user.quit() == 0
        assert stored(user) == [snippet(0, "Old", "old")]


def test_the_copy_form_holds_the_text_of_the_clipboard(desktop, new_user):
    with new_user(desktop) as user:
        desktop.copy("from the clipboard")
        wait_until(lambda: user.contents() == [b"from the clipboard"], START_BOUND, "copied")
        user.activate_action("add-snippet-copy")
        form = Form(user).wait_in_front()

        form.wait_for_texts("", "from the clipboard")


def test_the_copy_form_is_empty_while_the_clipboard_holds_an_image(desktop, new_user):
    with new_user(desktop) as user:
        desktop.copy("before")
        wait_until(lambda: user.contents() == [b"before"], START_BOUND, "copied")
        before = desktop.server.selection_owner()
        image = desktop.start([*support_path("selection_owner.py"), "image", ""])
        wait_until(lambda: desktop.server.selection_owner() not in (0, before), START_BOUND, "image")

        # The program learns of the image in the background, some time after the server.
        wait_until(lambda: empty_copy_form(user), START_BOUND, "an empty form")
        stays(lambda: Form(user).texts() == ["", ""], QUIET, "nothing comes later")
        desktop.processes.end(image)


def empty_copy_form(user):
    """Opens the form for what is copied; closes it again if it holds a text."""
    user.activate_action("add-snippet-copy")
    form = Form(user).wait_in_front()
    texts = wait_until(lambda: len(form.texts()) == 2 and form.texts(), START_BOUND, "two fields")
    if texts == ["", ""]:
        return True
    user.desktop.key("Escape")
    form.wait_gone()
    return False


def test_every_control_of_the_form_has_a_name(desktop, new_user):
    with new_user(desktop, snippets=[("Box", None)]) as user:
        user.activate_action("add-snippet")
        Form(user).wait_in_front()

        controls = desktop.accessibility.controls(APPLICATION)
        nameless = [one for one in controls if not one.name and one.role in
                    ("text", "push button", "combo box", "list item", "label", "frame", "dialog")]
        assert nameless == []
        assert {"Title", "Content"} <= {one.name for one in controls if one.role == "text"}
        assert ["Cancel", TITLE] == [one.name for one in controls if one.role == "push button"]
        assert ["Folder"] == [one.name for one in controls if one.role == "combo box"]
        assert [TITLE] == [one.name for one in controls if one.role == "dialog"]
