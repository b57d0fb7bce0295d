#!/usr/bin/python3
"""End to end: a tablature typed into the real program's editor under Xvfb
(F8 on the start page of a first start): frets of one and two digits, lengths
Ctrl+1 to Ctrl+4, the arrows, insert mode, a hammer-on, a bend, a vibrato, a
chord, a second track from the Tracks menu (Alt+R, A); saved with Ctrl+S
through the save dialog, then Esc leaves without a question. `vantoro-cli
dump` reads the file back and every note is checked, and that there is no other.

Usage: editor_e2e.py PATH_TO_VANTORO PATH_TO_VANTORO_CLI
Exits 0 on success, 1 on failure, 77 when Xvfb or xdotool is missing."""
import json
import os
import subprocess

from e2e_support import (TIMEOUT, Program, fail, first_start, key, poll, run, screenshot,
                         type_text, visible_window)

# Lengths in ticks, 48 to the quarter note.
WHOLE, HALF, QUARTER, EIGHTH = 192, 96, 48, 24
# Effect codes of the file.
NONE, HAMMER_ON, VIBRATO, BEND_UP = 0, 3, 9, 20
FFF = 127  # the nuance a new note gets: the loudest button is down at start

# The editor starts in overwrite mode on string 1 at the start of bar 1. The
# grid follows the chosen length (a quarter for whole, half and quarter
# notes), and Right and Left step by it. A length is chosen where no note
# stands, since it also changes the note under the cursor. In overwrite mode a
# typed fret stays under the cursor, so a second digit after a 1 or a 2 makes a
# two-digit fret, and an effect key marks the note just typed.
TRACK_1 = [
    # Bar 1: quarter notes with two-digit frets on string 2, a hammer-on.
    ["ctrl+3", "Down", "1", "2"],                 # string 2, tick 0: 12
    ["Right", "1", "4", "h"],                     # tick 48: 14, hammer-on
    ["Right", "1", "5"],                          # tick 96: 15
    # Then eighths on string 1; back with Left to bend the first of them.
    ["Right", "ctrl+4", "Up", "7"],               # string 1, tick 144: 7
    ["Right", "5"],                               # tick 168: 5
    ["Left", "b"],                                # the 7 at tick 144 bent
    # Bar 2, which Right adds: a C chord of half notes in the first column.
    ["Right", "Right", "ctrl+2"],
    ["0", "Down", "1", "Down", "0", "Down", "2", "Down", "3"],
    # Its second half in insert mode, eighths on string 3: each typed fret
    # opens its room and moves the cursor on; the last one moves it into a
    # new bar 3.
    ["Right", "Right", "Up", "Up", "ctrl+Insert", "ctrl+4"],
    ["9", "7", "5", "4"],
    # Bar 3: two quarter notes, still inserting; then back to overwrite.
    ["ctrl+3", "3", "0", "ctrl+Insert"],
]

# After Alt+R, A has added track 2 and made it current: to bar 1, string 6.
TRACK_2 = [
    ["Home", "Down", "Down", "Down", "Down", "Down", "Down", "ctrl+2"],
    ["3", "Right", "Right", "5", "v"],            # half notes, the second with vibrato
    ["shift+Right", "ctrl+1", "0"],               # bar 2: a whole note
]

# (bar, string, tick) -> (fret, length, effect), for each track.
EXPECTED = {
    1: {
        (1, 2, 0): (12, QUARTER, NONE),
        (1, 2, 48): (14, QUARTER, HAMMER_ON),
        (1, 2, 96): (15, QUARTER, NONE),
        (1, 1, 144): (7, EIGHTH, BEND_UP),
        (1, 1, 168): (5, EIGHTH, NONE),
        # The C chord in the first column of bar 2, then the eighths inserted.
        **{(2, s, 0): (f, HALF, NONE) for s, f in zip(range(1, 6), (0, 1, 0, 2, 3))},
        **{(2, 3, 96 + 24 * i): (f, EIGHTH, NONE) for i, f in enumerate((9, 7, 5, 4))},
        (3, 3, 0): (3, QUARTER, NONE),
        (3, 3, 48): (0, QUARTER, NONE),
    },
    2: {(1, 6, 0): (3, HALF, NONE), (1, 6, 96): (5, HALF, VIBRATO), (2, 6, 0): (0, WHOLE, NONE)},
}
BARS = 3


def editor_on_screen(main):
    """The editor's strip: 40 rows of the main window holding a run of white a
    third of its width (the workspace is brown, the help window narrower)."""
    (x0, y0, w, h), pixel = screenshot(main)
    step = 4
    rows = 0
    for y in range(y0, y0 + h, 2):
        run = longest = 0
        for x in range(x0, x0 + w, step):
            run = run + step if min(pixel(x, y)) > 245 else 0
            longest = max(longest, run)
        if longest >= w // 3:
            rows += 1
    return rows >= 40


def send(main, steps):
    for keys in steps:
        key(main, *keys)


def notes_of(track):
    """The notes of one track of the dump: (bar, string, tick) -> the note."""
    found = {}
    for b, bar in enumerate(track["mesures"], start=1):
        for s, notes in enumerate(bar["cordes"], start=1):
            for n in notes:
                where = (b, s, n["intX"])
                if where in found:
                    fail("two notes at bar %d, string %d, tick %d" % where)
                found[where] = n
    return found


def check(dump):
    bars = [len(dump["mesures"])] + [len(t["mesures"]) for t in dump["pistes"]]
    if bars != [BARS] * 3:
        fail("bars of the piece and of its tracks %r, %r expected" % (bars, [BARS] * 3))
    for t, track in enumerate(dump["pistes"], start=1):
        # (fret, length, effect, attack, nuance) at each place, a new note's
        # attack none and its nuance the loudest.
        found = {w: (n["bytCase"], n["bytDurée"], n["bytEffet"], n["bytAttaque"], n["bytVolume"])
                 for w, n in notes_of(track).items()}
        expected = {w: e + (0, FFF) for w, e in EXPECTED[t].items()}
        wrong = ["bar %d, string %d, tick %d: %r, %r expected" % (w + (found.get(w), e))
                 for w, e in sorted((w, expected.get(w)) for w in set(found) | set(expected))
                 if found.get(w) != e]
        if wrong:
            fail("track %d (fret, length, effect, attack, nuance):\n  " % t + "\n  ".join(wrong))


def inner(home, program, cli):
    saved = os.path.join(home, "typed tab.vtb")
    with Program(program, home) as vantoro:
        main = first_start("F8")
        poll("the editor on the screen", lambda: editor_on_screen(main), timeout=10)

        send(main, TRACK_1)
        # One call, so that the A reaches the menu the Alt+R opens.
        key(main, "alt+r", "a")
        send(main, TRACK_2)

        key(main, "ctrl+s")
        dialog = poll("the save dialog after Ctrl+S", lambda: visible_window("^Save"))
        type_text(dialog, saved)
        key(dialog, "Return")
        poll("the file written by the save dialog", lambda: os.path.exists(saved))
        poll("the save dialog to close", lambda: not visible_window("^Save"))

        key(main, "Escape")
        vantoro.wait_exit("Esc in the editor of a saved tablature")

    r = subprocess.run([cli, "dump", saved], capture_output=True, text=True, timeout=TIMEOUT)
    if r.returncode != 0:
        fail("vantoro-cli dump refused the saved file: " + r.stderr)
    check(json.loads(r.stdout))
    print("PASS: %d notes typed on 2 tracks, a chord, effects, lengths and two-digit frets "
          "saved with Ctrl+S" % sum(len(e) for e in EXPECTED.values()))


if __name__ == "__main__":
    run(inner, __doc__, 2, screen="1280x1024x24")
