#!/usr/bin/python3
"""All wire numbers of a shelf as a table: where each stands, and how often. wire_table.py FOLDER >wires.csv

A number that stands in one place only is a wire without an end.
"""

import csv
import io
import os
import subprocess
import sys
from collections import Counter

KOVRA = os.environ.get("KOVRA", "kovra")


def main():
    listing = subprocess.run([KOVRA, "list", sys.argv[1], "--tag", "SENBAN,SENBAN#", "--format", "csv", "--raw"],
                             check=True, stdout=subprocess.PIPE, text=True).stdout
    # A block's own wire number is only a sample: those of references stand in model space and the layouts.
    wires = Counter((row["value"], row["drawing"]) for row in csv.DictReader(io.StringIO(listing))
                    if row["kind"] == "ATTRIB" and row["value"])
    table = csv.writer(sys.stdout)
    table.writerow(["wire", "drawing", "ends"])
    table.writerows((wire, drawing, ends) for (wire, drawing), ends in sorted(wires.items()))


if __name__ == "__main__":
    main()
