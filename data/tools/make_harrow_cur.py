#!/usr/bin/env python3
"""Draws Pescavo's hand pointer and writes it as a 32x32 monochrome Windows cursor.

Usage: make_harrow_cur.py OUTPUT.cur
"""
import struct
import sys

# '#' black outline, '.' white, ' ' transparent. The hot spot is the fingertip.
HAND = """
     ##
    #..#
    #..#
    #..#
    #..#
    #..###
    #..#..###
    #..#..#..##
    #..#..#..#.#
 ## #..#..#..#.#
#..##........#.#
#...#..........#
 #..#..........#
  #.#..........#
  #............#
   #...........#
   #..........#
    #.........#
    #........#
     #.......#
     #.......#
     #########
""".strip("\n").split("\n")
HOT_SPOT = (5, 0)
SIZE = 32


def mask_rows(pick):
    """Bottom-up rows of 32 one-bit pixels, as the bitmap layout wants them."""
    data = b""
    for y in reversed(range(SIZE)):
        line = HAND[y] if y < len(HAND) else ""
        bits = 0
        for x in range(SIZE):
            ch = line[x] if x < len(line) else " "
            bits = (bits << 1) | pick(ch)
        data += struct.pack(">I", bits)
    return data


def cursor_bytes():
    xor_mask = mask_rows(lambda ch: 1 if ch == "." else 0)  # white where set
    and_mask = mask_rows(lambda ch: 1 if ch == " " else 0)  # transparent where set
    palette = struct.pack("<4B4B", 0, 0, 0, 0, 255, 255, 255, 0)
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE * 2, 1, 1, 0,
                         len(xor_mask) + len(and_mask), 0, 0, 2, 0)
    image = header + palette + xor_mask + and_mask
    directory = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 2, 0, HOT_SPOT[0], HOT_SPOT[1], len(image),
                        6 + 16)
    return directory + entry + image


if __name__ == "__main__":
    with open(sys.argv[1], "wb") as out:
        out.write(cursor_bytes())
