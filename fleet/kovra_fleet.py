#!/usr/bin/python3
"""Runs `kovra each` on the drawings of a folder over many machines.

The machines are workers of a dask.distributed scheduler (Debian: python3-distributed); without an address, processes
of this machine. All see the drawings, the script and the report's folder under the same paths, and have kovra.

Each drawing is a task of its own. A worker that is lost loses nothing: its drawing stays as it was, or was saved
whole, and is done by another; the report has one line for each drawing. A drawing whose worker is lost three times is
reported as failed.
"""

import argparse
import fcntl
import hashlib
import json
import os
import queue
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import uuid
from pathlib import Path

ATTEMPTS = 3
TASKS_PER_THREAD = 4  # waiting at the workers; so memory doesn't grow with the number of drawings
WORKERS_ASKED_EVERY = 5  # seconds
CTRL_C_IS_OURS = "import signal; signal.signal(signal.SIGINT, signal.SIG_IGN)"


def run_drawing(kovra, arguments, drawing, root, notes, run_id):
    """Runs on a worker. Returns the drawing's line of the report; None if the run was stopped before.

    Every attempt leaves a mark in `notes`, beside what `kovra each` itself notes there: that it began the drawing, so
    that a drawing which was saved by an attempt that couldn't tell isn't changed twice. kovra must not outlive its
    worker, since another one does the drawing then; for what little it does, it holds the mark's lock.
    """
    name = Path(notes) / hashlib.sha256(os.fsencode(drawing)).hexdigest()[:32]
    report = name.with_suffix(".jsonl")
    if (Path(notes) / f"{run_id}.stop").exists():
        return None
    with name.with_suffix(f".{run_id}.attempts").open("a") as attempts:
        fcntl.flock(attempts, fcntl.LOCK_EX)
        attempts.write(".")
        attempts.flush()
        if os.fstat(attempts.fileno()).st_size > ATTEMPTS:
            return {"file": drawing, "status": "failed", "error": f"its worker was lost {ATTEMPTS} times"}
        command = ["setpriv", "--pdeathsig", "KILL", kovra, "each", drawing, "--jobs", "1", "--root", root,
                   "--report", str(report), "--resume", str(report), *arguments]
        run = subprocess.run(command, capture_output=True, text=True, errors="replace", stdin=subprocess.DEVNULL,
                             start_new_session=True, pass_fds=[attempts.fileno()])
    lines = report.read_text("utf-8", "replace").splitlines() if report.exists() else []
    if lines:
        return json.loads(lines[-1])
    reason = (run.stderr.strip().splitlines() or [f"kovra ended with {run.returncode}"])[0]
    return {"file": drawing, "status": "failed", "error": reason.removeprefix("kovra: ")}


def parse_arguments(arguments):
    parser = argparse.ArgumentParser(
        prog="kovra-fleet", usage="%(prog)s [OPTIONS] --report FILE DRAWING|FOLDER|PATTERN ...",
        description="Run kovra each on the drawings of a folder over many machines",
        epilog="Exit status: 0 all are done, 1 some aren't, 2 wrong usage, 3 a file or the scheduler can't be reached.")
    parser.add_argument("names", nargs="*", metavar="DRAWING|FOLDER|PATTERN", help="drawings to change; of a folder all")
    parser.add_argument("--list", metavar="FILE", help="more of them, one a line; - is standard input")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of the scheduler, tcp://host:8786; none: this machine")
    parser.add_argument("--workers", type=int, metavar="N", help="without --scheduler: processes on this machine")
    parser.add_argument("--kovra", default=shutil.which("kovra") or "kovra", metavar="PROGRAM", help="on all machines")
    parser.add_argument("-s", "--script", metavar="FILE", help="input, line by line")
    parser.add_argument("-c", "--command", action="append", default=[], metavar="LINE", help="one input line")
    parser.add_argument("-p", "--project", metavar="DIR", help="the current project")
    parser.add_argument("--state", metavar="FILE", help="what dialogs remember (default: the workers' users' own)")
    parser.add_argument("--registry", metavar="FILE", help="the registry file")
    parser.add_argument("--language", choices=["ja", "en"], help="of the messages (default: the workers' locale's)")
    parser.add_argument("--output-dir", metavar="DIR", help="save there, in the same folders, instead of in place")
    parser.add_argument("--report", required=True, metavar="FILE", help="append a JSON line for each drawing")
    parser.add_argument("--resume", metavar="REPORT", help="leave out what this report says is done")
    for flag, use in (("--dry-run", "write no drawing; say what would change"), ("--no-backup", "without NAME.bak"),
                      ("--keep-going", "go on after a line that could not be carried out")):
        parser.add_argument(flag, action="store_true", help=use)
    # Lines often begin with a hyphen, which the parser would take for an option.
    joined = []
    for argument in arguments:
        if joined and joined[-1] in ("-c", "--command"):
            joined[-1] = f"--command={argument}"
        else:
            joined.append(argument)
    return parser.parse_args(joined)


def each_arguments(options):
    """What `kovra each` is given for every drawing. Paths are absolute: workers have folders of their own."""
    arguments = ["-s", os.path.abspath(options.script)] if options.script else []
    for line in options.command:
        arguments += ["-c", line]
    for option in ("project", "output_dir", "state", "registry"):
        value = getattr(options, option)
        option = "--" + option.replace("_", "-")
        if value:
            arguments += [option, os.path.abspath(value)]
    if options.language:
        arguments += ["--language", options.language]
    return arguments + [f for f in ("--dry-run", "--no-backup", "--keep-going")
                        if getattr(options, f[2:].replace("-", "_"))]


def fail(message, status=3):
    print(f"kovra-fleet: {message}", file=sys.stderr)
    sys.exit(status)


def drawings_to_run(options, arguments):
    """The drawings with their roots, as `kovra each` finds them and without what a former report has."""
    command = [options.kovra, "each", *options.names, *arguments, "--names"]
    if options.list:
        command += ["--list", options.list]
    # A job that is always run with both options begins with neither.
    if options.resume and (options.resume != options.report or Path(options.resume).exists()):
        command += ["--resume", options.resume]
    try:
        listed = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    except OSError as error:
        fail(f"{options.kovra}: {error.strerror}")
    if listed.returncode != 0:
        fail(os.fsdecode(listed.stderr).strip().removeprefix("kovra: "), listed.returncode)
    drawings = []
    for line in os.fsdecode(listed.stdout).split("\n")[:-1]:
        if line.count("\t") != 1:
            fail(f"a drawing's name must hold neither tab nor line feed: {line!r}")
        file, relative = line.split("\t")
        file = os.path.abspath(file)
        drawings.append((file, file[: -len(relative)]))
    return drawings


class Progress:
    def __init__(self, total):
        self.total, self.counts, self.reasons, self.begin = total, {}, [], time.monotonic()

    def add(self, entry):
        status = entry["status"]
        self.counts[status] = self.counts.get(status, 0) + 1
        if status == "failed" and len(self.reasons) < 10:
            file, error, line = entry["file"], entry.get("error", ""), entry.get("line", "")
            reason = f"{line}: {error}" if line else error
            self.reasons.append(reason if file in reason else f"{file}: {reason}")
        done = sum(self.counts.values())
        if sys.stderr.isatty():
            left = round((time.monotonic() - self.begin) / done * (self.total - done))
            failed = f", {self.counts['failed']} failed" if "failed" in self.counts else ""
            print(f"\r\x1b[K{done} of {self.total}{failed}, {self.clock(left)} left", end="", file=sys.stderr, flush=True)

    @staticmethod
    def clock(seconds):
        return f"{seconds // 3600}:{seconds // 60 % 60:02}:{seconds % 60:02}" if seconds >= 3600 else \
            f"{seconds // 60}:{seconds % 60:02}"

    def summary(self):
        counts = [f"{self.counts.get(status, 0)} {status}" for status in ("done", "unchanged", "failed")]
        missing = self.total - sum(self.counts.values())
        counts += [f"{missing} not done"] if missing else []
        if sys.stderr.isatty():
            print("\r\x1b[K", end="", file=sys.stderr, flush=True)
        print(", ".join(counts), f"in {self.clock(round(time.monotonic() - self.begin))}")
        for reason in self.reasons:
            print(" ", reason)
        more = self.counts.get("failed", 0) - len(self.reasons)
        if more > 0:
            print(f"  and {more} more")
        return self.counts.get("failed", 0) == 0 and missing == 0


class Run:
    """Keeps the workers busy with the drawings, and takes their lines in. Ctrl+C lets what runs be finished and begins
    nothing more; a second one drops what runs."""

    def __init__(self, client, kovra, arguments, notes):
        self.client, self.kovra, self.arguments, self.notes = client, kovra, arguments, notes
        self.id = uuid.uuid4().hex[:8]
        self.ended = queue.SimpleQueue()
        self.running = {}  # by key: future, drawing, how often its worker was lost
        self.wanted, self.asked = 0, None
        self.interruptions = 0

    def interrupt(self, *_):
        self.interruptions += 1
        if self.interruptions == 1:
            (self.notes / f"{self.id}.stop").touch()
            print("\nkovra-fleet: what runs is being finished; Ctrl+C again drops it", file=sys.stderr)

    def submit(self, drawing, losses=0):
        future = self.client.submit(run_drawing, self.kovra, self.arguments, *drawing, str(self.notes), self.id, pure=False)
        self.running[future.key] = future, drawing, losses
        future.add_done_callback(self.ended.put)

    def fill(self, waiting):
        """Workers come and go."""
        if self.asked is None or time.monotonic() - self.asked > WORKERS_ASKED_EVERY:
            threads = sum(self.client.nthreads().values())
            if self.asked is None and not threads:
                print("kovra-fleet: the scheduler has no worker yet; waiting", file=sys.stderr)
            self.wanted, self.asked = max(1, threads) * TASKS_PER_THREAD, time.monotonic()
        while len(self.running) < self.wanted and not self.interruptions:
            drawing = next(waiting, None)
            if drawing is None:
                return
            self.submit(drawing)

    def take_in(self, take):
        from distributed import KilledWorker

        try:
            future = self.ended.get(timeout=0.5)
        except queue.Empty:
            return
        _, drawing, losses = self.running.pop(future.key)
        failure = future.exception() if future.status == "error" else None
        if isinstance(failure, KilledWorker) and losses < ATTEMPTS:
            # Of the tasks that wait at a worker only one is to blame: the marks say which was tried.
            self.submit(drawing, losses + 1)
        elif future.status == "finished":
            if (entry := future.result()) is not None:
                take(entry)
                for note in self.notes.glob(hashlib.sha256(os.fsencode(drawing[0])).hexdigest()[:32] + ".*"):
                    note.unlink(missing_ok=True)
        elif failure:
            lost = "its worker was lost: " if isinstance(failure, KilledWorker) else ""
            take({"file": drawing[0], "status": "failed", "error": f"{lost}{failure}"})
        else:
            fail("the scheduler is gone; go on with --resume")

    def all(self, drawings, take):
        signal.signal(signal.SIGINT, self.interrupt)
        waiting = iter(drawings)
        self.fill(waiting)
        while self.running and self.interruptions < 2:
            self.take_in(take)
            self.fill(waiting)


def open_client(options, scratch):
    """A client of the scheduler, or of a cluster of this machine, whose workers leave Ctrl+C to this program."""
    os.environ.setdefault("DASK_LOGGING__DISTRIBUTED", "critical")  # what concerns a user is said here
    try:
        import dask
        from distributed import Client, LocalCluster
    except ImportError:
        fail("the package python3-distributed is needed")
    if options.scheduler:
        try:
            return Client(options.scheduler)
        except (OSError, ValueError) as error:
            fail(f"{options.scheduler}: the scheduler can't be reached: {error}")
    dask.config.set({"distributed.worker.preload": [CTRL_C_IS_OURS]})
    return Client(LocalCluster(n_workers=options.workers or os.cpu_count(), threads_per_worker=1, memory_limit=None,
                               dashboard_address=None, local_directory=scratch))


def open_report(file):
    """Appended to; a run that was killed may have left half a line."""
    try:
        report = open(file, "a+b")
        fcntl.flock(report, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        fail(f"{file}: can't be written: another run has this report")
    except OSError as error:
        fail(f"{file}: can't be written: {error.strerror}")
    if report.tell() and os.pread(report.fileno(), 1, report.tell() - 1) != b"\n":
        report.write(b"\n")
    return report


def main():
    options = parse_arguments(sys.argv[1:])
    arguments = each_arguments(options)
    drawings = drawings_to_run(options, arguments)
    notes = Path(options.report + ".notes").resolve()
    with open_report(options.report) as report:
        if not options.resume:
            shutil.rmtree(notes, ignore_errors=True)
        notes.mkdir(exist_ok=True)
        progress = Progress(len(drawings))

        def take(entry):
            try:
                report.write(json.dumps(entry, ensure_ascii=False).encode("utf-8", "replace") + b"\n")
                report.flush()
            except OSError as error:
                fail(f"{options.report}: can't be written: {error.strerror}")
            progress.add(entry)

        with tempfile.TemporaryDirectory(prefix="kovra-fleet-") as scratch:
            if drawings:
                Run(open_client(options, scratch), options.kovra, arguments, notes).all(drawings, take)
            done = progress.summary()
        if sum(progress.counts.values()) == len(drawings):
            shutil.rmtree(notes)
    sys.stdout.flush()
    # Not in order: workers of this machine end with this process, and what they might still do isn't wanted.
    os._exit(0 if done else 1)


if __name__ == "__main__":
    main()
