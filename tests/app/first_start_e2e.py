#!/usr/bin/python3
"""End to end: the real program under Xvfb, started with a fresh settings
location. It answers the language dialog, closes the start page and the tip
of the day, finds the main window with its fretboard on the screen, closes the
program and checks that the settings were written.

Usage: first_start_e2e.py PATH_TO_VANTORO
Exits 0 on success, 1 on failure, 77 when Xvfb or xdotool is missing."""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time

SKIP = 77
TIMEOUT = 20.0


def fail(message):
    print("FAIL: " + message)
    sys.exit(1)


def poll(what, test, timeout=TIMEOUT):
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        result = test()
        if result:
            return result
        time.sleep(0.1)
    fail("timed out waiting for " + what)


def visible_window(name):
    r = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name],
                       capture_output=True, text=True)
    ids = r.stdout.split()
    return ids[0] if ids else None


def key(window, *keys):
    subprocess.run(["xdotool", "windowfocus", "--sync", window], check=False)
    subprocess.run(["xdotool", "key", "--clearmodifiers"] + list(keys), check=True)


def geometry(window):
    out = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window],
                         capture_output=True, text=True, check=True).stdout
    values = dict(line.split("=", 1) for line in out.split())
    return int(values["X"]), int(values["Y"]), int(values["WIDTH"]), int(values["HEIGHT"])


def screenshot():
    """The root window as rows of (r, g, b) tuples, read from xwd's ZPixmap."""
    data = subprocess.run(["xwd", "-root", "-silent"], capture_output=True, check=True).stdout
    h = struct.unpack(">25I", data[:100])
    header_size, width, height = h[0], h[4], h[5]
    byte_order, bits_per_pixel, bytes_per_line, ncolors = h[7], h[11], h[12], h[19]
    if bits_per_pixel not in (24, 32):
        fail("unexpected screenshot depth %d" % bits_per_pixel)
    step = bits_per_pixel // 8
    masks = h[14], h[15], h[16]
    shifts = [(m & -m).bit_length() - 1 for m in masks]
    pixels = data[header_size + ncolors * 12:]
    order = "little" if byte_order == 0 else "big"

    def pixel(x, y):
        o = y * bytes_per_line + x * step
        v = int.from_bytes(pixels[o:o + step], order)
        return tuple((v & m) >> s for m, s in zip(masks, shifts))

    return width, height, pixel


def fretboard_rows(pixel, x0, y0, w, h):
    """Rows of the window's lower part that look like a string over wood: bright
    across the strip, with darker wood three pixels above and below."""
    xs = [x0 + w * k // 20 for k in range(2, 18)]

    def bright(y):
        return sum(1 for x in xs if min(pixel(x, y)) > 190) >= len(xs) * 0.8

    def wood(y):
        return sum(1 for x in xs if max(pixel(x, y)) < 170) >= len(xs) * 0.6

    rows = []
    for y in range(max(y0 + h // 2, y0 + 3), y0 + h - 3):
        if bright(y) and wood(y - 4) and wood(y + 4):
            rows.append(y)
    return rows


def inner(program, home):
    env = dict(os.environ)
    env.update({
        "HOME": home,
        "XDG_CONFIG_HOME": os.path.join(home, "config"),
        "XDG_DATA_HOME": os.path.join(home, "data"),
        "XDG_RUNTIME_DIR": os.path.join(home, "runtime"),
        "VANTORO_SETTINGS": os.path.join(home, "settings.ini"),
        "LANG": "C.UTF-8",
        "LC_ALL": "C.UTF-8",
    })
    os.makedirs(env["XDG_RUNTIME_DIR"], mode=0o700)
    log = open(os.path.join(home, "log.txt"), "w")
    proc = subprocess.Popen([program], env=env, stdout=log, stderr=subprocess.STDOUT)
    try:
        dialog = poll("the language dialog", lambda: visible_window("^Langue / Language$"))
        key(dialog, "Return")
        start = poll("the start page", lambda: visible_window("^Welcome to Vantoro$"))
        key(start, "Escape")
        tip = poll("the tip of the day", lambda: visible_window("^Tip of the day$"))
        key(tip, "Escape")
        main = poll("the main window", lambda: visible_window("^Vantoro$"))
        x0, y0, w, h = geometry(main)

        def board_drawn():
            width, height, pixel = screenshot()
            if x0 + w > width or y0 + h > height:
                fail("the main window lies off the screen")
            return fretboard_rows(pixel, x0, y0, w, h)

        rows = poll("the fretboard on the screen", board_drawn, timeout=10)
        if len(rows) < 6:
            fail("only %d string rows found on the fretboard" % len(rows))

        key(main, "ctrl+q")
        try:
            code = proc.wait(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            fail("the program did not end after ctrl+q")
        if code != 0:
            fail("the program ended with code %d" % code)
    finally:
        if proc.poll() is None:
            proc.kill()
            proc.wait()
        log.close()

    settings = open(env["VANTORO_SETTINGS"], encoding="utf-8").read()
    for expected in ("setLang=10000", "[Version]", "App.Path=", "setMancheVisible=True"):
        if expected not in settings:
            fail("the settings lack " + expected)
    if not os.path.exists(os.path.join(env["XDG_DATA_HOME"], "applications", "vantoro.desktop")):
        fail("no desktop entry was written")
    print("PASS: language dialog, start page, tip, main window with %d strings drawn, "
          "settings written" % len(rows))


def main():
    if len(sys.argv) == 4 and sys.argv[1] == "--inner":
        inner(sys.argv[2], sys.argv[3])
        return
    if len(sys.argv) != 2:
        print(__doc__)
        sys.exit(2)
    for tool in ("xvfb-run", "xauth", "xdotool", "xwd"):
        if shutil.which(tool) is None:
            print("SKIPPED: %s is not installed (scripts/setup installs it)" % tool)
            sys.exit(SKIP)
    home = tempfile.mkdtemp(prefix="vantoro-e2e-")
    try:
        r = subprocess.run(["xvfb-run", "-a", "-s", "-screen 0 1024x768x24 -nolisten tcp",
                            sys.executable, os.path.abspath(__file__), "--inner",
                            os.path.abspath(sys.argv[1]), home])
        if r.returncode != 0:
            log = os.path.join(home, "log.txt")
            if os.path.exists(log):
                print("program output:\n" + open(log).read())
        sys.exit(r.returncode)
    finally:
        shutil.rmtree(home, ignore_errors=True)


if __name__ == "__main__":
    main()
