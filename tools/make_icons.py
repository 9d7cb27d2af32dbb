#!/usr/bin/env python3
"""Draws the icons of the dialogs: resources/icons/*.ico. Run it after a change here and commit what it writes.

    tools/make_icons.py [FOLDER]
"""
import struct
import sys
from pathlib import Path

CLEAR = (0, 0, 0, 0)
CELL = (40, 70, 140, 255)
FILL = (214, 226, 246, 255)
PATH = (200, 60, 20, 255)


class Canvas:
    """A square of RGBA pixels, y downward."""

    def __init__(self, size):
        self.size = size
        self.pixels = [[CLEAR] * size for _ in range(size)]

    def dot(self, x, y, colour):
        if 0 <= x < self.size and 0 <= y < self.size:
            self.pixels[y][x] = colour

    def line(self, x1, y1, x2, y2, colour):
        steps = max(abs(x2 - x1), abs(y2 - y1), 1)
        for i in range(steps + 1):
            self.dot(round(x1 + (x2 - x1) * i / steps), round(y1 + (y2 - y1) * i / steps), colour)

    def box(self, x, y, width, height, edge, fill=None):
        for row in range(height):
            for column in range(width):
                border = row in (0, height - 1) or column in (0, width - 1)
                if border or fill:
                    self.dot(x + column, y + row, edge if border else fill)

    def arrow_down(self, x, y, length, colour):
        """An arrow head whose point is at (x, y)."""
        for i in range(length):
            self.line(x - i, y - i, x + i, y - i, colour)

    def cross(self, x, y, reach, colour):
        self.line(x - reach, y, x + reach, y, colour)
        self.line(x, y - reach, x, y + reach, colour)

    def transposed(self):
        """Rows for columns: what ran down runs to the right."""
        other = Canvas(self.size)
        other.pixels = [list(row) for row in zip(*self.pixels)]
        return other


def column_down():
    """One column of texts, filled downward."""
    canvas = Canvas(32)
    for y in (2, 12, 22):
        canvas.box(4, y, 12, 8, CELL, FILL)
    canvas.line(23, 3, 23, 26, PATH)
    canvas.line(24, 3, 24, 26, PATH)
    canvas.arrow_down(23, 29, 5, PATH)
    return canvas


def columns_then_right():
    """Down each column, then on to the next column on the right."""
    canvas = Canvas(32)
    for x in (1, 23):
        for y in (2, 12, 22):
            canvas.box(x, y, 8, 8, CELL, FILL)
    canvas.line(11, 3, 11, 28, PATH)
    canvas.line(11, 28, 19, 3, PATH)
    canvas.line(19, 3, 19, 25, PATH)
    canvas.arrow_down(19, 29, 4, PATH)
    return canvas


def pick_both_distances():
    """Two opposite corners of a rectangle."""
    canvas = Canvas(16)
    canvas.box(3, 3, 10, 10, CELL)
    canvas.cross(3, 3, 2, PATH)
    canvas.cross(12, 12, 2, PATH)
    return canvas


def pick_distance():
    """Two points and the way between them."""
    canvas = Canvas(16)
    canvas.line(3, 12, 12, 3, CELL)
    canvas.cross(3, 12, 2, PATH)
    canvas.cross(12, 3, 2, PATH)
    return canvas


def measure_distance(scale):
    """A line between the marks of its ends, as dimensions have it; for 16 pixels and multiples."""
    canvas = Canvas(16 * scale)
    left, right, middle = 2 * scale, 16 * scale - 1 - 2 * scale, 8 * scale
    for x in (left, right):
        canvas.line(x, 3 * scale, x, 13 * scale, CELL)
    canvas.line(left, middle, right, middle, PATH)
    for i in range(1, 3 * scale + 1):
        canvas.line(left + i, middle - i, left + i, middle + i, PATH)
        canvas.line(right - i, middle - i, right - i, middle + i, PATH)
    return canvas


def pick_tag(scale):
    """A label with its hole, and the cursor that picks it; for 16 pixels and multiples."""
    canvas = Canvas(16 * scale)
    left, top, right, bottom, point = scale, scale, 15 * scale - 1, 9 * scale - 1, 4 * scale
    for x in range(left, right + 1):
        slope = max(left + point - x, 0)
        for y in range(top + slope, bottom - slope + 1):
            border = y in (top + slope, bottom - slope) or x == right
            canvas.dot(x, y, CELL if border else FILL)
    canvas.box(left + point, 4 * scale, 2 * scale, 2 * scale, CELL)
    # The arrow stands up, its tip in the label.
    tip_x, tip_y = 9 * scale, 6 * scale
    for i in range(9 * scale):
        reach = i if i < 6 * scale else max(8 * scale - i, 0)
        canvas.line(tip_x, tip_y + i, tip_x + reach, tip_y + i, PATH)
    return canvas


def image(canvas):
    """32 bits a pixel, rows from the bottom, and a mask of one bit a pixel."""
    size = canvas.size
    rows = list(reversed(canvas.pixels))
    colours = b"".join(struct.pack("BBBB", b, g, r, a) for row in rows for r, g, b, a in row)
    mask = b""
    for row in rows:
        bits = "".join("1" if pixel == CLEAR else "0" for pixel in row).ljust((size + 31) // 32 * 32, "0")
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(colours) + len(mask), 0, 0, 0, 0)
    return header + colours + mask


def icon_file(canvases):
    """An icon file with an image for each canvas."""
    images = [image(canvas) for canvas in canvases]
    place = 6 + 16 * len(images)
    entries = b""
    for canvas, data in zip(canvases, images):
        entries += struct.pack("<BBBBHHII", canvas.size, canvas.size, 0, 0, 1, 32, len(data), place)
        place += len(data)
    return struct.pack("<HHH", 0, 1, len(images)) + entries + b"".join(images)


ICONS = {
    "direction_column": [column_down()],
    "direction_row": [column_down().transposed()],
    "direction_columns_first": [columns_then_right()],
    "direction_rows_first": [columns_then_right().transposed()],
    "pick_both_distances": [pick_both_distances()],
    "pick_distance": [pick_distance()],
    "measure_distance": [measure_distance(1), measure_distance(2)],
    "pick_tag": [pick_tag(1), pick_tag(2)],
}


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).parent.parent / "resources" / "icons"
    folder.mkdir(parents=True, exist_ok=True)
    for name, canvases in ICONS.items():
        (folder / f"{name}.ico").write_bytes(icon_file(canvases))


if __name__ == "__main__":
    main()
