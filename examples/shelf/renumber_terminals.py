#!/usr/bin/python3
"""Renumbers the terminals of a shelf, from drawing to drawing: renumber_terminals.py PROJECT FOLDER OLD NEW FIRST

The texts whose value is OLD with a number behind it (TB1-1, TB1-2 ...) become NEW with FIRST, FIRST + 1 ..., in the order
of the drawings' names and from left to right, from top to bottom. Each takes the place, layer and look of the old one.
"""

import json
import os
import subprocess
import sys

KOVRA = os.environ.get("KOVRA", "kovra")


def terminals(folder, old):
    """The texts by drawing, in order."""
    listing = subprocess.run([KOVRA, "list", folder, "--format", "json"], check=True, stdout=subprocess.PIPE).stdout
    drawings = {}
    for text in map(json.loads, listing.splitlines()):
        number = text["value"].removeprefix(old)
        if text["kind"] == "TEXT" and text["space"] == "model" and number != text["value"] and number.isdecimal():
            drawings.setdefault(text.get("drawing", folder), []).append(text)
    return {name: sorted(texts, key=lambda text: (text["x"], -text["y"])) for name, texts in sorted(drawings.items())}


def lines_for(texts, new, first):
    """What a person would do: take the look of each text, place the next number there, at last erase the old ones."""
    lines = ["KOVRA_TEXT", "@click 1974"]
    for number, text in enumerate(texts, first):
        lines += ["@click 1995", f"@pick {text['handle']}", f'@type 1937 "{new}{number}"', "@click 1",
                  f"@point {text['x']!r},{text['y']!r}"]
    return [*lines, "@close", "ERASE", "@select " + " ".join(text["handle"] for text in texts), "@enter"]


def main():
    project, folder, old, new, number = sys.argv[1:]
    number = int(number)
    for drawing, texts in terminals(folder, old).items():
        subprocess.run([KOVRA, drawing, "--save", "--quiet", "-p", project, "-s", "-"], check=True, text=True,
                       input="\n".join(lines_for(texts, new, number)))
        print(f"{drawing}: {new}{number} to {new}{number + len(texts) - 1}")
        number += len(texts)


if __name__ == "__main__":
    main()
