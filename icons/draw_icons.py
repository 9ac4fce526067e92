#!/usr/bin/env python3
"""Draws the module's icons from the pictures below and writes them as GIF files beside this script.

The GIF files are what the build compiles in. To change an icon, change its picture here, run the script and look at the
result enlarged:

    icons/draw_icons.py && convert icons/icon_itemdata.gif -filter point -resize 800% /tmp/enlarged.png

Every picture is 16 by 16 with one character per pixel, '.' being transparent. The mandatory icons are the optional ones
in strong colours with a red asterisk laid over their upper right corner.
"""

import pathlib
import struct

TRANSPARENT = (192, 192, 192)  # what a reader sees that knows nothing of transparency

OPTIONAL = {
    "o": (122, 140, 166),  # outline
    "f": (248, 250, 252),  # paper
    "h": (196, 208, 224),  # band
    "d": (122, 140, 166),  # drawing
    "l": (176, 189, 206),  # lighter drawing
    "w": (255, 255, 255),  # on a band
}

MANDATORY = {
    "o": (23, 50, 92),
    "f": (255, 255, 255),
    "h": (44, 104, 190),
    "d": (23, 50, 92),
    "l": (84, 124, 184),
    "w": (255, 255, 255),
    "r": (208, 24, 24),
}

ITEMDATA = {
    "o": (78, 96, 124),
    "f": (255, 255, 255),
    "h": (60, 120, 200),
    "w": (255, 255, 255),
    "l": (170, 184, 204),
    "t": (148, 88, 10),  # the tag's outline and writing
    "y": (255, 205, 70),  # the tag
    "Y": (255, 230, 150),  # its lit edge
    "s": (236, 166, 34),  # its shaded edge
}

TEXT = """
................
................
................
................
.oooooooooooooo.
offffffffffffffo
offfddfffdfdfffo
offfddffffdffffo
offdffdfffdffffo
offdffdfffdffffo
offddddfffdffffo
ofdffffdffdffffo
ofdffffdfdfdfffo
offffffffffffffo
.oooooooooooooo.
................
"""

LIST = """
................
................
................
.oooooooooooooo.
offffffffffffffo
ofddflllllllfffo
ofddfffffffffffo
ohhhhhhhhhhhhhho
ohwwhwwwwwwwwhho
ohwwhhhhhhhhhhho
ohhhhhhhhhhhhhho
ofddfllllllffffo
ofddfffffffffffo
offffffffffffffo
.oooooooooooooo.
................
"""

DATE = """
................
...oo.....oo....
...oo.....oo....
.ooooooooooooo..
ohhoohhhhhoohho.
ohhhhhhhhhhhhho.
ooooooooooooooo.
offfffffffffffo.
ofllfllfllfllfo.
ofllfllfllfllfo.
offfffffffffffo.
ofllfddfllffffo.
ofllfddfllffffo.
offfffffffffffo.
.ooooooooooooo..
................
"""

ASTERISK = """
.............r..
...........r.r.r
............rrr.
...........r.r.r
.............r..
"""

ITEM = """
.ooooooooooo....
offfffffffffo...
offlllllllffo...
offfffffffffo...
ohhhhhhhhhhho...
ohwwwwwwwhhho...
ohhhhhhhhttttttt
offffffftYYYYYYt
offllfftyyyyyyyt
offffftyyyytttyt
offlftyywwyyyyyt
offfftyywwytttyt
.oooootyyyyyyyyt
.......tyyytttyt
........tsssssst
.........ttttttt
"""


def rows(picture):
    return picture.strip("\n").split("\n")


def with_asterisk(picture):
    """The picture under the asterisk, with white around the asterisk to set it apart."""
    marks = {(x, y) for y, row in enumerate(rows(ASTERISK)) for x, character in enumerate(row) if character == "r"}
    around = {(x + dx, y + dy) for x, y in marks for dx in (-1, 0, 1) for dy in (-1, 0, 1)}
    result = []
    for y, row in enumerate(rows(picture)):
        pixels = list(row)
        for x, pixel in enumerate(row):
            if (x, y) in marks:
                pixels[x] = "r"
            elif (x, y) in around and pixel != ".":
                pixels[x] = "w"
        result.append("".join(pixels))
    return "\n".join(result)


def compress(pixels, code_size):
    """The pixels as GIF's variant of LZW: codes grow from code_size + 1 bits, lowest bit first."""
    clear, end = 1 << code_size, (1 << code_size) + 1
    output, buffered, bits = bytearray(), 0, 0

    def emit(code, width):
        nonlocal buffered, bits
        buffered |= code << bits
        bits += width
        while bits >= 8:
            output.append(buffered & 255)
            buffered >>= 8
            bits -= 8

    width = code_size + 1
    table = {(pixel,): pixel for pixel in range(clear)}
    emit(clear, width)
    known = ()
    for pixel in pixels:
        if known + (pixel,) in table:
            known += (pixel,)
            continue
        emit(table[known], width)
        code = len(table) + 2  # the clear and end codes are not in the table
        table[known + (pixel,)] = code
        if code == 1 << width:
            width += 1
        known = (pixel,)
    emit(table[known], width)
    emit(end, width)
    if bits:
        output.append(buffered & 255)
    return bytes(output)


def gif(picture, colours):
    """The bytes of a GIF file whose palette begins with the transparent colour."""
    lines = rows(picture)
    size = len(lines)
    assert all(len(line) == size for line in lines), "a picture is as wide as it is high"
    used = sorted(set("".join(lines)) - {"."})
    index = {character: number for number, character in enumerate(["."] + used)}
    code_size = max(2, (len(index) - 1).bit_length())
    palette = [TRANSPARENT] + [colours[character] for character in used]
    palette += [(0, 0, 0)] * ((1 << code_size) - len(palette))

    data = compress([index[character] for line in lines for character in line], code_size)
    return b"".join(
        [
            b"GIF89a",
            struct.pack("<HHBBB", size, size, 0x80 | (code_size - 1), 0, 0),
            bytes(channel for colour in palette for channel in colour),
            b"\x21\xf9\x04\x01\x00\x00\x00\x00",  # the first colour is transparent
            struct.pack("<BHHHHB", 0x2C, 0, 0, size, size, 0),
            bytes([code_size]),
            b"".join(bytes([len(data[i : i + 255])]) + data[i : i + 255] for i in range(0, len(data), 255)),
            b"\x00\x3b",
        ]
    )


def main():
    folder = pathlib.Path(__file__).resolve().parent
    icons = {"icon_itemdata": (ITEM, ITEMDATA)}
    for kind, picture in (("text", TEXT), ("list", LIST), ("date", DATE)):
        icons[f"icon_opt_{kind}"] = (picture, OPTIONAL)
        icons[f"icon_mdt_{kind}"] = (with_asterisk(picture), MANDATORY)
    for name, (picture, colours) in icons.items():
        (folder / f"{name}.gif").write_bytes(gif(picture, colours))


if __name__ == "__main__":
    main()
