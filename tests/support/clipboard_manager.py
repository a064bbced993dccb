# SPDX-License-Identifier: MIT
"""A small clipboard manager of the session: takes over the text of a program that ends."""

from Xlib import X, Xatom, display
from Xlib.protocol import event

connection = display.Display()
window = connection.screen().root.create_window(0, 0, 1, 1, 0, 0, event_mask=X.PropertyChangeMask)


def atom(name):
    return connection.intern_atom(name)


def fetch():
    """The clipboard's text, as its owner hands it over."""
    window.convert_selection(atom("CLIPBOARD"), atom("UTF8_STRING"), atom("TAKEN"), X.CurrentTime)
    while True:
        happened = connection.next_event()
        if happened.type == X.SelectionNotify:
            return bytes(window.get_full_property(atom("TAKEN"), X.AnyPropertyType).value)


def reply(request, prop):
    request.requestor.send_event(event.SelectionNotify(
        time=request.time, requestor=request.requestor, selection=request.selection,
        target=request.target, property=prop))
    connection.flush()


def serve(request, text):
    names = ("TARGETS", "UTF8_STRING")
    if request.target == atom("TARGETS"):
        request.requestor.change_property(request.property, Xatom.ATOM, 32,
                                          [atom(name) for name in names])
    else:
        request.requestor.change_property(request.property, request.target, 8, text)
    reply(request, request.property)


def main():
    kept = b""
    window.set_selection_owner(atom("CLIPBOARD_MANAGER"), X.CurrentTime)
    connection.flush()
    while True:
        request = connection.next_event()
        if request.type != X.SelectionRequest:
            continue
        if request.selection == atom("CLIPBOARD"):
            serve(request, kept)
        elif request.target == atom("SAVE_TARGETS"):
            kept = fetch()
            window.set_selection_owner(atom("CLIPBOARD"), X.CurrentTime)
            request.requestor.change_property(request.property, atom("NULL"), 32, [])
            reply(request, request.property)
        else:
            request.requestor.change_property(request.property, Xatom.ATOM, 32,
                                              [atom("TARGETS"), atom("SAVE_TARGETS")])
            reply(request, request.property)


main()
