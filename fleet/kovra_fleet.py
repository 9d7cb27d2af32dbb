#!/usr/bin/python3
"""Runs `kovra each` on the drawings of a folder over many machines.

The machines are workers of a dask.distributed scheduler (Debian: python3-distributed); without an address, processes
of this machine. All see the drawings, the script and the report's folder under the same paths, and have kovra.

Each drawing is a task of its own. A worker that is lost loses nothing: its drawing stays as it was, or was saved
whole, and is done by another; the report has one line for each drawing. A drawing whose worker is lost three times is
reported as failed.
"""

import argparse
import ctypes
import hashlib
import json
import shutil
import signal
import subprocess
import sys
import time
import uuid
from itertools import islice
from pathlib import Path

ATTEMPTS = 3
TASKS_PER_THREAD = 4  # waiting at the workers; so memory doesn't grow with the number of drawings
PR_SET_PDEATHSIG = 1


def end_with_worker():
    """kovra must not outlive its worker: another one does the drawing then."""
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def run_drawing(kovra, arguments, drawing, root, notes, run_id):
    """Runs on a worker. Returns the drawing's line of the report.

    Every attempt leaves a mark in `notes`, beside what `kovra each` itself notes there: that it began the drawing, so
    that a drawing which was saved by an attempt that couldn't tell isn't changed twice.
    """
    name = Path(notes) / hashlib.sha256(drawing.encode()).hexdigest()[:32]
    attempts, report = name.with_suffix(f".{run_id}.attempts"), name.with_suffix(".jsonl")
    with attempts.open("a") as file:
        file.write(".")
    if attempts.stat().st_size > ATTEMPTS:
        return {"file": drawing, "status": "failed", "error": f"its worker was lost {ATTEMPTS} times"}
    command = [kovra, "each", drawing, "--jobs", "1", "--root", root, "--report", str(report), "--resume", str(report)]
    run = subprocess.run([*command, *arguments], capture_output=True, text=True, errors="replace",
                         stdin=subprocess.DEVNULL, preexec_fn=end_with_worker)
    lines = report.read_text(errors="replace").splitlines() if report.exists() else []
    if lines:
        return json.loads(lines[-1])
    if run.returncode == 0:
        return {"file": drawing, "status": "done", "error": "", "output": "saved by a worker that was lost"}
    reason = (run.stderr.strip().splitlines() or [f"kovra ended with {run.returncode}"])[0]
    return {"file": drawing, "status": "failed", "error": reason.removeprefix("kovra: ")}


def parse_arguments():
    parser = argparse.ArgumentParser(prog="kovra-fleet", description=__doc__.split("\n", 1)[0])
    parser.add_argument("names", nargs="+", metavar="DRAWING|FOLDER|PATTERN")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of the scheduler, tcp://host:8786; none: this machine")
    parser.add_argument("--workers", type=int, metavar="N", help="without --scheduler: processes on this machine")
    parser.add_argument("--kovra", default=shutil.which("kovra") or "kovra", metavar="PROGRAM", help="on all machines")
    parser.add_argument("-s", "--script", metavar="FILE", help="input, line by line")
    parser.add_argument("-c", "--command", action="append", default=[], metavar="LINE", help="one input line")
    parser.add_argument("-p", "--project", metavar="DIR", help="the current project")
    parser.add_argument("--output-dir", metavar="DIR", help="save there, in the same folders, instead of in place")
    parser.add_argument("--report", required=True, metavar="FILE", help="append a JSON line for each drawing")
    parser.add_argument("--resume", metavar="REPORT", help="leave out what this report says is done")
    for flag, use in (("--dry-run", "write no drawing; say what would change"), ("--no-backup", "without NAME.bak"),
                      ("--keep-going", "go on after a line that could not be carried out")):
        parser.add_argument(flag, action="store_true", help=use)
    return parser.parse_args()


def each_arguments(options):
    """What `kovra each` is given for every drawing. Paths are absolute: workers have folders of their own."""
    arguments = [] if not options.script else ["-s", str(Path(options.script).resolve())]
    for line in options.command:
        arguments += ["-c", line]
    for option, value in (("-p", options.project), ("--output-dir", options.output_dir)):
        if value:
            arguments += [option, str(Path(value).resolve())]
    return arguments + [f for f in ("--dry-run", "--no-backup", "--keep-going")
                        if getattr(options, f[2:].replace("-", "_"))]


def drawings_to_run(options, arguments):
    """The drawings with their roots, as `kovra each` finds them and without what a former report has."""
    command = [options.kovra, "each", *options.names, *arguments, "--names"]
    if options.resume and Path(options.resume).exists():
        command += ["--resume", options.resume]
    listed = subprocess.run(command, capture_output=True, text=True, errors="surrogateescape")
    if listed.returncode != 0:
        sys.stderr.write(listed.stderr)
        sys.exit(listed.returncode)
    for line in listed.stdout.splitlines():
        file, relative = line.split("\t")
        file = str(Path(file).absolute())
        yield file, file[: -len(relative)] or "."


class Progress:
    def __init__(self, total):
        self.total, self.counts, self.reasons, self.begin = total, {}, [], time.monotonic()

    def add(self, entry):
        status = entry["status"]
        self.counts[status] = self.counts.get(status, 0) + 1
        if status == "failed" and len(self.reasons) < 10:
            file, error = entry["file"], entry.get("error", "")
            self.reasons.append(error if file in error else f"{file}: {error}")
        done = sum(self.counts.values())
        if sys.stderr.isatty():
            left = (time.monotonic() - self.begin) / done * (self.total - done)
            print(f"\r\x1b[K{done} of {self.total}, {left:.0f} s left", end="", file=sys.stderr, flush=True)

    def summary(self):
        counts = [f"{self.counts.get(status, 0)} {status}" for status in ("done", "unchanged", "failed")]
        missing = self.total - sum(self.counts.values())
        counts += [f"{missing} not done"] if missing else []
        if sys.stderr.isatty():
            print("\r\x1b[K", end="", file=sys.stderr, flush=True)
        print(", ".join(counts), f"in {time.monotonic() - self.begin:.0f} s")
        for reason in self.reasons:
            print(" ", reason)
        return self.counts.get("failed", 0) == 0 and missing == 0


def run_all(client, options, arguments, drawings, notes, take):
    """Keeps the workers busy. Ctrl+C submits nothing more and waits for what runs; a second one drops it."""
    from distributed import as_completed

    def submit(drawing):
        future = client.submit(run_drawing, options.kovra, arguments, *drawing, notes, run_id, pure=False)
        names[future.key] = drawing[0]
        return future

    run_id = uuid.uuid4().hex[:8]
    names = {}
    waiting = iter(drawings)
    threads = sum(client.nthreads().values()) or 1
    running = as_completed([submit(d) for d in islice(waiting, threads * TASKS_PER_THREAD)])
    stopped = False
    while running.count():
        try:
            future = next(running)
            name = names.pop(future.key)
            failure = future.exception()
            take({"file": name, "status": "failed", "error": f"its worker was lost: {failure}"} if failure
                 else future.result())
            drawing = None if stopped else next(waiting, None)
            if drawing:
                running.add(submit(drawing))
        except KeyboardInterrupt:
            if stopped:
                return
            stopped = True
            print("\nkovra-fleet: what runs is being finished; Ctrl+C again drops it", file=sys.stderr)


def main():
    options = parse_arguments()
    arguments = each_arguments(options)
    drawings = list(drawings_to_run(options, arguments))
    from distributed import Client, LocalCluster
    cluster = options.scheduler or LocalCluster(n_workers=options.workers, threads_per_worker=1, dashboard_address=None)
    notes = Path(options.report + ".notes").resolve()
    notes.mkdir(exist_ok=True)
    progress = Progress(len(drawings))
    with Client(cluster) as client, open(options.report, "a") as report:
        def take(entry):
            report.write(json.dumps(entry, ensure_ascii=False) + "\n")
            report.flush()
            progress.add(entry)
        run_all(client, options, arguments, drawings, str(notes), take)
    done = progress.summary()
    if sum(progress.counts.values()) == len(drawings):
        shutil.rmtree(notes)
    return 0 if done else 1


if __name__ == "__main__":
    sys.exit(main())
