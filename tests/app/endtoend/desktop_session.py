# SPDX-License-Identifier: GPL-3.0-or-later
"""A separate desktop for one run: a screen in memory, a window manager, a session bus, and the view
that a screen reader has of the screen. The program xdotool presses the keys in place of a user."""

import os
import signal
import subprocess
import sys
import time

PATIENCE = 30  # seconds; enough for a slow build with sanitizers on a busy machine
BETWEEN_LOOKS = 0.05  # seconds


def wait_for(what, look):
    """Calls look again and again until its result is not empty, and returns this result.

    Fails if the result is still empty after PATIENCE seconds; what names the missing thing."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        found = look()
        if found:
            return found
        time.sleep(BETWEEN_LOOKS)
    raise AssertionError(f"waited in vain for {what}")


class Session:
    """The separate desktop. The method end() stops every process that the session has started."""

    def __init__(self, folder):
        self._started = []
        os.environ.update(
            HOME=str(folder / "home"),
            XDG_RUNTIME_DIR=str(folder / "runtime"),
            LC_ALL="C.UTF-8",
            QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )
        for name in ("WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS"):
            os.environ.pop(name, None)
        (folder / "home").mkdir()
        (folder / "runtime").mkdir(mode=0o700)
        self._start_screen()
        self._start_bus()
        self._start("openbox")
        wait_for("the window manager", lambda: hands("get_num_desktops", check=False))

    def _start(self, *command, **options):
        process = subprocess.Popen(
            command, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options
        )
        self._started.append(process)
        return process

    def _start_screen(self):
        """Starts the display server, which chooses a free number itself."""
        ours, theirs = os.pipe()
        self._start(
            "Xvfb", "-displayfd", str(theirs), "-screen", "0", "1280x900x24", pass_fds=[theirs]
        )
        os.close(theirs)
        with os.fdopen(ours) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()

    def _start_bus(self):
        bus = self._start(
            "dbus-daemon", "--session", "--nofork", "--print-address", stdout=subprocess.PIPE
        )
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()

    def end(self):
        for process in reversed(self._started):
            process.send_signal(signal.SIGTERM)
            process.wait()


def hands(*command, check=True):
    """Runs xdotool and returns its output."""
    done = subprocess.run(
        ["xdotool", *map(str, command)], capture_output=True, text=True, check=False
    )
    if check and done.returncode != 0:
        sys.exit(f"xdotool {command}: {done.stderr}")
    return done.stdout.strip()


def press(*keys):
    hands("key", "--clearmodifiers", *keys)


def type_text(text):
    hands("type", "--delay", "2", text)


class ScreenReader:
    """The view that a screen reader has of a program. Needs a running session."""

    def __init__(self, program):
        import gi

        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi

        self._atspi = Atspi
        self._program = program

    def _applications(self):
        desktop = self._atspi.get_desktop(0)
        children = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        return [child for child in children if child and child.get_name() == self._program]

    def _walk(self, node):
        try:
            if node is None:
                return
            yield node
            for i in range(node.get_child_count()):
                yield from self._walk(node.get_child_at_index(i))
        except self._error():
            return  # the element disappeared while it was read

    def _error(self):
        from gi.repository import GLib

        return GLib.Error

    def showing(self):
        """Returns the role, name and object of every element on the screen."""
        seen = []
        for application in self._applications():
            for node in self._walk(application):
                try:
                    if node.get_state_set().contains(self._atspi.StateType.SHOWING):
                        seen.append((node.get_role_name(), node.get_name(), node))
                except self._error():
                    continue
        return seen

    def texts(self):
        """Returns the texts of the text fields on the screen."""
        fields = [node for role, _, node in self.showing() if role == "text"]
        return [self._atspi.Text.get_text(field, 0, -1) for field in fields]

    def names(self):
        return [name for _, name, _ in self.showing()]

    def hears(self, text):
        return any(text in name for name in self.names())

    def find(self, name):
        """Waits until the control of this name is on the screen, and returns it."""
        return wait_for(
            f"the control {name!r}; heard: {self.names()}",
            lambda: [node for _, other, node in self.showing() if other == name],
        )[0]

    def is_enabled(self, name):
        return self._is(name, self._atspi.StateType.ENABLED)

    def is_checked(self, name):
        return self._is(name, self._atspi.StateType.CHECKED)

    def _is(self, name, state):
        return self.find(name).get_state_set().contains(state)

    def click(self, name):
        extents = self.find(name).get_extents(self._atspi.CoordType.SCREEN)
        hands("mousemove", extents.x + extents.width // 2, extents.y + extents.height // 2)
        hands("click", 1)

    def wait_until_hears(self, text):
        wait_for(f"{text!r}; heard: {self.names()}", lambda: self.hears(text))

    def wait_until_silent(self, text):
        wait_for(f"the end of {text!r}", lambda: not self.hears(text))
