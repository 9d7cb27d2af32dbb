#!/usr/bin/env python3
"""Draws every dialog in both languages, as its command opens it on the example project.

    tools/make_pictures.py KOVRA [FOLDER]

KOVRA is the program. FOLDER (docs/dialogs) gets an SVG file for each dialog and language, a PNG file with its native window
where desktop_play lies beside KOVRA, and a page that shows them.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LANGUAGES = {"ja": "Japanese", "en": "English"}
OPTION_FRAME = 3930
COUNT_UP = ("@preselect 120,67 162,73", "KOVRA_TEXT_COUNTUP", "@check 1967 on", "@click 1975")
COUNTED = ("KOVRA_TEXT", "@click 1976", "@check 1967 on", "@type 1932 X", "@type 1933 004")
ALIGN = ("@preselect 18,80 100,45", "KOVRA_TEXT_ALIGN", "@check 4637 on", "@type 4650 2.5")
PROPERTIES = ("@preselect 18,80 100,45", "KOVRA_TEXT_PROPERTIES", "@check 1967 on", "@choose 1978 CMNT", "@check 1969 on",
              "@type 1980 2.5")
EDIT_PROPERTY = ("KOVRA_TEXT_EDITPROP", "@choose 4440 #0", "@click 1960")
COPY = ("KOVRA_ATTR_COPY", "@check 1968 on", "@check 1971 on", "@choose 1982 #9")
COPY_ALL = (*COPY, "@check 1973 on", "@type 1931 NAME+,CAP", "@choose 2013 #3")
OPTIONS = ("KOVRA_OPTIONS", "@cells 1926 2 1 3 1")
RATIOS = ("KOVRA_OPTIONS", "@choose 1925 #4", "@key 3978 Down", "@key 3978 F2")
LINES = ("KOVRA_TEXT", "@click 1974", '@type 1937 "NOTES\\n1. ALL WIRES 2 sq"')


@dataclass
class Picture:
    template: int
    version: str  # of the project's data
    lines: tuple
    what: str
    end: str = "@close"
    name: str = ""
    frame: int = 0  # the dialog that the template is a page of

    def file(self, language):
        return f"{self.template}{self.name}_{language}.svg"

    def native_file(self, language):
        return f"{self.template}{self.name}_{language}.png"


PICTURES = (
    Picture(523, "6.0", ("KOVRA_TEXT",), "Texts one after another, below data version 7.00", "@esc"),
    Picture(524, "9.0", ("@preselect E7", "KOVRA_TEXT_RESIZEH"), "The height of one text, step by step"),
    Picture(529, "9.0", COUNTED, "Texts from data version 7.00 on: a counted array"),
    Picture(532, "11.0", COUNTED, "The same from 10.0 on"),
    Picture(534, "12.0", COUNTED, "The same from 12.0 on"),
    Picture(534, "12.0", LINES, "A text of several lines", name="-lines"),
    Picture(1641, "15.0", COUNTED, "With values adopted from the text style"),
    Picture(526, "9.0", COUNT_UP, "Counted copies below data version 10.0", "@click 2"),
    Picture(531, "12.0", COUNT_UP, "Counted copies from 10.0 on", "@click 2"),
    Picture(530, "9.0", COPY[:2], "Properties copied to attributes below data version 11.0", "@click 2"),
    Picture(533, "11.0", COPY, "The same from 11.0 on", "@click 2"),
    Picture(535, "12.0", COPY_ALL, "The same from 12.0 on, through the whole project", "@click 2"),
    Picture(1739, "12.0", ALIGN, "Texts aligned into a column", "@click 2"),
    Picture(525, "12.0", PROPERTIES, "Properties of many texts at once", "@click 2"),
    Picture(1596, "12.0", EDIT_PROPERTY, "Properties given to texts, and the project's sets of them", "@click 2"),
    Picture(1529, "11.0", OPTIONS, "Options: the tables that the text dialogs offer, below data version 12.0", frame=OPTION_FRAME),
    Picture(1559, "12.0", RATIOS, "The same from 12.0 on", frame=OPTION_FRAME),
)


def draw(program, picture, language, folder):
    """Runs the program on a copy of the example; fails when another dialog opens. Played on native windows the script is
    the same, and the picture is taken of the window."""
    native = program.name == "desktop_play"
    file = picture.native_file(language) if native else picture.file(language)
    line = [] if native else [f"@picture {file} dialog"]
    environment = {**os.environ, "KOVRA_PLAY_PICTURE": str(folder.resolve() / file)}
    with tempfile.TemporaryDirectory() as place:
        project = Path(place) / "panel"
        shutil.copytree(ROOT / "examples" / "panel", project)
        settings = project / "project.ini"
        text = re.sub(r"DataVersion=.*", f"DataVersion={picture.version}", settings.read_text("utf-8"))
        settings.write_text(text, "utf-8")
        lines = (*picture.lines, "@dialog", *line, picture.end)
        run = subprocess.run(
            [program, "--project", project, "--language", language, "--state", Path(place) / "state.db", "--script", "-",
             project / "motor-1.dxf"], input="\n".join(lines), text=True, cwd=folder, capture_output=True, check=False,
            env=environment)
        if run.returncode != 0 or f" template {picture.frame or picture.template} " not in run.stdout:
            sys.exit(f"{file}: {run.stderr or run.stdout}")


def row(cells):
    return "| " + " | ".join(cells) + " |"


def page():
    text = ["# Dialogs", "", "Made by `make pictures`: each dialog as its command opens it on the example project, drawn by `kovra`",
            "(`@picture`) and, below, as `kovra-desktop` shows it; there the window takes the looks of its desktop.", ""]
    for picture in PICTURES:
        text += [f"## {picture.template}: {picture.what}", "", "| " + " | ".join(LANGUAGES.values()) + " |", "|---|---|",
                 row(f"![{picture.template} {language}]({picture.file(language)})" for language in LANGUAGES),
                 row(f"![{picture.template} {language}, native]({picture.native_file(language)})" for language in LANGUAGES), ""]
    return "\n".join(text)


def make(kovra, folder):
    folder.mkdir(parents=True, exist_ok=True)
    programs = [program for program in (kovra, kovra.with_name("desktop_play")) if program.exists()]
    for picture in PICTURES:
        for language in LANGUAGES:
            for program in programs:
                draw(program, picture, language, folder)
    (folder / "README.md").write_text(page(), "utf-8")


if __name__ == "__main__":
    make(Path(sys.argv[1]).resolve(), Path(sys.argv[2]) if len(sys.argv) > 2 else ROOT / "docs" / "dialogs")
