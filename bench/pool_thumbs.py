#!/usr/bin/env python3
"""In-process side of the thumbnail benchmark: a pool of one worker process per core,
each making thumbnails with one library, so no per-photo program start is timed.

  pool_thumbs.py pillow|libvips JOBS OUTDIR PROCESSES

JOBS is the TSV of `thumbsize.py --scan` (path, width, height, thumbnail width,
thumbnail height, progressive). Every photo becomes OUTDIR/NAME_tn.jpg at exactly the
thumbnail size, quality 90, without metadata.

pillow:  draft() decodes at no less than twice the thumbnail size (DCT scaling, like the
         other tools' size hints), then a Lanczos resize to the exact size.
libvips: vips_thumbnail() with size "force" (shrink-on-load, then its own reduce), called
         through ctypes, one vips thread per process; the same work as vipsthumbnail
         without its program start.
"""

import ctypes
import ctypes.util
import os
import sys
from multiprocessing import Pool

VIPS_SIZE_FORCE = 3
vips = None


def thumb_path(path, outdir):
    return os.path.join(outdir, os.path.basename(path).replace(".jpg", "_tn.jpg"))


def pillow_thumb(job):
    from PIL import Image

    path, tw, th, outdir = job
    with Image.open(path) as im:
        im.draft(None, (2 * tw, 2 * th))
        im.resize((tw, th), Image.LANCZOS).save(thumb_path(path, outdir), "JPEG", quality=90)


def vips_start():
    global vips
    vips = ctypes.CDLL(ctypes.util.find_library("vips") or "libvips.so.42")
    vips.vips_error_buffer.restype = ctypes.c_char_p
    if vips.vips_init(b"pool_thumbs") != 0:
        raise RuntimeError("vips_init failed")
    vips.vips_concurrency_set(1)
    vips.vips_cache_set_max(0)  # every photo is new: the operation cache would only hold memory


def vips_thumb(job):
    path, tw, th, outdir = job
    image = ctypes.c_void_p()
    i = ctypes.c_int
    if vips.vips_thumbnail(path.encode(), ctypes.byref(image), i(tw), b"height", i(th),
                           b"size", i(VIPS_SIZE_FORCE), b"no_rotate", i(1), None) != 0:
        raise RuntimeError(vips.vips_error_buffer().decode())
    try:
        if vips.vips_jpegsave(image, thumb_path(path, outdir).encode(),
                              b"Q", i(90), b"strip", i(1), None) != 0:
            raise RuntimeError(vips.vips_error_buffer().decode())
    finally:
        vips.g_object_unref(image)


def main(argv):
    if len(argv) != 5 or argv[1] not in ("pillow", "libvips"):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    library, jobs_file, outdir, processes = argv[1], argv[2], argv[3], int(argv[4])
    jobs = []
    with open(jobs_file, encoding="utf-8") as f:
        for line in f:
            path, _, _, tw, th, _ = line.rstrip("\n").split("\t")
            jobs.append((path, int(tw), int(th), outdir))
    work, start = (pillow_thumb, None) if library == "pillow" else (vips_thumb, vips_start)
    with Pool(processes, initializer=start) as pool:
        for _ in pool.imap_unordered(work, jobs):
            pass
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
