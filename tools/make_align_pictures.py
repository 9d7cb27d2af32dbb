#!/usr/bin/env python3
"""Draws what the align command makes of a few texts, for docs/aligning.md.

    tools/make_align_pictures.py KOVRA [FOLDER]

KOVRA is the program. FOLDER (docs/aligning) gets a picture of the texts before, and of each way of placing them.
"""
import subprocess
import sys
import tempfile
from pathlib import Path

from dxf_writer import Drawing, rectangle, text

ROOT = Path(__file__).resolve().parent.parent
WINDOW = "0,0,120,60"
START = ("@preselect 5,5 50,58", "KOVRA_TEXT_ALIGN", "@check 4637 on", "@type 4650 3", "@check 4639 on", "@type 4652 0",
         "@check 4640 on", "@choose 4653 #0", "@click 4657", "@type 4655 2")
WAYS = {
    "before": (),
    "drag": (*START, "@click 4658", "@click 1", "@move 70,40", "@point 75,48"),
    "base": (*START, "@click 4659", "@click 1", "@pick 21,29"),
    "copy": (*START, "@click 4662", "@click 1", "@move 70,40", "@point 75,48"),
}


def sheet(path):
    drawing = Drawing("AC1032", "ANSI_1252", 1.0, (120, 60))
    drawing.layer("FRAME", 8)
    drawing.add(*rectangle("FRAME", 2, 2, 116, 56))
    drawing.add(text("0", 8, 51, "MC1 COIL", 4), text("0", 30, 42, "THR1", 2.5, mode=(1, 0)),
                text("0", 20, 28, "PB1 START", 3), text("0", 12, 34, "PB2 STOP", 3.5, rotation=15),
                text("0", 34, 15, "GL1 RUN", 2, mode=(4, 0)))
    drawing.save(path)


def draw(kovra, name, lines, folder):
    with tempfile.TemporaryDirectory() as place:
        source, result = Path(place) / "texts.dxf", Path(place) / f"{name}.dxf"
        sheet(source)
        run = subprocess.run([kovra, "--language", "en", "--state", Path(place) / "state.db", "-o", result, "--script", "-",
                              source], input="\n".join(lines), text=True, capture_output=True, check=False)
        if run.returncode != 0:
            sys.exit(f"{name}: {run.stderr}")
        subprocess.run([kovra, "plot", result, "-o", folder / f"{name}.svg", "--window", WINDOW, "--size", "480"], check=True)


def make(kovra, folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, lines in WAYS.items():
        draw(kovra, name, lines, folder)


if __name__ == "__main__":
    make(Path(sys.argv[1]).resolve(), Path(sys.argv[2]) if len(sys.argv) > 2 else ROOT / "docs" / "aligning")
