"""The benchmark of the two commands that give properties to many texts: height, layer and alignment of all texts of a drawing, and the
time until the dialog shows; beside it the same changes by ezdxf."""

import sys
from pathlib import Path

from measuring import Result, measured

HERE = Path(__file__).resolve().parent
HEIGHT, LAYER = 3, "NOTES"
MIDDLE_CENTER = 8  # row of the alignments
HEAD = ["texts", "alignment", "command", "open and save, s", "dialog, s", "change, s", "a text, us", "ezdxf, s", "ezdxf to kovra",
        "memory, MB"]
ALIGNMENTS = {"left": (0, 0), "top right": (2, 3)}
COMMANDS = {  # lines until the dialog shows, lines behind
    "properties": (
        ["@preselect all", "KOVRA_TEXT_PROPERTIES"],
        ["@check 1967 on", f"@type 1978 {LAYER}", "@check 1969 on", f"@type 1980 {HEIGHT}", "@check 1972 on",
         f"@choose 1983 #{MIDDLE_CENTER}", "@click 1"]),
    "property set": (
        ["KOVRA_TEXT_EDITPROP"],
        ["@check 1967 on", f"@choose 1978 {LAYER}", "@check 1968 on", f"@type 1932 {HEIGHT}", "@check 1971 on",
         f"@choose 1982 #{MIDDLE_CENTER}", "@click 1", "@select all", "@enter", "@enter"]),
}
CANCEL = ["@click 2"]


def make_source(path, count, mode):
    sys.path.insert(0, str(HERE.parent / "tools"))
    from dxf_writer import Drawing, text
    drawing = Drawing("AC1015", "ANSI_1252", 1.0, (4000.0, 4000.0))
    drawing.layer(LAYER, 3)
    drawing.add(*(text("0", i % 100 * 40, i // 100 * -8, f"X{i:05}", 2, mode=mode) for i in range(count)))
    drawing.save(path)


def run_one(build, folder, source, lines):
    target, state, project = folder / "properties.dxf", folder / "state.db", folder / "project"
    project.mkdir(exist_ok=True)
    (project / "project.ini").write_text("[Project]\nDataVersion=12.0\n")
    (folder / "properties.kovra").write_text("\n".join(lines))
    state.unlink(missing_ok=True)
    return measured(build / "bin" / "measure", target, [
        build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup", "--state", state, "--project", project,
        "--language", "en", "-s", folder / "properties.kovra"])


def ezdxf_one(build, folder, source):
    target = folder / "properties-ezdxf.dxf"
    return measured(build / "bin" / "measure", target, [
        sys.executable, HERE / "ezdxf_properties.py", source, target, LAYER, str(HEIGHT)])


def rows_of(build, folder, count, alignment, source):
    """A row a command; processor time, which other programs disturb less."""
    ezdxf = ezdxf_one(build, folder, source)
    for command, (start, change) in COMMANDS.items():
        runs = [*(run_one(build, folder, source, lines) for lines in ([], start + CANCEL, start + change)), ezdxf]
        cells = [run for run in runs if not isinstance(run, Result)][:1]
        if not cells:
            idle, shown, changed, other = (run.processor for run in runs)
            cells = [f"{idle:.2f}", f"{shown - idle:.2f}", f"{changed - shown:.2f}", f"{1e6 * (changed - shown) / count:.1f}",
                     f"{other:.2f}", f"{other / changed:.1f}", f"{runs[2].memory / 1e6:.0f}"]
        yield [str(count), alignment, command, *cells, *[""] * (len(HEAD) - 3 - len(cells))]


def property_rows(build, folder, counts):
    """The head of the table and its rows."""
    rows = []
    for count in counts:
        for name, mode in ALIGNMENTS.items():
            source = folder / "properties-source.dxf"
            make_source(source, count, mode)
            rows += rows_of(build, folder, count, name, source)
    return HEAD, rows
