# SPDX-License-Identifier: MIT
"""One X client of the tests: it sees windows, focus and selections, and types and clicks."""

import contextlib

from Xlib import X, XK, Xatom, display, error, protocol
from Xlib.ext import xtest

from support.waiting import wait_until

SHIFT_LEVEL = 1  # column of the shifted character in the server's key map

SYMS_OF_CONTROLS = {"\n": XK.XK_Return, "\t": XK.XK_Tab}

MODIFIER_KEYS = {
    "shift": "Shift_L",
    "ctrl": "Control_L",
    "alt": "Alt_L",
    "super": "Super_L",
}


class Window:
    """What can be seen of a window from outside."""

    def __init__(self, id, title, wm_class, x, y, width, height, override_redirect, is_top_level):
        self.id = id
        self.title = title
        self.wm_class = wm_class
        self.x, self.y, self.width, self.height = x, y, width, height
        self.override_redirect = override_redirect
        self.is_top_level = is_top_level  # stands on the root, in no frame and in no tray

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def __repr__(self):
        return f"Window({self.id:#x}, {self.title!r}, {self.wm_class}, {self.width}x{self.height}+{self.x}+{self.y})"


class Server:
    """A connection to one X server."""

    def __init__(self, name):
        self.name = name
        self.display = display.Display(name)
        self.root = self.display.screen().root

    def close(self):
        with contextlib.suppress(error.ConnectionClosedError, OSError):
            self.display.close()

    # -- windows ------------------------------------------------------------------------------

    def windows(self):
        """All viewable windows that have a WM_CLASS, bottom to top, at their place on the root."""
        found = []
        self._collect(self.root, found)
        return found

    def find_windows(self, wm_class=None, title=None):
        """Viewable windows whose class part of WM_CLASS and whose title are as given."""
        return [
            window
            for window in self.windows()
            if (wm_class is None or wm_class in window.wm_class)
            and (title is None or window.title == title)
        ]

    def _collect(self, parent, found):
        try:
            children = parent.query_tree().children
        except error.XError:
            return
        for child in children:
            try:
                self._look_at(child, parent, found)
            except error.XError:
                continue  # gone while we looked

    def _look_at(self, window, parent, found):
        attributes = window.get_attributes()
        if attributes.map_state != X.IsViewable or attributes.win_class != X.InputOutput:
            return
        wm_class = window.get_wm_class()
        if wm_class:
            found.append(self._described(window, parent, attributes, wm_class))
        # The frames of some window managers have a class too, and the program's window in them.
        self._collect(window, found)

    def _described(self, window, parent, attributes, wm_class):
        place = window.translate_coords(self.root, 0, 0)
        size = window.get_geometry()
        return Window(window.id, self.title(window), wm_class, -place.x, -place.y, size.width,
                      size.height, bool(attributes.override_redirect), parent == self.root)

    def title(self, window):
        """The title as the window managers read it."""
        utf8 = self.atom("UTF8_STRING")
        answer = window.get_full_property(self.atom("_NET_WM_NAME"), utf8)
        if answer is not None:
            return bytes(answer.value).decode("utf-8", "replace")
        answer = window.get_full_property(Xatom.WM_NAME, X.AnyPropertyType)
        if answer is None:
            return ""
        value = answer.value
        return value if isinstance(value, str) else bytes(value).decode("latin-1")

    def pid(self, window_id):
        window = self.display.create_resource_object("window", window_id)
        answer = window.get_full_property(self.atom("_NET_WM_PID"), Xatom.CARDINAL)
        return answer.value[0] if answer is not None and len(answer.value) else None

    def atom(self, name):
        return self.display.intern_atom(name)

    def pixel(self, x, y):
        """The colour at a place of the screen, as the server's bytes of it."""
        return bytes(self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data)

    # -- focus --------------------------------------------------------------------------------

    def focus_window(self):
        """The id of the window with the keyboard focus; 0 and 1 stand for none and the root."""
        focus = self.display.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def has_focus(self, window_id):
        """Whether the focus is in the window or in one of its children."""
        current = self.focus_window()
        while current not in (X.NONE, X.PointerRoot, self.root.id):
            if current == window_id:
                return True
            try:
                current = self.display.create_resource_object("window", current).query_tree().parent.id
            except (error.XError, AttributeError):
                return False
        return False

    def active_window(self):
        """What the window manager names as the active window; None while there is none."""
        answer = self.root.get_full_property(self.atom("_NET_ACTIVE_WINDOW"), Xatom.WINDOW)
        return answer.value[0] if answer is not None and len(answer.value) else None

    def has_window_manager(self):
        """Whether one is up. It tells the desktop when it has set up more than its own window; one
        that is not as far yet (openbox) may lose a window that is mapped now."""
        return (self.root.get_full_property(self.atom("_NET_SUPPORTING_WM_CHECK"), Xatom.WINDOW) is not None
                and self.root.get_full_property(self.atom("_NET_CURRENT_DESKTOP"), Xatom.CARDINAL) is not None)

    def window_manager_answers(self, bound):
        """Has the window manager, if there is one, answer a question, and waits for it: what it was
        told before, such as a click on a window, it has acted on by then.

        Extended Window Manager Hints, _NET_REQUEST_FRAME_EXTENTS: it answers with a property.
        """
        if not self.has_window_manager():
            return
        extents = self.atom("_NET_FRAME_EXTENTS")
        asker = self.root.create_window(-1, -1, 1, 1, 0, X.CopyFromParent)
        try:
            question = protocol.event.ClientMessage(
                window=asker, client_type=self.atom("_NET_REQUEST_FRAME_EXTENTS"), data=(32, [0] * 5))
            self.root.send_event(question, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
            wait_until(lambda: asker.get_full_property(extents, Xatom.CARDINAL), bound,
                       "the window manager answers")
        finally:
            asker.destroy()
            self.display.sync()

    # -- selections ---------------------------------------------------------------------------

    def selection_owner(self, name="CLIPBOARD"):
        """The id of the owning window; 0 while nobody owns the selection."""
        owner = self.display.get_selection_owner(self.atom(name))
        return owner if isinstance(owner, int) else owner.id

    # -- hot keys -----------------------------------------------------------------------------

    def keyboard_is_free(self):
        """Whether nobody holds the whole keyboard. Then keys go where the focus is, and wake the
        hot keys."""
        self.display.grab_server()
        try:
            answer = self.root.grab_keyboard(False, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime)
            self.display.ungrab_keyboard(X.CurrentTime)
        finally:
            self.display.ungrab_server()
            self.display.sync()
        return answer == X.GrabSuccess

    def is_grabbed(self, key, *modifiers):
        """Whether another client holds the chord. Nobody else can slip in between: the probe
        holds the whole server while it looks."""
        mask = modifier_mask(modifiers)
        code = self.keycode(key)
        refused = error.CatchError(error.BadAccess)
        self.display.grab_server()
        try:
            self.root.grab_key(code, mask, False, X.GrabModeAsync, X.GrabModeAsync, onerror=refused)
            self.display.sync()
            taken = refused.get_error() is not None
            if not taken:
                self.root.ungrab_key(code, mask)
        finally:
            self.display.ungrab_server()
            self.display.sync()
        return taken

    @contextlib.contextmanager
    def holding(self, key, *modifiers):
        """Holds a chord, as a program with shortcuts of its own does."""
        code, mask = self.keycode(key), modifier_mask(modifiers)
        self.root.grab_key(code, mask, False, X.GrabModeAsync, X.GrabModeAsync)
        self.display.sync()
        try:
            yield
        finally:
            self.root.ungrab_key(code, mask)
            self.display.sync()

    # -- typing and clicking ------------------------------------------------------------------

    def keycode(self, name):
        """The key that bears a keysym name; raises if the layout has none."""
        code = self.display.keysym_to_keycode(keysym(name))
        if code == 0:
            raise LookupError(f"no key for {name}")
        return code

    def press(self, name):
        self._fake(X.KeyPress, self.keycode(name))

    def release(self, name):
        self._fake(X.KeyRelease, self.keycode(name))

    def key(self, chord):
        """Presses and releases a chord written as in "shift+super+v"."""
        *modifiers, name = chord.split("+")
        held = [MODIFIER_KEYS[modifier] for modifier in modifiers]
        for modifier in held:
            self.press(modifier)
        self.press(name)
        self.release(name)
        for modifier in reversed(held):
            self.release(modifier)

    def type_text(self, text):
        """Types characters of the layout's first two levels."""
        for character in text:
            self._type_character(character)

    def _type_character(self, character):
        sym = SYMS_OF_CONTROLS.get(character) or ord(character)
        code = self.display.keysym_to_keycode(sym)
        if code == 0:
            raise LookupError(f"no key for {character!r}")
        shifted = self.display.keycode_to_keysym(code, 0) != sym
        if shifted:
            assert self.display.keycode_to_keysym(code, SHIFT_LEVEL) == sym, character
            self.press("Shift_L")
        self._fake(X.KeyPress, code)
        self._fake(X.KeyRelease, code)
        if shifted:
            self.release("Shift_L")

    def move_pointer(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        self.display.sync()

    def pointer(self):
        place = self.root.query_pointer()
        return place.root_x, place.root_y

    def button(self, number=1):
        self.press_button(number)
        self.release_button(number)

    def press_button(self, number=1):
        self._fake(X.ButtonPress, number)

    def release_button(self, number=1):
        self._fake(X.ButtonRelease, number)

    def keys_down(self):
        """The codes of all keys that the server holds to be down."""
        bits = self.display.query_keymap()
        return [code for code in range(8, 256) if bits[code // 8] & 1 << code % 8]

    def _fake(self, kind, detail):
        xtest.fake_input(self.display, kind, detail)
        self.display.sync()


def modifier_mask(modifiers):
    masks = {"shift": X.ShiftMask, "ctrl": X.ControlMask, "alt": X.Mod1Mask, "super": X.Mod4Mask}
    return sum(masks[modifier] for modifier in modifiers)


def keysym(name):
    sym = XK.string_to_keysym(name)
    if sym == 0:
        raise LookupError(f"no such key: {name}")
    return sym
