#!/usr/bin/env python3
"""Many drawings over a real cluster of this machine, whose workers are killed.

Usage: fleet_test.py PROGRAM
"""

import csv
import io
import json
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1)).resolve()
FLEET = Path(__file__).resolve().parents[2] / "fleet" / "kovra_fleet.py"
DRAWING = "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\n0\n10\n5.0\n20\n5.0\n40\n2.5\n1\nX1\n0\nENDSEC\n0\nEOF\n"
MOVE = ["MOVE", "@select all", "@enter", "0,0", "-1,0"]
# In kovra's place at the workers: it kills its worker, or keeps a drawing in hand the first time, unchanged or saved.
STAND_IN = """#!/bin/sh
case $*:$2 in *--names*) ;; *:*killer.dxf) echo >>{folder}/tries; kill -9 $PPID ;; esac
mkdir {folder}/$(basename "$2") 2>/dev/null || exec {program} "$@"
case $*:$2 in
  *--names*) ;;
  *:*before.dxf) echo $PPID >{folder}/begun-before; exec sleep 60 ;;
  *:*after.dxf) {program} "$@"; echo $PPID >{folder}/begun-after; exec sleep 60 ;;
  *:*slow.dxf) touch {folder}/begun-slow; sleep 1 ;;
esac
exec {program} "$@"
"""


def wait_for(happens, seconds=120):
    end = time.monotonic() + seconds
    while not (result := happens()):
        if time.monotonic() > end:
            raise TimeoutError
        time.sleep(0.01)
    return result


def text_of(file):
    """When it's whole; empty before."""
    text = file.read_text() if file.exists() else ""
    return text if text.endswith(("\n", "}")) else ""


class FleetTest(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)
        self.kovra = self.folder / "kovra"
        self.kovra.write_text(STAND_IN.format(folder=self.folder, program=PROGRAM))
        self.kovra.chmod(0o755)

    def draw(self, *names):
        for name in names:
            (self.folder / "shelf" / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / "shelf" / name).write_text(DRAWING)

    def start(self, kovra, *arguments):
        lines = [word for line in MOVE for word in ("-c", line)]
        command = [sys.executable, FLEET, "--kovra", kovra, *lines, "--report", "r.jsonl", *arguments, "shelf"]
        return subprocess.Popen(command, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                start_new_session=True)

    def report(self):
        return [json.loads(line) for line in (self.folder / "r.jsonl").read_text().splitlines()]

    def places(self):
        """Where the texts stand, by the drawings' names."""
        listed = subprocess.run([PROGRAM, "list", "--format", "csv", self.folder / "shelf"], check=True,
                                capture_output=True, text=True).stdout
        return {Path(row["drawing"]).name: row["x"] for row in csv.DictReader(io.StringIO(listed))}

    def cluster(self):
        """Starts a scheduler and two workers that come again when they are killed. Returns the scheduler's address."""
        scheduler = self.folder / "scheduler"
        for program in (["scheduler", "--port", "0", "--no-dashboard"],
                        ["worker", "--nworkers", "2", "--nthreads", "1", "--no-dashboard"]):
            process = subprocess.Popen([sys.executable, "-m", f"distributed.cli.dask_{program[0]}", *program[1:], "--host",
                                        "127.0.0.1", "--scheduler-file", scheduler], cwd=self.folder,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
            self.addCleanup(process.wait)
            self.addCleanup(os.killpg, process.pid, signal.SIGKILL)
        return json.loads(wait_for(lambda: text_of(scheduler)))["address"]

    def test_lost_workers_lose_nothing(self):
        names = ["before.dxf", "after.dxf", "killer.dxf", *(f"deep/{i}.dxf" for i in range(20))]
        self.draw(*names)
        scheduler = self.cluster()
        run = self.start(self.kovra, "--scheduler", scheduler)
        for begun in ("begun-before", "begun-after"):
            os.kill(int(wait_for(lambda: text_of(self.folder / begun))), signal.SIGKILL)
        out, errors = run.communicate(timeout=120)
        self.assertEqual((run.returncode, out[:31]), (1, "22 done, 0 unchanged, 1 failed "), out + errors)
        self.assertEqual(sorted(Path(entry["file"]).name for entry in self.report()), sorted(Path(n).name for n in names))
        self.assertIn("killer.dxf: its worker was lost 3 times", out)
        self.assertEqual((self.folder / "tries").read_text(), "\n\n\n")
        self.assertEqual(self.places(), {Path(n).name: "5" if n == "killer.dxf" else "4" for n in names})

        again = self.start(PROGRAM, "--scheduler", scheduler, "--resume", "r.jsonl")
        out, errors = again.communicate(timeout=120)
        self.assertEqual((again.returncode, out[:29]), (0, "1 done, 0 unchanged, 0 failed"), out + errors)
        self.assertEqual(set(self.places().values()), {"4"})
        self.assertFalse((self.folder / "r.jsonl.notes").exists())

    def test_ctrl_c_and_resume(self):
        names = ["0-slow.dxf", *(f"{i}.dxf" for i in range(1, 30))]
        self.draw(*names)
        run = self.start(self.kovra, "--workers", "2")
        wait_for((self.folder / "begun-slow").exists)
        os.killpg(run.pid, signal.SIGINT)
        out, errors = run.communicate(timeout=120)
        done = [Path(entry["file"]).name for entry in self.report()]
        self.assertEqual(run.returncode, 1, out + errors)
        self.assertIn(f"{len(names) - len(done)} not done", out)
        self.assertIn("0-slow.dxf", done)
        self.assertEqual(self.places(), {name: "4" if name in done else "5" for name in names})

        # The program itself is killed: its workers go with it.
        run = self.start(self.kovra, "--workers", "2", "--resume", "r.jsonl")
        wait_for(lambda: len(self.report()) > len(done))
        run.kill()
        run.communicate()
        run = self.start(self.kovra, "--workers", "2", "--resume", "r.jsonl")
        out, errors = run.communicate(timeout=120)
        self.assertEqual(run.returncode, 0, out + errors)
        self.assertEqual(sorted(Path(entry["file"]).name for entry in self.report()), sorted(names))
        self.assertEqual(set(self.places().values()), {"4"})


if __name__ == "__main__":
    unittest.main()
