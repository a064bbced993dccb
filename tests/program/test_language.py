# SPDX-License-Identifier: MIT
"""The program speaks the user's language, as the environment of the desktop names it."""

import pytest

from menus import highlighted, open_panel
from support.desktop import START_BOUND
from support.editor_window import Library
from support.quillery import APPLICATION
from support.targets import GtkTarget
from support.waiting import wait_until

GERMAN = ["Verlauf", "Verlauf löschen", "Textbausteine", "Schnell hinzufügen …"]
ENGLISH = ["History", "Clear History", "Snippets", "Quick Add..."]
GERMANY = {"LANG": "de_DE.UTF-8", "LC_ALL": ""}  # a desktop of the tests has LC_ALL=C.UTF-8


def rows(user):
    """The names of the rows of the menu at the pointer, from the top down."""
    user.summon()
    look = lambda: user.desktop.accessibility.controls(APPLICATION, role="list item")
    items = wait_until(lambda: len(look()) == len(GERMAN) and look(), START_BOUND,
                       lambda: f"rows show: {look()}")
    return [item.name for item in sorted(items, key=lambda item: item.y)]


@pytest.mark.parametrize("environment, expected", [
    pytest.param(GERMANY, GERMAN, id="LANG"),
    pytest.param({"LC_ALL": "de_AT.UTF-8"}, GERMAN, id="region"),
    pytest.param({"LANG": "en_US.UTF-8", "LC_ALL": "", "LC_MESSAGES": "de_DE.UTF-8"}, GERMAN, id="LC_MESSAGES"),
    pytest.param({"LC_ALL": "en_US.UTF-8", "LANGUAGE": "fr:de"}, GERMAN, id="LANGUAGE"),
    pytest.param({"LC_ALL": "de_DE.UTF-8", "LANGUAGE": "en_GB:de"}, ENGLISH, id="English-first"),
    pytest.param({"LANG": "de_DE.UTF-8", "LC_ALL": "C.UTF-8"}, ENGLISH, id="LC_ALL-wins"),
    pytest.param({"LC_ALL": "ja_JP.UTF-8"}, ENGLISH, id="no-translation"),
])
def test_the_menu_is_in_the_language_of_the_desktop(desktop, new_user, environment, expected):
    with new_user(desktop, environment=environment) as user:
        assert rows(user) == expected


def test_what_is_picked_in_a_german_menu_arrives(desktop, new_user):
    with new_user(desktop, snippets=[("Gruß", "Mit freundlichen Grüßen")], environment=GERMANY) as user:
        with GtkTarget(desktop) as target:
            target.focus()
            open_panel(user)
            desktop.key("g")
            wait_until(lambda: "Gruß" in highlighted(user, "Textbausteine"), START_BOUND, "it is found")
            desktop.key("Return")
            target.wait_for_text("Mit freundlichen Grüßen".encode())


def test_the_windows_are_german_with_the_parts_that_qt_brings(desktop, new_user):
    with new_user(desktop, environment=GERMANY) as user:
        library = Library(user).open()
        desktop.key("ctrl+n")
        library.wait_for_rows("Neuer Textbaustein")
        user.control("Textbaustein hinzufügen")
        desktop.key("alt+d")
        user.control("Importieren …", "menu item")
        desktop.key("i")
        user.control("Importieren", "dialog")
        user.control("Abbrechen")
        user.control("Bibliotheken und Tabellen (*.json *.csv)")


def test_without_a_translation_nothing_is_mirrored(desktop, new_user):
    with new_user(desktop, snippets=[("Alpha", "first")], environment={"LC_ALL": "ar_EG.UTF-8"}) as user:
        desktop.move_pointer(500, 200)
        user.summon()
        user.open_popover("Down", count=3)
        user.control("Alpha")
        menu, popover = user.menus()
        assert popover.x > menu.x
