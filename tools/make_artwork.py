#!/usr/bin/python3
"""Draws the default skin (data/skins/default/) and the toolbar pictures
(data/toolbar/), and writes docs/skin.md from the same tables.

Run by hand with Debian's python3 (see tools/README.md); the output is committed.

    /usr/bin/python3 tools/make_artwork.py [--skin] [--toolbar] [--sheet DIR]
"""
import argparse
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from artwork import build_skin, docs, icons  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parent.parent


def main() -> int:
    ap = argparse.ArgumentParser()
    ap.add_argument("--skin", action="store_true", help="only the skin")
    ap.add_argument("--toolbar", action="store_true", help="only the toolbar pictures")
    ap.add_argument("--sheet", help="also write contact sheets into this folder")
    args = ap.parse_args()
    both = not args.skin and not args.toolbar
    if args.skin or both:
        s = build_skin.Skin()
        s.draw()
        folder = ROOT / "data" / "skins" / "default"
        s.write(folder)
        docs.write_skin_doc(ROOT / "docs" / "skin.md")
        if args.sheet:
            out = pathlib.Path(args.sheet)
            out.mkdir(parents=True, exist_ok=True)
            names = [row[1] for row in build_skin.read_table("skin_pictures.tsv")]
            build_skin.contact_sheet(folder, out / "skin_pictures.png", names)
            frames = sorted(s.frames)
            build_skin.contact_sheet(folder, out / "skin_frames.png", frames, columns=17, cell=(90, 90))
    if args.toolbar or both:
        icons.write_all(ROOT / "data" / "toolbar")
        if args.sheet:
            pathlib.Path(args.sheet).mkdir(parents=True, exist_ok=True)
            icons.contact_sheet(ROOT / "data" / "toolbar", pathlib.Path(args.sheet))
    return 0


if __name__ == "__main__":
    sys.exit(main())
