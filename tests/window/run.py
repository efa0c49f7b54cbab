#!/usr/bin/env python3
"""The live window on a display of its own: what it shows is the screenshot, key for key.

Usage: run.py <the program>

Takes Xvfb, whose screen can be read from a file, xdotool, which presses keys, and a session bus of its own with the
settings portal of portal.py on it.
"""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

PROGRAM = pathlib.Path(sys.argv.pop()).resolve()
WIDTH, HEIGHT = 800, 600


def png(width, height, rows):
    """A PNG file's bytes of rows of red, green and blue."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    head = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    data = zlib.compress(b"".join(b"\0" + row for row in rows), 1)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", data) + chunk(b"IEND", b"")


class LiveWindow(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.display = self.open_display()
        # Neither the desktop's settings nor its own scale. A click counts even where it gives the window its focus.
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "DISPLAY": self.display,
                            "SDL_VIDEODRIVER": "x11", "SDL_MOUSE_FOCUS_CLICKTHROUGH": "1"}

    def open_display(self):
        """A screen just as large as the window, which therefore fills it. Keys that are held long do not repeat."""
        read, write = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", str(self.folder),
             "-nolisten", "tcp", "-r"], pass_fds=[write], stderr=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        os.close(write)
        with os.fdopen(read) as number:
            return ":" + number.readline().strip()

    def screen(self):
        """What is on the screen as the bytes of a PNG file."""
        dump = (self.folder / "Xvfb_screen0").read_bytes()
        fields = struct.unpack(">25I", dump[:100])
        head, width, height, bytes_a_row, colours = fields[0], fields[4], fields[5], fields[12], fields[19]
        self.assertEqual((width, height, fields[11]), (WIDTH, HEIGHT, 32))
        start = head + 12 * colours
        rows = []
        for y in range(height):
            row = dump[start + y * bytes_a_row:start + y * bytes_a_row + 4 * width]
            pixels = bytearray(3 * width)
            pixels[0::3], pixels[1::3], pixels[2::3] = row[2::4], row[1::4], row[0::4]  # blue, green, red, nothing
            rows.append(bytes(pixels))
        return png(width, height, rows)

    def open_window(self, *options):
        window = subprocess.Popen([PROGRAM, "window", "--size", f"{WIDTH}x{HEIGHT}", *options], env=self.environment,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(window.communicate)
        self.addCleanup(window.kill)
        return window

    def open_portal(self, factor):
        """A desktop's settings portal with a text scaling factor; it takes new ones a line each."""
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                               env={"PATH": os.environ["PATH"]}, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                               text=True)
        self.addCleanup(bus.communicate)
        self.addCleanup(bus.terminate)
        self.environment.update(DBUS_SESSION_BUS_ADDRESS=bus.stdout.readline().strip(), XDG_CURRENT_DESKTOP="GNOME")
        portal = subprocess.Popen([sys.executable, pathlib.Path(__file__).with_name("portal.py"), str(factor)],
                                  env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(portal.communicate)  # which ends it
        self.assertEqual(portal.stdout.readline(), "ready\n")
        return portal

    def act(self, *words):
        subprocess.run(["xdotool", *words], env=self.environment, check=True, timeout=30, capture_output=True)

    def press(self, *keys):
        for key in keys:
            self.act("key", key)

    def assert_shown(self, *options):
        """Waits until the screen shows the screenshot with these options."""
        expected, shown = self.folder / "expected.png", self.folder / "shown.png"
        subprocess.run([PROGRAM, "window", "--size", f"{WIDTH}x{HEIGHT}", "--screenshot", expected, *options],
                       check=True, timeout=60)
        deadline = time.monotonic() + 30
        while True:
            shown.write_bytes(self.screen())
            result = subprocess.run([PROGRAM, "compare", expected, shown], capture_output=True, text=True, timeout=60)
            if result.returncode == 0:
                return
            if time.monotonic() > deadline:
                kept = pathlib.Path("out/window")
                kept.mkdir(parents=True, exist_ok=True)
                for file in (expected, shown):
                    shutil.copy(file, kept)
                self.fail(f"{result.stdout}the pictures are in {kept}")
            time.sleep(0.1)

    def focus(self):
        self.act("search", "--sync", "--onlyvisible", "--name", "Brisel", "windowfocus", "--sync")

    def test_shows_the_screenshot_and_follows_every_key(self):
        window = self.open_window()
        self.assert_shown()
        self.focus()
        self.press("Right", "Right")
        self.assert_shown("--text-size", "extraExtraLarge")
        self.press("c")
        self.assert_shown("--text-size", "extraExtraLarge", "--set", "brightAccent")
        self.press("d")
        self.assert_shown("--text-size", "extraExtraLarge", "--set", "brightAccent", "--direction", "rtl")
        self.press("Right", "shift+c")  # where the knob goes, which is to the first step now
        self.assert_shown("--text-size", "extraLarge", "--direction", "rtl")
        self.press("d", "0", "Down", "Home")
        self.assert_shown()
        self.press("Escape")
        self.assertEqual((window.communicate(timeout=30), window.returncode), (("", ""), 0))

    def test_follows_the_pointer_on_the_slider(self):
        self.open_window("--text-size", "small")
        self.assert_shown("--text-size", "small")
        # The slider stands 24 points from both edges, its last step 10 points before its end.
        self.act("mousemove", str(WIDTH - 34), "22", "mousedown", "1")
        self.assert_shown("--text-size", "accessibilityExtraExtraExtraLarge")
        self.act("mousemove", "34", "22", "mouseup", "1")
        self.assert_shown("--text-size", "extraSmall")

    def test_follows_the_desktops_text_size(self):
        portal = self.open_portal(1.25)
        self.open_window()
        self.assert_shown("--text-size", "extraExtraLarge")
        for factor, category in (2, "accessibilityLarge"), (0.88, "small"):
            portal.stdin.write(f"{factor}\n")
            portal.stdin.flush()
            self.assert_shown("--text-size", category)

    def test_rests_while_nothing_changes(self):
        window = self.open_window()
        self.assert_shown()

        def seconds():
            fields = pathlib.Path(f"/proc/{window.pid}/stat").read_text().rsplit(")", 1)[1].split()
            return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

        def rests():
            before = seconds()
            time.sleep(2)
            return seconds() - before < 0.1

        for _ in range(3):  # what it is told about being opened may take a moment
            if rests():
                break
        self.assertTrue(rests())

    def test_says_in_one_line_that_there_is_no_display(self):
        environment = dict(self.environment, DISPLAY=":65535")
        result = subprocess.run([PROGRAM, "window"], env=environment, capture_output=True, text=True, timeout=60)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, r"\Abrisel: cannot open a window: [^\n]+; --screenshot FILE [^\n]+\n\Z")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
