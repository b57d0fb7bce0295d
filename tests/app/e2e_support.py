"""What the end-to-end tests share: the program under Xvfb with a fresh
settings location, xdotool for windows and keys, xwd for the screen. A script
calls run(inner, usage, nargs): it runs itself again under xvfb-run with
"--inner HOME ARGS...", which calls inner(home, *args)."""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time

SKIP = 77
TIMEOUT = 20.0
TOOLS = ("xvfb-run", "xauth", "xdotool", "xwd")


def fail(message):
    print("FAIL: " + message)
    sys.exit(1)


def poll(what, test, timeout=TIMEOUT):
    """test()'s first true answer; fails when the deadline passes first."""
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        result = test()
        if result:
            return result
        time.sleep(0.1)
    fail("timed out waiting for " + what)


def visible_window(name):
    ids = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name],
                         capture_output=True, text=True).stdout.split()
    return ids[0] if ids else None


def focus(window):
    subprocess.run(["xdotool", "windowfocus", "--sync", window], check=False)


def key(window, *keys):
    """Keys as xdotool names them ("Return", "ctrl+s"), once `window` has the focus."""
    focus(window)
    subprocess.run(["xdotool", "key", "--clearmodifiers"] + list(keys), check=True)


def type_text(window, text):
    focus(window)
    subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "20", text], check=True)


def screenshot(window):
    """The window's geometry and pixel(x, y), an (r, g, b) of the screen (xwd of the root)."""
    out = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window],
                         capture_output=True, text=True, check=True).stdout
    values = dict(line.split("=", 1) for line in out.split())
    x0, y0, w, h = (int(values[k]) for k in ("X", "Y", "WIDTH", "HEIGHT"))
    data = subprocess.run(["xwd", "-root", "-silent"], capture_output=True, check=True).stdout
    head = struct.unpack(">25I", data[:100])
    header_size, width, height = head[0], head[4], head[5]
    byte_order, bits, bytes_per_line = head[7], head[11], head[12]
    if bits not in (24, 32):
        fail("unexpected screenshot depth %d" % bits)
    if x0 + w > width or y0 + h > height:
        fail("the window lies off the screen")
    masks = head[14:17]
    shifts = [(m & -m).bit_length() - 1 for m in masks]
    pixels = data[header_size + head[19] * 12:]

    def pixel(x, y):
        o = y * bytes_per_line + x * bits // 8
        v = int.from_bytes(pixels[o:o + bits // 8], "little" if byte_order == 0 else "big")
        return tuple((v & m) >> s for m, s in zip(masks, shifts))

    return (x0, y0, w, h), pixel


class Program(subprocess.Popen):
    """The program on a fresh settings location (every file it writes goes under
    `home`), its output in home/log.txt; killed at the end of its with block."""

    def __init__(self, program, home, args=()):
        self.env = dict(os.environ, HOME=home, XDG_CONFIG_HOME=os.path.join(home, "config"),
                        XDG_DATA_HOME=os.path.join(home, "data"),
                        XDG_RUNTIME_DIR=os.path.join(home, "runtime"),
                        VANTORO_SETTINGS=os.path.join(home, "settings.ini"),
                        LANG="C.UTF-8", LC_ALL="C.UTF-8")
        os.makedirs(self.env["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
        self.log = open(os.path.join(home, "log.txt"), "w")
        super().__init__([program] + list(args), env=self.env, stdout=self.log,
                         stderr=subprocess.STDOUT)

    def __exit__(self, *exc):
        if self.poll() is None:
            self.kill()
        super().__exit__(*exc)
        self.log.close()

    def wait_exit(self, what):
        """Fails unless the program ends with code 0 after `what`."""
        try:
            code = self.wait(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            fail("the program did not end after " + what)
        if code != 0:
            fail("the program ended with code %d after %s" % (code, what))


def first_start(start_page_key="Escape"):
    """Answers a first start's dialogs in English (the language, the start page
    with `start_page_key`, the tip of the day); returns the main window's id."""
    dialog = poll("the language dialog", lambda: visible_window("^Langue / Language$"))
    key(dialog, "Return")
    start = poll("the start page", lambda: visible_window("^Welcome to Vantoro$"))
    key(start, start_page_key)
    tip = poll("the tip of the day", lambda: visible_window("^Tip of the day$"))
    key(tip, "Escape")
    poll("the tip of the day to close", lambda: not visible_window("^Tip of the day$"))
    return poll("the main window", lambda: visible_window("^Vantoro$"))


def run(inner, usage, nargs, screen="1024x768x24"):
    if len(sys.argv) >= 3 and sys.argv[1] == "--inner":
        inner(sys.argv[2], *sys.argv[3:])
        return
    if len(sys.argv) != nargs + 1:
        print(usage)
        sys.exit(2)
    for tool in TOOLS:
        if shutil.which(tool) is None:
            print("SKIPPED: %s is not installed (scripts/setup installs it)" % tool)
            sys.exit(SKIP)
    home = tempfile.mkdtemp(prefix="vantoro-e2e-")
    script = os.path.abspath(sys.modules["__main__"].__file__)
    try:
        r = subprocess.run(["xvfb-run", "-a", "-s", "-screen 0 %s -nolisten tcp" % screen,
                            sys.executable, script, "--inner", home]
                           + [os.path.abspath(a) for a in sys.argv[1:]])
        if r.returncode != 0:
            log = os.path.join(home, "log.txt")
            if os.path.exists(log):
                print("program output:\n" + open(log).read())
        sys.exit(r.returncode)
    finally:
        shutil.rmtree(home, ignore_errors=True)
