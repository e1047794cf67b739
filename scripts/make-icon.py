#!/usr/bin/env python3
"""Draws the program's icon, a terminal with a menu on its screen, and writes it as an .ico file.

usage: make-icon.py FILE
"""
import struct
import sys

DARK = (38, 50, 56, 255)
CASE = (84, 110, 122, 255)
SCREEN = (236, 239, 241, 255)
CHOSEN = (0, 121, 107, 255)
KEY = (207, 216, 220, 255)
CLEAR = (0, 0, 0, 0)


def draw(size):
    """Rows of RGBA pixels from the top, on a grid of 16 by 16 units."""
    unit = size / 16
    rows = [[CLEAR] * size for _ in range(size)]

    def fill(left, top, right, bottom, color):
        for y in range(round(top * unit), round(bottom * unit)):
            for x in range(round(left * unit), round(right * unit)):
                rows[y][x] = color

    fill(3, 0, 13, 16, DARK)
    fill(3.5, 0.5, 12.5, 15.5, CASE)
    fill(4.5, 1.5, 11.5, 10, SCREEN)
    fill(5, 2.5, 9, 3.5, DARK)
    fill(4.5, 4.5, 11.5, 6, CHOSEN)
    fill(5, 5, 10, 5.5, SCREEN)
    fill(5, 7, 10, 7.5, DARK)
    fill(5, 8.5, 8.5, 9, DARK)
    for row in (11, 13):
        for column in (4.5, 7, 9.5):
            fill(column, row, column + 2, row + 1.25, KEY)
    return rows


def image(size):
    """One image of the file: a bitmap header, the pixels from the bottom, and a mask of one bit a pixel."""
    rows = draw(size)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = b""
    for row in reversed(rows):
        bits = "".join("1" if a == 0 else "0" for _, _, _, a in row)
        bits += "0" * (-len(bits) % 32)
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return header + pixels + mask


def main():
    sizes = (16, 32)
    images = [image(size) for size in sizes]
    offset = 6 + 16 * len(sizes)
    with open(sys.argv[1], "wb") as file:
        file.write(struct.pack("<HHH", 0, 1, len(sizes)))
        for size, data in zip(sizes, images):
            file.write(struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(data), offset))
            offset += len(data)
        file.write(b"".join(images))


main()
