#!/usr/bin/env python3
"""Draws docs/pictures/NAME.svg from each docs/drawings/NAME.txt. With --check it writes nothing and
names the pictures that are not as they would be drawn.

A description is a list of lines; one that begins with "#" is a remark.

    title TEXT
    box NAME COLUMN,ROW WIDTHxHEIGHT COLOUR "CAPTION" "NOTE"   on a grid, from the top left
    arrow NAME -> NAME ["LABEL"]
    layers FILE                    arrows between the boxes, from a list of who includes whom
    actor NAME "CAPTION"           instead of boxes: a sequence of messages, from top to bottom
    NAME -> NAME: TEXT             a message; "-->" answers one
    section TEXT                   a line across all actors

Text that does not fit its place, a room of the layers without a box, and boxes that overlap are
errors."""

import re
import sys
from html import escape

from headers import ROOT

DRAWINGS = ROOT / "docs" / "drawings"
PICTURES = ROOT / "docs" / "pictures"

COLOURS = {
    "grey": "#e8eaed", "blue": "#d9e7f7", "green": "#dcefdc", "yellow": "#fbf0cf", "red": "#f6dedb",
}
INK, SOFT, LINE = "#1f2933", "#52606d", "#5b6775"
FONT = "DejaVu Sans, Verdana, Helvetica, Arial, sans-serif"
CAPTION, NOTE, LABEL, TITLE = 14, 11, 12, 17
UNIT_WIDTH = 0.58  # of a character, in parts of the font size
CELL_WIDTH, CELL_HEIGHT = 150, 64
GAP_X, GAP_Y = 22, 46
MARGIN, HEAD = 24, 34
STEP, ACTOR_GAP, ACTOR_WIDTH, ACTOR_HEIGHT = 40, 226, 150, 40


def fail(where, text):
    raise SystemExit(f"{where}: {text}")


def width_of(text, size, bold=False):
    return len(text) * size * UNIT_WIDTH * (1.06 if bold else 1.0)


def wrapped(text, size, room, where):
    lines = []
    for word in text.split():
        if lines and width_of(f"{lines[-1]} {word}", size) <= room:
            lines[-1] += f" {word}"
        else:
            lines.append(word)
    for line in lines:
        if width_of(line, size) > room:
            fail(where, f"\"{line}\" does not fit")
    return lines


class Canvas:
    def __init__(self):
        self.parts = []

    def text(self, x, y, text, size, colour=INK, bold=False, anchor="middle", halo=False):
        weight = ' font-weight="bold"' if bold else ""
        edge = ' stroke="#ffffff" stroke-width="4" paint-order="stroke"' if halo else ""
        self.parts.append(
            f'<text x="{x:g}" y="{y:g}" font-size="{size}" fill="{colour}" text-anchor="{anchor}"'
            f"{weight}{edge}>{escape(text)}</text>")

    def box(self, x, y, width, height, fill):
        self.parts.append(
            f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" rx="5" fill="{fill}"'
            f' stroke="{LINE}"/>')

    def line(self, x1, y1, x2, y2, dashed=False, arrow=True, colour=LINE):
        dash = ' stroke-dasharray="5 4"' if dashed else ""
        head = ' marker-end="url(#head)"' if arrow else ""
        self.parts.append(
            f'<line x1="{x1:g}" y1="{y1:g}" x2="{x2:g}" y2="{y2:g}" stroke="{colour}"'
            f' stroke-width="1.4"{dash}{head}/>')

    def path(self, points, dashed=False):
        dash = ' stroke-dasharray="5 4"' if dashed else ""
        way = " ".join(f"{x:g},{y:g}" for x, y in points)
        self.parts.append(
            f'<polyline points="{way}" fill="none" stroke="{LINE}" stroke-width="1.4"{dash}'
            f' marker-end="url(#head)"/>')

    def svg(self, width, height, title):
        return "\n".join([
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:g}" height="{height:g}"'
            f' viewBox="0 0 {width:g} {height:g}" font-family="{FONT}" role="img">',
            f"<title>{escape(title)}</title>",
            '<defs><marker id="head" viewBox="0 0 10 10" refX="9" refY="5" markerWidth="8"'
            ' markerHeight="8" orient="auto-start-reverse">'
            f'<path d="M0 0 L10 5 L0 10 z" fill="{LINE}"/></marker></defs>',
            f'<rect width="{width:g}" height="{height:g}" fill="#ffffff"/>',
            *self.parts,
            "</svg>",
        ]) + "\n"


class Box:
    def __init__(self, where, column, row, columns, rows, colour, caption, note):
        self.cells = (column, row, columns, rows)
        self.x = MARGIN + column * (CELL_WIDTH + GAP_X)
        self.y = MARGIN + HEAD + row * (CELL_HEIGHT + GAP_Y)
        self.width = columns * CELL_WIDTH + (columns - 1) * GAP_X
        self.height = rows * CELL_HEIGHT + (rows - 1) * GAP_Y
        self.fill, self.caption = COLOURS[colour], caption
        if width_of(caption, CAPTION, bold=True) > self.width - 8:
            fail(where, f"\"{caption}\" does not fit")
        self.note = wrapped(note, NOTE, self.width - 10, where)
        if 20 + len(self.note) * 14 > self.height:
            fail(where, f"the note of {caption} does not fit")

    def overlaps(self, other):
        a, b = self.cells, other.cells
        return (a[0] < b[0] + b[2] and b[0] < a[0] + a[2] and a[1] < b[1] + b[3] and b[1] < a[1] + a[3])

    def draw(self, canvas):
        canvas.box(self.x, self.y, self.width, self.height, self.fill)
        middle = self.x + self.width / 2
        top = self.y + self.height / 2 - len(self.note) * 7 + 5
        canvas.text(middle, top, self.caption, CAPTION, bold=True)
        for index, line in enumerate(self.note):
            canvas.text(middle, top + 17 + index * 14, line, NOTE, SOFT)


def connect(canvas, start, end, dashed, label=""):
    """A straight arrow: along a column or a row where the boxes have one in common."""
    left, right = max(start.x, end.x), min(start.x + start.width, end.x + end.width)
    if left < right:
        x = (left + right) / 2
        down = start.y < end.y
        ends = (x, start.y + start.height if down else start.y, x, end.y if down else end.y + end.height)
    elif start.y == end.y:
        y = start.y + start.height / 2
        right_ward = start.x < end.x
        ends = (start.x + start.width if right_ward else start.x, y,
                end.x if right_ward else end.x + end.width, y)
    else:
        down = start.y < end.y
        ends = (start.x + start.width / 2, start.y + start.height if down else start.y,
                end.x + end.width / 2 + (25 if start.x > end.x else -25),
                end.y if down else end.y + end.height)
    canvas.line(*ends, dashed=dashed)
    if label:
        canvas.text((ends[0] + ends[2]) / 2, (ends[1] + ends[3]) / 2 + 4, label, NOTE, SOFT, halo=True)


def layer_edges(path):
    """(room, room it includes, alone) of a list like cmake/layers.txt, without the arrows that
    follow from others."""
    direct = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        if "->" not in line or line.startswith("#"):
            continue
        room, _, rest = (part.strip() for part in line.partition("->"))
        direct[room] = [part.strip() for part in rest.split(",") if part.strip()]
    whole = {room: [to for to in list_ if not to.startswith("(")] for room, list_ in direct.items()}

    def reached(room, seen):
        for to in whole.get(room, []):
            if to not in seen:
                seen.add(to)
                reached(to, seen)
        return seen

    edges = []
    for room, list_ in direct.items():
        for to in list_:
            alone = to.startswith("(")
            to = to.strip("()")
            others = [other for other in whole[room] if other != to]
            if alone or not any(to in reached(other, set()) for other in others):
                edges.append((room, to, alone))
    return direct, edges


def plan(name, lines):
    canvas, boxes, arrows, title = Canvas(), {}, [], ""
    for number, line in lines:
        where = f"docs/drawings/{name}.txt:{number}"
        if found := re.fullmatch(r"title (.*)", line):
            title = found.group(1)
        elif found := re.fullmatch(r'box (\S+) (\d+),(\d+) (\d+)x(\d+) (\w+) "([^"]*)" "([^"]*)"', line):
            room, *place, colour, caption, note = found.groups()
            box = Box(where, *map(int, place), colour, caption, note)
            for other in boxes.values():
                if box.overlaps(other):
                    fail(where, f"{caption} lies on {other.caption}")
            boxes[room] = box
        elif found := re.fullmatch(r'arrow (\S+) -> (\S+)(?: "([^"]*)")?', line):
            arrows.append((found.group(1), found.group(2), False, found.group(3) or ""))
        elif found := re.fullmatch(r"layers (\S+)", line):
            rooms, edges = layer_edges(ROOT / found.group(1))
            for room in rooms:
                if room not in boxes:
                    fail(where, f"{room} has no box")
            arrows += [(*edge, "") for edge in edges]
        else:
            fail(where, "not understood")
    for start, end, dashed, label in arrows:
        connect(canvas, boxes[start], boxes[end], dashed, label)
    for box in boxes.values():
        box.draw(canvas)
    width = max(box.x + box.width for box in boxes.values()) + MARGIN
    height = max(box.y + box.height for box in boxes.values()) + MARGIN
    canvas.text(MARGIN, MARGIN + 8, title, TITLE, bold=True, anchor="start")
    return canvas.svg(width, height, title)


def sequence(name, lines):
    canvas, actors, title = Canvas(), {}, ""
    top = MARGIN + HEAD
    y = top + ACTOR_HEIGHT
    rows = []
    for number, line in lines:
        where = f"docs/drawings/{name}.txt:{number}"
        if found := re.fullmatch(r"title (.*)", line):
            title = found.group(1)
        elif found := re.fullmatch(r'actor (\S+) "([^"]*)"', line):
            if width_of(found.group(2), CAPTION, bold=True) > ACTOR_WIDTH - 8:
                fail(where, f"\"{found.group(2)}\" does not fit")
            actors[found.group(1)] = (MARGIN + 20 + ACTOR_WIDTH / 2 + len(actors) * ACTOR_GAP, found.group(2))
        elif found := re.fullmatch(r"section (.*)", line):
            y += STEP
            rows.append(("section", y, found.group(1)))
        elif found := re.fullmatch(r"(\S+) (-->|->) (\S+): (.*)", line):
            start, kind, end, text = found.groups()
            y += STEP
            x1, x2 = actors[start][0], actors[end][0]
            room = ACTOR_GAP - 26 if start == end else abs(x2 - x1) - 14
            size = LABEL
            if width_of(text, size) > room:
                fail(where, f"\"{text}\" does not fit")
            rows.append(("message", y, x1, x2, text, kind == "-->"))
        else:
            fail(where, "not understood")
    bottom = y + STEP * 0.7
    width = MARGIN * 2 + 40 + ACTOR_WIDTH + (len(actors) - 1) * ACTOR_GAP
    for x, _ in actors.values():
        canvas.line(x, top + ACTOR_HEIGHT, x, bottom, dashed=True, arrow=False, colour="#aab4bf")
    for row in rows:
        if row[0] == "section":
            canvas.box(MARGIN, row[1] - 16, width - 2 * MARGIN, 22, COLOURS["grey"])
            canvas.text(MARGIN + 10, row[1], row[2], LABEL, bold=True, anchor="start")
            continue
        _, at, x1, x2, text, dashed = row
        if x1 == x2:
            canvas.path([(x1, at - 8), (x1 + 16, at - 8), (x1 + 16, at + 8), (x1 + 2, at + 8)], dashed)
            canvas.text(x1 + 22, at + 4, text, LABEL, anchor="start", halo=True)
        else:
            canvas.line(x1, at, x2, at, dashed)
            canvas.text((x1 + x2) / 2, at - 6, text, LABEL, halo=True)
    for x, caption in actors.values():
        canvas.box(x - ACTOR_WIDTH / 2, top, ACTOR_WIDTH, ACTOR_HEIGHT, COLOURS["blue"])
        canvas.text(x, top + 25, caption, CAPTION, bold=True)
    canvas.text(MARGIN, MARGIN + 8, title, TITLE, bold=True, anchor="start")
    return canvas.svg(width, bottom + MARGIN, title)


def main(arguments):
    is_check = arguments == ["--check"]
    stale = []
    for path in sorted(DRAWINGS.glob("*.txt")):
        lines = [(number, line.strip()) for number, line in
                 enumerate(path.read_text(encoding="utf-8").splitlines(), 1)
                 if line.strip() and not line.startswith("#")]
        draw = sequence if any(line.startswith("actor ") for _, line in lines) else plan
        wanted = draw(path.stem, lines)
        picture = PICTURES / f"{path.stem}.svg"
        if picture.exists() and picture.read_text(encoding="utf-8") == wanted:
            continue
        stale.append(f"docs/pictures/{path.stem}.svg")
        if not is_check:
            picture.write_text(wanted, encoding="utf-8")
    for name in stale:
        print(f"{name}: " + ("not as it is described; run docs/refresh" if is_check else "drawn"))
    return 1 if is_check and stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
