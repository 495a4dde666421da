"""A desktop for tests: an X server of its own, with real keys, clicks and requests to close."""
import ctypes
import os
import subprocess
import sys
import time

PATIENCE = 60


def environment(**variables):
    """The test's own, without a desktop but the one that is named."""
    kept = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return {**kept, **variables}


def wait_for(what, happened):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := happened():
            return result
        time.sleep(0.05)
    sys.exit("FAILED: %s did not happen" % what)


class Desktop:
    def __enter__(self):
        read_end, write_end = os.pipe()
        # Without -noreset the server starts anew whenever a program leaves it, and shuts out the next one meanwhile.
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-nolisten", "tcp", "-noreset"],
                                       pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as started:
            self.display = ":" + started.readline().strip()
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=environment(DISPLAY=self.display), capture_output=True,
                              text=True, timeout=PATIENCE).stdout

    def shown(self, title):
        """The window with the title, a regular expression, once it shows."""
        found = self.xdotool("search", "--onlyvisible", "--name", title).split()
        return found[0] if found else None

    def focused(self, title):
        """The same, once it has the keyboard too."""
        window = self.shown(title)
        return window if window and [window] == self.xdotool("getwindowfocus").split() else None

    def click(self, window, x, y):
        self.xdotool("mousemove", "--window", window, str(x), str(y), "click", "1")

    def close(self, window):
        """Asks the program to close the window, as a window's frame does."""
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        x11.XInternAtom.restype = ctypes.c_ulong
        display = ctypes.c_void_p(x11.XOpenDisplay(self.display.encode()))
        atoms = [x11.XInternAtom(display, name, False) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW")]
        request = ClientMessage(type=33, window=int(window), message=atoms[0], format=32)
        request.data[0] = atoms[1]
        x11.XSendEvent(display, ctypes.c_ulong(int(window)), False, ctypes.c_long(0), ctypes.byref(request))
        x11.XCloseDisplay(display)


class ClientMessage(ctypes.Structure):
    """An event of the X library with its room for any kind of event."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 13)]
