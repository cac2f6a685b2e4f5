#!/usr/bin/env python3
"""Draws the icons of the sample applications: 16-colour bitmap files in three sizes, S (16), M (24) and L (48 pixels).

Colour index 8 is the background of the button that shows the icon."""
import math
import os
import struct
import sys

SIZES = {"S": 16, "M": 24, "L": 48}
BACKGROUND, BLACK, BLUE, RED, YELLOW, WHITE, GREY, GREEN = 8, 0, 9, 12, 14, 15, 7, 10
# A colour index of the library is stored as the index of the standard palette: red and blue change places.
STORED = [0, 4, 2, 6, 1, 5, 3, 7, 8, 12, 10, 14, 9, 13, 11, 15]
STANDARD = [(0, 0, 0), (0, 0, 191), (0, 191, 0), (0, 191, 191), (191, 0, 0), (191, 0, 191), (191, 191, 0),
            (192, 192, 192), (128, 128, 128), (0, 0, 255), (0, 255, 0), (0, 255, 255), (255, 0, 0), (255, 0, 255),
            (255, 255, 0), (255, 255, 255)]  # blue, green, red


class Icon:
    """A square picture drawn in units of a 32nd of its side."""

    def __init__(self, side):
        self.side = side
        self.pixels = [[BACKGROUND] * side for _ in range(side)]

    def at(self, v):
        return v * (self.side - 1) / 31

    def dot(self, x, y, colour):
        x, y = int(round(x)), int(round(y))
        if 0 <= x < self.side and 0 <= y < self.side:
            self.pixels[y][x] = colour

    def line(self, x1, y1, x2, y2, colour=BLACK):
        x1, y1, x2, y2 = (self.at(v) for v in (x1, y1, x2, y2))
        steps = int(max(abs(x2 - x1), abs(y2 - y1))) + 1
        for i in range(steps + 1):
            self.dot(x1 + (x2 - x1) * i / steps, y1 + (y2 - y1) * i / steps, colour)

    def path(self, points, colour=BLACK):
        for (x1, y1), (x2, y2) in zip(points, points[1:]):
            self.line(x1, y1, x2, y2, colour)

    def box(self, x1, y1, x2, y2, colour=BLACK, fill=None):
        if fill is not None:
            for y in range(int(round(self.at(y1))), int(round(self.at(y2))) + 1):
                for x in range(int(round(self.at(x1))), int(round(self.at(x2))) + 1):
                    self.dot(x, y, fill)
        self.path([(x1, y1), (x2, y1), (x2, y2), (x1, y2), (x1, y1)], colour)

    def circle(self, cx, cy, r, colour=BLACK, fill=None):
        x0, y0, radius = self.at(cx), self.at(cy), self.at(r)
        if fill is not None:
            for y in range(self.side):
                for x in range(self.side):
                    if (x - x0) ** 2 + (y - y0) ** 2 <= radius ** 2:
                        self.dot(x, y, fill)
        for i in range(int(radius * 8) + 8):
            a = 2 * math.pi * i / (int(radius * 8) + 8)
            self.dot(x0 + radius * math.cos(a), y0 + radius * math.sin(a), colour)

    def save(self, name):
        row = (self.side + 7) // 8 * 4
        data = bytearray()
        for line in reversed(self.pixels):
            packed = bytearray(row)
            for x, colour in enumerate(line):
                packed[x // 2] |= STORED[colour] << (4 if x % 2 == 0 else 0)
            data += packed
        palette = b"".join(bytes(c) + b"\0" for c in STANDARD)
        header = struct.pack("<2sIHHI", b"BM", 118 + len(data), 0, 0, 118)
        info = struct.pack("<IiiHHIIIIII", 40, self.side, self.side, 1, 4, 0, len(data), 0, 0, 16, 0)
        with open(name, "wb") as out:
            out.write(header + info + palette + bytes(data))


def glass(icon):
    icon.line(20, 20, 28, 28)
    icon.line(21, 20, 29, 28)
    icon.circle(13, 13, 9, BLACK, WHITE)


def ouvrir(icon):
    icon.box(4, 9, 27, 26, BLACK, YELLOW)
    icon.path([(4, 9), (4, 6), (12, 6), (14, 9)])
    icon.path([(4, 26), (9, 15), (31, 15), (27, 26)])


def enregistrer(icon):
    icon.box(4, 4, 27, 27, BLACK, BLUE)
    icon.box(9, 4, 22, 12, BLACK, WHITE)
    icon.box(9, 18, 22, 27, BLACK, GREY)


def tout(icon):
    icon.box(3, 3, 28, 28, BLACK, WHITE)
    for x, y in ((3, 3), (28, 3), (3, 28), (28, 28)):
        icon.line(15.5, 15.5, x, y, RED)
    icon.box(11, 11, 20, 20, BLUE)


def fenetre(icon):
    glass(icon)
    icon.box(8, 9, 18, 17, RED)


def plus(icon):
    glass(icon)
    icon.line(8, 13, 18, 13, RED)
    icon.line(13, 8, 13, 18, RED)


def moins(icon):
    glass(icon)
    icon.line(8, 13, 18, 13, RED)


def deplacer(icon):
    icon.line(15.5, 3, 15.5, 28, BLUE)
    icon.line(3, 15.5, 28, 15.5, BLUE)
    for a, b, c in (((12, 7), (15.5, 3), (19, 7)), ((12, 24), (15.5, 28), (19, 24)), ((7, 12), (3, 15.5), (7, 19)),
                    ((24, 12), (28, 15.5), (24, 19))):
        icon.path([a, b, c], BLUE)


def couches(icon):
    for y, colour in ((20, GREEN), (14, YELLOW), (8, RED)):
        for i in range(8):
            icon.line(16 - 12 + i * 1.5, y + i * 0.9, 16 + i * 1.5, y - 5 + i * 0.9, colour)
        icon.path([(4, y), (16, y - 6), (28, y), (16, y + 6), (4, y)])


def grille(icon):
    for v in range(4, 29, 6):
        icon.line(v, 4, v, 28, BLUE)
        icon.line(4, v, 28, v, BLUE)


def choix(icon):
    icon.box(4, 4, 27, 27, BLACK, WHITE)
    for y, colour in ((9, BLACK), (15.5, BLUE), (22, BLACK)):
        icon.path([(7, y), (9, y + 2), (12, y - 2)], RED)
        icon.line(15, y, 24, y, colour)


def table(icon):
    icon.box(3, 5, 28, 26, BLACK, WHITE)
    icon.box(3, 5, 28, 10, BLACK, YELLOW)
    icon.line(3, 15.5, 28, 15.5)
    icon.line(3, 21, 28, 21)
    icon.line(12, 5, 12, 26)
    icon.line(20, 5, 20, 26)


def quitter(icon):
    icon.box(5, 4, 19, 27, BLACK, WHITE)
    icon.line(12, 16, 28, 16, RED)
    icon.path([(23, 11), (28, 16), (23, 21)], RED)


ICONS = (ouvrir, enregistrer, tout, fenetre, plus, moins, deplacer, couches, grille, choix, table, quitter)


def main():
    here = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    for folder, side in SIZES.items():
        os.makedirs(os.path.join(here, folder), exist_ok=True)
        for draw in ICONS:
            icon = Icon(side)
            draw(icon)
            icon.save(os.path.join(here, folder, draw.__name__.upper() + ".BMP"))


if __name__ == "__main__":
    main()
