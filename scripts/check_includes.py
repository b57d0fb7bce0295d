#!/usr/bin/env python3
"""Checks every #include of src/ against the table of layers: a layer may
include its own headers and those of the layers below it, nothing else.
src/render/qt/ is the layer render_qt, the QtGui backend of render."""
import pathlib
import re
import sys

# Which layers each layer may include (besides itself).
ALLOWED = {
    "document": set(),
    "formats": {"document"},
    "music": {"document", "formats"},
    "sound": {"document", "formats", "music"},
    "render": {"document"},
    "render_qt": {"document", "render"},
    "controls": {"document", "render", "render_qt"},
    "shell": {"document", "formats", "music", "sound", "render", "render_qt", "controls"},
    "tools": {"document", "formats", "music", "sound", "render", "render_qt", "controls", "shell"},
    "editor": {"document", "formats", "music", "sound", "render", "render_qt", "controls", "shell",
               "tools"},
    "cli": {"document", "formats", "music", "sound", "render", "render_qt"},
    "app": {"document", "formats", "music", "sound", "render", "render_qt", "controls", "shell",
            "tools", "editor"},
}
# Layers whose code must not use Qt at all.
NO_QT = {"document", "formats", "music", "sound", "render"}
# Layers that may use QtGui but never widgets.
NO_WIDGETS = {"render_qt"}

# Widget headers included without their module's folder.
WIDGET_HEADERS = {"QWidget", "QApplication", "QMainWindow", "QDialog", "QLabel", "QPushButton",
                  "QScrollBar", "QMdiArea", "QMdiSubWindow", "QToolBar", "QMenu"}

root = pathlib.Path(__file__).resolve().parent.parent / "src"
include = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')
errors = []
for path in sorted(root.rglob("*")):
    if path.suffix not in {".h", ".hpp", ".cpp", ".cc"}:
        continue
    parts = path.relative_to(root).parts
    layer = parts[0]
    if layer == "render" and len(parts) > 1 and parts[1] == "qt":
        layer = "render_qt"
    allowed = ALLOWED.get(layer)
    if allowed is None:
        errors.append(f"{path}: folder {layer} is not in the layer table")
        continue
    for n, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        m = include.match(line)
        if not m:
            continue
        target = m.group(1)
        first = target.split("/")[0]
        if first in ALLOWED and first != layer and first not in allowed:
            errors.append(f"{path}:{n}: {layer} may not include {target}")
        if layer in NO_QT and (first.startswith("Q") or first.startswith("qt")):
            errors.append(f"{path}:{n}: {layer} must not use Qt ({target})")
        if layer in NO_WIDGETS and (first.startswith("QtWidgets") or first in WIDGET_HEADERS):
            errors.append(f"{path}:{n}: {layer} must not use widgets ({target})")
for e in errors:
    print(e, file=sys.stderr)
sys.exit(1 if errors else 0)
