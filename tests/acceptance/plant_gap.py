"""plant_gap.py CAPTURE AT MS: makes the capture of the card silent for so many ms from AT ms on, as a card does that misses
something. The capture is 16 bit stereo at 44100 Hz, its header the shortest there is."""

import sys

HEADER = 44
FRAME = 4


def frames(ms):
    return ms * 44100 // 1000


path, at, length = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
with open(path, "r+b") as file:
    file.seek(HEADER + FRAME * frames(at))
    file.write(bytes(FRAME * frames(length)))
