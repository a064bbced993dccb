# SPDX-License-Identifier: MIT
"""What a server's devices and clients do, as the server itself records it (RECORD extension)."""

import threading

from Xlib import X, display
from Xlib.ext import record

from support.desktop import START_BOUND

EVENT_BYTES = 32
CORE_REQUESTS = (0, 127)
ALL_OF_EXTENSIONS = (128, 255, 0, 65535)
NOTHING = {
    "core_requests": (0, 0), "core_replies": (0, 0), "ext_requests": (0, 0, 0, 0),
    "ext_replies": (0, 0, 0, 0), "delivered_events": (0, 0), "device_events": (0, 0),
    "errors": (0, 0), "client_started": False, "client_died": False,
}


class Recorder:
    """A context manager that records between its beginning and its end."""

    clients = record.AllClients
    what = {}

    def __init__(self, desktop):
        self._control = display.Display(desktop.env["DISPLAY"])
        self._data = display.Display(desktop.env["DISPLAY"])
        self._context = self._control.record_create_context(0, [self.clients], [{**NOTHING, **self.what}])
        self._control.sync()
        self._has_started = threading.Event()
        self._thread = threading.Thread(target=self._record, daemon=True)

    def __enter__(self):
        self._thread.start()
        assert self._has_started.wait(START_BOUND), "the server records"
        return self

    def __exit__(self, *_details):
        self._control.record_disable_context(self._context)
        self._control.sync()
        self._thread.join(START_BOUND)
        self._data.close()
        self._control.close()

    def _record(self):
        self._data.record_enable_context(self._context, self._heard)

    def _heard(self, reply):
        if reply.category == record.StartOfData:
            self._has_started.set()
        elif reply.data:
            self.take(bytes(reply.data))

    def take(self, data):
        raise NotImplementedError


class KeyRecorder(Recorder):
    """Every key that is pressed, by the user's hands or by a program, as its keycode."""

    what = {"device_events": (X.KeyPress, X.KeyPress)}

    def __init__(self, desktop):
        super().__init__(desktop)
        self.pressed = []

    def take(self, data):
        self.pressed += [data[place + 1] for place in range(0, len(data), EVENT_BYTES)]


class RequestRecorder(Recorder):
    """How much the clients ask for that connect from now on."""

    clients = record.FutureClients
    what = {"core_requests": CORE_REQUESTS, "ext_requests": ALL_OF_EXTENSIONS}

    def __init__(self, desktop):
        super().__init__(desktop)
        self.count = 0

    def take(self, _data):
        self.count += 1
