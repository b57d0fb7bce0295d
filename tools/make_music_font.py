#!/usr/bin/python3
"""Builds data/musical.ttf, the font "MusicalSymbols": music signs taken from
Symbola (Debian package fonts-symbola, free for any use) and placed at the
character codes the page drawing uses, plus the digits of time signatures.

Run with Debian's own interpreter, which has the fontforge module:
    /usr/bin/python3 tools/make_music_font.py [SYMBOLA.ttf] [OUT.ttf]
The generated file is committed; the build does not run this script.
"""
import os
import sys

# A fixed date in the font tables makes the output reproducible.
os.environ.setdefault("SOURCE_DATE_EPOCH", "1700000000")

import fontforge  # noqa: E402

SYMBOLA = "/usr/share/fonts/truetype/ancient-scripts/Symbola_hint.ttf"
HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "..", "data", "musical.ttf")

# Character code in our font -> code point of the sign in Symbola.
SIGNS = {
    0x26: 0x1D11E,  # treble clef
    0x3F: 0x1D122,  # bass clef
    0x49: 0x266F,   # sharp
    0x69: 0x266D,   # flat
    0xE9: 0x266E,   # natural
    0x2E: 0x1D16D,  # augmentation dot
    0x77: 0x1D15D,  # whole note
    0x68: 0x1D15E,  # half note
    0x71: 0x1D15F,  # quarter note
    0x65: 0x1D160,  # eighth note
    0x78: 0x1D161,  # sixteenth note
    0x72: 0x1D162,  # thirty-second note
    0xEE: 0x1D13B,  # whole rest
    0xB7: 0x1D13C,  # half rest
    0xCE: 0x1D13D,  # quarter rest
    0xE4: 0x1D13E,  # eighth rest
    0xC5: 0x1D13F,  # sixteenth rest
    0xA8: 0x1D140,  # thirty-second rest
    0xF6: 0x1D158,  # filled note head
    0xFA: 0x1D165,  # stem piece
}
# Time-signature digits: the heavy serif digits read best at the head of a bar.
BOLD_DIGIT_ZERO = 0x1D7CE
PLAIN_DIGIT_ZERO = 0x30


def has(font, cp):
    try:
        return font[cp].isWorthOutputting()
    except (TypeError, KeyError):
        return False


def copy_glyph(src, dst, cp, code):
    src.selection.select(("unicode",), cp)
    src.copy()
    dst.createChar(code, "uni%04X" % code)
    dst.selection.select(("unicode",), code)
    dst.paste()
    dst[code].width = src[cp].width


def main():
    symbola = sys.argv[1] if len(sys.argv) > 1 else SYMBOLA
    out = sys.argv[2] if len(sys.argv) > 2 else OUT
    src = fontforge.open(symbola)
    dst = fontforge.font()
    dst.encoding = "UnicodeBmp"
    dst.em = src.em
    dst.ascent = src.ascent
    dst.descent = src.descent
    dst.fontname = "MusicalSymbols"
    dst.familyname = "MusicalSymbols"
    dst.fullname = "MusicalSymbols"
    dst.weight = "Regular"
    dst.copyright = ("Glyphs from Symbola, Copyright (C) 2007-2015 George Douros; "
                     "free for any use, may be modified and redistributed.")
    dst.version = "1.0"

    for code, cp in sorted(SIGNS.items()):
        if not has(src, cp):
            sys.exit("make_music_font: U+%04X missing from %s" % (cp, symbola))
        copy_glyph(src, dst, cp, code)

    zero = BOLD_DIGIT_ZERO if has(src, BOLD_DIGIT_ZERO) else PLAIN_DIGIT_ZERO
    for d in range(10):
        copy_glyph(src, dst, zero + d, 0x30 + d)

    # A space keeps text layout sane when a caller mixes signs and blanks.
    dst.createChar(0x20, "space").width = src[0x20].width
    dst.generate(out)
    print("make_music_font: wrote", os.path.normpath(out))


if __name__ == "__main__":
    main()
