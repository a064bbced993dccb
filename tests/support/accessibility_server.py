# SPDX-License-Identifier: MIT
"""Reads the accessibility tree of the session that it runs in. One JSON request a line on
standard input, one JSON answer a line on standard output. A process of its own, because the
library connects once per process and the tests have many sessions."""

import json
import sys
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# The library calls its interface getters deprecated and offers Python nothing in their place.
warnings.simplefilter("ignore", DeprecationWarning)

MAX_DEPTH = 40

STATES = ("SHOWING", "VISIBLE", "ACTIVE", "FOCUSABLE", "FOCUSED", "SELECTED", "CHECKED", "EXPANDED",
          "EDITABLE")


def children(node):
    for index in range(node.get_child_count()):
        try:
            child = node.get_child_at_index(index)
        except GLib.Error:
            continue  # gone while we looked
        if child is not None:
            yield child


def walk(node, depth=0):
    try:
        node.clear_cache()
        yield node
        if depth < MAX_DEPTH:
            for child in children(node):
                yield from walk(child, depth + 1)
    except GLib.Error:
        return  # gone while we looked


def applications_now():
    """All that there are at one moment: while one goes, another may be missed. Nor as they were at
    the last look, where one that has gone would stand in the place of another."""
    desktop = Atspi.get_desktop(0)
    while True:
        desktop.clear_cache()
        count = desktop.get_child_count()
        found = list(children(desktop))
        if len(found) == count == desktop.get_child_count():
            return found


def nodes(request):
    for application in applications_now():
        if name_of(application).lower() == request["application"].lower():
            yield from walk(application)


def name_of(application):
    """Empty for one that has just ended: it is listed a little longer."""
    try:
        application.clear_cache()
        return application.get_name()
    except GLib.Error:
        return ""


def description(node):
    parent = node.get_parent()
    states = node.get_state_set()
    result = {
        "name": node.get_name(),
        "role": node.get_role_name(),
        "description": node.get_description(),
        "parent": parent.get_name() if parent is not None else "",
        "states": [name.lower() for name in STATES if states.contains(getattr(Atspi.StateType, name))],
    }
    component = node.get_component_iface()
    if component is not None:
        box = component.get_extents(Atspi.CoordType.SCREEN)
        result["box"] = [box.x, box.y, box.width, box.height]
    return result


def find(request):
    found = []
    for node in nodes(request):
        try:
            if request.get("name") is not None and node.get_name() != request["name"]:
                continue
            if request.get("role") is not None and node.get_role_name() != request["role"]:
                continue
            seen = description(node)
        except GLib.Error:
            continue
        if not request.get("showing", True) or "showing" in seen["states"]:
            found.append(seen)
    return found


def text(request):
    """The contents of the editable texts of the application that show."""
    found = []
    for node in nodes(request):
        try:
            states = node.get_state_set()
            content = node.get_text_iface()
            if content is None or not states.contains(Atspi.StateType.EDITABLE):
                continue
            if states.contains(Atspi.StateType.SHOWING):
                found.append(Atspi.Text.get_text(content, 0, Atspi.Text.get_character_count(content)))
        except GLib.Error:
            continue
    return found


def applications(_request):
    return [name_of(application) for application in applications_now()]


def main():
    Atspi.init()
    Atspi.set_timeout(3000, 5000)
    operations = {"find": find, "text": text, "applications": applications}
    for line in sys.stdin:
        request = json.loads(line)
        try:
            answer = {"value": operations[request["operation"]](request)}
        except GLib.Error as failure:
            answer = {"error": failure.message}
        print(json.dumps(answer), flush=True)


main()
