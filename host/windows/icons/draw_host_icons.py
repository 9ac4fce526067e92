#!/usr/bin/env python3
"""Draws the host's icons from the pictures below and writes them as GIF files beside this script.

The GIF files are what the build compiles in. To change an icon, change its picture here, run the script and look at the
result enlarged:

    host/windows/icons/draw_host_icons.py && convert host/windows/icons/host_icon_save.gif -filter point -resize 800% /tmp/x.png

Every picture drawn here has one character per pixel, '.' being transparent. All share one palette: dark outlines, light coming from
the upper left. What is done with a document is a sheet of paper with a badge laid over its lower right corner.
"""

import pathlib
import sys

sys.dont_write_bytecode = True  # the tree stays clean
FOLDER = pathlib.Path(__file__).resolve().parent
sys.path.append(str(FOLDER.parents[2] / "icons"))
from draw_icons import gif, rows  # noqa: E402 the module's icons are written by the same hand

COLOURS = {
    "k": (52, 64, 90),  # outlines of paper and metal
    "w": (255, 255, 255),
    "v": (228, 234, 242),  # paper in the shade
    "l": (172, 186, 208),  # writing
    "e": (140, 152, 172),  # metal
    "d": (18, 58, 122),  # blue: outline, body, lit
    "b": (52, 116, 204),
    "B": (138, 184, 242),
    "n": (18, 88, 38),  # green
    "g": (60, 166, 72),
    "G": (158, 222, 146),
    "m": (132, 20, 20),  # red
    "r": (222, 58, 48),
    "R": (250, 146, 132),
    "o": (136, 80, 8),  # yellow
    "s": (232, 160, 32),
    "y": (255, 206, 72),
    "Y": (255, 234, 160),
    "u": (108, 68, 28),  # cardboard
    "t": (206, 156, 96),
    "T": (234, 196, 146),
    "f": (250, 212, 174),  # skin
}

SHEET = """
..kkkkkkkk......
..kwwwwwwkk.....
..kwwwwwwkvk....
..kwwwwwwkkkk...
..kwwwwwwwwvk...
..kwlllllwwvk...
..kwwwwwwwwvk...
..kwlllllllvk...
..kwwwwwwwwvk...
..kwlllllllvk...
..kwwwwwwwwvk...
..kwlllllllvk...
..kwwwwwwwwvk...
..kwwwwwwwwvk...
..kvvvvvvvvvk...
..kkkkkkkkkkk...
"""

# Badges are 8 by 8.
PLUS_BADGE = """
..nnnn..
..nGgn..
nnnGgnnn
nGGGgggn
nggggggn
nnnggnnn
..nggn..
..nnnn..
"""

CROSS_BADGE = """
.mm..mm.
mRrmmRrm
mrRrrrrm
.mrrrrm.
.mrrrrm.
mrrrrrrm
mrrmmrrm
.mm..mm.
"""

TICK_BADGE = """
......nn
.....nGn
nn..nGgn
nGnnGgn.
ngGGgn..
nngggn..
.nngn...
..nnn...
"""

LOCK_BADGE = """
..oooo..
.oYooyo.
.oYwwyo.
oooooooo
oYYyyyso
oYyooyso
oyyooyso
oooooooo
"""

ARROW_BADGE = """
...dd...
...dBd..
ddddBbd.
dBBBBbbd
dbbbbbbd
ddddbbd.
...dbd..
...dd...
"""

ADD = """
................
.....nnnnnn.....
.....nGGggn.....
.....nGgggn.....
.....nGgggn.....
.nnnnnGgggnnnnn.
.nGGGGGgggggggn.
.nGgggggggggggn.
.nggggggggggggn.
.nggggggggggggn.
.nnnnnggggnnnnn.
.....nggggn.....
.....nggggn.....
.....nggggn.....
.....nnnnnn.....
................
"""

REMOVE = """
................
................
..mmm......mmm..
.mRRrm....mRrrm.
.mRrrrm..mRrrrm.
.mrrrrrmmRrrrrm.
..mrrrrrrrrrrm..
...mrrrrrrrrm...
....mrrrrrrm....
...mRrrrrrrrm...
..mRrrrrrrrrrm..
.mRrrrrmmrrrrrm.
.mrrrrm..mrrrrm.
.mrrrm....mrrrm.
..mmm......mmm..
................
"""

EDIT = """
...........mmm..
..........mRRrm.
.........krRrrrm
........kekrrrrm
.......okekkrrm.
......oYokekkm..
.....oYyyokek...
....oYyyysok....
...oYyyyso......
..uYyyyso.......
..uTyyso........
.uffTso.........
.ufftu..........
kkfuu...........
kku.............
k...............
"""

MOVE_UP = """
................
.......dd.......
......dBbd......
.....dBBbbd.....
....dBBbbbbd....
...dBBbbbbbbd...
..dBBbbbbbbbbd..
.dBBbbbbbbbbbbd.
.ddddBbbbbbdddd.
....dBbbbbbd....
....dBbbbbbd....
....dBbbbbbd....
....dBbbbbbd....
....dbbbbbbd....
....dddddddd....
................
"""

OPEN = """
................
.ooooo..........
oYYYYYo.........
oYyyyyyoooooo...
oYyyyyyyyyyyyo..
oYyyyyyyyyyyyo..
oYyoooooooooooo.
oYyoYYYYYYYYYYYo
oYoYYyyyyyyyyyyo
oYoYyyyyyyyyyyso
ooYyyyyyyyyyyso.
ooYyyyyyyyyyyso.
oYyyyyyyyyyysoo.
oYsssssssssso...
.ooooooooooo....
................
"""

SAVE = """
................
.dddddddddddddd.
.dBdwwwwwwwwdbdd
.dBdwllllllwdbbd
.dBdwwwwwwwwdbbd
.dBdwllllllwdbbd
.dBdwwwwwwwwdbbd
.dBbddddddddbbbd
.dBbbbbbbbbbbbbd
.dBbbddddddddbbd
.dBbdwwveekkdbbd
.dBbdwkkeekkdbbd
.dBbdwkkeekkdbbd
.dbbdvkkeekkdbbd
..dddddddddddddd
................
"""

ERROR = """
.....mmmmmm.....
...mmRRRRrrmm...
..mRRRrrrrrrrm..
.mRRrrrrrrrrrrm.
.mRrwwrrrrwwrrm.
mRRrwwwrrwwwrrrm
mRrrrwwwwwwrrrrm
mRrrrrwwwwrrrrrm
mRrrrrwwwwrrrrrm
mrrrrwwwwwwrrrrm
mrrrwwwrrwwwrrrm
.mrrwwrrrrwwrrm.
.mrrrrrrrrrrrrm.
..mrrrrrrrrrrm..
...mmrrrrrrmm...
.....mmmmmm.....
"""

NOTICE = """
.......oo.......
......oYyo......
......oYyo......
.....oYyyyo.....
.....oYkkyo.....
....oYykkyyo....
....oYykkyyo....
...oYyykkyyyo...
...oYyykkyyyo...
..oYyyykkyyyyo..
..oYyyyyyyyyyo..
.oYyyyykkyyyyyo.
.oYyyyykkyyyyyo.
oYyyyyyyyyyyyyso
oyssssssssssssso
.oooooooooooooo.
"""

# Small enough to leave room for a badge.
PROBLEM = """
.....oo.........
....oYyo........
....oYyo........
...oYyyyo.......
...oYkkyo.......
..oYykkyyo......
..oYykkyyo......
.oYyykkyyyo.....
.oYyyyyyyyo.....
oYyyykkyyyyo....
oysssssssssso...
.oooooooooooo...
................
................
................
................
"""

DERIVE = """
kkkkkk..nnnnnn..
kwwwkvk.nGGGgn..
kwlwkkk.nnnGgn..
kwwwwvk.nnnGgnnn
kwlllvk..nGgggn.
kwwwwvk...nggn..
kwlllvk....nn...
kwwwwvkkkkkkk...
kvvvvvkwwwwkvk..
kkkkkkkwllwkkk..
......kwwwwwvk..
......kwllllvk..
......kwwwwwvk..
......kwllllvk..
......kvvvvvvk..
......kkkkkkkk..
"""

SEARCH = """
....kkkkk.......
..kkwBBBBkk.....
.kwwBBBBBBBk....
.kwBBwwBBBBk....
kwBBwwBBBBBBk...
kBBBwBBBBBBBk...
kBBBBBBBBBBBk...
kBBBBBBBBBBBk...
kBBBBBBBBBBBk...
.kBBBBBBBBBk....
.kBBBBBBBBBku...
..kkBBBBBkktuu..
....kkkkk.uTtuu.
...........uTttu
............uttu
.............uu.
"""

PARTNERS = """
................
....kkk.........
...kuuuk..kkk...
..kuuuuukkssskk.
..kufffukksssssk
..kfffffksfffssk
..kfffffkkfffffk
...kfffk.kfffffk
....kkk...kfffk.
..kkBbbkk..kkkk.
.kBBbbbbbkGggggk
kBBbbbbbbbkggggg
kBbbbbbbbbkggggg
kBbbbbbbbbkggggg
kbbbbbbbbbkggggg
kkkkkkkkkkkkkkkk
"""

ARTICLES = """
................
.......uu.......
.....uuTTuu.....
...uuTTTTTTuu...
.uuTTTTTTTTTTuu.
uTTTTTTTTTTTTTTu
uttuTTTTTTTTuttu
uttttuTTTTuttttu
uttttttuuttttttu
utYYtttuuttttttu
utYYYttuuttttttu
uttYYttuuttttttu
uttttttuuttttttu
.uuttttuuttttuu.
...uuttuuttuu...
.....uuuuuu.....
"""

APPLICATION = """
.kkkkkkkkkk.....
.kbbbbbbbbk.....
.kbwwwwbbbk.....
.kbbbbbbbbk.....
.kwwwwwwwvk.....
.kwlllllwvk.....
.kwwwwwwwvk.....
.kwlllloooooo...
.kwwwwoYYyyyso..
.kwlloYYyooyyso.
.kwwwoYyoyyyyso.
.kwlloYyoyyyyso.
.kwwwoyyyooyyso.
.kvvvoyyyyyysso.
.kkkkkoyyssso...
.......ooooo....
"""


def turned_over(picture):
    return "\n".join(reversed(rows(picture)))


def over(picture, badge, left=8, top=8):
    """The picture with the badge laid over it."""
    pixels = [list(row) for row in rows(picture)]
    for y, row in enumerate(rows(badge)):
        for x, character in enumerate(row):
            if character != ".":
                pixels[top + y][left + x] = character
    return "\n".join("".join(row) for row in pixels)


COIN_LETTER = """
.oooo.
oo..oo
o.....
o.....
o.....
o.....
oo..oo
.oooo.
"""


def filled(pixels, left, top, right, bottom, character):
    for y in range(top, bottom + 1):
        for x in range(left, right + 1):
            pixels[y][x] = character


def coin(pixels, centre, radius):
    """A coin with its light in the upper left and its rim in the shade of the lower right."""
    for y, row in enumerate(pixels):
        for x in range(len(row)):
            across, down = x - centre, y - centre
            distance = (across * across + down * down) ** 0.5
            if distance <= radius - 1:
                rim = distance > radius - 2.5
                row[x] = ("Y" if across + down < 0 else "s") if rim else "y"
            elif distance <= radius:
                row[x] = "o"


def application_32():
    """The program's picture with room for more: the document's writing in two columns, and a larger coin."""
    pixels = [["."] * 32 for _ in range(32)]
    filled(pixels, 2, 1, 22, 29, "k")
    filled(pixels, 3, 2, 21, 28, "w")
    filled(pixels, 3, 2, 21, 7, "b")
    filled(pixels, 3, 2, 21, 2, "B")
    filled(pixels, 5, 4, 12, 5, "w")
    filled(pixels, 21, 8, 21, 28, "v")
    filled(pixels, 3, 28, 21, 28, "v")
    for top in (10, 13, 16, 19, 22, 25):
        filled(pixels, 5, top, 12, top, "l")
        filled(pixels, 15, top, 19, top, "l")
    coin(pixels, 22, 8.5)
    return over("\n".join("".join(row) for row in pixels), COIN_LETTER, left=19, top=19)


def main():
    icons = {
        "add": ADD,
        "remove": REMOVE,
        "edit": EDIT,
        "move_up": MOVE_UP,
        "move_down": turned_over(MOVE_UP),
        "new_document": over(SHEET, PLUS_BADGE),
        "open": OPEN,
        "save": SAVE,
        "check": over(SHEET, TICK_BADGE),
        "next_problem": over(PROBLEM, ARROW_BADGE),
        "error": ERROR,
        "notice": NOTICE,
        "close_document": over(SHEET, LOCK_BADGE),
        "derive": DERIVE,
        "cancel_document": over(SHEET, CROSS_BADGE),
        "export": over(SHEET, ARROW_BADGE),
        "search": SEARCH,
        "partners": PARTNERS,
        "articles": ARTICLES,
        "application": APPLICATION,
        "application_32": application_32(),
    }
    for name, picture in icons.items():
        (FOLDER / f"host_icon_{name}.gif").write_bytes(gif(picture, COLOURS))


if __name__ == "__main__":
    main()
