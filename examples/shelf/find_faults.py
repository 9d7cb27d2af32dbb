#!/usr/bin/python3
"""Texts of a shelf that overlap, and wire numbers on another layer than WIRENO: find_faults.py FOLDER

One line a fault. Exit status 1 if there is any. Of turned texts the upright rectangle around them counts.
"""

import itertools
import json
import os
import re
import subprocess
import sys

KOVRA = os.environ.get("KOVRA", "kovra")
LAYER, TAG = "WIRENO", re.compile(r"SENBAN\d?", re.IGNORECASE)
TOUCH = 1e-6  # that much may be common to texts that only touch


def overlapping(texts):
    """Pairs, found by a line that sweeps over the texts from left to right."""
    reached = []
    for text in sorted(texts, key=lambda text: text["x_min"]):
        reached = [other for other in reached if other["x_max"] > text["x_min"] + TOUCH]
        for other in reached:
            if min(text["y_max"], other["y_max"]) > max(text["y_min"], other["y_min"]) + TOUCH:
                yield other, text
        reached.append(text)


def faults(texts):
    for text in texts:
        if text["kind"] == "ATTRIB" and TAG.fullmatch(text["tag"]) and text["layer"] != LAYER:
            yield f"wire number {text['value']} ({text['handle']}) lies on {text['layer']}"
    drawn = [text for text in texts if text["x_min"] is not None and text["value"].strip() and text["kind"] != "ATTDEF"]
    for _, together in itertools.groupby(drawn, key=lambda text: text["space"]):
        for one, other in overlapping(together):
            yield f"{one['value']} ({one['handle']}) and {other['value']} ({other['handle']}) overlap"


def main():
    listing = subprocess.run([KOVRA, "list", sys.argv[1], "--extents", "--format", "json"], check=True,
                             stdout=subprocess.PIPE).stdout
    found = False
    rows = map(json.loads, listing.splitlines())
    for drawing, texts in itertools.groupby(rows, key=lambda text: text.get("drawing", sys.argv[1])):
        for fault in faults(list(texts)):
            found = True
            print(f"{drawing}: {fault}")
    sys.exit(found)


if __name__ == "__main__":
    main()
