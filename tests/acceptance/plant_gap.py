"""plant_gap.py CAPTURE AT MS [DIVISOR]: makes the capture of the card silent for so many ms from AT ms on, as a card does that
misses something; with DIVISOR only so many times quieter. The capture is 16 bit stereo at 44100 Hz, its header the
shortest there is."""

import array
import sys

HEADER = 44
FRAME = 4


def frames(ms):
    return ms * 44100 // 1000


path, at, length = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
divisor = int(sys.argv[4]) if len(sys.argv) > 4 else 0
with open(path, "r+b") as file:
    place = HEADER + FRAME * frames(at)
    file.seek(place)
    samples = array.array("h", file.read(FRAME * frames(length)))
    file.seek(place)
    file.write(array.array("h", [int(sample / divisor) if divisor else 0 for sample in samples]).tobytes())
