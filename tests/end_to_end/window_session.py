"""A screen of its own with a window manager, and the program's window on it.

Widgets are found as a screen reader finds them, by role and name, and are used with a real mouse
and keyboard. Nothing sleeps: every step waits for what it needs to see.
"""

import contextlib
import os
import subprocess
import tempfile
import time
from pathlib import Path

PATIENCE = 30  # seconds
ROOT = Path(__file__).resolve().parents[2]
BIN = ROOT / "build/dev/bin"


def wait_for(what, condition, patience=PATIENCE):
    """What the condition gives, once that is true."""
    deadline = time.monotonic() + patience
    while True:
        with contextlib.suppress(Exception):  # widgets go away while they are looked at
            if result := condition():
                return result
        assert time.monotonic() < deadline, f"waited in vain for {what}"
        time.sleep(0.02)


# Windows without frames, the main one as large as the screen.
BARE_WINDOWS = """<openbox_config xmlns="http://openbox.org/3.4/rc"><applications>
<application type="normal"><decor>no</decor><maximized>yes</maximized></application>
<application type="dialog"><decor>no</decor></application>
</applications></openbox_config>"""


class Screen:
    """An X display, a session bus with the accessibility service, and a window manager.

    Sizes and places are in logical pixels, of which each is `scale` times as wide on the display.
    """

    def __init__(self, size=(1600, 1000), scale=1, bare=False, programs=BIN):
        self.size = size
        self.scale = scale
        self.bare = bare
        self.programs = Path(programs)
        self._stack = contextlib.ExitStack()
        self._folder = self._stack.enter_context(tempfile.TemporaryDirectory())
        self.environment = {
            **os.environ, "XDG_RUNTIME_DIR": self._folder, "XDG_CONFIG_HOME": f"{self._folder}/config",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_ACCESSIBILITY": "1", "LC_ALL": "C.UTF-8",
            "QT_SCALE_FACTOR": str(scale),
        }
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE"):
            self.environment.pop(name, None)
        os.chmod(self._folder, 0o700)

    def __enter__(self):
        read, write = os.pipe()
        width, height = (length * self.scale for length in self.size)
        self.run(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"],
                 pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()
        bus = self.run(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.run(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately", "--a11y=1"])
        wait_for("the accessibility bus", lambda: subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
             "org.a11y.Bus.GetAddress"], env=self.environment, capture_output=True, check=True))
        settings = Path(self._folder) / "openbox.xml"
        settings.write_text(BARE_WINDOWS)
        manager = ["openbox", "--sm-disable", *(["--config-file", settings] if self.bare else [])]
        for attempt in range(3):  # it gives up at once where another display of this number has just gone
            self.run(manager)
            with contextlib.suppress(AssertionError):
                wait_for("the window manager", lambda: self.xdotool("get_desktop") or True, PATIENCE / 3)
                break
        else:
            raise AssertionError(f"no window manager in {attempt + 1} attempts")
        # The library reads the environment once, when it is first used.
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[name] = self.environment[name]
        return self

    def __exit__(self, *error):
        self._stack.close()

    def picture(self):
        """What the display shows."""
        from PIL import ImageGrab
        return ImageGrab.grab(xdisplay=self.environment["DISPLAY"])

    def run(self, command, **options):
        options.setdefault("stderr", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(command, env={**self.environment, **options.pop("env", {})}, **options)
        self._stack.callback(_stop, process)
        return process

    def start(self, *arguments, env=None):
        """Starts the program; the window that it opens."""
        log = Path(self._folder) / f"log{time.monotonic_ns()}"
        with log.open("wb") as output:
            process = self.run([self.programs / "quillery", *map(os.fspath, arguments)], stdout=output,
                               stderr=subprocess.STDOUT, env=env or {})
        window = Window(self, process, log)
        # The window manager places a window before it makes it the active one.
        wait_for("the window", lambda: any(top.has("active") for top in window.root().children()))
        return window

    def start_drag_source(self, files):
        process = self.run([BIN / "drag_source", *map(os.fspath, files)])
        return Window(self, process, None)

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True, capture_output=True)


def _stop(process):
    process.terminate()
    try:
        process.wait(10)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
    if process.stdout:
        process.stdout.close()


class Node:
    """A widget as a screen reader sees it."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.name

    @property
    def role(self):
        return self.accessible.getRoleName()

    @property
    def rect(self):
        import pyatspi
        extents = self.accessible.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return extents.x, extents.y, extents.width, extents.height

    @property
    def middle(self):
        x, y, width, height = self.rect
        return x + width // 2, y + height // 2

    @property
    def text(self):
        return self.accessible.queryText().getText(0, -1)

    def has(self, state):
        """Whether a state ("showing", "selected", "enabled", "checked") is set."""
        import pyatspi
        return self.accessible.getState().contains(getattr(pyatspi, f"STATE_{state.upper()}"))

    def focus(self):
        self.accessible.queryComponent().grabFocus()

    def children(self):
        return [Node(self.accessible.getChildAtIndex(i)) for i in range(self.accessible.childCount)]

    def walk(self):
        for child in self.children():
            yield child
            if child.role not in ("list", "menu bar"):  # cards and rows are many
                yield from child.walk()


class Window:
    def __init__(self, screen, process, log):
        self.screen = screen
        self.process = process
        self.log = log

    def root(self):
        import pyatspi
        # The process tells two runs of the program apart.
        return next(Node(app) for app in pyatspi.Registry.getDesktop(0)
                    if app and app.get_process_id() == self.process.pid)

    def all(self, name=None, role=None):
        return [node for node in self.root().walk()
                if (name is None or node.name == name) and (role is None or node.role == role)
                and node.has("showing")]

    def find(self, name, role=None):
        return wait_for(f"{role or 'something'} named {name!r}", lambda: self.all(name, role))[0]

    def wait_gone(self, name, role=None):
        wait_for(f"{name!r} to go", lambda: not self.all(name, role))

    def list_items(self, name):
        return self.find(name, "list").children()

    def _pixel(self, point):
        return [round(c * self.screen.scale) for c in point]

    def move(self, to):
        self.screen.xdotool("mousemove", *self._pixel(_point(to)))

    def click(self, what, count=1):
        self.move(self.find(what) if isinstance(what, str) else what)
        self.screen.xdotool("click", "--repeat", count, "--delay", 40, 1)

    def drag(self, start, end, button=1, steps=8):
        (x0, y0), (x1, y1) = self._pixel(_point(start)), self._pixel(_point(end))
        self.screen.xdotool("mousemove", x0, y0, "mousedown", button)
        for i in range(1, steps + 1):
            self.screen.xdotool("mousemove", x0 + (x1 - x0) * i // steps, y0 + (y1 - y0) * i // steps)
        self.screen.xdotool("mouseup", button)

    def key(self, *keys):
        self.screen.xdotool("key", "--clearmodifiers", *keys)

    def type(self, text):
        self.screen.xdotool("type", "--clearmodifiers", "--delay", 8, "--", text)

    def choose_file(self, path):
        self.type_file(path)
        self.key("Return")
        wait_for("the file panel to go", lambda: not self.all("File name", "text"))

    def type_file(self, path):
        """Types a name into the file panel that is open, or about to."""
        field = self.find("File name", "text")
        wait_for("the file panel's field to have the focus", lambda: field.has("focused"))

        def typed():
            # A panel that is still reading its folder may put a name of its own over what is typed.
            self.key("ctrl+a")
            self.type(str(path))
            return wait_for("the name to be typed", lambda: field.text == str(path), patience=3)

        wait_for("the name to stay", typed)

    def output(self):
        return self.log.read_text()

    def quit(self):
        self.key("ctrl+q")
        assert self.process.wait(PATIENCE) == 0, self.output()


def _point(what):
    return what if isinstance(what, tuple) else what.middle
