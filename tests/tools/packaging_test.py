#!/usr/bin/env python3
"""The manual pages name every subcommand and option of the program, the completions every subcommand.

Usage: packaging_test.py PROGRAM
"""

import gzip
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1)).resolve()
WINDOW = PROGRAM.with_name("kovra-desktop")
ROOT = Path(__file__).resolve().parent.parent.parent
PACKAGING = ROOT / "packaging"
FLEET = ROOT / "fleet" / "kovra_fleet.py"


def help_of(*program):
    return subprocess.run([*program, "--help"], check=True, capture_output=True, text=True).stdout


def subcommands():
    return re.findall(r"^  (\w+) ", help_of(PROGRAM).split("Subcommands:", 1)[1].split("\n\n", 1)[0], re.M)


class PackagingTest(unittest.TestCase):
    def test_manual_pages(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([PACKAGING / "make_manual.sh", PROGRAM, FLEET, folder], check=True)
            pages = {"kovra": [PROGRAM], "kovra-fleet": [FLEET],
                     **{f"kovra-{name}": [PROGRAM, name] for name in subcommands()}}
            if WINDOW.exists():  # it is built only where Qt is installed
                pages[WINDOW.name] = [WINDOW]
            for page, program in pages.items():
                text = gzip.open(Path(folder) / f"{page}.1.gz", "rt").read().replace("\\-", "-")
                options = re.findall(r"--[a-z][a-z-]*", help_of(*program))
                self.assertGreater(len(options), 1)
                for option in options:
                    self.assertIn(option, text, page)

    def test_completions(self):
        for name in ("kovra.bash", "_kovra"):
            text = (PACKAGING / name).read_text()
            for subcommand in subcommands():
                self.assertRegex(text, rf"\b{subcommand}\b", name)
        subprocess.run(["bash", "-n", PACKAGING / "kovra.bash"], check=True)


if __name__ == "__main__":
    unittest.main()
