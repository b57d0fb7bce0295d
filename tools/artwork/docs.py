"""Writes docs/skin.md: the pictures of the skin, their sizes and where they go."""
from . import build_skin, skin


def write_skin_doc(path):
    out = ["# The skin: pictures, sizes and layout", "",
           "Written by `tools/make_artwork.py` from `tools/skin_pictures.tsv`, "
           "`tools/skin_animations.tsv` and the layout in `tools/artwork/skin.py`; "
           "do not edit by hand.", "",
           "A skin is a folder `skins/<name>/` beside the program; `skinFile(index)` "
           "tries `<skin>/<name>.bmp`, `<skin>/<name>.jpg`, `default/<name>.bmp`, then "
           "`default/<name>.jpg`. Animation frames are only looked for as `.bmp` in the "
           "chosen skin.", "",
           "## The pictures by index", "",
           "| Index | Name | Size | File | Window | Role |", "|---|---|---|---|---|---|"]
    for index, name, w, h, fmt, window, role in build_skin.read_table("skin_pictures.tsv"):
        out.append(f"| {index} | \"{name}\" | {w} x {h} | .{fmt} | {window} | {role} |")
    out += ["", "## Frame series", "",
            "| Files | Size | Use |", "|---|---|---|"]
    for prefix, count, w, h, use in build_skin.read_table("skin_animations.tsv"):
        last = int(count) - 1
        out.append(f"| \"{prefix}00\" to \"{prefix}{last:02d}\" | {w} x {h} | {use} |")
    out += ["",
            "The pendulum swings from left (frame 00) to right (frame 35) during one beat; "
            "on the next beat show the frames backwards (35 - counter) so that it swings back.",
            "",
            "## Where the pictures go",
            "",
            "The backgrounds have wells and rails at these places, and buttons are drawn on "
            "the flat seat colour #%02X%02X%02X of those wells and rails (the start-page "
            "buttons and the logo on the very crop of the start page under them), so a "
            "picture placed elsewhere shows its edge. Boxes are x, y, width, height in "
            "pixels of the window's client area." % skin.SEAT, ""]
    for window, lay in skin.LAYOUT.items():
        w, h = lay["size"]
        out += [f"### {window} ({w} x {h})", "", "| Control | Box |", "|---|---|"]
        for key, box in lay.items():
            if key != "size":
                out.append(f"| {key} | {', '.join(str(v) for v in box)} |")
        out.append("")
    x0, y0 = skin.KEY_ORIGIN
    out += ["### The keyboard of FGammes", "",
            f"Painted in the background \"gammes\": 15 white keys of {skin.WHITE_W} x {skin.WHITE_H} "
            f"from ({x0}, {y0}), the first an A. Position p of the scale (1 = A ... 24 = G#) is a "
            f"white key i at x = {x0} + {skin.WHITE_W} i, y = {y0} + {skin.WHITE_MARK_TOP} (picture 3, the part of the key below the black keys), or a black key at "
            f"x = {x0} + {skin.WHITE_W} (i + 1) - {skin.BLACK_W // 2}, right of white key i, "
            f"{skin.BLACK_W} x {skin.BLACK_H}, y = {y0} (picture 4). The note's name goes "
            "near the bottom of the key.", "",
            "### The tuner wheel", "",
            "The wheel is 220 x 220; its centre (110, 110) takes the lamp \"bouton E on\" / "
            "\"bouton E off\" (64 x 64, at 78, 78 within the wheel). String n has its lamp "
            "80 pixels from the centre at the angle 210 - 40 (n - 1) degrees (counter-clockwise "
            "from the right, so string 1 is lower left and string 7 lower right); drawRoue writes "
            "the string's note 56 pixels out on the same ray.", "",
            "### The up-down controls of the metronome", "",
            "\"tempoHOff\" and its kin are 22 x 40; the two halves meet at `Milieu` = 20 pixels "
            "(a press above it raises the digit). The digits go from 0 to 9; the tempo they make "
            "is the metronome's, so keep it at 1 or more.", "",
            "### Colours for what the code draws", "",
            "Text on the dark wood: cream #F3E6C8; highlighted: amber #FFB347; the tempo digits "
            "on \"ecran\": amber #FFB347 on its dark glass, about 40 pixels high, one digit "
            "centred at x = 28, 72 and 117 of the display.", ""]
    path.write_text("\n".join(out), encoding="utf-8")
