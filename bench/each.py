#!/usr/bin/python3
"""The benchmark of many drawings: each.py BUILD [OPTIONS]

The same edit on drawings of one folder: by `kovra each` with one and two jobs, by a loop of runs of the program, and by
ezdxf in a pool of two processes. First many small drawings, then some larger ones.

On a machine that others use too the seconds say little, processor time does. "beyond" is the processor time of a drawing
beyond what a run of the program alone takes for it; "own" what the batch's own process takes for it, of which the
rest is that of its processes. The memory is that of the batch's own process, at most, at one tenth of the drawings and at all.
"to half" is the time of two jobs in relation to half of that of all single runs (where fewer are run: of that many).
Two runs at once (by xargs) show what the machine gives to programs that know nothing of each other: where processes start and end
no faster on two processors than on one, as in some virtual machines, no batch of processes gets below that.
"""

import argparse
import os
import shutil
import subprocess
import sys
import threading
import time
from dataclasses import dataclass
from pathlib import Path

from measuring import print_table

HERE = Path(__file__).resolve().parent
LINES = ["-c", "-KOVRA_ATTR_COPY", "-c", "NAME /H 3 /NSC"]
HEAD = ["drawings", "program", "seconds", "to half", "processor, ms each", "own, ms each", "beyond, ms each", "memory, MB"]


@dataclass
class Cost:
    seconds: float  # of all drawings, as the next two
    processor: float
    own: float
    memory: int  # bytes


def memory_peak(process):
    """In bytes; 0 when it has ended."""
    try:
        status = Path(f"/proc/{process}/status").read_text()
    except OSError:
        return 0
    return max((int(line.split()[1]) * 1024 for line in status.splitlines() if line.startswith("VmHWM:")), default=0)


def measured(command):
    """What a program takes, and what of it its own process takes; None when it fails."""
    begin, peak = time.monotonic(), 0
    program = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    done = threading.Event()
    # Without taking the ended process away: its record tells it and its children apart.
    waiting = threading.Thread(target=lambda: (os.waitid(os.P_PID, program.pid, os.WEXITED | os.WNOWAIT), done.set()))
    waiting.start()
    while not done.wait(0.1):
        peak = max(peak, memory_peak(program.pid))
    seconds = time.monotonic() - begin
    fields = Path(f"/proc/{program.pid}/stat").read_text().rpartition(")")[2].split()
    own, children = (sum(map(int, fields[i:i + 2])) / os.sysconf("SC_CLK_TCK") for i in (11, 13))
    return Cost(seconds, own + children, own, peak) if program.wait() == 0 else None


def fill(folder, source, count):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for number in range(count):
        shutil.copyfile(source, folder / f"{number:06}.dxf")
    os.sync()


def runs(kovra, folder, at_once):
    """A run of the program for each drawing, so many at once."""
    return ["sh", "-c", 'find "$1" -name "*.dxf" | xargs -P "$2" -I{} "$0" {} --save --quiet --no-backup "$3" "$4" "$5" "$6"',
            kovra, folder, str(at_once), *LINES]


def batch(kovra, folder, jobs):
    return [kovra, "each", folder, *LINES, "--quiet", "--no-backup", "--jobs", str(jobs), "--report", f"{folder}.jsonl"]


def rows(arguments, count, megabytes):
    kovra, folder, source = arguments.build / "bin" / "kovra", arguments.folder / "each", arguments.folder / "each.dxf"
    subprocess.run([sys.executable, "-B", HERE / "make_drawing.py", source, str(megabytes)], check=True)
    sample, tenth = min(count, arguments.sample), max(1, count // 10)
    programs = [  # name, command, drawings
        ("kovra, run by run", runs(kovra, folder, 1), sample),
        ("kovra, two runs at once", runs(kovra, folder, 2), sample),
        ("kovra each, 1 job", batch(kovra, folder, 1), sample),
        ("kovra each, 2 jobs", batch(kovra, folder, 2), tenth),
        ("kovra each, 2 jobs", batch(kovra, folder, 2), count),
        ("ezdxf, pool of 2", [sys.executable, "-B", HERE / "ezdxf_pool.py", "2", "3", folder], sample),
    ]
    single = None
    for name, command, drawings in programs:
        fill(folder, source, drawings)
        cost = measured(command)
        Path(f"{folder}.jsonl").unlink(missing_ok=True)
        first = [f"{drawings} of {source.stat().st_size / 1e6:.3g} MB", name]
        if cost is None:
            yield [*first, "failed", *[""] * (len(HEAD) - 3)]
            continue
        single = single or Cost(*(value / drawings for value in (cost.seconds, cost.processor, cost.own, cost.memory)))
        beyond = cost.processor / drawings - single.processor
        yield [*first, f"{cost.seconds:.1f}", f"{cost.seconds / (single.seconds * drawings / 2):.2f}",
               f"{cost.processor / drawings * 1000:.1f}", f"{cost.own / drawings * 1000:.2f}", f"{beyond * 1000:.1f}",
               f"{cost.memory / 1e6:.1f}"]
    shutil.rmtree(folder)
    source.unlink()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path)
    parser.add_argument("--small", default="10000x0.02", help="drawings, each of so many megabytes")
    parser.add_argument("--large", default="100x1", help="the same")
    parser.add_argument("--sample", type=int, default=500, help="drawings for what isn't run on all of them")
    parser.add_argument("--folder", type=Path, default=HERE.parent / "build" / "bench")
    arguments = parser.parse_args()
    arguments.build = arguments.build.resolve()
    arguments.folder.mkdir(parents=True, exist_ok=True)
    for job in (arguments.small, arguments.large):
        count, megabytes = job.split("x")
        print_table(HEAD, list(rows(arguments, int(count), float(megabytes))))
        print()


if __name__ == "__main__":
    main()
