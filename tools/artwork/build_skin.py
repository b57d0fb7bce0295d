"""Writes the default skin from tools/skin_pictures.tsv and tools/skin_animations.tsv."""
import math
import pathlib

from PIL import Image

from . import paint as p
from . import skin

TOOLS = pathlib.Path(__file__).resolve().parent.parent


def read_table(name):
    rows = []
    for line in (TOOLS / name).read_text(encoding="utf-8").splitlines():
        if line.strip() and not line.startswith("#"):
            rows.append(line.split("\t"))
    return rows


def crop_of(background, box):
    x, y, w, h = box
    return background.crop((x, y, x + w, y + h))


class Skin:
    def __init__(self):
        self.fond = skin.start_page()
        self.pictures = {}   # base name -> image
        self.frames = {}     # file name without extension -> image

    # Every picture of the table, by base name.
    def draw(self):
        P = self.pictures
        P["fond"] = self.fond
        P["logo"] = skin.logo_on(crop_of(self.fond, skin.LAYOUT["FDebut"]["logo"]))
        P["apropos"] = skin.about()
        P["astuce"] = skin.bulb()
        P["manchefond"] = skin.fretboard_tile()
        P["accords"] = skin.window_background("FAccords", 101)
        P["gammes"] = skin.keyboard(skin.window_background("FGammes", 102))
        P["harmony"] = skin.window_background("FHarmony", 103)
        P["accordeur"] = skin.window_background("FAccordeur", 104)
        P["metronome"] = skin.window_background("FMetronome", 105)
        P["boutongammebas"] = skin.white_key(True, skin.WHITE_H - skin.WHITE_MARK_TOP)
        P["boutongammehaut"] = skin.black_key(True)
        P["bouton E on"] = skin.centre_lamp(True)
        P["bouton E off"] = skin.centre_lamp(False)
        for n in range(1, 8):
            P[f"bouton tone {n:04d}"] = skin.wheel(n)
        for n in range(1, 17):
            P[f"beat{n:02d}"] = skin.beat_lamp(n)
        for digit in "HML":
            P[f"tempo{digit}Off"] = skin.spinner("off", digit)
            P[f"tempo{digit}Up"] = skin.spinner("up", digit)
            P[f"tempo{digit}Dn"] = skin.spinner("dn", digit)
        P["ecran"] = skin.lcd()
        P["bascule 0001"] = skin.switch(1, False)
        P["bascule 0002"] = skin.switch(2, True)
        P["metrobasc1"] = skin.switch(1, True)
        P["metrobasc2"] = skin.switch(2, False)
        rb = skin.round_button
        P["play1"] = rb(48, skin.sym(skin.play_mask), False)
        P["play2"] = rb(48, skin.sym(skin.play_mask), True, True)
        P["stop1"] = rb(48, skin.sym(skin.stop_mask), False)
        P["stop2"] = rb(48, skin.sym(skin.stop_mask), True, True)
        P["tuner0017"] = rb(48, skin.sym(skin.play_mask), False)
        P["tuner0000"] = rb(48, skin.sym(skin.stop_mask, (255, 214, 130)), True, True)
        P["exit 0000"] = rb(40, skin.sym(skin.exit_mask), False)
        P["exit 0001"] = rb(40, skin.sym(skin.exit_mask), True, True)
        P["metro exit off"] = rb(40, skin.sym(skin.exit_mask), False)
        P["metro exit on"] = rb(40, skin.sym(skin.exit_mask), True, True)
        P["metroac"] = rb(48, skin.sym(skin.beats_mask), False)
        self.small_animated("copier00", 17, lambda t: skin.copy_mask(2.5 * t), skin.copy_mask(0))
        self.small_animated("imprimer00", 16, lambda t: skin.print_mask(4 * t), skin.print_mask(0))
        self.small_animated("options00", 17, lambda t: skin.gear_mask(t), skin.gear_mask(0))
        self.small_animated("exit00", 17, lambda t: skin.exit_mask, skin.exit_mask, pulse=True)
        for prefix, (key, rest, icon, moving) in skin.START_BUTTONS.items():
            box = skin.LAYOUT["FDebut"][key]
            bg = crop_of(self.fond, box)
            P[f"{prefix}{rest:02d}"] = skin.medallion(bg, icon, False)
            P[f"{prefix}{rest + 1:02d}"] = skin.medallion(bg, icon, True)
            for f in range(rest):
                self.frames[f"{prefix}{f:02d}"] = skin.medallion(bg, moving(f, rest), True)
        for f in range(36):
            self.frames[f"tictac{f:02d}"] = skin.pendulum(f, 36)

    def small_animated(self, prefix, frames, mask_at, rest_mask, pulse=False):
        rb = skin.round_button
        self.pictures[f"{prefix}{frames:02d}"] = rb(48, skin.sym(rest_mask), False)
        self.pictures[f"{prefix}{frames + 1:02d}"] = rb(48, skin.sym(rest_mask), True)
        for f in range(frames):
            t = f / frames
            colour = None
            if pulse:
                k = 0.5 + 0.5 * math.cos(2 * math.pi * t)
                colour = (255, int(150 + 80 * k), int(60 + 80 * k))
            self.frames[f"{prefix}{f:02d}"] = rb(48, skin.sym(mask_at(t), colour), True)

    def write(self, folder: pathlib.Path):
        folder.mkdir(parents=True, exist_ok=True)
        for old in folder.glob("*"):
            if old.suffix in (".bmp", ".jpg"):
                old.unlink()
        table = read_table("skin_pictures.tsv")
        for index, name, width, height, fmt, _window, _role in table:
            img = self.pictures[name]
            if img.size != (int(width), int(height)):
                raise ValueError(f"{name}: drawn {img.size}, the table says {width} x {height}")
            if fmt == "jpg":
                p.save_jpeg(img, folder / f"{name}.jpg")
            else:
                p.to_palette_bmp(img, folder / f"{name}.bmp")
        for prefix, count, width, height, _use in read_table("skin_animations.tsv"):
            for f in range(int(count)):
                img = self.frames[f"{prefix}{f:02d}"]
                if img.size != (int(width), int(height)):
                    raise ValueError(f"{prefix}{f:02d}: drawn {img.size}, the table says {width} x {height}")
                p.to_palette_bmp(img, folder / f"{prefix}{f:02d}.bmp")


def contact_sheet(folder: pathlib.Path, out: pathlib.Path, names, columns=8, cell=(120, 120)):
    """A sheet of pictures side by side, to look at the skin in one glance."""
    rows = (len(names) + columns - 1) // columns
    sheet = Image.new("RGB", (columns * cell[0], rows * cell[1]), (90, 90, 90))
    for i, name in enumerate(names):
        path = folder / f"{name}.bmp"
        if not path.exists():
            path = folder / f"{name}.jpg"
        img = Image.open(path).convert("RGB")
        img.thumbnail(cell)
        sheet.paste(img, ((i % columns) * cell[0], (i // columns) * cell[1]))
    sheet.save(out)
