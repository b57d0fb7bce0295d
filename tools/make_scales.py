#!/usr/bin/env python3
"""Makes data/scales.dat from the readable table data/scales.src.tsv.

A record is 92 bytes: 12 bytes, one per semitone above the reference note
(255: not in the scale; else the distance in semitones from the scale's root),
then the French and the English name, 40 bytes each, Windows-1252 padded with
blanks. No header; the count is the file's length / 92.

    /usr/bin/python3 tools/make_scales.py            # writes data/scales.dat
    /usr/bin/python3 tools/make_scales.py --check    # fails if it is stale
"""
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "data" / "scales.src.tsv"
TARGET = ROOT / "data" / "scales.dat"
NAME_BYTES = 40
MAX_RECORDS = 255  # the scale window counts records in one byte


def encode_name(name: str, where: str) -> bytes:
    raw = name.encode("cp1252")
    if len(raw) > NAME_BYTES:
        raise ValueError(f"{where}: name longer than {NAME_BYTES} bytes: {name!r}")
    return raw.ljust(NAME_BYTES, b" ")


def semitones(kind: str, definition: str, where: str) -> list[int]:
    words = definition.split()
    root = 0
    if kind == "mode":
        if not words or not words[-1].startswith("root="):
            raise ValueError(f"{where}: a mode ends with root=N")
        root = int(words.pop()[5:])
    steps = [int(w) for w in words]
    if not steps or steps[0] != 0 or sorted(set(steps)) != steps or steps[-1] > 11:
        raise ValueError(f"{where}: semitones must rise from 0 to at most 11")
    if root not in steps:
        raise ValueError(f"{where}: the mode's root {root} is not a note of its parent")
    table = [255] * 12
    for s in steps:
        table[s] = (s - root) % 12
    return table


def build() -> bytes:
    out = bytearray()
    count = 0
    for n, line in enumerate(SOURCE.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        where = f"{SOURCE.name}:{n}"
        fields = line.split("\t")
        if len(fields) != 4:
            raise ValueError(f"{where}: expected 4 tab-separated fields")
        kind, fr, en, definition = fields
        if kind not in {"scale", "mode", "chord"}:
            raise ValueError(f"{where}: unknown kind {kind!r}")
        if (kind == "mode") != fr.startswith("Mode"):
            raise ValueError(f"{where}: French names of modes, and only they, start with 'Mode'")
        if kind == "chord" and not (fr.startswith("Accord") and en.startswith("Chord")):
            raise ValueError(f"{where}: chord names start with 'Accord' / 'Chord'")
        out += bytes(semitones(kind, definition, where))
        out += encode_name(fr, where) + encode_name(en, where)
        count += 1
    if count > MAX_RECORDS:
        raise ValueError(f"more than {MAX_RECORDS} records")
    return bytes(out)


def main() -> int:
    data = build()
    if "--check" in sys.argv[1:]:
        if not TARGET.exists() or TARGET.read_bytes() != data:
            print(f"{TARGET} is stale: run tools/make_scales.py", file=sys.stderr)
            return 1
        return 0
    TARGET.write_bytes(data)
    print(f"{TARGET.relative_to(ROOT)}: {len(data) // 92} records")
    return 0


if __name__ == "__main__":
    sys.exit(main())
