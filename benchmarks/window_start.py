#!/usr/bin/python3
"""Times from starting the program to its window on the screen, on a display of its own.

usage: window_start.py PROGRAM [RUNS]

The floor beside it starts the interpreter of the fonts' generator, which does nothing.
"""

import ctypes
import ctypes.util
import os
import statistics
import subprocess
import sys
import tempfile
import time

VIEWABLE = 2
LEAST_WIDTH = 900  # of the window; the display has no other


class Attributes(ctypes.Structure):
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                ("root", ctypes.c_ulong), ("window_class", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("planes", ctypes.c_ulong),
                ("pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int), ("rest", ctypes.c_long * 16)]


class Display:
    def __init__(self, name):
        self.x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
        # A window may go between being listed and being asked.
        self.ignore = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        self.x11.XSetErrorHandler(self.ignore)
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.connection = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.connection))

    def shows_window(self):
        root, parent, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_uint()
        children = ctypes.POINTER(ctypes.c_ulong)()
        self.x11.XQueryTree(self.connection, self.root, ctypes.byref(root), ctypes.byref(parent),
                            ctypes.byref(children), ctypes.byref(count))
        for i in range(count.value):
            attributes = Attributes()
            if (self.x11.XGetWindowAttributes(self.connection, ctypes.c_ulong(children[i]), ctypes.byref(attributes))
                    and attributes.map_state == VIEWABLE and attributes.width >= LEAST_WIDTH):
                return True
        return False


def main(program, runs):
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1920x1080x24"], pass_fds=[write],
                              stderr=subprocess.DEVNULL)
    os.close(write)
    with os.fdopen(read) as number:
        name = ":" + number.readline().strip()
    times, floors = [], []
    try:
        display = Display(name)
        with tempfile.TemporaryDirectory() as folder:
            environment = {**os.environ, "DISPLAY": name, "XDG_RUNTIME_DIR": folder, "XDG_CONFIG_HOME": folder}
            for _ in range(runs):
                started = time.perf_counter()
                subprocess.run(["/usr/bin/python3", "-c", ""], check=True)
                floors.append(time.perf_counter() - started)
                started = time.perf_counter()
                process = subprocess.Popen([program], env=environment, stdout=subprocess.DEVNULL,
                                           stderr=subprocess.DEVNULL)
                while not display.shows_window():
                    time.sleep(0.001)
                times.append(time.perf_counter() - started)
                process.kill()
                process.wait()
                while display.shows_window():
                    time.sleep(0.001)
    finally:
        server.terminate()
    print(f"window on the screen after {statistics.median(times) * 1000:.0f} ms (median of {runs}, "
          f"least {min(times) * 1000:.0f}, greatest {max(times) * 1000:.0f}); "
          f"an interpreter that does nothing: {statistics.median(floors) * 1000:.0f} ms")


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 15)
