#!/usr/bin/python3
"""End to end: a first start of the real program under Xvfb, through the
language dialog, the start page and the tip, to the main window with its
fretboard drawn; Ctrl+Q, then the settings and the desktop entry written.

Usage: first_start_e2e.py PATH_TO_VANTORO
Exits 0 on success, 1 on failure, 77 when Xvfb or xdotool is missing."""
import os

from e2e_support import Program, fail, first_start, key, poll, run, screenshot


def fretboard_rows(main):
    """Rows of the window's lower half bright across, with darker wood 4 pixels
    above and below: the strings."""
    (x0, y0, w, h), pixel = screenshot(main)
    xs = [x0 + w * k // 20 for k in range(2, 18)]

    def bright(y):
        return sum(1 for x in xs if min(pixel(x, y)) > 190) >= len(xs) * 0.8

    def wood(y):
        return sum(1 for x in xs if max(pixel(x, y)) < 170) >= len(xs) * 0.6

    return [y for y in range(max(y0 + h // 2, y0 + 3), y0 + h - 3)
            if bright(y) and wood(y - 4) and wood(y + 4)]


def inner(home, program):
    with Program(program, home) as vantoro:
        main = first_start("Escape")
        rows = poll("the fretboard on the screen", lambda: fretboard_rows(main), timeout=10)
        if len(rows) < 6:
            fail("only %d string rows found on the fretboard" % len(rows))

        key(main, "ctrl+q")
        vantoro.wait_exit("ctrl+q")

    settings = open(vantoro.env["VANTORO_SETTINGS"], encoding="utf-8").read()
    for expected in ("setLang=10000", "[Version]", "App.Path=", "setMancheVisible=True"):
        if expected not in settings:
            fail("the settings lack " + expected)
    if not os.path.exists(os.path.join(vantoro.env["XDG_DATA_HOME"], "applications",
                                       "vantoro.desktop")):
        fail("no desktop entry was written")
    print("PASS: language dialog, start page, tip, main window with %d strings drawn, "
          "settings written" % len(rows))


if __name__ == "__main__":
    run(inner, __doc__, 1)
