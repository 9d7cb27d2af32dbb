"""The window: how long it takes until a drawing is shown and the window rests, and how fast the view follows the hand.

desktop_view.py BUILD [--sizes 5,50]. Without a screen (QT_QPA_PLATFORM=offscreen). A window rests when its process has used
no processor for half a second: the last use counts, by the clock and in processor time. The other program opens the same
file with its own window, measured in the same way; it is left out if it isn't installed.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from measuring import print_table

HERE = Path(__file__).resolve().parent
TICK = os.sysconf("SC_CLK_TCK")
STEP, REST, LONGEST = 0.01, 0.5, 120.0
QUIET = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": ""}


def processor_time(process):
    fields = Path(f"/proc/{process.pid}/stat").read_text().rsplit(") ", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICK


def settled(home):
    """The other program would ask at its first start and open nothing until it is answered."""
    settings = home / ".config" / "LibreCAD" / "LibreCAD.conf"
    settings.parent.mkdir(parents=True)
    settings.write_text("[Startup]\nFirstLoad=0\n\n[Defaults]\nUnit=Millimeter\n")


def until_rest(command):
    """Seconds by the clock and of the processor until the window rests; None if it ends or never rests."""
    with tempfile.TemporaryDirectory() as home:
        settled(Path(home))
        begin = time.monotonic()
        process = subprocess.Popen(command, env={**QUIET, "HOME": home}, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            used, last = 0.0, begin
            while time.monotonic() - last < REST:
                if process.poll() is not None or time.monotonic() - begin > LONGEST:
                    return None
                now = processor_time(process)
                if now > used:
                    used, last = now, time.monotonic()
                time.sleep(STEP)
            return last - begin, used
        finally:
            process.kill()
            process.wait()


def cells(result, first):
    if result is None:
        return ["never rests or ends", "", "", ""]
    return [f"{result[0]:.2f}", f"{result[0] / first[0]:.1f}", f"{result[1]:.2f}", f"{result[1] / first[1]:.1f}"]


def opening_rows(build, folder, files):
    for name, file in files:
        kovra = until_rest([build / "bin" / "kovra-desktop", "--state", folder / "state.sqlite", file])
        yield [name, "kovra-desktop", *cells(kovra, kovra)]
        if shutil.which("librecad"):
            yield [name, "librecad", *cells(until_rest(["librecad", file]), kovra or (1, 1))]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path)
    parser.add_argument("--sizes", default="5,50", help="megabytes; beside them an empty drawing")
    arguments = parser.parse_args()
    build = arguments.build.resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        files = []
        for size in ["0.01", *arguments.sizes.split(",")]:
            files.append((f"{size} MB", folder / f"drawing-{size}.dxf"))
            subprocess.run([sys.executable, "-B", HERE / "make_drawing.py", files[-1][1], size], check=True)
        print_table(["drawing", "program", "seconds to rest", "ratio", "processor", "ratio"],
                    list(opening_rows(build, folder, files)))
        print(flush=True)
        # Every figure of the view itself, with the last and largest of the drawings.
        subprocess.run([build / "bin" / "desktop_view", files[-1][1]], check=True, env=QUIET, stderr=subprocess.DEVNULL)


if __name__ == "__main__":
    main()
