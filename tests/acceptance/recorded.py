"""recorded.py RECORDING CAPTURE [SIZE [BUT]]: prints how many frames the header of a recording promises, and where they stand
in what the card got, frame by frame the same: the number of the first frame, -1 when they stand nowhere. With SIZE,
which the capture had when the recording was asked for, it is looked for from there on, and counted from there. The last
BUT frames are not compared: a program that is killed takes with it what the card's file had not yet got."""

import struct
import sys


def samples(path):
    """The data of a WAV file, as long as its header says."""
    with open(path, "rb") as file:
        content = file.read()
    if content[:4] != b"RIFF" or content[8:12] != b"WAVE":
        sys.exit(path + " is no WAV file")
    place = 12
    while place + 8 <= len(content):
        size = struct.unpack_from("<I", content, place + 4)[0]
        if content[place : place + 4] == b"data":
            data = content[place + 8 : place + 8 + size]
            if len(data) != size:
                sys.exit(path + " is shorter than its header says")
            return data
        place += 8 + size + size % 2
    sys.exit(path + " has no data")


def place_of(part, whole, begin):
    place = whole.find(part, begin)
    while place > 0 and place % 4 != 0:
        place = whole.find(part, place + 1)
    return (place - begin) // 4 if place >= 0 else -1


recording = samples(sys.argv[1])
with open(sys.argv[2], "rb") as card:
    heard = card.read()[44:]
begin = max(0, int(sys.argv[3]) - 44) // 4 * 4 if len(sys.argv) > 3 else 0
but = int(sys.argv[4]) if len(sys.argv) > 4 else 0
print(len(recording) // 4, place_of(recording[: len(recording) - 4 * but], heard, begin))
