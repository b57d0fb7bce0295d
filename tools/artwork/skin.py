"""The default skin: every picture of the skin table, the frames of the animated
buttons and the metronome's pendulum.

Pictures that sit on a window are drawn on the very background they sit on:
buttons of the tool windows on the flat "seat" colour of the rails and panels,
the start-page buttons and the logo on the crop of the start page under them,
so that no edge shows. The windows must therefore place them where LAYOUT says.
"""
import math

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

from . import paint as p

SEAT = (36, 26, 19)       # flat colour of rails and wells where buttons sit
DIAL_FACE = (30, 22, 17)  # the tuner wheel's face, under its centre lamp
SS = 3                    # supersampling of every drawing

# Where things go, in pixels of each window (x, y, width, height). The
# backgrounds are drawn with wells and rails at these places.
LAYOUT = {
    "FDebut": {
        "size": (417, 435),
        "logo": (58, 12, 300, 64),
        "btn5 tablature": (16, 100, 88, 88),
        "btn0 accords": (115, 100, 88, 88),
        "btn1 gammes": (214, 100, 88, 88),
        "btn6 harmony": (313, 100, 88, 88),
        "btn3 accordeur": (16, 232, 88, 88),
        "btn4 metronome": (115, 232, 88, 88),
        "btn2 media": (214, 232, 88, 88),
        "btn help (aide, opens the help)": (313, 232, 88, 88),
        "caption under each button": (0, 92, 88, 18),
        "chkStartup": (16, 402, 385, 22),
    },
    "FAccords": {
        "size": (474, 369),
        "lstTonalite": (12, 12, 80, 284),
        "lstAccord": (100, 12, 136, 284),
        "picture of the fingering": (244, 12, 218, 210),
        "sldPositions and txtConst": (244, 230, 218, 66),
        "btnPlay": (16, 312, 48, 48),
        "btnCopier": (72, 312, 48, 48),
        "btnImprimer": (128, 312, 48, 48),
        "btnToTab": (184, 312, 48, 48),
        "optListe switch": (254, 322, 56, 28),
        "btnOptions": (354, 312, 48, 48),
        "btnExit": (410, 312, 48, 48),
    },
    "FGammes": {
        "size": (474, 369),
        "gam": (12, 12, 288, 174),
        "ton": (308, 12, 154, 174),
        "txtConst": (12, 194, 450, 32),
        "picConstruction (keyboard)": (117, 238, 240, 60),
        "btnPlay": (16, 312, 48, 48),
        "btnCopier": (72, 312, 48, 48),
        "btnImprimer": (128, 312, 48, 48),
        "btnOptions": (354, 312, 48, 48),
        "btnExit": (410, 312, 48, 48),
    },
    "FHarmony": {
        "size": (474, 369),
        "optIdType switch": (24, 24, 56, 28),
        "txtHowto": (12, 64, 188, 232),
        "lstGammes": (208, 12, 254, 284),
        "clear button": (16, 312, 180, 48),
        "btnExit": (410, 312, 48, 48),
    },
    "FAccordeur": {
        "size": (320, 400),
        "cmbAccordage": (12, 12, 296, 36),
        "btnRoue (wheel)": (50, 64, 220, 220),
        "centre lamp (bouton E)": (128, 142, 64, 64),
        "txt": (12, 294, 296, 44),
        "btnStop": (16, 346, 48, 48),
        "btnOptions": (136, 346, 48, 48),
        "btnExit": (268, 350, 40, 40),
        "optEcoute switch (bascule: wheel, Listen)": (198, 348, 56, 28),
        "its caption, Listen": (184, 376, 84, 16),
        "the Listen page's dial, drawn in the wheel's place": (50, 64, 220, 220),
    },
    "FMetronome": {
        "size": (320, 400),
        "picTicTac (pendulum)": (16, 16, 130, 230),
        "ecran (digits labH, labM, labL)": (160, 20, 145, 60),
        "btnHigh": (177, 86, 22, 40),
        "btnMed": (221, 86, 22, 40),
        "btnLow": (266, 86, 22, 40),
        "btnBeat (metroac)": (164, 146, 48, 48),
        "beat lamp": (240, 142, 56, 56),
        "optMetro switch": (164, 214, 56, 28),
        "btnPlay": (160, 262, 48, 48),
        "btnStop": (216, 262, 48, 48),
        "btnExit": (272, 266, 40, 40),
        "btnOptions": (160, 330, 48, 48),
        "labels under the pendulum": (16, 254, 130, 130),
        "labBeat (beats to the bar)": (10, 256, 142, 22),
        "optAccent switch (bascule)": (16, 290, 56, 28),
        "its caption, Accent": (78, 290, 70, 28),
        "a word on tapping": (16, 330, 130, 52),
        "btnTap (bouton E off, lit while pressed)": (236, 322, 64, 64),
    },
}

# The scale window's keyboard: 15 white keys of 16 pixels from A; a black key is
# centred on the joint of two white keys. A marked white key is its lower part,
# from WHITE_MARK_TOP down, which the black keys leave free. Position p (1 = A, ... 24 = G#) of the
# scale lies on the white key or the black key below.
KEY_ORIGIN = (117, 238)
WHITE_W, WHITE_H, BLACK_W, BLACK_H = 16, 60, 10, 38
WHITE_MARK_TOP = 38

# The tuner wheel: lamp of string n at this angle (degrees, counter-clockwise from
# the right), 80 pixels from the centre; its label belongs 56 pixels out.
WHEEL_CENTRE = (110, 110)


def wheel_angle(n):
    return 210 - (n - 1) * 40


# ------------------------------------------------------------ backgrounds

def stage(w, h, seed, light_at=(0.5, -0.1)):
    """Dark wood panelling lit by one warm spotlight."""
    img = p.wood(w, h, (22, 14, 10), (70, 38, 22), seed, rings=4)
    img = p.darken(img, 0.85)
    img = p.add(img, p.radial_light(w, h, w * light_at[0], h * light_at[1], max(w, h) * 0.95, (90, 58, 28), 1.0))
    return p.vignette(img, 0.6)


def frame(img, border=8):
    """A raised wooden frame around a window, with a brass screw in each corner."""
    w, h = img.size
    outer = p.rounded(w, h, (0, 0, w - 1, h - 1), 0)
    inner = p.rounded(w, h, (border, border, w - 1 - border, h - 1 - border), 0)
    ring = Image.composite(Image.new("L", (w, h), 0), outer, inner)
    img = p.fill_through(img, p.wood(w, h, (70, 36, 20), (140, 80, 44), 77), ring)
    img = p.bevel(img, ring, 3)
    img = p.inner_shadow(img, inner, 6, 0.8)
    for cx, cy in ((border + 8, border + 8), (w - border - 9, border + 8),
                   (border + 8, h - border - 9), (w - border - 9, h - border - 9)):
        img = p.screw(img, cx, cy, 4, angle=cx * 7 + cy)
    return img


def well(img, box, radius=8, seat=SEAT, brass_edge=True):
    """A recessed panel where a control sits: flat seat colour, sunk, brass-lined."""
    x, y, bw, bh = box
    w, h = img.size
    m = p.rounded(w, h, (x, y, x + bw - 1, y + bh - 1), radius)
    if brass_edge:
        edge = p.rounded(w, h, (x - 2, y - 2, x + bw + 1, y + bh + 1), radius + 2)
        img = p.fill_through(img, p.brass_fill(w, h), edge)
        img = p.bevel(img, edge, 1)
    img = p.fill_through(img, seat, m)
    return p.inner_shadow(img, m, 4, 0.75)


def rail(img, y0, y1):
    """The strip of buttons at the bottom of a tool window: flat, with a brass lip."""
    w, h = img.size
    d = ImageDraw.Draw(img)
    d.rectangle((8, y0, w - 9, y1), fill=SEAT)
    lip = p.mask_blank(w, h)
    ImageDraw.Draw(lip).rectangle((8, y0 - 3, w - 9, y0 - 1), fill=255)
    img = p.fill_through(img, p.brass_fill(w, h), lip)
    return img


def window_background(name, seed):
    lay = LAYOUT[name]
    w, h = lay["size"]
    img = frame(stage(w, h, seed))
    rail_top = None
    for key, box in lay.items():
        if key == "size" or key.startswith("labels"):
            continue
        if key.startswith("btn") or key.endswith("switch") or key.startswith("clear"):
            if box[1] > h * 0.6:
                rail_top = min(rail_top or 10**6, box[1] - 6)
                continue
    if rail_top:
        img = rail(img, rail_top, h - 9)
    for key, box in lay.items():
        if key == "size" or key.startswith("labels"):
            continue
        x, y, bw, bh = box
        if rail_top and y >= rail_top:
            continue
        if key.startswith("btn") and bw <= 60 or key.endswith("switch") or key.startswith("beat"):
            img = well(img, (x - 4, y - 4, bw + 8, bh + 8), 6, brass_edge=False)
        elif "wheel" in key:
            img = well(img, (x - 6, y - 6, bw + 12, bh + 12), 12)
        elif "centre lamp" in key or "keyboard" in key:
            continue
        else:
            img = well(img, box)
    return img


def round_well(img, cx, cy, r):
    w, h = img.size
    edge = p.ellipse(w, h, (cx - r - 3, cy - r - 3, cx + r + 3, cy + r + 3))
    img = p.fill_through(img, p.brass_fill(w, h), edge)
    img = p.bevel(img, edge, 2)
    m = p.ellipse(w, h, (cx - r, cy - r, cx + r, cy + r))
    img = p.fill_through(img, SEAT, m)
    return p.inner_shadow(img, m, 6, 0.8)


def keyboard(img):
    """The unmarked keyboard of the scale window (its marks are pictures 3 and 4)."""
    x0, y0 = KEY_ORIGIN
    w, h = img.size
    img = well(img, (x0 - 8, y0 - 6, 15 * WHITE_W + 16, WHITE_H + 12), 6)
    white = white_key(False)
    black = black_key(False)
    for i in range(15):
        img.paste(white, (x0 + WHITE_W * i, y0))
    for i in range(14):
        if i % 7 in (0, 2, 3, 5, 6):  # A#, C#, D#, F#, G# follow A, C, D, F, G
            img.paste(black, (x0 + WHITE_W * (i + 1) - BLACK_W // 2, y0))
    return img


def white_key(marked, height=WHITE_H):
    """A white key; marked, only its lower part that the black keys leave free."""
    s = SS
    w, h = WHITE_W * s, height * s
    top, bottom = ((255, 214, 140), (232, 150, 60)) if marked else ((246, 238, 218), (214, 200, 170))
    img = p.vertical_gradient(w, h, top, bottom)
    d = ImageDraw.Draw(img)
    d.rectangle((0, 0, w - 1, h - 1), outline=(60, 40, 26), width=s)
    d.rectangle((s, h - 4 * s, w - 2 * s, h - 2 * s), fill=tuple(int(c * 0.85) for c in bottom))
    if marked:
        d.line((s, 0, w - 2 * s, 0), fill=top, width=s)
        m = p.ellipse(w, h, (w / 2 - 5 * s, h - 16 * s, w / 2 + 5 * s, h - 6 * s))
        img = p.glow(img, m, p.EMBER, 4 * s, 0.9)
        img = p.fill_through(img, p.EMBER, m)
    return p.reduce(img, (WHITE_W, height))


def black_key(marked):
    s = SS
    w, h = BLACK_W * s, BLACK_H * s
    top, bottom = ((150, 80, 30), (92, 44, 14)) if marked else ((52, 40, 34), (14, 10, 8))
    img = p.vertical_gradient(w, h, top, bottom)
    d = ImageDraw.Draw(img)
    d.rectangle((0, 0, w - 1, h - 1), outline=(8, 6, 4), width=s)
    d.rectangle((2 * s, h - 5 * s, w - 3 * s, h - 2 * s), fill=tuple(min(255, int(c * 1.5)) for c in top))
    if marked:
        m = p.ellipse(w, h, (w / 2 - 3.5 * s, h - 14 * s, w / 2 + 3.5 * s, h - 7 * s))
        img = p.glow(img, m, p.AMBER, 3 * s, 0.9)
        img = p.fill_through(img, p.AMBER, m)
    return p.reduce(img, (BLACK_W, BLACK_H))


def start_page(seed=11):
    w, h = LAYOUT["FDebut"]["size"]
    img = p.wood(w, h, (16, 10, 7), (58, 30, 17), seed, rings=3)
    img = p.darken(img, 0.8)
    img = p.add(img, p.radial_light(w, h, w / 2, -40, 420, (120, 78, 36), 1.0))
    img = p.add(img, p.radial_light(w, h, w / 2, h + 60, 300, (50, 26, 12), 0.8))
    img = p.vignette(img, 0.55)
    # A faint fretboard inlay across the bottom, for the guitarist's eye.
    d = ImageDraw.Draw(img)
    for i in range(6):
        y = 356 + i * 6
        d.line((0, y, w, y), fill=(92, 70, 48), width=1)
    for x in range(10, w, 44):
        d.line((x, 352, x, 390), fill=(120, 98, 70), width=2)
    for x in (120, 208, 296):
        d.ellipse((x - 3, 370, x + 3, 376), fill=(170, 150, 120))
    img = img.filter(ImageFilter.GaussianBlur(0.6))
    img = p.add(img, p.radial_light(w, h, w / 2, 372, 240, (0, 0, 0), 0))
    for key, box in LAYOUT["FDebut"].items():
        if key.startswith("btn"):
            x, y, bw, bh = box
            soft = p.ellipse(w, h, (x + 2, y + 4, x + bw - 2, y + bh + 2))
            img = p.shadow(img, soft, (0, 3), 6, 0.8)
    return img


# ------------------------------------------------------------------ medallions

def medallion(bg, icon, lit, s=SS):
    """A start-page button: a brass ring around a dark wooden face bearing an icon.

    `bg` is the crop of the start page under the button; `icon(draw_img, s,
    colour)` draws the icon on a face of 88 * s pixels and returns the image.
    """
    size = 88 * s
    img = bg.resize((size, size), Image.Resampling.BICUBIC)
    c = size / 2
    r_out, r_in = 41 * s, 34 * s
    ring = p.ellipse(size, size, (c - r_out, c - r_out, c + r_out, c + r_out))
    if lit:
        img = p.glow(img, ring, p.AMBER, 5 * s, 0.9)
    img = p.shadow(img, ring, (0, 2 * s), 3 * s, 0.7)
    img = p.fill_through(img, p.brass_fill(size, size, light=(255, 236, 170) if lit else p.BRASS_LIGHT), ring)
    img = p.bevel(img, ring, 2 * s)
    face = p.ellipse(size, size, (c - r_in, c - r_in, c + r_in, c + r_in))
    wood = p.wood(size, size, (26, 15, 9), (70, 38, 20), 5, rings=3)
    if lit:
        wood = p.add(wood, p.radial_light(size, size, c, c - 10 * s, 40 * s, (70, 40, 12), 1.0))
    img = p.fill_through(img, wood, face)
    img = p.inner_shadow(img, face, 3 * s, 0.8)
    colour = (255, 214, 130) if lit else p.CREAM
    img = icon(img, s, colour, face)
    return p.reduce(img, (88, 88))


def ink(img, mask, colour, s, glow_colour=None):
    """Lays an icon's strokes: a dark edge, then the colour, then an optional glow."""
    img = p.fill_through(img, (10, 6, 3), p.outline(mask, s))
    if glow_colour:
        img = p.glow(img, mask, glow_colour, 3 * s, 0.7)
    return p.fill_through(img, colour, mask)


def icon_chord(dots_shown=6, pulse=0.0):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        x0, y0, dx, dy = 28 * s, 24 * s, 6.4 * s, 9 * s
        d.rectangle((x0, y0 - 2 * s, x0 + 5 * dx, y0), fill=255)
        for i in range(6):
            d.line((x0 + i * dx, y0, x0 + i * dx, y0 + 4 * dy), fill=255, width=max(1, int(0.9 * s)))
        for j in range(1, 5):
            d.line((x0, y0 + j * dy, x0 + 5 * dx, y0 + j * dy), fill=255, width=max(1, int(0.9 * s)))
        img = ink(img, m, colour, s)
        # C major: strings 5, 4, 2 fretted at 3, 2, 1.
        dots = [(1, 3), (2, 2), (4, 1)]
        dm = p.mask_blank(size, size)
        dd = ImageDraw.Draw(dm)
        for k, (string, fret) in enumerate(dots[:dots_shown]):
            cx = x0 + string * dx
            cy = y0 + (fret - 0.5) * dy
            r = (3.0 + pulse * (1 if k == dots_shown - 1 else 0)) * s
            dd.ellipse((cx - r, cy - r, cx + r, cy + r), fill=255)
        return ink(img, dm, p.AMBER, s, p.AMBER if pulse else None)
    return draw


def icon_scale(lit_index=-1):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        y0, dy = 30 * s, 7 * s
        for i in range(4):
            d.line((22 * s, y0 + i * dy, 66 * s, y0 + i * dy), fill=255, width=max(1, int(0.8 * s)))
        for x in (33, 44, 55):
            d.line((x * s, y0 - 2 * s, x * s, y0 + 3 * dy + 2 * s), fill=255, width=max(1, int(1.2 * s)))
        img = ink(img, m, colour, s)
        notes = [(27, 3), (38, 3), (49, 2), (27, 1), (38, 1), (49, 0), (60, 0)]
        for k, (x, string) in enumerate(notes):
            dm = p.mask_blank(size, size)
            cy = y0 + (3 - string) * dy
            r = 3.2 * s if k != lit_index else 4.2 * s
            ImageDraw.Draw(dm).ellipse((x * s - r, cy - r, x * s + r, cy + r), fill=255)
            col = p.EMBER if k == 0 else p.AMBER
            img = ink(img, dm, (255, 236, 180) if k == lit_index else col, s,
                      p.AMBER if k == lit_index else None)
        return img
    return draw


def icon_media(phase=None):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        d.polygon([(30 * s, 28 * s), (30 * s, 60 * s), (52 * s, 44 * s)], fill=255)
        img = ink(img, m, colour, s)
        wm = p.mask_blank(size, size)
        wd = ImageDraw.Draw(wm)
        for k in range(3):
            r = (8 + 7 * k + (phase or 0) * 7) * s
            if r > 26 * s:
                continue
            wd.arc((50 * s - r, 44 * s - r, 50 * s + r, 44 * s + r), -40, 40, fill=255, width=int(1.6 * s))
        return ink(img, wm, p.AMBER, s, p.AMBER if phase is not None else None)
    return draw


def icon_tuner(angle=0.0):
    def draw(img, s, colour, face):
        size = img.size[0]
        cx, cy = 44 * s, 58 * s
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        d.arc((cx - 26 * s, cy - 26 * s, cx + 26 * s, cy + 26 * s), 215, 325, fill=255, width=int(1.4 * s))
        for k in range(-4, 5):
            a = math.radians(-90 + k * 12)
            r0 = 26 * s
            r1 = (20 if k % 2 == 0 else 23) * s
            d.line((cx + r0 * math.cos(a), cy + r0 * math.sin(a), cx + r1 * math.cos(a), cy + r1 * math.sin(a)),
                   fill=255, width=int(1.2 * s))
        img = ink(img, m, colour, s)
        nm = p.mask_blank(size, size)
        nd = ImageDraw.Draw(nm)
        a = math.radians(-90 + angle)
        nd.line((cx, cy, cx + 28 * s * math.cos(a), cy + 28 * s * math.sin(a)), fill=255, width=int(1.8 * s))
        nd.ellipse((cx - 3 * s, cy - 3 * s, cx + 3 * s, cy + 3 * s), fill=255)
        col = p.GREEN if abs(angle) < 3 else p.AMBER
        img = ink(img, nm, col, s, col if abs(angle) < 3 else None)
        lm = p.mask_blank(size, size)
        ImageDraw.Draw(lm).text((cx, 69 * s), "A", font=p.font("sans-bold", 9 * s), fill=255, anchor="mm")
        return ink(img, lm, colour, s)
    return draw


def icon_metronome(angle=14.0):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        body = [(34 * s, 66 * s), (54 * s, 66 * s), (49 * s, 22 * s), (39 * s, 22 * s)]
        d.polygon(body, fill=255)
        img = p.fill_through(img, (10, 6, 3), p.outline(m, s))
        img = p.fill_through(img, p.wood(size, size, (120, 60, 28), (190, 112, 56), 8), m)
        plate = p.mask_blank(size, size)
        ImageDraw.Draw(plate).polygon([(39 * s, 58 * s), (49 * s, 58 * s), (46.5 * s, 28 * s), (41.5 * s, 28 * s)], fill=255)
        img = p.fill_through(img, (232, 214, 176), plate)
        rm = p.mask_blank(size, size)
        rd = ImageDraw.Draw(rm)
        pivot = (44 * s, 60 * s)
        a = math.radians(angle)
        tip = (pivot[0] + 40 * s * math.sin(a), pivot[1] - 40 * s * math.cos(a))
        rd.line((pivot, tip), fill=255, width=int(1.5 * s))
        wx = pivot[0] + 28 * s * math.sin(a)
        wy = pivot[1] - 28 * s * math.cos(a)
        rd.rectangle((wx - 3 * s, wy - 2.5 * s, wx + 3 * s, wy + 2.5 * s), fill=255)
        return ink(img, rm, colour if colour != p.CREAM else p.BRASS_LIGHT, s)
    return draw


def icon_tab(cursor=None):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        y0, dy = 27 * s, 6.4 * s
        for i in range(6):
            d.line((20 * s, y0 + i * dy, 68 * s, y0 + i * dy), fill=255, width=max(1, int(0.8 * s)))
        d.line((20 * s, y0, 20 * s, y0 + 5 * dy), fill=255, width=int(1.2 * s))
        d.line((68 * s, y0, 68 * s, y0 + 5 * dy), fill=255, width=int(1.2 * s))
        img = ink(img, m, colour, s)
        notes = [(28, 4, "3"), (36, 3, "2"), (44, 2, "0"), (52, 1, "1"), (60, 0, "0")]
        fnt = p.font("sans-bold", 7.5 * s)
        for x, string, txt in notes:
            cy = y0 + (5 - string) * dy - 0 * s
            bg = p.mask_blank(size, size)
            ImageDraw.Draw(bg).rectangle((x * s - 3 * s, cy - 3 * s, x * s + 3 * s, cy + 3 * s), fill=255)
            img = Image.composite(img, img, bg)
            passed = cursor is not None and x * s <= cursor * s
            tm = p.text_mask(size, size, (x * s, cy), txt, fnt)
            img = p.fill_through(img, (26, 15, 9), p.outline(tm, s))
            img = p.fill_through(img, (255, 236, 180) if passed else p.AMBER, tm)
        if cursor is not None:
            cm = p.mask_blank(size, size)
            ImageDraw.Draw(cm).line((cursor * s, y0 - 4 * s, cursor * s, y0 + 5 * dy + 4 * s), fill=255, width=int(1.2 * s))
            img = p.glow(img, cm, p.EMBER, 2 * s, 0.9)
            img = p.fill_through(img, p.EMBER, cm)
        return img
    return draw


def icon_wand(phase=None):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.mask_blank(size, size)
        d = ImageDraw.Draw(m)
        d.line((28 * s, 64 * s, 54 * s, 38 * s), fill=255, width=int(4 * s))
        img = p.fill_through(img, (10, 6, 3), p.outline(m, s))
        img = p.fill_through(img, (30, 22, 18), m)
        tip = p.mask_blank(size, size)
        ImageDraw.Draw(tip).line((49 * s, 43 * s, 54 * s, 38 * s), fill=255, width=int(4 * s))
        img = p.fill_through(img, colour, tip)
        sm = p.mask_blank(size, size)
        sd = ImageDraw.Draw(sm)
        stars = [(60, 30, 6), (47, 24, 3.5), (66, 46, 3.5), (58, 20, 2.5), (70, 34, 2.5)]
        for k, (x, y, r) in enumerate(stars):
            scale = 1.0
            if phase is not None:
                scale = 0.45 + 0.55 * (0.5 + 0.5 * math.sin(2 * math.pi * (phase + k / len(stars))))
            r *= scale
            pts = []
            for j in range(8):
                a = math.pi / 4 * j
                rr = r * s if j % 2 == 0 else r * s * 0.32
                pts.append((x * s + rr * math.cos(a - math.pi / 2), y * s + rr * math.sin(a - math.pi / 2)))
            sd.polygon(pts, fill=255)
        return ink(img, sm, (255, 228, 150), s, p.AMBER)
    return draw


def icon_help(shine=None):
    def draw(img, s, colour, face):
        size = img.size[0]
        m = p.text_mask(size, size, (44 * s, 46 * s), "?", p.font("serif-bold", 44 * s))
        img = p.fill_through(img, (10, 6, 3), p.outline(m, s))
        fill = p.brass_fill(size, size)
        if shine is not None:
            band = p.mask_blank(size, size)
            x = (14 + shine * 60) * s
            ImageDraw.Draw(band).polygon([(x, 10 * s), (x + 8 * s, 10 * s), (x - 12 * s, 80 * s), (x - 20 * s, 80 * s)], fill=255)
            fill = p.fill_through(fill, (255, 250, 220), band.filter(ImageFilter.GaussianBlur(2 * s)))
        return p.fill_through(img, fill, m)
    return draw


START_BUTTONS = {
    # prefix: (layout key, rest frame number, icon for rest, frame -> icon)
    "accord00": ("btn0 accords", 17, icon_chord(), lambda f, n: icon_chord(min(3, f * 4 // n + 1), 1.2 * math.sin(math.pi * f / n))),
    "gammes00": ("btn1 gammes", 17, icon_scale(), lambda f, n: icon_scale(f * 7 // n)),
    "pbplay00": ("btn2 media", 17, icon_media(), lambda f, n: icon_media(f / n)),
    "accordeur00": ("btn3 accordeur", 14, icon_tuner(0),
                    lambda f, n: icon_tuner(30 * math.cos(math.pi * f / 3) * (1 - f / n))),
    "tictac00": ("btn4 metronome", 34, icon_metronome(14), lambda f, n: icon_metronome(24 * math.cos(2 * math.pi * f / n))),
    "tablature00": ("btn5 tablature", 17, icon_tab(), lambda f, n: icon_tab(22 + 44 * f / (n - 1))),
    "baguette00": ("btn6 harmony", 17, icon_wand(), lambda f, n: icon_wand(f / n)),
    "aide00": ("btn help (aide, opens the help)", 17, icon_help(), lambda f, n: icon_help(f / (n - 1))),
}


# -------------------------------------------------------------- small buttons

def round_button(size, symbol, lit, pressed=False, seat=SEAT, s=4):
    """A brass-rimmed push button on the flat seat; `symbol(img, s, colour)`."""
    big = size * s
    img = Image.new("RGB", (big, big), seat)
    c = big / 2
    r = (size / 2 - 3) * s
    rim = p.ellipse(big, big, (c - r, c - r, c + r, c + r))
    if lit:
        img = p.glow(img, rim, p.AMBER, 2.5 * s, 0.9)
    img = p.shadow(img, rim, (0, 1.5 * s), 2 * s, 0.8)
    img = p.fill_through(img, p.brass_fill(big, big), rim)
    img = p.bevel(img, rim, s)
    fr = r - 4 * s
    face = p.ellipse(big, big, (c - fr, c - fr, c + fr, c + fr))
    top, bottom = ((60, 36, 20), (24, 14, 8)) if not pressed else ((20, 12, 6), (48, 28, 14))
    img = p.fill_through(img, p.vertical_gradient(big, big, top, bottom), face)
    if lit:
        img = p.add(img, p.radial_light(big, big, c, c - fr / 3, fr * 1.2, (60, 32, 6), 1.0))
    img = p.inner_shadow(img, face, int(1.5 * s), 0.6 if not pressed else 0.9)
    colour = (255, 214, 130) if lit else p.CREAM
    img = symbol(img, s, colour)
    return p.reduce(img, (size, size))


def sym(draw_mask, colour_override=None, glow_when_lit=True):
    def symbol(img, s, colour):
        big = img.size[0]
        m = p.mask_blank(big, big)
        draw_mask(ImageDraw.Draw(m), big, s)
        col = colour_override or colour
        img = p.fill_through(img, (8, 4, 2), p.outline(m, max(1, s // 2)))
        if glow_when_lit and colour != p.CREAM:
            img = p.glow(img, m, p.AMBER, 2 * s, 0.6)
        return p.fill_through(img, col, m)
    return symbol


def play_mask(d, big, s):
    c = big / 2
    d.polygon([(c - 5 * s, c - 8 * s), (c - 5 * s, c + 8 * s), (c + 8 * s, c)], fill=255)


def stop_mask(d, big, s):
    c = big / 2
    d.rounded_rectangle((c - 6.5 * s, c - 6.5 * s, c + 6.5 * s, c + 6.5 * s), radius=1.5 * s, fill=255)


def exit_mask(d, big, s):
    c = big / 2
    r = big / 2 * 0.34
    d.arc((c - r, c - r, c + r, c + r), -55, 235, fill=255, width=int(2.2 * s))
    d.line((c, c - r - 2 * s, c, c - r * 0.15), fill=255, width=int(2.2 * s))


def copy_mask(offset=0.0):
    def m(d, big, s):
        c = big / 2
        d.rectangle((c - 9 * s, c - 9 * s, c + 3 * s, c + 5 * s), outline=255, width=int(1.6 * s))
        o = offset * s
        d.rectangle((c - 4 * s + o, c - 4 * s + o, c + 8 * s + o, c + 10 * s + o), fill=255)
    return m


def print_mask(paper=0.0):
    def m(d, big, s):
        c = big / 2
        d.rounded_rectangle((c - 10 * s, c - 3 * s, c + 10 * s, c + 6 * s), radius=2 * s, fill=255)
        top = c - 10 * s - paper * s
        d.rectangle((c - 6 * s, top, c + 6 * s, c - 3 * s), outline=255, width=int(1.4 * s))
        d.rectangle((c - 6 * s, c + 4 * s, c + 6 * s, c + 10 * s + paper * 0.6 * s), fill=255)
    return m


def gear_mask(turn=0.0):
    def m(d, big, s):
        c = big / 2
        teeth = 8
        pts = []
        for k in range(teeth * 4):
            a = 2 * math.pi * (k / (teeth * 4) + turn / teeth)
            r = (9.5 if (k % 4) in (0, 1) else 7) * s
            pts.append((c + r * math.cos(a), c + r * math.sin(a)))
        d.polygon(pts, fill=255)
        d.ellipse((c - 3 * s, c - 3 * s, c + 3 * s, c + 3 * s), fill=0)
    return m


def beats_mask(d, big, s):
    c = big / 2
    for k in range(4):
        x = c + (k - 1.5) * 5 * s
        r = (2.6 if k == 0 else 1.8) * s
        d.ellipse((x - r, c - r, x + r, c + r), fill=255)
    d.line((c - 9 * s, c + 6 * s, c + 9 * s, c + 6 * s), fill=255, width=max(1, s // 2))


# ------------------------------------------------------------ metronome parts

def beat_lamp(n):
    s, size = 4, 56
    big = size * s
    img = Image.new("RGB", (big, big), SEAT)
    c = big / 2
    r = 25 * s
    bez = p.ellipse(big, big, (c - r, c - r, c + r, c + r))
    img = p.fill_through(img, p.brass_fill(big, big), bez)
    img = p.bevel(img, bez, s)
    gr = 20 * s
    glass = p.ellipse(big, big, (c - gr, c - gr, c + gr, c + gr))
    hot = p.EMBER if n == 1 else p.AMBER
    core = (255, 240, 200) if n != 1 else (255, 200, 170)
    yy, xx = np.mgrid[0:big, 0:big]
    d = np.sqrt((xx - c) ** 2 + (yy - c + 5 * s) ** 2) / gr
    lit = p.ramp(d, [(0, core), (0.55, hot), (1.0, tuple(int(v * 0.45) for v in hot))])
    img = p.fill_through(img, Image.fromarray(lit.astype(np.uint8), "RGB"), glass)
    img = p.inner_shadow(img, glass, s, 0.5)
    t = p.text_mask(big, big, (c, c + s), str(n), p.font("sans-bold", (22 if n < 10 else 18) * s))
    img = p.fill_through(img, (80, 30, 10), p.outline(t, s))
    img = p.fill_through(img, (60, 20, 6), t)
    hl = p.ellipse(big, big, (c - 12 * s, c - 17 * s, c + 4 * s, c - 9 * s))
    img = p.fill_through(img, (255, 255, 240), hl.filter(ImageFilter.GaussianBlur(2 * s)).point(lambda v: v // 2))
    return p.reduce(img, (size, size))


def spinner(state, digit):
    """The up-down control of one tempo digit: 'off', 'up' or 'dn'."""
    s, w, h = 4, 22, 40
    W, H = w * s, h * s
    img = Image.new("RGB", (W, H), SEAT)
    body = p.rounded(W, H, (s, s, W - s - 1, H - s - 1), 4 * s)
    img = p.fill_through(img, p.brass_fill(W, H), body)
    img = p.bevel(img, body, s)
    for half, pressed in (("up", state == "up"), ("dn", state == "dn")):
        y0, y1 = (3 * s, H / 2 - s) if half == "up" else (H / 2 + s, H - 3 * s)
        face = p.rounded(W, H, (3 * s, y0, W - 3 * s - 1, y1), 2.5 * s)
        top, bottom = ((70, 44, 24), (34, 20, 10)) if not pressed else ((26, 14, 6), (70, 36, 12))
        img = p.fill_through(img, p.vertical_gradient(W, H, top, bottom), face)
        img = p.inner_shadow(img, face, s, 0.9 if pressed else 0.4)
        tri = p.mask_blank(W, H)
        cx, cy = W / 2, (y0 + y1) / 2
        if half == "up":
            pts = [(cx - 5 * s, cy + 3 * s), (cx + 5 * s, cy + 3 * s), (cx, cy - 4 * s)]
        else:
            pts = [(cx - 5 * s, cy - 3 * s), (cx + 5 * s, cy - 3 * s), (cx, cy + 4 * s)]
        ImageDraw.Draw(tri).polygon(pts, fill=255)
        if pressed:
            img = p.glow(img, tri, p.AMBER, 2 * s, 0.9)
        img = p.fill_through(img, (255, 214, 130) if pressed else p.CREAM, tri)
    return p.reduce(img, (w, h))


def switch(position, lamp_on):
    """A lever switch: lever to the left in position 1, to the right in position 2."""
    s, w, h = 4, 56, 28
    W, H = w * s, h * s
    img = Image.new("RGB", (W, H), SEAT)
    plate = p.rounded(W, H, (s, s, W - s - 1, H - s - 1), 6 * s)
    img = p.fill_through(img, p.brass_fill(W, H), plate)
    img = p.bevel(img, plate, s)
    slot = p.rounded(W, H, (6 * s, H / 2 - 4 * s, 40 * s, H / 2 + 4 * s), 4 * s)
    img = p.fill_through(img, (12, 8, 5), slot)
    img = p.inner_shadow(img, slot, s, 0.9)
    kx = (13 if position == 1 else 33) * s
    knob = p.ellipse(W, H, (kx - 7 * s, H / 2 - 7 * s, kx + 7 * s, H / 2 + 7 * s))
    img = p.shadow(img, knob, (s, s), 2 * s, 0.8)
    img = p.fill_through(img, p.vertical_gradient(W, H, (250, 244, 226), (150, 128, 96)), knob)
    img = p.bevel(img, knob, s)
    lx = 48 * s
    lamp = p.ellipse(W, H, (lx - 4 * s, H / 2 - 4 * s, lx + 4 * s, H / 2 + 4 * s))
    if lamp_on:
        img = p.glow(img, lamp, p.AMBER, 2 * s, 1.0)
        img = p.fill_through(img, (255, 210, 120), lamp)
    else:
        img = p.fill_through(img, (60, 30, 16), lamp)
    img = p.inner_shadow(img, lamp, s, 0.5)
    return p.reduce(img, (w, h))


def lcd():
    s, w, h = 4, 145, 60
    W, H = w * s, h * s
    img = Image.new("RGB", (W, H), SEAT)
    bez = p.rounded(W, H, (0, 0, W - 1, H - 1), 6 * s)
    img = p.fill_through(img, p.brass_fill(W, H), bez)
    img = p.bevel(img, bez, 1.5 * s)
    glass = p.rounded(W, H, (5 * s, 5 * s, W - 5 * s - 1, H - 5 * s - 1), 3 * s)
    img = p.fill_through(img, p.vertical_gradient(W, H, (26, 18, 10), (12, 8, 5)), glass)
    img = p.inner_shadow(img, glass, 2 * s, 0.9)
    # Ghost segments of the three digits, the way an unlit display shows them.
    for cx in (28, 72, 117):
        t = p.text_mask(W, H, (cx * s, H / 2), "8", p.font("sans-bold", 40 * s))
        img = p.fill_through(img, (46, 30, 16), t)
    shine = p.mask_blank(W, H)
    ImageDraw.Draw(shine).polygon([(5 * s, 5 * s), (W - 5 * s, 5 * s), (W - 5 * s, 16 * s), (5 * s, 26 * s)], fill=40)
    img = p.fill_through(img, (255, 240, 210), shine)
    return p.reduce(img, (w, h))


def pendulum(frame, frames=36):
    """One frame of the pendulum: at frame 0 it leans left, at the last right."""
    s, w, h = 3, 130, 230
    W, H = w * s, h * s
    img = Image.new("RGB", (W, H), SEAT)
    body_pts = [(14 * s, 222 * s), (116 * s, 222 * s), (84 * s, 12 * s), (46 * s, 12 * s)]
    body = p.mask_blank(W, H)
    ImageDraw.Draw(body).polygon(body_pts, fill=255)
    img = p.shadow(img, body, (2 * s, 3 * s), 4 * s, 0.8)
    img = p.fill_through(img, p.wood(W, H, (70, 30, 14), (150, 74, 34), 21, rings=3, vertical=True), body)
    img = p.bevel(img, body, 2 * s)
    face_pts = [(32 * s, 190 * s), (98 * s, 190 * s), (78 * s, 30 * s), (52 * s, 30 * s)]
    face = p.mask_blank(W, H)
    ImageDraw.Draw(face).polygon(face_pts, fill=255)
    img = p.fill_through(img, p.vertical_gradient(W, H, (238, 224, 192), (208, 186, 144)), face)
    img = p.inner_shadow(img, face, 2 * s, 0.6)
    d = ImageDraw.Draw(img)
    for k in range(14):
        y = (44 + k * 10.5) * s
        half = (8 + k * 1.0) * s if k % 2 == 0 else (5 + k * 0.6) * s
        d.line((W / 2 - half, y, W / 2 + half, y), fill=(90, 60, 36), width=s)
    base = p.mask_blank(W, H)
    ImageDraw.Draw(base).rectangle((10 * s, 206 * s, 120 * s, 224 * s), fill=255)
    img = p.fill_through(img, p.wood(W, H, (40, 18, 8), (96, 46, 20), 22, rings=2), base)
    img = p.bevel(img, base, s)
    angle = -26 * math.cos(math.pi * frame / (frames - 1))
    a = math.radians(angle)
    pivot = (W / 2, 196 * s)
    length = 172 * s
    tip = (pivot[0] + length * math.sin(a), pivot[1] - length * math.cos(a))
    rod = p.mask_blank(W, H)
    rd = ImageDraw.Draw(rod)
    rd.line((pivot, tip), fill=255, width=int(2.4 * s))
    img = p.shadow(img, rod, (2 * s, 2 * s), 2 * s, 0.5)
    img = p.fill_through(img, (214, 210, 200), rod)
    wr = 0.62
    wx, wy = pivot[0] + length * wr * math.sin(a), pivot[1] - length * wr * math.cos(a)
    weight = p.mask_blank(W, H)
    corners = []
    for dx, dy in ((-9, -7), (9, -7), (7, 7), (-7, 7)):
        rx = dx * math.cos(a) - dy * math.sin(a)
        ry = dx * math.sin(a) + dy * math.cos(a)
        corners.append((wx + rx * s, wy + ry * s))
    ImageDraw.Draw(weight).polygon(corners, fill=255)
    img = p.shadow(img, weight, (2 * s, 2 * s), 2 * s, 0.6)
    img = p.fill_through(img, p.brass_fill(W, H), weight)
    img = p.bevel(img, weight, s)
    hub = p.ellipse(W, H, (pivot[0] - 5 * s, pivot[1] - 5 * s, pivot[0] + 5 * s, pivot[1] + 5 * s))
    img = p.fill_through(img, p.brass_fill(W, H), hub)
    img = p.bevel(img, hub, s)
    return p.reduce(img, (w, h))


# ---------------------------------------------------------------- tuner parts

def wheel(chosen):
    s, size = 3, 220
    S = size * s
    c = S / 2
    img = Image.new("RGB", (S, S), SEAT)
    r_out = 106 * s
    knurl = p.mask_blank(S, S)
    kd = ImageDraw.Draw(knurl)
    pts = []
    for k in range(240):
        a = 2 * math.pi * k / 240
        r = r_out if k % 2 == 0 else r_out - 2.5 * s
        pts.append((c + r * math.cos(a), c + r * math.sin(a)))
    kd.polygon(pts, fill=255)
    img = p.shadow(img, knurl, (0, 3 * s), 4 * s, 0.8)
    img = p.fill_through(img, p.brass_fill(S, S), knurl)
    img = p.bevel(img, knurl, 2 * s)
    r_face = 96 * s
    face = p.ellipse(S, S, (c - r_face, c - r_face, c + r_face, c + r_face))
    yy, xx = np.mgrid[0:S, 0:S]
    dist = np.sqrt((xx - c) ** 2 + (yy - c) ** 2) / r_face
    faceimg = p.ramp(dist, [(0, DIAL_FACE), (0.36, DIAL_FACE), (0.8, (58, 36, 22)), (1.0, (28, 18, 12))])
    img = p.fill_through(img, Image.fromarray(faceimg.astype(np.uint8), "RGB"), face)
    img = p.inner_shadow(img, face, 3 * s, 0.8)
    # The index mark that turns with the wheel, pointing at the chosen string.
    a = math.radians(wheel_angle(chosen))
    mark = p.mask_blank(S, S)
    md = ImageDraw.Draw(mark)
    md.line((c + 38 * s * math.cos(a), c - 38 * s * math.sin(a), c + 66 * s * math.cos(a), c - 66 * s * math.sin(a)),
            fill=255, width=int(3 * s))
    img = p.glow(img, mark, p.AMBER, 3 * s, 0.7)
    img = p.fill_through(img, (255, 214, 130), mark)
    for n in range(1, 8):
        a = math.radians(wheel_angle(n))
        lx, ly = c + 80 * s * math.cos(a), c - 80 * s * math.sin(a)
        r = 8 * s
        bez = p.ellipse(S, S, (lx - r - 1.5 * s, ly - r - 1.5 * s, lx + r + 1.5 * s, ly + r + 1.5 * s))
        img = p.fill_through(img, p.brass_fill(S, S), bez)
        lamp = p.ellipse(S, S, (lx - r, ly - r, lx + r, ly + r))
        if n == chosen:
            img = p.glow(img, lamp, p.AMBER, 5 * s, 1.0)
            dd = np.sqrt((xx - lx) ** 2 + (yy - ly + 2 * s) ** 2) / r
            lit = p.ramp(dd, [(0, (255, 246, 214)), (0.6, p.AMBER), (1, p.AMBER_DEEP)])
            img = p.fill_through(img, Image.fromarray(lit.astype(np.uint8), "RGB"), lamp)
        else:
            img = p.fill_through(img, p.vertical_gradient(S, S, (70, 34, 18), (30, 14, 8)), lamp)
        img = p.inner_shadow(img, lamp, s, 0.5)
    return p.reduce(img, (size, size))


def centre_lamp(on):
    s, size = 4, 64
    S = size * s
    c = S / 2
    img = Image.new("RGB", (S, S), DIAL_FACE)
    r = 27 * s
    bez = p.ellipse(S, S, (c - r, c - r, c + r, c + r))
    img = p.shadow(img, bez, (0, 2 * s), 3 * s, 0.8)
    img = p.fill_through(img, p.brass_fill(S, S), bez)
    img = p.bevel(img, bez, s)
    gr = 22 * s
    glass = p.ellipse(S, S, (c - gr, c - gr, c + gr, c + gr))
    yy, xx = np.mgrid[0:S, 0:S]
    d = np.sqrt((xx - c) ** 2 + (yy - c + 4 * s) ** 2) / gr
    if on:
        col = p.ramp(d, [(0, (255, 246, 214)), (0.5, p.AMBER), (1, (150, 60, 10))])
    else:
        col = p.ramp(d, [(0, (96, 48, 26)), (0.7, (52, 24, 12)), (1, (24, 10, 6))])
    img = p.fill_through(img, Image.fromarray(col.astype(np.uint8), "RGB"), glass)
    img = p.inner_shadow(img, glass, 2 * s, 0.6)
    hl = p.ellipse(S, S, (c - 13 * s, c - 18 * s, c + 3 * s, c - 9 * s))
    img = p.fill_through(img, (255, 255, 240), hl.filter(ImageFilter.GaussianBlur(2 * s)).point(lambda v: v // 3))
    return p.reduce(img, (size, size))


# ---------------------------------------------------------------- the rest

def fretboard_tile():
    """Rosewood for the fretboard strip; seamless in both directions."""
    img = p.wood(161, 300, (34, 18, 11), (86, 50, 30), 31, rings=6)
    return p.darken(img, 0.95)


def logo_on(bg):
    """The program's name in brass on the crop of the start page under it."""
    s = 3
    w, h = 300, 64
    img = bg.resize((w * s, h * s), Image.Resampling.BICUBIC)
    W, H = img.size
    t = p.text_mask(W, H, (W / 2 + 10 * s, H / 2 - 2 * s), "Vantoro", p.font("title", 50 * s))
    img = p.shadow(img, t, (2 * s, 3 * s), 3 * s, 0.9)
    img = p.fill_through(img, p.brass_fill(W, H, light=(255, 240, 180)), t)
    img = p.bevel(img, t, s)
    # A pick on the left and a string underneath, as a signature.
    pick = p.mask_blank(W, H)
    cx, cy = 30 * s, 34 * s
    ImageDraw.Draw(pick).polygon([(cx - 13 * s, cy - 12 * s), (cx + 13 * s, cy - 12 * s), (cx + 8 * s, cy + 2 * s),
                                  (cx, cy + 16 * s), (cx - 8 * s, cy + 2 * s)], fill=255)
    pick = pick.filter(ImageFilter.GaussianBlur(2 * s)).point(lambda v: 255 if v > 110 else 0)
    img = p.shadow(img, pick, (2 * s, 2 * s), 3 * s, 0.8)
    img = p.fill_through(img, p.vertical_gradient(W, H, (230, 120, 40), (140, 44, 14)), pick)
    img = p.bevel(img, pick, s)
    line = p.mask_blank(W, H)
    ImageDraw.Draw(line).line((56 * s, 56 * s, 290 * s, 56 * s), fill=255, width=int(1.2 * s))
    img = p.fill_through(img, (200, 190, 170), line)
    return p.reduce(img, (w, h))


def guitar(W, H, cx, cy, scale, s):
    """A stylised acoustic guitar, laid diagonally: returns (body, top, hole, neck, head) masks."""
    masks = {}
    def blank():
        return p.mask_blank(W, H)
    body = blank()
    d = ImageDraw.Draw(body)
    k = scale * s
    d.ellipse((cx - 46 * k, cy - 10 * k, cx + 46 * k, cy + 78 * k), fill=255)
    d.ellipse((cx - 36 * k, cy - 66 * k, cx + 36 * k, cy + 4 * k), fill=255)
    d.rectangle((cx - 30 * k, cy - 20 * k, cx + 30 * k, cy + 20 * k), fill=255)
    masks["body"] = body
    hole = blank()
    ImageDraw.Draw(hole).ellipse((cx - 14 * k, cy - 22 * k, cx + 14 * k, cy + 6 * k), fill=255)
    masks["hole"] = hole
    neck = blank()
    ImageDraw.Draw(neck).rectangle((cx - 7 * k, cy - 150 * k, cx + 7 * k, cy - 40 * k), fill=255)
    masks["neck"] = neck
    head = blank()
    ImageDraw.Draw(head).polygon([(cx - 9 * k, cy - 150 * k), (cx + 9 * k, cy - 150 * k), (cx + 11 * k, cy - 188 * k),
                                  (cx - 11 * k, cy - 188 * k)], fill=255)
    masks["head"] = head
    bridge = blank()
    ImageDraw.Draw(bridge).rounded_rectangle((cx - 18 * k, cy + 38 * k, cx + 18 * k, cy + 44 * k), radius=2 * k, fill=255)
    masks["bridge"] = bridge
    return masks


def about():
    s, w, h = 2, 400, 250
    W, H = w * s, h * s
    img = p.wood(W, H, (14, 9, 6), (44, 24, 14), 41, rings=3)
    img = p.darken(img, 0.8)
    img = p.add(img, p.radial_light(W, H, 110 * s, 20 * s, 240 * s, (150, 96, 40), 1.0))
    img = p.vignette(img, 0.6)
    m = guitar(W, H, 110 * s, 150 * s, 0.9, s)
    rot = lambda mk: mk.rotate(-18, resample=Image.Resampling.BICUBIC, center=(110 * s, 130 * s))
    m = {k: rot(v) for k, v in m.items()}
    img = p.shadow(img, m["body"], (6 * s, 8 * s), 10 * s, 0.8)
    img = p.fill_through(img, p.wood(W, H, (150, 88, 40), (222, 166, 96), 42, rings=2), m["body"])
    img = p.bevel(img, m["body"], 2 * s)
    img = p.fill_through(img, (20, 12, 8), m["hole"])
    img = p.inner_shadow(img, m["hole"], 3 * s, 0.9)
    img = p.fill_through(img, p.wood(W, H, (50, 26, 14), (96, 54, 30), 43, vertical=True), m["neck"])
    img = p.fill_through(img, p.wood(W, H, (40, 20, 10), (90, 48, 26), 44, vertical=True), m["head"])
    img = p.fill_through(img, (40, 22, 12), m["bridge"])
    frets = p.mask_blank(W, H)
    fd = ImageDraw.Draw(frets)
    k = 0.9 * s
    for n in range(1, 13):  # from the nut down, a twelfth of an octave apart
        y = 150 * s - 150 * k + 220 * k * (1 - 0.5 ** (n / 12))
        fd.line((110 * s - 7 * k, y, 110 * s + 7 * k, y), fill=255, width=max(1, s // 2))
    for side in (-1, 1):
        for j in range(3):
            y = 150 * s - (158 + j * 10) * k
            fd.ellipse((110 * s + side * 13 * k - 2.5 * k, y - 2.5 * k, 110 * s + side * 13 * k + 2.5 * k, y + 2.5 * k),
                       fill=255)
    img = p.fill_through(img, (214, 206, 190), rot(frets))
    strings = p.mask_blank(W, H)
    sd = ImageDraw.Draw(strings)
    for k in range(6):
        off = (k - 2.5) * 2.2 * s * 0.9
        sd.line((110 * s + off, 150 * s + 40 * 0.9 * s, 110 * s + off, 150 * s - 160 * 0.9 * s), fill=255, width=max(1, s // 2))
    img = p.fill_through(img, (230, 226, 214), rot(strings))
    t = p.text_mask(W, H, (292 * s, 96 * s), "Vantoro", p.font("title", 46 * s))
    img = p.shadow(img, t, (2 * s, 3 * s), 3 * s, 0.9)
    img = p.fill_through(img, p.brass_fill(W, H, light=(255, 240, 180)), t)
    img = p.bevel(img, t, s)
    line = p.mask_blank(W, H)
    ImageDraw.Draw(line).line((210 * s, 124 * s, 376 * s, 124 * s), fill=255, width=max(1, s))
    img = p.fill_through(img, (200, 186, 160), line)
    return p.reduce(img, (w, h))


def bulb():
    s, size = 4, 72
    S = size * s
    img = Image.new("RGB", (S, S), (236, 226, 204))
    img = p.add(img, p.radial_light(S, S, S / 2, 30 * s, 34 * s, (40, 30, 0), 1.0))
    c = S / 2
    glass = p.mask_blank(S, S)
    gd = ImageDraw.Draw(glass)
    gd.ellipse((c - 19 * s, 8 * s, c + 19 * s, 46 * s), fill=255)
    gd.polygon([(c - 12 * s, 38 * s), (c + 12 * s, 38 * s), (c + 8 * s, 52 * s), (c - 8 * s, 52 * s)], fill=255)
    img = p.glow(img, glass, (255, 200, 80), 6 * s, 1.0)
    yy, xx = np.mgrid[0:S, 0:S]
    d = np.sqrt((xx - c) ** 2 + (yy - 26 * s) ** 2) / (22 * s)
    lit = p.ramp(d, [(0, (255, 252, 230)), (0.6, (255, 214, 110)), (1, (230, 150, 40))])
    img = p.fill_through(img, Image.fromarray(lit.astype(np.uint8), "RGB"), glass)
    fil = p.mask_blank(S, S)
    fd = ImageDraw.Draw(fil)
    fd.line((c - 6 * s, 38 * s, c - 4 * s, 26 * s, c, 31 * s, c + 4 * s, 26 * s, c + 6 * s, 38 * s), fill=255, width=int(1.3 * s))
    img = p.fill_through(img, (190, 90, 20), fil)
    base = p.mask_blank(S, S)
    bd = ImageDraw.Draw(base)
    for k in range(4):
        bd.rounded_rectangle((c - 9 * s, (52 + k * 4) * s, c + 9 * s, (55 + k * 4) * s), radius=1.5 * s, fill=255)
    bd.polygon([(c - 5 * s, 67 * s), (c + 5 * s, 67 * s), (c + 2 * s, 70 * s), (c - 2 * s, 70 * s)], fill=255)
    img = p.fill_through(img, p.brass_fill(S, S), base)
    img = p.bevel(img, base, s)
    return p.reduce(img, (size, size))
