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
PACKAGING = Path(__file__).resolve().parent.parent.parent / "packaging"


def help_of(*subcommand):
    return subprocess.run([PROGRAM, *subcommand, "--help"], check=True, capture_output=True, text=True).stdout


def subcommands():
    return re.findall(r"^  (\w+) ", help_of().split("Subcommands:", 1)[1].split("\n\n", 1)[0], re.M)


class PackagingTest(unittest.TestCase):
    def test_manual_pages(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([PACKAGING / "make_manual.sh", PROGRAM, folder], check=True)
            pages = {"": "kovra", **{name: f"kovra-{name}" for name in subcommands()}}
            for subcommand, page in pages.items():
                text = gzip.open(Path(folder) / f"{page}.1.gz", "rt").read().replace("\\-", "-")
                options = re.findall(r"--[a-z][a-z-]*", help_of(*filter(None, [subcommand])))
                self.assertGreater(len(options), 1)
                for option in options:
                    self.assertIn(option, text, page)

    def test_manual_page_of_the_window(self):
        window = PROGRAM.with_name("kovra-desktop")
        if not window.exists():
            self.skipTest("it is built only where Qt is installed")
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([PACKAGING / "make_manual.sh", PROGRAM, folder], check=True)
            text = gzip.open(Path(folder) / "kovra-desktop.1.gz", "rt").read().replace("\\-", "-")
            usage = subprocess.run([window, "--help"], check=True, capture_output=True, text=True).stdout
            for option in re.findall(r"--[a-z][a-z-]*", usage):
                self.assertIn(option, text)

    def test_completions(self):
        for name in ("kovra.bash", "_kovra"):
            text = (PACKAGING / name).read_text()
            for subcommand in subcommands():
                self.assertRegex(text, rf"\b{subcommand}\b", name)
        subprocess.run(["bash", "-n", PACKAGING / "kovra.bash"], check=True)


if __name__ == "__main__":
    unittest.main()
