# SPDX-License-Identifier: MIT
"""Owns the clipboard in ways that good programs do not. Usage: selection_owner.py HOW TEXT

HOW is one of: concealed (a password manager's copy), hung (never answers), hung-text (names its
targets and never hands over the text), image (has no text)."""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

HINT = "x-kde-passwordManagerHint"
TEXT_TARGETS = ("UTF8_STRING", "STRING", "text/plain;charset=utf-8")

how, text = sys.argv[1:]
connection = display.Display()
window = connection.screen().root.create_window(0, 0, 1, 1, 0, 0)


def atom(name):
    return connection.intern_atom(name)


def offers():
    """Target name to bytes; None for a target that is never handed over."""
    if how == "image":
        return {"image/png": b"\x89PNG\r\n\x1a\n"}
    if how == "concealed":
        return {HINT: b"secret", **{name: text.encode() for name in TEXT_TARGETS}}
    return {name: None for name in TEXT_TARGETS}


def answer(request):
    if how == "hung":
        return
    given = offers()
    name = connection.get_atom_name(request.target)
    prop = request.property or request.target
    if name == "TARGETS":
        atoms = [atom(one) for one in ("TARGETS", *given)]
        request.requestor.change_property(prop, Xatom.ATOM, 32, atoms)
    elif given.get(name) is not None:
        request.requestor.change_property(prop, request.target, 8, given[name])
    elif name in given:
        return
    else:
        prop = X.NONE
    request.requestor.send_event(event.SelectionNotify(
        time=request.time, requestor=request.requestor, selection=request.selection,
        target=request.target, property=prop))
    connection.flush()


window.set_selection_owner(atom("CLIPBOARD"), X.CurrentTime)
connection.flush()
while True:
    happened = connection.next_event()
    if happened.type == X.SelectionRequest:
        answer(happened)
    elif happened.type == X.SelectionClear:
        break
