#!/usr/bin/env python3
"""Thumbnail sizes and JPEG headers for the thumbnail benchmark (standard library only).

Kiekbord's thumbnail of a W x H photo: the divisor d is the smallest d >= 1 for which
both floor(W / d) and floor(H / d) are at most 150; the thumbnail is W / d by H / d,
each rounded to the nearest whole number with halves going to the even neighbour.
So 4000 x 3000 gives 148 x 111, a width of 753 gives 151, and 301 x 200 gives 150 x 100.

Usage:
  thumbsize.py W H              print the thumbnail size as WxH
  thumbsize.py --scan PATH...   one TSV line per JPEG file found (directories are
                                listed, sorted, not recursed): path, width, height,
                                thumbnail width, thumbnail height, progressive (0/1);
                                files that are not JPEG (by their magic bytes) are skipped
  thumbsize.py --self-test      check the rule on known cases
"""

import os
import signal
import sys
from fractions import Fraction

LIMIT = 150

# Start-of-frame markers; the other values between C0 and CF are DHT, JPG and DAC.
SOF_MARKERS = set(range(0xC0, 0xD0)) - {0xC4, 0xC8, 0xCC}
PROGRESSIVE_SOF = {0xC2, 0xC6, 0xCA, 0xCE}


def thumb_size(width, height):
    """Returns (thumbnail width, thumbnail height) for a photo of width x height."""
    d = 1
    while width // d > LIMIT or height // d > LIMIT:
        d += 1
    # round() of a Fraction is exact and sends halves to the even neighbour.
    return round(Fraction(width, d)), round(Fraction(height, d))


def is_jpeg(path):
    with open(path, "rb") as f:
        return f.read(3) == b"\xff\xd8\xff"


def jpeg_header(path):
    """Returns (width, height, progressive) from the frame header, or None when the
    file is not a JPEG or has no readable frame header."""
    with open(path, "rb") as f:
        if f.read(2) != b"\xff\xd8":
            return None
        while True:
            byte = f.read(1)
            if not byte:
                return None
            if byte != b"\xff":
                continue
            marker = f.read(1)
            while marker == b"\xff":  # fill bytes before a marker
                marker = f.read(1)
            if not marker:
                return None
            code = marker[0]
            if code == 0x01 or 0xD0 <= code <= 0xD7:  # markers without a length
                continue
            if code in (0xD9, 0xDA):  # end of image, or scan data before any frame
                return None
            length_bytes = f.read(2)
            if len(length_bytes) < 2:
                return None
            length = int.from_bytes(length_bytes, "big")
            if code in SOF_MARKERS:
                frame = f.read(5)
                if len(frame) < 5:
                    return None
                height = int.from_bytes(frame[1:3], "big")
                width = int.from_bytes(frame[3:5], "big")
                return width, height, code in PROGRESSIVE_SOF
            f.seek(length - 2, os.SEEK_CUR)


def scan(paths):
    for path in paths:
        if os.path.isdir(path):
            names = sorted(os.listdir(path))
            files = [os.path.join(path, n) for n in names if not n.startswith(".")]
        else:
            files = [path]
        for file in files:
            if not os.path.isfile(file) or not is_jpeg(file):
                continue
            header = jpeg_header(file)
            if header is None:
                print(f"warning: no frame header in {file}", file=sys.stderr)
                continue
            width, height, progressive = header
            tw, th = thumb_size(width, height)
            print(f"{file}\t{width}\t{height}\t{tw}\t{th}\t{int(progressive)}")


def self_test():
    cases = [
        ((4000, 3000), (148, 111)),
        ((753, 500), (151, 100)),   # 150.6 rounds up to 151, accepted as it is
        ((301, 200), (150, 100)),   # 150.5 goes to the even 150
        ((150, 150), (150, 150)),
        ((100, 40), (100, 40)),     # small photos keep their size
        ((151, 100), (76, 50)),     # d = 2: 75.5 goes to the even 76
        ((3000, 4000), (111, 148)),
        ((5120, 2880), (151, 85)),   # d = 34
        ((2560, 1600), (151, 94)),   # d = 17
    ]
    failed = 0
    for (w, h), expected in cases:
        got = thumb_size(w, h)
        if got != expected:
            failed += 1
            print(f"FAIL {w}x{h}: expected {expected[0]}x{expected[1]}, got {got[0]}x{got[1]}")
    print(f"{len(cases) - failed} passed, {failed} failed")
    return 1 if failed else 0


def main(argv):
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # quiet when piped into head
    if len(argv) == 2 and argv[1] == "--self-test":
        return self_test()
    if len(argv) >= 3 and argv[1] == "--scan":
        scan(argv[2:])
        return 0
    if len(argv) == 3 and argv[1].isdigit() and argv[2].isdigit():
        tw, th = thumb_size(int(argv[1]), int(argv[2]))
        print(f"{tw}x{th}")
        return 0
    print(__doc__.strip(), file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv))
