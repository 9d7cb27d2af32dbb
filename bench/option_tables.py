"""The benchmark of the options' page: a table of many rows is loaded from the parameter file, pasted over, scrolled through and saved;
beside it the same file read and written by Python's configparser."""

import sys
from pathlib import Path

from measuring import Result, measured

HERE = Path(__file__).resolve().parent
HEAD = ["rows", "start, s", "load, s", "paste, s", "scroll, s", "save, s", "configparser, s", "to load and save", "memory, MB"]
PAGE = 10  # rows that a press of the key scrolls, about
OPEN, CANCEL, OK, PASTE = "KOVRA_OPTIONS", "@click 2", "@click 1", "@key 1926 Ctrl+V"
CONFIGPARSER = """
import configparser, sys
file = configparser.ConfigParser()
file.read(sys.argv[1])
for key in file["TEXT"]:
    file["TEXT"][key] = "P" + file["TEXT"][key]
file.write(open(sys.argv[2], "w"))
"""


def make_project(folder, count):
    folder.mkdir(exist_ok=True)
    (folder / "project.ini").write_text("[Project]\nDataVersion=12.0\n")
    rows = "".join(f"LAYER{row}=L{row}\n" for row in range(1, count + 1))
    (folder / "KovrCad.prm").write_text(f"[TEXT]\n{rows}LAYER_CNT={count}\n")


def run_one(build, folder, count, lines):
    project, script = folder / "options-project", folder / "options.kovra"
    make_project(project, count)
    script.write_text("\n".join(lines))
    return measured(build / "bin" / "measure", project / "KovrCad.prm", [
        build / "bin" / "kovra", "--quiet", "--state", folder / "state.db", "--project", project, "--language", "en", "-s", script], replaces=True)


def configparser_one(build, folder, count):
    project, target = folder / "options-project", folder / "options.prm"
    make_project(project, count)
    return measured(build / "bin" / "measure", target, [sys.executable, "-c", CONFIGPARSER, project / "KovrCad.prm", target])


def option_rows(build, folder, counts):
    """The head of the table and its rows; processor time, which other programs disturb less."""
    rows = []
    for count in counts:
        clip = '@clipboard "' + "".join(f"P{row}\\n" for row in range(count)) + '"'
        scroll = ["@key 1926 PageDown"] * (count // PAGE)
        scripts = ([clip], [clip, OPEN, CANCEL], [clip, OPEN, PASTE, CANCEL], [clip, OPEN, *scroll, CANCEL], [clip, OPEN, PASTE, OK])
        runs = [*(run_one(build, folder, count, lines) for lines in scripts), configparser_one(build, folder, count)]
        cells = [run for run in runs if not isinstance(run, Result)][:1]
        if not cells:
            idle, shown, pasted, scrolled, saved, other = (run.processor for run in runs)
            parts = (idle, shown - idle, pasted - shown, scrolled - shown, saved - pasted, other)
            own = shown - idle + saved - pasted
            cells = [*(f"{part:.3f}" for part in parts), f"{other / own:.1f}", f"{runs[4].memory / 1e6:.0f}"]
        rows.append([str(count), *cells, *[""] * (len(HEAD) - 1 - len(cells))])
    return HEAD, rows
