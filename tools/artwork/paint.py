"""Small painting kit shared by the skin and the toolbar pictures.

Everything is drawn large and reduced at the end (supersampling), with a fixed
random seed, so that a run gives the same pictures every time.
"""
import math

import numpy as np
from PIL import Image, ImageChops, ImageDraw, ImageFilter, ImageFont

# The palette: dark stage, warm woods, brass, amber light.
STAGE = (27, 20, 16)
STAGE_2 = (42, 30, 22)
MAHOGANY = (92, 44, 24)
ROSEWOOD = (58, 32, 20)
MAPLE = (201, 150, 92)
BRASS = (201, 162, 74)
BRASS_LIGHT = (246, 222, 150)
BRASS_DARK = (112, 80, 28)
CREAM = (243, 230, 200)
AMBER = (255, 179, 71)
AMBER_DEEP = (214, 110, 24)
EMBER = (216, 67, 44)
INK = (38, 24, 14)
GREEN = (128, 178, 74)

FONT_DIRS = {
    "sans": "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "sans-bold": "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf",
    "sans-cond-bold": "/usr/share/fonts/truetype/dejavu/DejaVuSansCondensed-Bold.ttf",
    "serif-bold": "/usr/share/fonts/truetype/dejavu/DejaVuSerif-Bold.ttf",
    "serif-bold-italic": "/usr/share/fonts/truetype/dejavu/DejaVuSerif-BoldItalic.ttf",
    "serif-italic": "/usr/share/fonts/truetype/dejavu/DejaVuSerif-Italic.ttf",
    "title": "/usr/share/fonts/opentype/urw-base35/P052-BoldItalic.otf",
    "music": "/usr/share/fonts/truetype/ancient-scripts/Symbola_hint.ttf",
}


def font(kind: str, size: float) -> ImageFont.FreeTypeFont:
    return ImageFont.truetype(FONT_DIRS[kind], max(1, int(round(size))))


def rng(seed: int) -> np.random.Generator:
    return np.random.default_rng(seed)


# ----------------------------------------------------------------- noise

def periodic_noise(w: int, h: int, cells_x: int, cells_y: int, seed: int) -> np.ndarray:
    """Smooth value noise in [0, 1] that wraps around both edges (tiles seamlessly)."""
    lattice = rng(seed).random((cells_y, cells_x))
    ys = np.arange(h) * cells_y / h
    xs = np.arange(w) * cells_x / w
    y0 = np.floor(ys).astype(int)
    x0 = np.floor(xs).astype(int)
    ty = ys - y0
    tx = xs - x0
    ty = ty * ty * (3 - 2 * ty)
    tx = tx * tx * (3 - 2 * tx)
    y1 = (y0 + 1) % cells_y
    x1 = (x0 + 1) % cells_x
    y0 %= cells_y
    x0 %= cells_x
    a = lattice[np.ix_(y0, x0)]
    b = lattice[np.ix_(y0, x1)]
    c = lattice[np.ix_(y1, x0)]
    d = lattice[np.ix_(y1, x1)]
    top = a + (b - a) * tx[None, :]
    bottom = c + (d - c) * tx[None, :]
    return top + (bottom - top) * ty[:, None]


def fractal_noise(w, h, base_x, base_y, seed, octaves=4):
    total = np.zeros((h, w))
    amp, norm = 1.0, 0.0
    for o in range(octaves):
        total += amp * periodic_noise(w, h, base_x * 2**o, base_y * 2**o, seed + 17 * o)
        norm += amp
        amp *= 0.5
    return total / norm


def wood(w, h, dark, light, seed, rings=5.0, vertical=False):
    """Wood with long grain lines; tiles seamlessly along both axes."""
    if vertical:
        return wood(h, w, dark, light, seed, rings).transpose(Image.Transpose.ROTATE_90)
    warp = fractal_noise(w, h, 2, 3, seed, 3)
    streaks = fractal_noise(w, h, 3, max(8, h // 3), seed + 5, 3)
    pores = fractal_noise(w, h, max(4, w // 6), max(8, h // 2), seed + 9, 2)
    y = np.arange(h)[:, None] / h
    ring = np.sin(2 * math.pi * (rings * y + 1.3 * warp)) * 0.5 + 0.5
    v = 0.35 * ring ** 2 + 0.45 * streaks ** 1.5 + 0.2 * pores
    v = (v - v.min()) / (v.max() - v.min() + 1e-9)
    d = np.array(dark, float)
    l = np.array(light, float)
    rgb = d[None, None, :] + (l - d)[None, None, :] * v[:, :, None]
    return Image.fromarray(np.clip(rgb, 0, 255).astype(np.uint8), "RGB")


# ------------------------------------------------------------- shading

def vertical_gradient(w, h, top, bottom):
    t = np.linspace(0, 1, h)[:, None, None]
    a = np.array(top, float)[None, None, :]
    b = np.array(bottom, float)[None, None, :]
    arr = np.broadcast_to(a + (b - a) * t, (h, w, 3))
    return Image.fromarray(arr.astype(np.uint8), "RGB")


def radial_light(w, h, cx, cy, radius, colour, strength):
    """An additive pool of light, as from a spotlight."""
    yy, xx = np.mgrid[0:h, 0:w]
    d = np.sqrt((xx - cx) ** 2 + (yy - cy) ** 2) / radius
    k = np.clip(1 - d, 0, 1) ** 2 * strength
    arr = np.array(colour, float)[None, None, :] * k[:, :, None]
    return Image.fromarray(np.clip(arr, 0, 255).astype(np.uint8), "RGB")


def add(img, light):
    return ImageChops.add(img, light)


def vignette(img, strength=0.55):
    w, h = img.size
    yy, xx = np.mgrid[0:h, 0:w]
    d = np.sqrt(((xx - w / 2) / (w / 2)) ** 2 + ((yy - h / 2) / (h / 2)) ** 2) / math.sqrt(2)
    k = 1 - strength * np.clip(d, 0, 1) ** 1.8
    arr = np.asarray(img, float) * k[:, :, None]
    return Image.fromarray(np.clip(arr, 0, 255).astype(np.uint8), "RGB")


def darken(img, factor):
    arr = np.asarray(img.convert("RGB"), float) * factor
    return Image.fromarray(np.clip(arr, 0, 255).astype(np.uint8), "RGB")


def ramp(k, stops):
    """Maps values in [0, 1] through colour stops [(position, colour), ...]."""
    k = np.clip(k, 0, 1)
    out = np.zeros(k.shape + (3,))
    for (p0, c0), (p1, c1) in zip(stops, stops[1:]):
        sel = (k >= p0) & (k <= p1)
        t = ((k - p0) / max(1e-9, p1 - p0))[..., None]
        out = np.where(sel[..., None], np.array(c0, float) + (np.array(c1, float) - np.array(c0, float)) * t, out)
    return out


def brass_fill(w, h, light=BRASS_LIGHT, mid=BRASS, dark=BRASS_DARK):
    """Polished brass: a bright band above the middle, darker towards the bottom."""
    t = np.linspace(0, 1, h)[:, None]
    k = 0.75 * (1 - t) + 0.55 * np.exp(-((t - 0.3) / 0.14) ** 2) - 0.15
    k = np.broadcast_to(k, (h, w))
    rgb = ramp(k, [(0, dark), (0.55, mid), (1, light)])
    return Image.fromarray(np.clip(rgb, 0, 255).astype(np.uint8), "RGB")


def mask_blank(w, h):
    return Image.new("L", (w, h), 0)


def fill_through(base, fill, mask):
    """Lays `fill` (a colour or an image) on `base` where `mask` is set."""
    if isinstance(fill, tuple):
        fill = Image.new("RGB", base.size, fill)
    if base.mode == "RGBA":
        layer = fill.convert("RGBA")
        layer.putalpha(mask)
        return Image.alpha_composite(base, layer)
    return Image.composite(fill.convert(base.mode), base, mask)


def shift(img, dx, dy):
    return ImageChops.offset(img, int(round(dx)), int(round(dy)))


def shadow(base, mask, offset=(3, 3), blur=4, opacity=0.6, colour=(0, 0, 0)):
    m = mask.filter(ImageFilter.GaussianBlur(blur))
    m = shift(m, *offset)
    m = m.point(lambda v: int(v * opacity))
    return fill_through(base, colour, m)


def glow(base, mask, colour=AMBER, blur=6, opacity=0.8):
    m = mask.filter(ImageFilter.GaussianBlur(blur)).point(lambda v: min(255, int(v * opacity * 1.6)))
    if base.mode == "RGBA":
        return fill_through(base, colour, m)
    layer = Image.new("RGB", base.size, colour)
    lit = ImageChops.screen(base, layer)
    return Image.composite(lit, base, m)


def inner_shadow(base, mask, depth=4, opacity=0.7):
    """Makes the area of `mask` look sunk into the surface."""
    inv = ImageChops.invert(mask).filter(ImageFilter.GaussianBlur(depth))
    inv = shift(inv, depth / 2, depth / 2)
    m = ImageChops.multiply(inv, mask).point(lambda v: int(v * opacity))
    return fill_through(base, (0, 0, 0), m)


def bevel(base, mask, width=3, light=0.45, dark=0.55):
    """Raises the area of `mask`: lit from the top left, shaded at the bottom right."""
    soft = mask.filter(ImageFilter.GaussianBlur(width))
    hi = ImageChops.subtract(soft, shift(soft, width, width))
    lo = ImageChops.subtract(soft, shift(soft, -width, -width))
    hi = ImageChops.multiply(hi, mask).point(lambda v: min(255, int(v * 2.5 * light)))
    lo = ImageChops.multiply(lo, mask).point(lambda v: min(255, int(v * 2.5 * dark)))
    out = fill_through(base, (255, 240, 200), hi)
    return fill_through(out, (0, 0, 0), lo)


def outline(mask, radius):
    """The mask grown by `radius` pixels."""
    size = int(round(radius)) * 2 + 1
    return mask.filter(ImageFilter.MaxFilter(size))


def shrink(mask, radius):
    size = int(round(radius)) * 2 + 1
    return mask.filter(ImageFilter.MinFilter(size))


def rounded(w, h, box, radius, fill=255):
    m = mask_blank(w, h)
    ImageDraw.Draw(m).rounded_rectangle(box, radius=radius, fill=fill)
    return m


def ellipse(w, h, box, fill=255):
    m = mask_blank(w, h)
    ImageDraw.Draw(m).ellipse(box, fill=fill)
    return m


def text_mask(w, h, xy, text, fnt, anchor="mm", stroke=0):
    m = mask_blank(w, h)
    ImageDraw.Draw(m).text(xy, text, font=fnt, fill=255, anchor=anchor, stroke_width=stroke, stroke_fill=255)
    return m


def reduce(img, size):
    return img.resize(size, Image.Resampling.LANCZOS)


def screw(img, cx, cy, r, angle=30):
    """A brass slotted screw head."""
    w, h = img.size
    m = ellipse(w, h, (cx - r, cy - r, cx + r, cy + r))
    img = shadow(img, m, (1, 2), 2, 0.7)
    img = fill_through(img, brass_fill(w, h), m)
    img = bevel(img, m, max(1, r // 3))
    slot = mask_blank(w, h)
    d = ImageDraw.Draw(slot)
    a = math.radians(angle)
    dx, dy = math.cos(a) * r * 0.8, math.sin(a) * r * 0.8
    d.line((cx - dx, cy - dy, cx + dx, cy + dy), fill=255, width=max(1, r // 3))
    return fill_through(img, INK, slot)


def to_palette_bmp(img: Image.Image, path, colours=256):
    """An 8-bit indexed .bmp: a quarter of the size of a true-colour one."""
    q = img.convert("RGB").quantize(colors=colours, method=Image.Quantize.MEDIANCUT,
                                    dither=Image.Dither.FLOYDSTEINBERG)
    q.save(path, format="BMP")


def save_jpeg(img: Image.Image, path, quality=88):
    img.convert("RGB").save(path, format="JPEG", quality=quality, optimize=True, progressive=False,
                            subsampling="4:2:0")
