"""The toolbar pictures: the main window's twelve, the editor's TB_* and TA_*
(each with its pressed twin, the name with a trailing "1"), and the dot sprites
of the fretboard. PNG with transparency, at the toolbar's size and at twice that
size ("@2x", which Qt picks on high-density screens).

A picture is a list of layers, each a mask and a finish; every layer gets a dark
edge so that it reads on light and on dark toolbars alike. The pressed twin sits
on a lit amber key.
"""
import math
import pathlib

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

from . import paint as p

C = 192  # drawing canvas, for every size

FINISHES = {
    "brass": ((252, 230, 160), (214, 170, 76), (126, 88, 28)),
    "cream": ((252, 246, 230), (236, 222, 190), (196, 176, 136)),
    "amber": ((255, 226, 150), (255, 176, 64), (206, 112, 20)),
    "green": ((200, 234, 140), (128, 184, 70), (70, 120, 30)),
    "red": ((255, 150, 120), (222, 64, 40), (140, 24, 14)),
    "steel": ((240, 240, 236), (196, 196, 190), (120, 120, 116)),
    "wood": ((214, 140, 80), (160, 86, 40), (96, 46, 18)),
    "ink": ((70, 46, 30), (58, 38, 24), (44, 28, 16)),
    "blue": ((150, 200, 255), (60, 130, 230), (20, 70, 160)),
}
EDGE = (36, 22, 12)


class Ctx:
    """Drawing in a grid of `grid` units on the canvas."""

    def __init__(self, grid):
        self.u = C / grid
        self.layers = []

    def _m(self):
        return p.mask_blank(C, C)

    def _pt(self, pts):
        return [(x * self.u, y * self.u) for x, y in pts]

    def layer(self, finish, edge=True):
        m = self._m()
        self.layers.append((m, finish, edge))
        return m

    def draw(self, m):
        return ImageDraw.Draw(m)

    def line(self, m, pts, w, joint="curve"):
        self.draw(m).line(self._pt(pts), fill=255, width=max(1, int(w * self.u)), joint=joint)
        r = w * self.u / 2
        for x, y in (pts[0], pts[-1]):
            self.draw(m).ellipse((x * self.u - r, y * self.u - r, x * self.u + r, y * self.u + r), fill=255)

    def poly(self, m, pts, fill=255):
        self.draw(m).polygon(self._pt(pts), fill=fill)

    def rect(self, m, box, fill=255, outline_w=0):
        b = [v * self.u for v in box]
        if outline_w:
            self.draw(m).rectangle(b, outline=255, width=max(1, int(outline_w * self.u)))
        else:
            self.draw(m).rectangle(b, fill=fill)

    def rrect(self, m, box, radius, fill=255, outline_w=0):
        b = [v * self.u for v in box]
        if outline_w:
            self.draw(m).rounded_rectangle(b, radius=radius * self.u, outline=255, width=max(1, int(outline_w * self.u)))
        else:
            self.draw(m).rounded_rectangle(b, radius=radius * self.u, fill=fill)

    def ellipse(self, m, box, fill=255, outline_w=0):
        b = [v * self.u for v in box]
        if outline_w:
            self.draw(m).ellipse(b, outline=255, width=max(1, int(outline_w * self.u)))
        else:
            self.draw(m).ellipse(b, fill=fill)

    def circle(self, m, cx, cy, r, fill=255):
        self.ellipse(m, (cx - r, cy - r, cx + r, cy + r), fill)

    def arc(self, m, box, start, end, w):
        b = [v * self.u for v in box]
        self.draw(m).arc(b, start, end, fill=255, width=max(1, int(w * self.u)))

    def text(self, m, xy, text, kind, size, anchor="mm"):
        fnt = p.font(kind, size * self.u)
        self.draw(m).text((xy[0] * self.u, xy[1] * self.u), text, font=fnt, fill=255, anchor=anchor)

    def fit_text(self, m, box, text, kind, fill=255):
        """Draws text scaled to fit the box, centred."""
        x0, y0, x1, y1 = [v * self.u for v in box]
        fnt = p.font(kind, 100)
        l, t, r, b = fnt.getbbox(text)
        k = min((x1 - x0) / (r - l), (y1 - y0) / (b - t))
        fnt = p.font(kind, 100 * k)
        l, t, r, b = fnt.getbbox(text)
        cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
        self.draw(m).text((cx - (l + r) / 2, cy - (t + b) / 2), text, font=fnt, fill=fill)

    def curve(self, m, ctrl, w, head=None, steps=40):
        """A cubic Bezier stroke through four control points; `head` adds an
        arrow head of that size at the end, along the curve."""
        (x0, y0), (x1, y1), (x2, y2), (x3, y3) = ctrl
        pts = []
        for k in range(steps + 1):
            t = k / steps
            a, b, c_, d = (1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t * t * (1 - t), t ** 3
            pts.append((a * x0 + b * x1 + c_ * x2 + d * x3, a * y0 + b * y1 + c_ * y2 + d * y3))
        if head:
            (px, py), (qx, qy) = pts[-4], pts[-1]
            angle = math.degrees(math.atan2(qy - py, qx - px))
            back = head * 0.6
            a = math.radians(angle)
            end = (qx - back * math.cos(a), qy - back * math.sin(a))
            self.line(m, [p_ for p_ in pts if (p_[0] - qx) ** 2 + (p_[1] - qy) ** 2 > back ** 2] + [end], w)
            self.arrow_head(m, (qx, qy), angle, head)
        else:
            self.line(m, pts, w)

    def arrow_head(self, m, tip, angle_deg, size):
        a = math.radians(angle_deg)
        x, y = tip
        left = (x - size * math.cos(a - 0.5), y - size * math.sin(a - 0.5))
        right = (x - size * math.cos(a + 0.5), y - size * math.sin(a + 0.5))
        self.poly(m, [tip, left, right])


def finish_image(name, lit=False):
    top, mid, bottom = FINISHES[name]
    if lit:
        top = tuple(min(255, int(v * 1.05 + 10)) for v in top)
    t = np.linspace(0, 1, C)[:, None]
    k = np.broadcast_to(1 - t, (C, C))
    rgb = p.ramp(k, [(0, bottom), (0.55, mid), (1, top)])
    return Image.fromarray(np.clip(rgb, 0, 255).astype(np.uint8), "RGB")


def compose(ctx, pressed):
    img = Image.new("RGBA", (C, C), (0, 0, 0, 0))
    if pressed:
        key = p.rounded(C, C, (3, 3, C - 4, C - 4), C // 7)
        img = p.fill_through(img, p.vertical_gradient(C, C, (255, 206, 120), (196, 104, 24)), key)
        inner = p.rounded(C, C, (10, 10, C - 11, C - 11), C // 9)
        img = p.fill_through(img, p.vertical_gradient(C, C, (120, 56, 14), (214, 130, 44)), inner)
        rim = Image.composite(Image.new("L", (C, C), 0), key, inner)
        img = p.fill_through(img, (90, 44, 10), p.outline(rim, 1).point(lambda v: v // 3))
    edge_w = C // 40
    for m, finish, edge in ctx.layers:
        if edge:
            img = p.fill_through(img, EDGE, p.outline(m, edge_w))
    for m, finish, edge in ctx.layers:
        img = p.fill_through(img, finish_image(finish, pressed), m)
    return img


def save(img, folder, name, size):
    img.resize((size, size), Image.Resampling.LANCZOS).save(folder / f"{name}.png", optimize=True)
    img.resize((size * 2, size * 2), Image.Resampling.LANCZOS).save(folder / f"{name}@2x.png", optimize=True)


# ------------------------------------------------------------ common shapes

def sheet(c, m_paper, box=(5, 2, 19, 22), fold=4):
    x0, y0, x1, y1 = box
    c.poly(m_paper, [(x0, y0), (x1 - fold, y0), (x1, y0 + fold), (x1, y1), (x0, y1)])


def lines_on(c, m, x0, x1, ys, w=1.0):
    for y in ys:
        c.line(m, [(x0, y), (x1, y)], w)


def note_glyph(c, m, char, box):
    c.fit_text(m, box, char, "music")


QUARTER, HALF, WHOLE, EIGHTH, SIXTEENTH, THIRTYSECOND, SIXTYFOURTH = (
    "\U0001D15F", "\U0001D15E", "\U0001D15D", "\U0001D160", "\U0001D161", "\U0001D162",
    "\U0001D163")
BEAMED = "\u266B"


def tab_lines(c, m, x0, x1, y0, dy, n=3, w=0.9):
    for k in range(n):
        c.line(m, [(x0, y0 + k * dy), (x1, y0 + k * dy)], w)


# ------------------------------------------------------------ main toolbar (32)

def main_gamme(c):
    wood = c.layer("wood")
    c.rrect(wood, (3, 9, 29, 23), 2)
    strings = c.layer("cream", edge=False)
    for k in range(4):
        c.line(strings, [(4, 11.5 + k * 3.2), (28, 11.5 + k * 3.2)], 0.6)
    frets = c.layer("steel", edge=False)
    for x in (10, 16, 22):
        c.line(frets, [(x, 9.5), (x, 22.5)], 0.9)
    dots = c.layer("amber")
    for x, y in ((7, 21), (13, 17.9), (19, 14.7), (25, 11.5)):
        c.circle(dots, x, y, 2.1)
    root = c.layer("red")
    c.circle(root, 7, 21, 2.1)


def main_accord(c):
    grid = c.layer("brass")
    c.rect(grid, (7, 4, 25, 6.5))
    for k in range(6):
        c.line(grid, [(7 + k * 3.6, 6), (7 + k * 3.6, 27)], 1.0)
    for j in range(1, 5):
        c.line(grid, [(7, 6 + j * 5.25), (25, 6 + j * 5.25)], 1.0)
    dots = c.layer("amber")
    for s, f in ((1, 3), (2, 2), (4, 1)):
        c.circle(dots, 7 + s * 3.6, 6 + (f - 0.5) * 5.25, 2.3)


def main_mci(c):
    film = c.layer("ink")
    c.rrect(film, (3, 7, 29, 25), 3)
    face = c.layer("brass", edge=False)
    c.rrect(face, (5, 9, 27, 23), 2)
    play = c.layer("green")
    c.poly(play, [(12, 11), (12, 21), (21, 16)])


def main_accordeur(c):
    fork = c.layer("steel")
    c.line(fork, [(12, 4), (12, 17)], 2.2)
    c.line(fork, [(20, 4), (20, 17)], 2.2)
    c.arc(fork, (12 - 1.1, 11, 20 + 1.1, 23), 0, 180, 2.2)
    c.line(fork, [(16, 22), (16, 29)], 2.4)
    waves = c.layer("amber")
    for r in (3, 6):
        c.arc(waves, (9 - r, 8 - r, 9 + r, 8 + r), 135, 225, 1.3)
        c.arc(waves, (23 - r, 8 - r, 23 + r, 8 + r), -45, 45, 1.3)


def main_tab(c):
    paper = c.layer("cream")
    sheet(c, paper, (4, 2, 28, 30), 6)
    ink = c.layer("ink", edge=False)
    tab_lines(c, ink, 7, 25, 10, 3.2, 6, 0.7)
    nums = c.layer("red", edge=False)
    for x, k, t in ((10, 4, "3"), (15, 2, "2"), (20, 1, "0")):
        c.text(nums, (x, 10 + k * 3.2), t, "sans-bold", 4.2)


def main_metronome(c):
    body = c.layer("wood")
    c.poly(body, [(7, 29), (25, 29), (20, 3), (12, 3)])
    face = c.layer("cream", edge=False)
    c.poly(face, [(11.5, 25), (20.5, 25), (18.3, 7), (13.7, 7)])
    rod = c.layer("brass")
    c.line(rod, [(16, 25), (23, 6)], 1.3)
    c.rect(rod, (19, 12, 22.5, 15))


def main_quit(c):
    door = c.layer("wood")
    c.rect(door, (5, 3, 19, 29))
    knob = c.layer("brass", edge=False)
    c.circle(knob, 16.5, 16, 1.2)
    arrow = c.layer("red")
    c.line(arrow, [(15, 16), (27, 16)], 2.4)
    c.arrow_head(arrow, (30, 16), 0, 6.5)


def main_help(c):
    disc = c.layer("brass")
    c.circle(disc, 16, 16, 13.5)
    q = c.layer("ink", edge=False)
    c.fit_text(q, (10, 6, 22, 26), "?", "serif-bold")


def main_key(c):
    key = c.layer("brass")
    c.ellipse(key, (3, 9, 15, 21))
    c.line(key, [(13, 15), (29, 15)], 2.6)
    c.line(key, [(24, 15), (24, 20)], 2.2)
    c.line(key, [(28, 15), (28, 19)], 2.2)
    hole = c.layer("ink", edge=False)
    c.circle(hole, 8, 15, 2.2)


def gear(c, m, cx, cy, r_out, r_in, teeth=8, hole=None):
    pts = []
    for k in range(teeth * 4):
        a = 2 * math.pi * k / (teeth * 4)
        r = r_out if (k % 4) in (0, 1) else r_in
        pts.append((cx + r * math.cos(a), cy + r * math.sin(a)))
    c.poly(m, pts)
    if hole:
        c.circle(m, cx, cy, hole, fill=0)


def main_options(c):
    g = c.layer("brass")
    gear(c, g, 16, 16, 13, 10, 9, 4.2)


def main_manche(c):
    wood = c.layer("wood")
    c.poly(wood, [(2, 9), (30, 11), (30, 23), (2, 25)])
    nut = c.layer("cream")
    c.rect(nut, (5, 9.2, 7, 24.8))
    frets = c.layer("steel", edge=False)
    for x in (13, 19, 24.5, 29):
        c.line(frets, [(x, 9.6 + x * 0.07), (x, 24.4 - x * 0.07)], 0.8)
    strings = c.layer("cream", edge=False)
    for k in range(6):
        y0 = 11 + k * 2.6
        c.line(strings, [(2, y0), (30, 12.5 + k * 1.9)], 0.45)
    dots = c.layer("amber", edge=False)
    c.circle(dots, 16, 17, 1.4)
    c.circle(dots, 27, 17, 1.4)


def star(c, m, cx, cy, r, points=4):
    pts = []
    for j in range(points * 2):
        a = math.pi / points * j - math.pi / 2
        rr = r if j % 2 == 0 else r * 0.35
        pts.append((cx + rr * math.cos(a), cy + rr * math.sin(a)))
    c.poly(m, pts)


def main_wizard(c):
    wand = c.layer("ink")
    c.line(wand, [(5, 28), (19, 14)], 3.0)
    tip = c.layer("cream", edge=False)
    c.line(tip, [(16.5, 16.5), (19, 14)], 2.4)
    stars = c.layer("amber")
    star(c, stars, 23, 9, 6)
    star(c, stars, 14, 6, 3)
    star(c, stars, 28, 18, 3)


MAIN = {
    "TB_GAMME": main_gamme, "TB_ACCORD": main_accord, "TB_MCI": main_mci,
    "TB_ACCORDEUR": main_accordeur, "TB_TAB": main_tab, "TB_METRONOME": main_metronome,
    "TB_QUIT": main_quit, "TB_HELP": main_help, "TB_KEY": main_key, "TB_OPTIONS": main_options,
    "TB_MANCHE": main_manche, "TB_WIZARD": main_wizard, "TABLATURE": main_tab,
}


# ------------------------------------------------------------ editor (24)

def e_new(c):
    paper = c.layer("cream")
    sheet(c, paper)
    s = c.layer("amber")
    star(c, s, 17, 17, 5.5)


def e_open(c):
    back = c.layer("wood")
    c.poly(back, [(2, 6), (9, 6), (11, 8), (20, 8), (20, 20), (2, 20)])
    front = c.layer("brass")
    c.poly(front, [(5, 11), (23, 11), (19, 20), (2, 20)])


def e_save(c):
    body = c.layer("ink")
    c.rrect(body, (3, 3, 21, 21), 2)
    label = c.layer("cream", edge=False)
    c.rect(label, (6, 12, 18, 20))
    shutter = c.layer("steel", edge=False)
    c.rect(shutter, (7, 3.5, 16, 8.5))
    hole = c.layer("ink", edge=False)
    c.rect(hole, (13, 4.5, 15, 7.5))
    lines = c.layer("ink", edge=False)
    lines_on(c, lines, 8, 16, (15, 17.5), 0.7)


def printer(c):
    paper = c.layer("cream")
    c.rect(paper, (7, 3, 17, 10))
    body = c.layer("brass")
    c.rrect(body, (2, 9, 22, 18), 2)
    out = c.layer("cream")
    c.rect(out, (7, 15, 17, 22))
    ink = c.layer("ink", edge=False)
    lines_on(c, ink, 9, 15, (18, 20), 0.6)
    led = c.layer("green", edge=False)
    c.circle(led, 18.5, 12, 1)


def e_preview(c):
    paper = c.layer("cream")
    sheet(c, paper, (3, 2, 17, 21))
    ink = c.layer("ink", edge=False)
    tab_lines(c, ink, 5, 14, 7, 2.4, 4, 0.6)
    glass = c.layer("brass")
    c.ellipse(glass, (10, 10, 20, 20), outline_w=2)
    c.line(glass, [(18.5, 18.5), (22.5, 22.5)], 2.6)
    lens = c.layer("blue", edge=False)
    c.circle(lens, 15, 15, 3.2)


def e_pagesetup(c):
    paper = c.layer("cream")
    sheet(c, paper, (4, 2, 20, 22))
    guide = c.layer("red", edge=False)
    c.line(guide, [(7, 3), (7, 21)], 0.6)
    c.line(guide, [(4.5, 6), (19.5, 6)], 0.6)
    ink = c.layer("ink", edge=False)
    lines_on(c, ink, 9, 17, (9, 12, 15, 18), 0.7)


def e_props(c):
    paper = c.layer("cream")
    sheet(c, paper, (3, 2, 17, 21))
    ink = c.layer("ink", edge=False)
    lines_on(c, ink, 6, 14, (7, 10, 13), 0.7)
    badge = c.layer("brass")
    c.circle(badge, 17, 17, 5.5)
    i = c.layer("ink", edge=False)
    c.fit_text(i, (15, 13, 19, 21), "i", "serif-bold")


def e_play(c):
    m = c.layer("green")
    c.poly(m, [(6, 3.5), (6, 20.5), (20, 12)])


def e_play_markers(c):
    flags = c.layer("red")
    c.line(flags, [(3, 3), (3, 21)], 1.4)
    c.poly(flags, [(3, 3), (7, 5), (3, 7)])
    c.line(flags, [(21, 3), (21, 21)], 1.4)
    c.poly(flags, [(21, 3), (17, 5), (21, 7)])
    m = c.layer("green")
    c.poly(m, [(8, 7), (8, 19), (17, 13)])


def e_first(c):
    m = c.layer("brass")
    c.rect(m, (3, 5, 5.5, 19))
    c.poly(m, [(13, 5), (13, 19), (5.5, 12)])
    c.poly(m, [(21, 5), (21, 19), (13.5, 12)])


def e_last(c):
    m = c.layer("brass")
    c.rect(m, (18.5, 5, 21, 19))
    c.poly(m, [(11, 5), (11, 19), (18.5, 12)])
    c.poly(m, [(3, 5), (3, 19), (10.5, 12)])


def e_cut(c):
    blades = c.layer("steel")
    c.line(blades, [(7, 3), (15, 15)], 1.8)
    c.line(blades, [(17, 3), (9, 15)], 1.8)
    handles = c.layer("red")
    c.ellipse(handles, (3, 13, 10, 20), outline_w=2)
    c.ellipse(handles, (14, 13, 21, 20), outline_w=2)


def e_copy(c):
    a = c.layer("cream")
    sheet(c, a, (3, 2, 14, 16), 3)
    b = c.layer("cream")
    sheet(c, b, (9, 8, 21, 22), 3)
    ink = c.layer("ink", edge=False)
    lines_on(c, ink, 11, 18, (13, 15.5, 18), 0.6)


def e_paste(c):
    board = c.layer("wood")
    c.rrect(board, (4, 4, 20, 22), 2)
    clip = c.layer("brass")
    c.rrect(clip, (8, 2, 16, 6.5), 1.2)
    paper = c.layer("cream")
    c.rect(paper, (7, 8, 17, 20))
    ink = c.layer("ink", edge=False)
    lines_on(c, ink, 9, 15, (11, 13.5, 16), 0.6)


def e_undo(c):
    m = c.layer("brass")
    c.curve(m, [(18, 20), (22, 12), (17, 8), (3, 9)], 2.3, head=7)


def e_redo(c):
    m = c.layer("brass")
    c.curve(m, [(6, 20), (2, 12), (7, 8), (21, 9)], 2.3, head=7)


def view_mode(glyph, triplet=False):
    def f(c):
        g = c.layer("brass")
        if triplet:
            c.fit_text(g, (6, 2, 18, 15), "3", "serif-bold-italic")
        else:
            note_glyph(c, g, glyph, (7, 1.5, 17, 16))
        ruler = c.layer("cream")
        c.rect(ruler, (2, 18, 22, 19.4))
        for x in (2.6, 9.2, 15.8, 21.4):
            c.rect(ruler, (x - 0.6, 15.5, x + 0.6, 22))
    return f


def e_record(c):
    m = c.layer("red")
    c.circle(m, 12, 12, 7.5)


def e_tab_options(c):
    g = c.layer("brass")
    gear(c, g, 12, 12, 9.5, 7.2, 8, 3)


def e_redraw(c):
    m = c.layer("brass")
    c.arc(m, (4, 4, 20, 20), 30, 300, 2.2)
    c.arrow_head(m, (18.8, 8.2), -60, 6)


def track_head(c):
    body = c.layer("cream")
    c.rrect(body, (2, 4, 17, 20), 2)
    ink = c.layer("ink", edge=False)
    tab_lines(c, ink, 4, 15, 8, 2.6, 4, 0.6)


def e_track_add(c):
    track_head(c)
    plus = c.layer("green")
    c.rect(plus, (15, 11.5, 23, 14.5))
    c.rect(plus, (17.5, 9, 20.5, 17))


def e_track_remove(c):
    track_head(c)
    minus = c.layer("red")
    c.rect(minus, (15, 11.5, 23, 14.5))


def e_track_props(c):
    track_head(c)
    g = c.layer("brass")
    gear(c, g, 18, 17, 5.5, 4, 7, 1.8)


def pick(n):
    def f(c):
        m = c.layer("amber" if n % 2 else "brass")
        c.poly(m, [(3, 4), (21, 4), (20, 10), (12, 22), (4, 10)])
        num = c.layer("ink", edge=False)
        c.fit_text(num, (8, 5.5, 16, 15), str(n), "sans-bold")
    return f


def e_text(c):
    m = c.layer("brass")
    c.fit_text(m, (2, 3, 16, 19), "T", "serif-bold")
    lines = c.layer("cream")
    lines_on(c, lines, 15, 22, (10, 14, 18), 1.2)


def chord_grid(c, x0, y0, dx, dy, strings=6, frets=4, w=0.8):
    g = c.layer("cream")
    c.rect(g, (x0, y0 - 1.2, x0 + (strings - 1) * dx, y0))
    for k in range(strings):
        c.line(g, [(x0 + k * dx, y0), (x0 + k * dx, y0 + frets * dy)], w)
    for j in range(1, frets + 1):
        c.line(g, [(x0, y0 + j * dy), (x0 + (strings - 1) * dx, y0 + j * dy)], w)
    return g


def e_chord(c):
    chord_grid(c, 4, 4, 3.2, 4.3)
    dots = c.layer("amber")
    for s, f in ((1, 3), (2, 2), (4, 1)):
        c.circle(dots, 4 + s * 3.2, 4 + (f - 0.5) * 4.3, 1.7)


def e_chord_create(c):
    book = c.layer("wood")
    c.rrect(book, (2, 3, 17, 21), 1.5)
    pages = c.layer("cream", edge=False)
    c.rect(pages, (4.5, 5, 15, 19))
    grid = c.layer("ink", edge=False)
    for k in range(4):
        c.line(grid, [(6.5 + k * 2.4, 7), (6.5 + k * 2.4, 16)], 0.5)
    for j in range(4):
        c.line(grid, [(6.5, 7 + j * 3), (13.7, 7 + j * 3)], 0.5)
    s = c.layer("amber")
    star(c, s, 19, 16, 5)


def e_signature(c):
    m = c.layer("brass")
    c.fit_text(m, (6, 1, 18, 11.5), "4", "serif-bold")
    c.fit_text(m, (6, 12.5, 18, 23), "4", "serif-bold")


def e_loop(c):
    m = c.layer("brass")
    c.rect(m, (3, 3, 5.5, 21))
    c.line(m, [(8, 3), (8, 21)], 0.9)
    c.circle(m, 11.5, 9, 1.5)
    c.circle(m, 11.5, 15, 1.5)
    c.rect(m, (18.5, 3, 21, 21))
    c.line(m, [(16, 3), (16, 21)], 0.9)


def e_tempo(c):
    g = c.layer("brass")
    note_glyph(c, g, QUARTER, (2, 3, 9, 21))
    eq = c.layer("cream")
    c.fit_text(eq, (10, 5, 23, 19), "=", "sans-bold")


def slur_with(letter):
    def f(c):
        arc = c.layer("brass")
        c.arc(arc, (3, 4, 21, 16), 200, 340, 1.8)
        t = c.layer("cream")
        c.fit_text(t, (6.5, 10, 17.5, 22), letter, "sans-bold")
    return f


def e_slide(up):
    def f(c):
        frets = c.layer("cream")
        c.fit_text(frets, (1, 13 if up else 3, 8, 21 if up else 11), "5", "sans-bold")
        c.fit_text(frets, (15, 3 if up else 13, 23, 11 if up else 21), "7" if up else "3", "sans-bold")
        m = c.layer("brass")
        if up:
            c.line(m, [(6.5, 15.5), (16.5, 8)], 2)
        else:
            c.line(m, [(6.5, 8), (16.5, 15.5)], 2)
    return f


def e_vibrato(c):
    m = c.layer("brass")
    pts = []
    for k in range(49):
        x = 2 + 20 * k / 48
        pts.append((x, 12 - 3.5 * math.sin(2 * math.pi * 2.5 * k / 48)))
    c.line(m, pts, 2.2)


def e_bend_up(c):
    m = c.layer("brass")
    c.line(m, [(2, 20), (7, 20)], 1.9)
    c.curve(m, [(7, 20), (14, 20), (18, 16), (18, 3)], 1.9, head=6.5)
    t = c.layer("cream", edge=False)
    c.fit_text(t, (2, 4, 12, 11), "full", "sans-bold")


def e_bend_updn(c):
    m = c.layer("brass")
    c.curve(m, [(3, 21), (4, 4), (20, 4), (20, 21)], 1.9, head=6)


def e_bend_return(c):
    m = c.layer("brass")
    c.circle(m, 4.5, 4.5, 2)
    c.curve(m, [(4.5, 4.5), (14, 4.5), (19, 10), (19, 21.5)], 1.9, head=6)


def e_bend_down(c):
    m = c.layer("brass")
    c.line(m, [(4, 21), (4, 4)], 1.9)
    c.curve(m, [(4, 4), (13, 4), (19, 10), (19, 21.5)], 1.9, head=6)


def e_tremolo(c):
    stem = c.layer("cream")
    c.line(stem, [(12, 2), (12, 22)], 1.5)
    slashes = c.layer("brass")
    for y in (7, 12, 17):
        c.poly(slashes, [(5, y + 2.5), (19, y - 2.5), (19, y - 0.5), (5, y + 4.5)])


def e_trill(c):
    t = c.layer("brass")
    c.fit_text(t, (1, 2, 13, 15), "tr", "serif-bold-italic")
    w = c.layer("cream")
    pts = [(12 + 11 * k / 30, 8 - 2.2 * math.sin(2 * math.pi * 2 * k / 30)) for k in range(31)]
    c.line(w, pts, 1.4)
    n = c.layer("cream")
    c.ellipse(n, (5, 15, 13, 21))


def e_tie(c):
    heads = c.layer("cream")
    c.ellipse(heads, (2, 14, 9, 20))
    c.ellipse(heads, (15, 14, 22, 20))
    arc = c.layer("brass")
    c.arc(arc, (4, 3, 20, 17), 200, 340, 1.9)


# ---- attacks

def letter_icon(letter, finish="brass", small=None):
    def f(c):
        t = c.layer(finish)
        c.fit_text(t, (4, 3, 20, 21) if not small else (2, 7, 22, 17), letter, "sans-bold")
    return f


def a_none(c):
    lines = c.layer("cream")
    tab_lines(c, lines, 2, 22, 6, 6, 3, 0.9)
    num = c.layer("brass")
    c.fit_text(num, (8, 8, 16, 16), "5", "sans-bold")


def a_harm(natural):
    def f(c):
        d = c.layer("brass" if natural else "amber")
        c.poly(d, [(12, 2.5), (20.5, 12), (12, 21.5), (3.5, 12)])
        inner = c.layer("ink", edge=False)
        c.poly(inner, [(12, 6.5), (16.8, 12), (12, 17.5), (7.2, 12)])
        if not natural:
            t = c.layer("cream", edge=False)
            c.fit_text(t, (9, 9, 15, 15), "A", "sans-bold")
    return f


def a_stroke_up(c):
    m = c.layer("brass")
    c.line(m, [(5, 4), (12, 20), (19, 4)], 2.4, joint="curve")


def a_stroke_down(c):
    m = c.layer("brass")
    c.rect(m, (4, 5, 20, 9))
    c.rect(m, (4, 5, 6.5, 20))
    c.rect(m, (17.5, 5, 20, 20))


def a_dead(c):
    m = c.layer("brass")
    c.line(m, [(5, 5), (19, 19)], 3)
    c.line(m, [(19, 5), (5, 19)], 3)


def a_palm(c):
    t = c.layer("brass")
    c.fit_text(t, (2, 3, 22, 13), "P.M.", "sans-bold")
    dash = c.layer("cream")
    for x in (3, 9, 15):
        c.rect(dash, (x, 17, x + 4, 19))


def a_brush(up):
    def f(c):
        lines = c.layer("cream")
        for k in range(4):
            c.line(lines, [(2, 5 + k * 4.6), (11, 5 + k * 4.6)], 0.8)
        arrow = c.layer("brass")
        if up:
            c.line(arrow, [(16, 22), (16, 8)], 2.2)
            c.arrow_head(arrow, (16, 2.5), -90, 6.5)
        else:
            c.line(arrow, [(16, 2), (16, 16)], 2.2)
            c.arrow_head(arrow, (16, 21.5), 90, 6.5)
    return f


# ---- rhythm and nuances

def rhythm(glyph):
    def f(c):
        g = c.layer("brass")
        note_glyph(c, g, glyph, (6, 1, 18, 23) if glyph != WHOLE else (4, 7, 20, 17))
    return f


def dotted(c):
    g = c.layer("brass")
    note_glyph(c, g, QUARTER, (4, 1, 14, 23))
    dot = c.layer("amber")
    c.circle(dot, 18.5, 17.5, 2.4)


def triplet(c):
    g = c.layer("brass")
    note_glyph(c, g, BEAMED, (5, 8, 23, 23))
    t = c.layer("amber")
    c.fit_text(t, (1, 1, 9, 11), "3", "serif-bold-italic")


def nuance(text):
    def f(c):
        t = c.layer("brass")
        c.fit_text(t, (1, 4, 23, 20) if len(text) > 1 else (6, 3, 18, 21), text, "serif-bold-italic")
    return f


EDITOR = {
    # tbToolbar
    "TB_NOUVEAU": e_new, "TB_OUVRIR": e_open, "TB_ENREGISTRER": e_save, "TB_IMPRIMER": printer,
    "TB_PREVIEW": e_preview, "TB_PAGESETUP": e_pagesetup, "TB_PROPRIETES": e_props,
    "TB_JOUE": e_play, "TB_JOUEMARKER": e_play_markers, "TB_ARRIERE": e_first, "TB_AVANT": e_last,
    "TB_COUPER": e_cut, "TB_COPIER": e_copy, "TB_COLLER": e_paste, "TB_UNDO": e_undo, "TB_REDO": e_redo,
    "TB_VIEW_1": view_mode(QUARTER), "TB_VIEW_2": view_mode(EIGHTH), "TB_VIEW_3": view_mode(SIXTEENTH),
    "TB_VIEW_4": view_mode(THIRTYSECOND), "TB_VIEW_TRIOLET": view_mode(None, True),
    "TB_RECORD": e_record, "TB_OPTIONS_TAB": e_tab_options, "TB_REDRAW": e_redraw,
    # tbPistes
    "TB_ADD": e_track_add, "TB_REMOVE": e_track_remove, "TB_PROPRIETES_PISTE": e_track_props,
    **{f"TB_{n}": pick(n) for n in range(1, 8)},
    # tbGeneral
    "TB_TEXTE": e_text, "TB_ACCORD_DIAGRAMME": e_chord, "TB_ACCORDCREATE": e_chord_create,
    "TB_SIGNATURE": e_signature, "TB_LOOP": e_loop, "TB_TEMPO": e_tempo,
    # tbEffet
    "TB_HAMMER": slur_with("H"), "TB_PULL": slur_with("P"), "TB_SLIDEUP": e_slide(True),
    "TB_SLIDEDN": e_slide(False), "TB_VIBRATO": e_vibrato, "TB_BENDUP": e_bend_up,
    "TB_BENDUPDN": e_bend_updn, "TB_BENDRETURN": e_bend_return, "TB_BENDDN": e_bend_down,
    "TB_TREMOLO": e_tremolo, "TB_TRILL": e_trill, "TB_LIAISON": e_tie,
    # tbRythme
    "TB_RONDE": rhythm(WHOLE), "TB_BLANCHE": rhythm(HALF), "TB_NOIRE": rhythm(QUARTER),
    "TB_CROCHE": rhythm(EIGHTH), "TB_DOUBLE": rhythm(SIXTEENTH), "TB_TRIPLE": rhythm(THIRTYSECOND),
    "TB_QUADRUPLE": rhythm(SIXTYFOURTH), "TB_POINTEE": dotted, "TB_TRIOLET": triplet,
    # tbVolume
    **{f"TB_{t.upper()}": nuance(t) for t in ("ppp", "pp", "p", "mp", "mf", "f", "ff", "fff")},
    # tbAttaque
    "TA_NONE": a_none, "TA_TAP": letter_icon("T"), "TA_SLAP": letter_icon("S"), "TA_POP": letter_icon("P"),
    "TA_HARM": a_harm(True), "TA_AH": a_harm(False), "TA_UP": a_stroke_up, "TA_DN": a_stroke_down,
    "TA_DEAD": a_dead, "TA_PALMMUTE": a_palm, "TA_BRUSHUP": a_brush(True), "TA_BRUSHDN": a_brush(False),
}


def sprites(folder):
    """The fretboard's dots: blue, red and yellow, 20 x 15 each, side by side."""
    colours = [((150, 200, 255), (40, 100, 220), (10, 40, 120)),
               ((255, 150, 130), (220, 50, 30), (110, 14, 6)),
               ((255, 246, 190), (250, 200, 40), (150, 100, 0))]
    for scale, suffix in ((1, ""), (2, "@2x")):
        s = 8
        W, H = 60 * s, 15 * s
        img = Image.new("RGBA", (W, H), (0, 0, 0, 0))
        for k, (light, mid, dark) in enumerate(colours):
            cx, cy = (20 * k + 10) * s, 7.5 * s
            m = p.ellipse(W, H, (cx - 8.5 * s, cy - 6.5 * s, cx + 8.5 * s, cy + 6.5 * s))
            yy, xx = np.mgrid[0:H, 0:W]
            d = np.sqrt(((xx - cx + 2 * s) / (8.5 * s)) ** 2 + ((yy - cy + 2 * s) / (6.5 * s)) ** 2)
            col = p.ramp(d / 1.4, [(0, light), (0.45, mid), (1, dark)])
            img = p.fill_through(img, (20, 12, 6), p.outline(m, s))
            img = p.fill_through(img, Image.fromarray(np.clip(col, 0, 255).astype(np.uint8), "RGB"), m)
        img.resize((60 * scale, 15 * scale), Image.Resampling.LANCZOS).save(folder / f"RONDS{suffix}.png", optimize=True)


def write_all(folder: pathlib.Path):
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.png"):
        old.unlink()
    names = []
    for table, grid, size in ((MAIN, 32, 32), (EDITOR, 24, 24)):
        for name, fn in table.items():
            c = Ctx(grid)
            fn(c)
            save(compose(c, False), folder, name, size)
            names.append(name)
            c2 = Ctx(grid)
            fn(c2)
            save(compose(c2, True), folder, name + "1", size)
            names.append(name + "1")
    sprites(folder)
    names.append("RONDS")
    lines = ['<!DOCTYPE RCC>', '<!-- Written by tools/make_artwork.py: the toolbar pictures and the',
             '     fretboard dots. Each is here at its size and at twice its size. -->',
             '<RCC version="1.0">', '<qresource prefix="/toolbar">']
    for n in sorted(names):
        lines.append(f"    <file>{n}.png</file>")
        lines.append(f"    <file>{n}@2x.png</file>")
    lines += ["</qresource>", "</RCC>", ""]
    (folder / "toolbar.qrc").write_text("\n".join(lines), encoding="utf-8")


def contact_sheet(folder: pathlib.Path, out_folder: pathlib.Path):
    """The pictures on a light and on a dark toolbar, normal then pressed."""
    names = list(MAIN) + list(EDITOR)
    cols = 16
    rows = (len(names) + cols - 1) // cols
    for shade, bg in (("light", (239, 239, 239)), ("dark", (49, 54, 59))):
        sheet_img = Image.new("RGB", (cols * 80, rows * 44), bg)
        for i, n in enumerate(names):
            x, y = (i % cols) * 80, (i // cols) * 44
            for k, suffix in enumerate(("", "1")):
                im = Image.open(folder / f"{n}{suffix}.png")
                sheet_img.paste(im, (x + 4 + k * 36, y + 6), im)
        sheet_img = sheet_img.resize((sheet_img.width * 2, sheet_img.height * 2), Image.Resampling.NEAREST)
        sheet_img.save(out_folder / f"toolbar_{shade}.png")
