#!/usr/bin/env python3
"""Draws the whole window into a picture, on a virtual screen: make_window_picture.py PROGRAM PROJECT PICTURE.png

Xvfb keeps its screen in a file (of the form that xwd writes), which is read here.
"""

import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zlib
from pathlib import Path

WIDTH, HEIGHT = 1280, 800


def read_screen(file):
    """Width, height and the rows of RGB bytes."""
    data = Path(file).read_bytes()
    header = struct.unpack(">25I", data[:100])
    size, width, height, line, colors = header[0], header[4], header[5], header[12], header[19]
    begin = size + colors * 12
    rows = []
    for y in range(height):
        row = data[begin + y * line : begin + y * line + width * 4]
        rgb = bytearray(width * 3)
        rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
        rows.append(bytes(rgb))
    return width, height, rows


def write_png(file, width, height, rows):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    pixels = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    Path(file).write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", pixels) + chunk(b"IEND", b"")
    )


def start_screen(folder):
    read, write = os.pipe()
    screen = subprocess.Popen(
        ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", folder, "-nolisten", "tcp"],
        pass_fds=[write], stderr=subprocess.DEVNULL,
    )
    os.close(write)
    with os.fdopen(read) as told:
        return screen, told.readline().strip()


def main():
    program, project, picture = sys.argv[1:4]
    extra = sys.argv[4:]
    seconds = float(os.environ.get("WAIT", "4"))
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(project, f"{folder}/panel")
        screen, display = start_screen(folder)
        try:
            drawings = sorted(str(p) for p in Path(folder, "panel").glob("*.dxf"))
            window = subprocess.Popen(
                [program, "-p", f"{folder}/panel", "--state", f"{folder}/state.db", *(extra or ["--language", "en"]), *drawings],
                env={**os.environ, "DISPLAY": f":{display}", "QT_QPA_PLATFORM": "xcb"},
            )
            time.sleep(seconds)
            write_png(picture, *read_screen(f"{folder}/Xvfb_screen0"))
            window.terminate()
            window.wait()
        finally:
            screen.terminate()
            screen.wait()


if __name__ == "__main__":
    main()
